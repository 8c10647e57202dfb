#include "data/grids/transformgrid.h"

#include "data/kernels/pointkernels.h"

void CTransformGrid::SetTransform(const STransform& transform)
{
    m_transform = transform;
    ForgetDerived();
}

LoadStatus_e CTransformGrid::FillPoints(const SIJKRange& range, const SPointBuffers& out) const
{
    const LoadStatus_e eStatus = m_pInner->FillPoints(range, out);
    const qint64 nCount = range.Count();
    if (eStatus == LoadOk && !m_transform.IsIdentity())
        TransformPoints(m_transform.Matrix(), out.x.first(nCount), out.y.first(nCount), out.z.first(nCount));
    return eStatus;
}

const float* CTransformGrid::GetCoordinatesSingle(int nAxis)
{
    return m_transform.IsIdentity() ? m_pInner->GetCoordinatesSingle(nAxis)
                                    : CGrid::GetCoordinatesSingle(nAxis);
}

const double* CTransformGrid::GetCoordinatesDouble(int nAxis)
{
    return m_transform.IsIdentity() ? m_pInner->GetCoordinatesDouble(nAxis)
                                    : CGrid::GetCoordinatesDouble(nAxis);
}

LoadStatus_e CTransformGrid::GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const
{
    const LoadStatus_e eStatus = m_pInner->GatherPoints(points, out);
    const size_t nCount = points.size();
    if (eStatus == LoadOk && !m_transform.IsIdentity())
        TransformPoints(m_transform.Matrix(), out.x.first(nCount), out.y.first(nCount), out.z.first(nCount));
    return eStatus;
}
