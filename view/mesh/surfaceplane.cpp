#include "view/mesh/surfaceplane.h"

SSurfaceSize SSurfacePlane::Size() const
{
    const auto count = [this](int nAxis) { return std::max<qint64>(end[nAxis] - start[nAxis] + 1, 0); };
    return {count(RowAxis()), count(ColumnAxis())};
}

SIJKRange SSurfacePlane::Range() const
{
    SIJKRange range{start, end};
    range.min[nDirection] = range.max[nDirection] = constants[nDirection];
    return range;
}

IVector3D SSurfacePlane::AddressOf(qint64 nElement) const
{
    const qint64 nColumns = std::max<qint64>(Size().nColumns, 1);
    IVector3D ijk = start;
    ijk[nDirection] = constants[nDirection];
    ijk[RowAxis()] += nElement / nColumns;
    ijk[ColumnAxis()] += nElement % nColumns;
    return ijk;
}

SSurfacePlane FacePlane(const IVector3D& dimensions, int nFace)
{
    SSurfacePlane plane;
    plane.nDirection = nFace / 2;
    plane.end = dimensions;
    if (nFace % 2 == 1)
        plane.constants = dimensions;
    return plane;
}
