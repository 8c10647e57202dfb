#include "data/kernels/range.h"

#include "data/kernels/parallel.h"
#include "data/kernels/vectorize.h"
#include "frame/novalue.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr qint64 PIECE_COUNT = 1 << 18; // values for one thread; whole runs
constexpr size_t RUN_COUNT = 1 << 12;   // values that may be scanned twice, and stay in the cache for it

template <class Real> constexpr Real INFINITE = std::numeric_limits<Real>::infinity();

/** Extremes of a run, without places; min above max: none. */
template <class Real> struct SExtremes
{
    Real min = INFINITE<Real>;
    Real max = -INFINITE<Real>;

    bool IsEmpty() const { return min > max; }
    void Add(Real low, Real high)
    {
        min = low < min ? low : min; // false for NaN, which so never enters
        max = high > max ? high : max;
    }
};

/** Every value as it is. NaN doesn't enter, infinities and NO_VALUE do. */
struct STakeAll
{
    template <class Real> static Real Low(Real value) { return value; }
    template <class Real> static Real High(Real value) { return value; }
};

/** What doesn't count becomes what can't be an extreme; without a branch, so that vectors can be used. */
struct STakeCounted
{
    template <class Real> static bool Counts(Real value)
    {
        return bool(int(std::abs(value) <= std::numeric_limits<Real>::max()) & int(value != Real(NO_VALUE)));
    }
    template <class Real> static Real Low(Real value) { return Counts(value) ? value : INFINITE<Real>; }
    template <class Real> static Real High(Real value) { return Counts(value) ? value : -INFINITE<Real>; }
};

/**
 * Extremes of a run. LANES accumulators, which become vectors: a single one would make each value wait for
 * the one before.
 */
template <class Take, class Real> ZENTO_INLINE SExtremes<Real> ScanLanes(std::span<const Real> values)
{
    constexpr size_t LANES = 32; // fewer are unrolled into single values before vectors are looked for
    const Real* const pValues = values.data();
    SExtremes<Real> extremes;
    Real low[LANES];
    Real high[LANES];
    std::fill_n(low, LANES, INFINITE<Real>);
    std::fill_n(high, LANES, -INFINITE<Real>);
    size_t n = 0;
    for (; n + LANES <= values.size(); n += LANES)
        for (size_t nLane = 0; nLane < LANES; ++nLane) {
            const Real a = Take::Low(pValues[n + nLane]);
            const Real b = Take::High(pValues[n + nLane]);
            low[nLane] = a < low[nLane] ? a : low[nLane];
            high[nLane] = b > high[nLane] ? b : high[nLane];
        }
    for (size_t nLane = 0; nLane < LANES; ++nLane)
        extremes.Add(low[nLane], high[nLane]);
    for (; n < values.size(); ++n)
        extremes.Add(Take::Low(pValues[n]), Take::High(pValues[n]));
    return extremes;
}

template <class Take, class Real> ZENTO_WIDE SExtremes<Real> ScanWide(std::span<const Real> values)
{
    return ScanLanes<Take>(values);
}

template <class Take, class Real> ZENTO_VECTORIZE SExtremes<Real> ScanNarrow(std::span<const Real> values)
{
    return ScanLanes<Take>(values);
}

template <class Take, class Real> SExtremes<Real> Scan(std::span<const Real> values)
{
    return HasWideVectors() ? ScanWide<Take>(values) : ScanNarrow<Take>(values);
}

/** If all values had their say and both extremes count, nothing that doesn't count mattered. */
template <class Real> SExtremes<Real> ScanRun(std::span<const Real> values)
{
    const SExtremes<Real> all = Scan<STakeAll>(values);
    return IsCounted(all.min) && IsCounted(all.max) ? all : Scan<STakeCounted>(values);
}

template <class Real> std::span<const Real> RunAt(std::span<const Real> values, size_t nBegin)
{
    return values.subspan(nBegin, std::min(RUN_COUNT, values.size() - nBegin));
}

/** Extremes, and the beginnings of the first runs that hold them. */
template <class Real> struct SPlacedExtremes
{
    SExtremes<Real> best;
    size_t nMinRun = 0;
    size_t nMaxRun = 0;

    /** Adds what comes behind all that was added before: an equal extreme stays at its first run. */
    void Add(const SPlacedExtremes& later)
    {
        nMinRun = later.best.min < best.min ? later.nMinRun : nMinRun;
        nMaxRun = later.best.max > best.max ? later.nMaxRun : nMaxRun;
        best.Add(later.best.min, later.best.max);
    }
};

template <class Real>
SPlacedExtremes<Real> FindInPiece(std::span<const Real> values, size_t nPieceBegin, size_t nPieceEnd)
{
    SPlacedExtremes<Real> placed;
    for (size_t nBegin = nPieceBegin; nBegin < nPieceEnd; nBegin += RUN_COUNT)
        placed.Add({ScanRun(RunAt(values, nBegin)), nBegin, nBegin});
    return placed;
}

/** Where the value stands first from nBegin on; it is there. */
template <class Real> qint64 FirstPlace(std::span<const Real> values, size_t nBegin, Real value)
{
    return std::find(values.begin() + nBegin, values.end(), value) - values.begin();
}

} // namespace

template <class Real> bool IsCounted(Real value) { return std::isfinite(value) && value != Real(NO_VALUE); }

SPlacedRange JoinRanges(const SPlacedRange& first, const SPlacedRange& second, qint64 nSecondBegin)
{
    SPlacedRange joined = first;
    if (second.IsEmpty())
        return joined;
    if (first.IsEmpty() || second.dMin < first.dMin) {
        joined.dMin = second.dMin;
        joined.nMinIndex = nSecondBegin + second.nMinIndex;
    }
    if (first.IsEmpty() || second.dMax > first.dMax) {
        joined.dMax = second.dMax;
        joined.nMaxIndex = nSecondBegin + second.nMaxIndex;
    }
    return joined;
}

template <class Real> SPlacedRange FindRange(std::span<const Real> values)
{
    std::vector<SPlacedExtremes<Real>> pieces((values.size() + PIECE_COUNT - 1) / PIECE_COUNT);
    RunRanges(qint64(values.size()), PIECE_COUNT, [&](qint64 nPiece, qint64 nBegin, qint64 nEnd) {
        pieces[nPiece] = FindInPiece(values, nBegin, nEnd);
    });
    SPlacedExtremes<Real> all;
    for (const SPlacedExtremes<Real>& piece : pieces)
        all.Add(piece);
    SPlacedRange range;
    if (all.best.IsEmpty())
        return range;
    range.nMinIndex = FirstPlace(values, all.nMinRun, all.best.min);
    range.nMaxIndex = FirstPlace(values, all.nMaxRun, all.best.max);
    range.dMin = values[range.nMinIndex]; // not best.min: of 0.0 and -0.0 the one that stands there
    range.dMax = values[range.nMaxIndex];
    return range;
}

template bool IsCounted(float);
template bool IsCounted(double);
template SPlacedRange FindRange(std::span<const float>);
template SPlacedRange FindRange(std::span<const double>);
