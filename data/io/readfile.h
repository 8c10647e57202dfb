#pragma once

#include <QString>

#include <cstddef>
#include <span>

/**
 * A regular file, open for reading at any place. Every read names its place, so several threads may read at
 * the same time. A file that becomes shorter while it is open gives short reads, never a crash.
 */
class CReadFile
{
public:
    CReadFile() = default;
    ~CReadFile();
    CReadFile(CReadFile&& other) noexcept;
    CReadFile& operator=(CReadFile&& other) noexcept;

    /**
     * Opens the file; one that was open before is closed.
     *
     * @return false for a file that isn't there or may not be read, and for everything that is no regular
     *         file (folders, pipes, devices), which then isn't touched
     */
    bool Open(const QString& sFileName);
    bool IsOpen() const { return m_nHandle >= 0; }
    void Close();

    /** Size when the file was opened [bytes]. */
    qint64 Size() const { return m_nSize; }

    /** Fills bytes from nOffset on. False if the file ends before, or can't be read: bytes is undefined then.
     */
    bool Read(qint64 nOffset, std::span<std::byte> bytes) const;

private:
    int m_nHandle = -1;
    qint64 m_nSize = 0;
};
