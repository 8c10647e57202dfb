#pragma once

#include "data/grids/igrid.h"

#include <vector>

// What every loop over the points of a grid begins with: buffers, cuts of handy size, gaps made visible.

/** Owns buffers for the coordinates of a range. Throws std::bad_alloc. */
class CPointScratch
{
public:
    explicit CPointScratch(qint64 nPointCount) : m_nPointCount(nPointCount), m_values(3 * nPointCount) {}

    /** Room for the first nCount points of each axis. */
    SPointBuffers First(qint64 nCount)
    {
        const std::span<double> all(m_values);
        return {all.subspan(0, nCount), all.subspan(m_nPointCount, nCount),
                all.subspan(2 * m_nPointCount, nCount)};
    }

private:
    qint64 m_nPointCount;
    std::vector<double> m_values;
};

inline DVector3D PointAt(const SPointBuffers& points, qint64 n)
{
    return {points.x[n], points.y[n], points.z[n]};
}

/**
 * Calls visit(range) for parts of a range that follow one another in the order of flat indices: whole planes
 * if they are small, whole rows otherwise, and pieces of a row if even that is long. A part has about 2^16
 * points at most, so that its coordinates stay in the cache.
 */
template <class Visit> void ForEachSliceRange(const SIJKRange& range, const Visit& visit)
{
    constexpr qint64 SLICE = 1 << 16; // points
    const IVector3D extent = range.Extent();
    if (range.IsEmpty())
        return;
    const IVector3D step = {std::min(extent.i, SLICE), std::clamp<qint64>(SLICE / extent.i, 1, extent.j),
                            std::clamp<qint64>(SLICE / extent.i / extent.j, 1, extent.k)};
    for (qint64 k = range.min.k; k <= range.max.k; k += step.k)
        for (qint64 j = range.min.j; j <= range.max.j; j += step.j)
            for (qint64 i = range.min.i; i <= range.max.i; i += step.i)
                visit(Intersection(range, {{i, j, k}, IVector3D{i, j, k} + step - IVector3D{1, 1, 1}}));
}

/** What stands in place of a point that the grid doesn't have. */
enum Gaps_e { GapsAreZeros, GapsAreNaN };

/**
 * The coordinates of any range, also of one that reaches out of the grid. Loops over a block use this and not
 * FillPoints, since a first load may correct the dimensions that the loop began with.
 */
void FillRange(const IGrid& grid, const SIJKRange& range, Gaps_e eGaps, const SPointBuffers& out);

/** Writes the points of any range that the grid has; what it doesn't have stays as it is. */
void FillCovered(const IGrid& grid, const SIJKRange& range, const SPointBuffers& out);

/** Calls visit(part, points) for each slice of a range of the grid, filled by FillRange. */
template <class Visit>
void ForEachSlice(const IGrid& grid, const SIJKRange& range, Gaps_e eGaps, const Visit& visit)
{
    qint64 nLargest = 0;
    ForEachSliceRange(range, [&](const SIJKRange& part) { nLargest = std::max(nLargest, part.Count()); });
    CPointScratch scratch(nLargest);
    ForEachSliceRange(range, [&](const SIJKRange& part) {
        const SPointBuffers points = scratch.First(part.Count());
        FillRange(grid, part, eGaps, points);
        visit(part, points);
    });
}
