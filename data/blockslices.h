#pragma once

#include "data/blockshape.h"

/**
 * Calls visit(part) for slices of whole k planes of a range, in order; each has about so many points that
 * three buffers of them stay in the cache.
 */
template <class Visit> void ForEachSlice(const SIJKRange& range, const Visit& visit)
{
    constexpr qint64 SLICE = 1 << 14; // points
    const qint64 nPlane = range.Extent().i * range.Extent().j;
    if (nPlane == 0)
        return;
    const qint64 nPlanes = std::max<qint64>(1, SLICE / nPlane);
    for (qint64 k = range.min.k; k <= range.max.k; k += nPlanes)
        visit(SIJKRange{{range.min.i, range.min.j, k},
                        {range.max.i, range.max.j, std::min(range.max.k, k + nPlanes - 1)}});
}
