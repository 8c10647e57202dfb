#include "data/grids/flippedgrid.h"

#include "data/kernels/pointkernels.h"

void CFlippedGrid::ToggleFlip(int nAxis)
{
    m_bFlipped[nAxis] = !m_bFlipped[nAxis];
    ForgetDerived();
}

IVector3D CFlippedGrid::Mirrored(const IVector3D& ijk) const
{
    IVector3D mirrored = ijk;
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (m_bFlipped[nAxis])
            mirrored[nAxis] = MirrorIndex(nAxis, ijk[nAxis]);
    return mirrored;
}

DVector3D CFlippedGrid::GetPoint(qint64 nIndex) const
{
    return IsAnyFlipped() ? GetPoint(GetIJK(nIndex)) : m_pInner->GetPoint(nIndex);
}

LoadStatus_e CFlippedGrid::FillPoints(const SIJKRange& range, const SPointBuffers& out) const
{
    SIJKRange inner = range;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        if (m_bFlipped[nAxis]) {
            inner.min[nAxis] = MirrorIndex(nAxis, range.max[nAxis]);
            inner.max[nAxis] = MirrorIndex(nAxis, range.min[nAxis]);
        }
    }
    if (const LoadStatus_e eStatus = m_pInner->FillPoints(inner, out); eStatus != LoadOk)
        return eStatus;
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        for (int nCoordinate = 0; m_bFlipped[nAxis] && nCoordinate < 3; ++nCoordinate)
            ReverseAxis(out.Axis(nCoordinate).first(range.Count()), range.Extent(), nAxis);
    return LoadOk;
}

const float* CFlippedGrid::GetCoordinatesSingle(int nAxis)
{
    return IsAnyFlipped() ? CGrid::GetCoordinatesSingle(nAxis) : m_pInner->GetCoordinatesSingle(nAxis);
}

const double* CFlippedGrid::GetCoordinatesDouble(int nAxis)
{
    return IsAnyFlipped() ? CGrid::GetCoordinatesDouble(nAxis) : m_pInner->GetCoordinatesDouble(nAxis);
}

LoadStatus_e CFlippedGrid::GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const
{
    if (!IsAnyFlipped())
        return m_pInner->GatherPoints(points, out);
    const SBlockShape shape = GetShape();
    std::vector<qint64> inner(points.begin(), points.end());
    for (qint64& nIndex : inner)
        nIndex = shape.PointIndex(Mirrored(shape.Address(nIndex)));
    return m_pInner->GatherPoints(inner, out);
}
