#include "data/kernels/range.h"

#include "frame/novalue.h"

#include <QThreadPool>

#include <random>

namespace {

template <class Real> SPlacedRange RangeOf(const std::vector<Real>& values)
{
    return FindRange(std::span<const Real>(values));
}

/** As it is defined, one value after the other. */
template <class Real> SPlacedRange SlowRange(const std::vector<Real>& values)
{
    SPlacedRange range;
    for (size_t n = 0; n < values.size(); ++n) {
        const double d = values[n];
        if (!std::isfinite(d) || d == NO_VALUE)
            continue;
        if (range.nMinIndex < 0 || d < range.dMin) {
            range.dMin = d;
            range.nMinIndex = qint64(n);
        }
        if (range.nMaxIndex < 0 || d > range.dMax) {
            range.dMax = d;
            range.nMaxIndex = qint64(n);
        }
    }
    return range;
}

constexpr double NAN_VALUE = std::numeric_limits<double>::quiet_NaN();
constexpr double INF = std::numeric_limits<double>::infinity();

/** Few different values, so that extremes come again and again; some don't count. */
template <class Real> std::vector<Real> Mixed(size_t nCount, bool bHoles)
{
    std::mt19937 random(unsigned(nCount) + bHoles);
    std::vector<Real> values(nCount);
    for (Real& value : values) {
        const unsigned nPick = random() % 1000;
        value = Real(int(random() % 100000) - 50000);
        if (bHoles && nPick < 40)
            value = Real(nPick < 10 ? NAN_VALUE : nPick < 20 ? INF : nPick < 30 ? -INF : NO_VALUE);
    }
    return values;
}

template <class Real> void ExpectAsSlow()
{
    for (const size_t nCount : {1, 7, 31, 32, 33, 4095, 4096, 4097, 100000, 262144, 262145, 1000003})
        for (const bool bHoles : {false, true}) {
            const std::vector<Real> values = Mixed<Real>(nCount, bHoles);
            EXPECT_EQ(RangeOf(values), SlowRange(values)) << nCount << ' ' << bHoles;
        }
}

} // namespace

TEST(Range, TheFirstOfEqualExtremesIsToldWithAnyNumberOfThreads)
{
    QThreadPool& pool = *QThreadPool::globalInstance();
    const int nThreads = pool.maxThreadCount();
    for (const int nMax : {1, 2, 5}) {
        pool.setMaxThreadCount(nMax);
        ExpectAsSlow<float>();
        ExpectAsSlow<double>();
    }
    pool.setMaxThreadCount(nThreads);
}

TEST(Range, WhatDoesntCountIsNeverAnExtreme)
{
    EXPECT_EQ(RangeOf<double>({NAN_VALUE, NO_VALUE, 3.0, INF, -INF, -2.0, NAN_VALUE}),
              (SPlacedRange{-2.0, 3.0, 5, 2}));
    EXPECT_EQ(RangeOf<float>({float(NO_VALUE), 5.0F}), (SPlacedRange{5.0, 5.0, 1, 1}));
    EXPECT_EQ(RangeOf<double>({999999.5, NO_VALUE, 999998.0}), (SPlacedRange{999998.0, 999999.5, 2, 0}));
    const double dLargest = std::numeric_limits<double>::max();
    EXPECT_EQ(RangeOf<double>({dLargest, -dLargest}), (SPlacedRange{-dLargest, dLargest, 1, 0}));
}

TEST(Range, WithoutAValueItIsEmpty)
{
    EXPECT_TRUE(RangeOf<double>({}).IsEmpty());
    EXPECT_TRUE(RangeOf<float>(std::vector<float>(5000, float(NO_VALUE))).IsEmpty());
    EXPECT_TRUE(RangeOf<double>({NAN_VALUE, INF, -INF}).IsEmpty());
}

TEST(Range, ZerosOfBothSignsAreEqual)
{
    std::vector<double> values(100, 0.0);
    values[0] = -0.0;
    const SPlacedRange range = RangeOf(values);
    EXPECT_EQ(range.nMinIndex, 0);
    EXPECT_EQ(range.nMaxIndex, 0);
    EXPECT_TRUE(std::signbit(range.dMax)); // the one that stands there
}
