#include "data/io/fileheader.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr qint64 FIRST_READ = 4096; // [bytes] the whole header of most files

template <class Int> Int Decode(const std::byte* pBytes, bool bSwapped)
{
    Int nValue = 0;
    std::memcpy(&nValue, pBytes, sizeof nValue);
    return bSwapped ? qbswap(nValue) : nValue;
}

} // namespace

bool CFileHeader::Provide(qint64 nEnd)
{
    const qint64 nKnown = qint64(m_bytes.size());
    if (nEnd <= nKnown)
        return true;
    if (nEnd > m_file.Size())
        return false;
    const qint64 nTarget = std::min(m_file.Size(), std::max(nEnd, FIRST_READ));
    m_bytes.resize(nTarget);
    if (m_file.Read(nKnown, std::span(m_bytes).subspan(nKnown)))
        return true;
    m_bytes.resize(nKnown);
    return false;
}

qint64 CFileHeader::ReadInt(qint64 nOffset, int nSize, bool bSwapped)
{
    if (!Provide(nOffset + nSize))
        return 0;
    const std::byte* const pBytes = m_bytes.data() + nOffset;
    return nSize == 4 ? Decode<qint32>(pBytes, bSwapped) : Decode<qint64>(pBytes, bSwapped);
}

bool CFileHeader::IsIntInFile(qint64 nOffset, int nSize, bool bSwapped, qint64 nValue) const
{
    std::array<std::byte, 8> bytes = {};
    if (!m_file.Read(nOffset, std::span(bytes).first(nSize)))
        return false;
    return nSize == 4 ? Decode<quint32>(bytes.data(), bSwapped) == nValue
                      : Decode<qint64>(bytes.data(), bSwapped) == nValue;
}

bool CFileHeader::IsZeroFrom(qint64 nOffset, qint64 nMax) const
{
    const qint64 nRest = m_file.Size() - nOffset;
    if (nRest < 0 || nRest > nMax)
        return false;
    std::vector<std::byte> rest(nRest);
    return m_file.Read(nOffset, rest) &&
           std::ranges::all_of(rest, [](std::byte value) { return value == std::byte(0); });
}
