#pragma once

#include "data/values/blockshape.h"
#include "frame/memory/imemoryitem.h"

#include <type_traits>

/**
 * Calls visit(part) for parts of a range that follow one another in the order of flat indices: whole planes
 * if they are small, whole rows otherwise, and pieces of a row if even that is long. A part has at most 2^14
 * points, so that three buffers of them stay in the cache. Where visit gives a LoadStatus_e, the first one
 * that isn't LoadOk ends the loop and is its result.
 */
template <class Visit> auto ForEachSlice(const SIJKRange& range, const Visit& visit)
{
    constexpr qint64 SLICE = 1 << 14; // points
    constexpr bool bStatus = !std::is_void_v<std::invoke_result_t<const Visit&, const SIJKRange&>>;
    const qint64 nLastPlane = range.IsEmpty() ? range.min.k - 1 : range.max.k; // nothing to divide by then
    const IVector3D extent = range.IsEmpty() ? IVector3D{1, 1, 1} : range.Extent();
    const IVector3D step = {std::min(extent.i, SLICE), std::clamp<qint64>(SLICE / extent.i, 1, extent.j),
                            std::clamp<qint64>(SLICE / extent.i / extent.j, 1, extent.k)};
    for (qint64 k = range.min.k; k <= nLastPlane; k += step.k)
        for (qint64 j = range.min.j; j <= range.max.j; j += step.j)
            for (qint64 i = range.min.i; i <= range.max.i; i += step.i) {
                const SIJKRange box{{i, j, k}, IVector3D{i, j, k} + step - IVector3D{1, 1, 1}};
                if constexpr (!bStatus)
                    visit(Intersection(range, box));
                else if (const LoadStatus_e eStatus = visit(Intersection(range, box)); eStatus != LoadOk)
                    return eStatus;
            }
    if constexpr (bStatus)
        return LoadOk;
}
