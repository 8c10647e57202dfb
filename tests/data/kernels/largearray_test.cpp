#include "data/kernels/largearray.h"

#include <cstdint>

TEST(LargeArray, SmallOnesAndLargeOnesAreZeroAndCanBeWrittenToTheEnd)
{
    for (const qint64 nCount : {1, 1000, 524288, 524289, 3000001}) { // around the border of huge pages too
        CLargeArray<double> values(nCount);
        ASSERT_EQ(values.Size(), nCount);
        EXPECT_EQ(values.Bytes(), nCount * 8);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(values.Data()) % 16, 0u);
        EXPECT_TRUE(std::ranges::all_of(values.Span(), [](double d) { return d == 0.0; }));
        std::ranges::fill(values.Span(), 1.0);
    }
}

TEST(LargeArray, WhatCantBeHadIsEmpty)
{
    for (const qint64 nCount : {qint64(0), qint64(-1), qint64(1) << 59, std::numeric_limits<qint64>::max()})
        EXPECT_TRUE(CLargeArray<double>(nCount).IsEmpty()) << nCount;
}

TEST(LargeArray, MovingHandsTheMemoryOver)
{
    CLargeArray<float> from(2000000);
    from[1999999] = 5.0F;
    const float* const pData = from.Data();
    CLargeArray<float> to(10);
    to = std::move(from);
    EXPECT_EQ(to.Data(), pData);
    EXPECT_EQ(to[1999999], 5.0F);
    EXPECT_TRUE(from.IsEmpty());
    to.Clear();
    EXPECT_TRUE(to.IsEmpty());
    EXPECT_TRUE(to.Span().empty());
}
