#pragma once

#include <QtGlobal>

#include <limits>
#include <span>

/** Least and greatest value of a field, and where the first of each stands. */
struct SPlacedRange
{
    double dMin = std::numeric_limits<double>::max();    ///< as it is here: no value counted
    double dMax = std::numeric_limits<double>::lowest(); ///< the same
    qint64 nMinIndex = -1;                               ///< zero-based; -1 if no value counted
    qint64 nMaxIndex = -1;

    bool IsEmpty() const { return nMinIndex < 0; }

    friend bool operator==(const SPlacedRange&, const SPlacedRange&) = default;
};

/** True for what counts in a range: all but NO_VALUE, infinities and NaN. */
template <class Real> bool IsCounted(Real value);

/**
 * The range of the values that count. Of equal extremes the first is told, whatever the number of threads;
 * -0.0 and 0.0 are equal.
 *
 * @param Real  float or double
 * @note  fans out over the global thread pool; may be called from any thread
 */
template <class Real> SPlacedRange FindRange(std::span<const Real> values);

/**
 * The range of two fields that follow each other, the second from index nSecondBegin on. Joining in order
 * gives the same as one scan.
 */
SPlacedRange JoinRanges(const SPlacedRange& first, const SPlacedRange& second, qint64 nSecondBegin);
