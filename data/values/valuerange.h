#pragma once

#include "frame/novalue.h"

#include <algorithm>
#include <cmath>
#include <limits>

/** Minimum and maximum of a quantity; empty (not computed) while the maximum lies below the minimum. */
struct SValueRange
{
    double dMin = std::numeric_limits<double>::max();
    double dMax = -std::numeric_limits<double>::max();

    bool IsEmpty() const { return dMax < dMin; }
    bool Contains(double dValue) const { return dMin <= dValue && dValue <= dMax; }
    void Add(double dValue)
    {
        dMin = std::min(dMin, dValue);
        dMax = std::max(dMax, dValue);
    }
    void Add(const SValueRange& other)
    {
        dMin = std::min(dMin, other.dMin);
        dMax = std::max(dMax, other.dMax);
    }
    friend bool operator==(const SValueRange&, const SValueRange&) = default;
};

/** Whether a field value counts in ranges: the no-value marker, NaN and infinities don't. */
inline bool IsFieldValue(double dValue) { return std::isfinite(dValue) && dValue != NO_VALUE; }
