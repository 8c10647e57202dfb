#pragma once

#include "data/blockshape.h"

/**
 * Calls visit(part) for parts of a range that follow one another in the order of flat indices: whole planes
 * if they are small, whole rows otherwise, and pieces of a row if even that is long. A part has at most 2^14
 * points, so that three buffers of them stay in the cache.
 */
template <class Visit> void ForEachSlice(const SIJKRange& range, const Visit& visit)
{
    constexpr qint64 SLICE = 1 << 14; // points
    if (range.IsEmpty())
        return;
    const IVector3D extent = range.Extent();
    const IVector3D step = {std::min(extent.i, SLICE), std::clamp<qint64>(SLICE / extent.i, 1, extent.j),
                            std::clamp<qint64>(SLICE / extent.i / extent.j, 1, extent.k)};
    for (qint64 k = range.min.k; k <= range.max.k; k += step.k)
        for (qint64 j = range.min.j; j <= range.max.j; j += step.j)
            for (qint64 i = range.min.i; i <= range.max.i; i += step.i)
                visit(Intersection(range, {{i, j, k}, IVector3D{i, j, k} + step - IVector3D{1, 1, 1}}));
}
