#pragma once

#include "data/values/blockshape.h"

#include <span>
#include <vector>

/** The points of a list that one part of a block has. */
struct SSharedPoints
{
    std::vector<qint64> places;  ///< in the list
    std::vector<qint64> indices; ///< flat ones in the part
};

/**
 * @param points   flat indices in the block
 * @param hasPoint hasPoint(ijk), asked of addresses within the part alone
 */
template <class HasPoint>
SSharedPoints FindSharedPoints(std::span<const qint64> points, const SBlockShape& block,
                               const SBlockShape& part, const HasPoint& hasPoint)
{
    SSharedPoints shared;
    for (size_t n = 0; n < points.size(); ++n) {
        const IVector3D ijk = block.Address(points[n]);
        if (!part.Contains(ijk) || !hasPoint(ijk))
            continue;
        shared.places.push_back(qint64(n));
        shared.indices.push_back(part.PointIndex(ijk));
    }
    return shared;
}

/** Flat indices of a block as those of another one that covers it; an address outside becomes the nearest. */
inline std::vector<qint64> Translated(std::span<const qint64> points, const SBlockShape& block,
                                      const SBlockShape& other)
{
    std::vector<qint64> indices(points.begin(), points.end());
    if (block == other)
        return indices;
    for (qint64& nIndex : indices)
        nIndex = other.PointIndex(other.Clamped(block.Address(nIndex)));
    return indices;
}

inline void Scatter(std::span<const double> values, std::span<const qint64> places, std::span<double> out)
{
    for (size_t n = 0; n < places.size(); ++n)
        out[places[n]] = values[n];
}
