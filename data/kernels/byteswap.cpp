#include "data/kernels/byteswap.h"

#include "data/kernels/vectorize.h"

#include <QtEndian>

#include <cstring>

namespace {

/** memcpy, since the values are of any type and may stand anywhere; the compiler makes vectors of it. */
template <class Word> ZENTO_INLINE void SwapAll(std::byte* pBytes, size_t nCount)
{
    for (size_t n = 0; n < nCount; ++n, pBytes += sizeof(Word)) {
        Word word;
        std::memcpy(&word, pBytes, sizeof word);
        word = qbswap(word);
        std::memcpy(pBytes, &word, sizeof word);
    }
}

ZENTO_INLINE void SwapBySize(std::span<std::byte> bytes, int nWordSize)
{
    if (nWordSize == 2)
        SwapAll<quint16>(bytes.data(), bytes.size() / 2);
    else if (nWordSize == 4)
        SwapAll<quint32>(bytes.data(), bytes.size() / 4);
    else if (nWordSize == 8)
        SwapAll<quint64>(bytes.data(), bytes.size() / 8);
}

/** A shuffle of bytes turns a whole vector at once; the oldest machines haven't got it. */
ZENTO_WIDE void SwapWide(std::span<std::byte> bytes, int nWordSize) { SwapBySize(bytes, nWordSize); }

} // namespace

void SwapWords(std::span<std::byte> bytes, int nWordSize)
{
    Q_ASSERT(nWordSize > 0 && bytes.size() % nWordSize == 0);
    if (HasWideVectors())
        SwapWide(bytes, nWordSize);
    else
        SwapBySize(bytes, nWordSize);
}
