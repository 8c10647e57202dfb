#include "data/grids/transformgrid.h"

#include "data/kernels/pointkernels.h"

void CTransformGrid::SetTransform(const STransform& transform)
{
    m_transform = transform;
    ReleaseCoordinateCopies();
    ForgetGeometry();
}

void CTransformGrid::FillPoints(const SIJKRange& range, const SPointBuffers& out) const
{
    m_pInner->FillPoints(range, out);
    const qint64 nCount = range.Count();
    if (!m_transform.IsIdentity())
        TransformPoints(m_transform.Matrix(), out.x.first(nCount), out.y.first(nCount), out.z.first(nCount));
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
