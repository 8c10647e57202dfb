#include "data/io/readfile.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

CReadFile::~CReadFile() { Close(); }

CReadFile::CReadFile(CReadFile&& other) noexcept
    : m_nHandle(std::exchange(other.m_nHandle, -1)), m_nSize(std::exchange(other.m_nSize, 0))
{}

CReadFile& CReadFile::operator=(CReadFile&& other) noexcept
{
    std::swap(m_nHandle, other.m_nHandle);
    std::swap(m_nSize, other.m_nSize);
    return *this;
}

bool CReadFile::Open(const QString& sFileName)
{
    Close();
    // Without O_NONBLOCK a pipe would wait here for its writer.
    m_nHandle = ::open(QFile::encodeName(sFileName).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat status = {};
    if (m_nHandle < 0 || ::fstat(m_nHandle, &status) != 0 || !S_ISREG(status.st_mode)) {
        Close();
        return false;
    }
    m_nSize = status.st_size;
    return true;
}

void CReadFile::Close()
{
    if (m_nHandle >= 0)
        ::close(m_nHandle);
    m_nHandle = -1;
    m_nSize = 0;
}

bool CReadFile::Read(qint64 nOffset, std::span<std::byte> bytes) const
{
    while (!bytes.empty()) {
        const ssize_t nRead = ::pread(m_nHandle, bytes.data(), bytes.size(), nOffset);
        if (nRead < 0 && errno == EINTR)
            continue;
        if (nRead <= 0)
            return false;
        bytes = bytes.subspan(nRead);
        nOffset += nRead;
    }
    return true;
}
