#include "data/kernels/byteswap.h"

#include <numeric>

namespace {

/** Bytes 0, 1, 2... and the order in which they have to come out. */
void ExpectSwapped(int nWordSize, int nWords)
{
    std::vector<std::byte> bytes(nWordSize * nWords + 1);
    for (size_t n = 0; n < bytes.size(); ++n)
        bytes[n] = std::byte(n % 251);
    SwapWords(std::span(bytes).subspan(1), nWordSize); // not aligned
    EXPECT_EQ(bytes[0], std::byte(0));
    for (int n = 0; n < nWordSize * nWords; ++n) {
        const int nFrom = n / nWordSize * nWordSize + nWordSize - 1 - n % nWordSize;
        ASSERT_EQ(bytes[1 + n], std::byte((1 + nFrom) % 251)) << nWordSize << ' ' << nWords << ' ' << n;
    }
}

} // namespace

TEST(ByteSwap, EachWordIsTurnedAndNothingBesideIt)
{
    for (const int nWordSize : {2, 4, 8})
        for (const int nWords : {0, 1, 3, 4, 7, 8, 33, 1000}) // below, at and between whole vectors
            ExpectSwapped(nWordSize, nWords);
}

TEST(ByteSwap, ANumberTurnedTwiceIsItself)
{
    std::vector<double> values = {1.5, -0.0, 1e300, 5e-324, 7.0};
    const std::vector<double> former = values;
    SwapBytes(std::span(values));
    EXPECT_NE(values, former);
    SwapBytes(std::span(values));
    EXPECT_EQ(values, former);
}
