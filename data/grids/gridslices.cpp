#include "data/grids/gridslices.h"

#include <limits>

LoadStatus_e FillRange(const IGrid& grid, const SIJKRange& range, Gaps_e eGaps, const SPointBuffers& out)
{
    const bool bWithin = Intersection(range, grid.GetShape().Range()) == range;
    if (bWithin && (eGaps == GapsAreZeros || !grid.HasGaps())) {
        const SBlockShape before = grid.GetShape();
        const LoadStatus_e eStatus = grid.FillPoints(range, out);
        if (eStatus != LoadBadContent || grid.GetShape() == before)
            return eStatus; // else the load has found another size
    }
    const double dGap = eGaps == GapsAreZeros ? 0.0 : std::numeric_limits<double>::quiet_NaN();
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        std::fill_n(out.Axis(nAxis).begin(), range.Count(), dGap);
    return FillCovered(grid, range, out);
}

LoadStatus_e FillCovered(const IGrid& grid, const SIJKRange& range, const SPointBuffers& out)
{
    const SIJKRange part = Intersection(range, grid.GetShape().Range());
    const bool bGaps = grid.HasGaps();
    CPointScratch scratch(part.Extent().i);
    const SPointBuffers row = scratch.First(part.Extent().i);
    const auto copyRow = [&](const SIJKRange& cut) {
        if (const LoadStatus_e eStatus = grid.FillPoints(cut, row); eStatus != LoadOk)
            return eStatus;
        const qint64 nPlace = range.IndexOf(cut.min);
        for (qint64 n = 0; n < cut.Extent().i; ++n) {
            if (bGaps && !grid.HasPoint(cut.min + IVector3D{n, 0, 0}))
                continue;
            for (int nAxis = 0; nAxis < 3; ++nAxis)
                out.Axis(nAxis)[nPlace + n] = row.Axis(nAxis)[n];
        }
        return LoadOk;
    };
    for (qint64 k = part.min.k; k <= part.max.k && !part.IsEmpty(); ++k)
        for (qint64 j = part.min.j; j <= part.max.j; ++j)
            if (const LoadStatus_e eStatus = copyRow({{part.min.i, j, k}, {part.max.i, j, k}});
                eStatus != LoadOk)
                return eStatus;
    return LoadOk;
}
