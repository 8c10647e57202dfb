#pragma once

#include "data/grids/igrid.h"
#include "data/values/blockslices.h"

#include <vector>

// What every loop over the points of a grid begins with: buffers, slices, gaps made visible.

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

/** What stands in place of a point that the grid doesn't have. */
enum Gaps_e { GapsAreZeros, GapsAreNaN };

/**
 * The coordinates of any range, also of one that reaches out of the grid. Loops over a block use this and not
 * FillPoints, since a first load may correct the dimensions that the loop began with.
 */
LoadStatus_e FillRange(const IGrid& grid, const SIJKRange& range, Gaps_e eGaps, const SPointBuffers& out);

/** Writes the points of any range that the grid has; what it doesn't have stays as it is. */
LoadStatus_e FillCovered(const IGrid& grid, const SIJKRange& range, const SPointBuffers& out);

/**
 * The means of the corners of a range of cells, as GetCellCentre gives them: corners that fell together count
 * once, and those that the grid doesn't have not at all.
 */
LoadStatus_e FillCellCentres(const IGrid& grid, const SIJKRange& cells, const SPointBuffers& out);

/** Calls visit(part, points) for each slice of a range of the grid, filled by FillRange, up to the first
 * failure. */
template <class Visit>
LoadStatus_e ForEachSlice(const IGrid& grid, const SIJKRange& range, Gaps_e eGaps, const Visit& visit)
{
    qint64 nLargest = 0;
    ForEachSlice(range, [&](const SIJKRange& part) { nLargest = std::max(nLargest, part.Count()); });
    CPointScratch scratch(nLargest);
    return ForEachSlice(range, [&](const SIJKRange& part) {
        const SPointBuffers points = scratch.First(part.Count());
        const LoadStatus_e eStatus = FillRange(grid, part, eGaps, points);
        if (eStatus == LoadOk)
            visit(part, points);
        return eStatus;
    });
}
