#pragma once

#include "data/io/readfile.h"

#include <vector>

/**
 * The beginning of a file in memory, for probes that look at the same few bytes again and again. Each byte
 * is read once. Used by one thread.
 */
class CFileHeader
{
public:
    explicit CFileHeader(const CReadFile& file) : m_file(file) {}

    qint64 FileSize() const { return m_file.Size(); }

    /**
     * Reads up to nEnd, in one piece, what isn't in memory yet.
     *
     * @return false if the file is shorter, or can't be read
     */
    bool Provide(qint64 nEnd);

    /**
     * The signed integer of nSize (4 or 8) bytes at nOffset, which is provided first if need be.
     *
     * @param bSwapped  its byte order isn't this machine's
     * @return 0 where the file ends before, or can't be read
     */
    qint64 ReadInt(qint64 nOffset, int nSize, bool bSwapped);

    /**
     * True if the integer at nOffset, anywhere in the file, has the value. Integers of 4 bytes are compared
     * without sign, so that they can count up to 4 GiB.
     */
    bool IsIntInFile(qint64 nOffset, int nSize, bool bSwapped, qint64 nValue) const;

    /** True if all bytes from nOffset to the end of the file are zero, and no more than nMax. */
    bool IsZeroFrom(qint64 nOffset, qint64 nMax) const;

private:
    const CReadFile& m_file;
    std::vector<std::byte> m_bytes;
};
