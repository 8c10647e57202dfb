#pragma once

#include "data/grids/gridwrapper.h"

/** A grid moved by an affine matrix. Owns nothing; with the identity it is the inner grid, arrays included.
 */
class CTransformGrid : public CGridWrapper
{
public:
    explicit CTransformGrid(IGrid* pInner) : m_pInner(pInner) {}

    void SetTransform(const STransform& transform);
    const STransform& GetTransform() const { return m_transform; }

    using IGrid::GetPoint;
    DVector3D GetPoint(const IVector3D& ijk) const override { return Moved(m_pInner->GetPoint(ijk)); }
    DVector3D GetPoint(qint64 nIndex) const override { return Moved(m_pInner->GetPoint(nIndex)); }
    LoadStatus_e FillPoints(const SIJKRange& range, const SPointBuffers& out) const override;
    LoadStatus_e GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const override;
    const float* GetCoordinatesSingle(int nAxis) override;
    const double* GetCoordinatesDouble(int nAxis) override;

protected:
    IGrid* Inner() const override { return m_pInner; }

private:
    DVector3D Moved(const DVector3D& point) const
    {
        return m_transform.IsIdentity() ? point : m_transform.Matrix().MapPoint(point);
    }

    IGrid* const m_pInner;
    STransform m_transform;
};
