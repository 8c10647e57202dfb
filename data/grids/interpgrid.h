#pragma once

#include "data/grids/gridwrapper.h"

/**
 * Two time levels of a block blended: each point is w * a + (1 - w) * b. Its shape is the first level's;
 * where the second one has no point, zeros stand for it. Gives both back when it is deleted.
 */
class CInterpGrid : public CGridWrapper
{
public:
    /** @param dWeight  w, the weight of the first level */
    CInterpGrid(IGrid* pFirst, IGrid* pSecond, double dWeight);

    void Dispose() override { delete this; }
    bool Allocate(qint64) override { return false; }
    bool Prepare() override;
    bool IsPrepared() const override { return m_pFirst->IsPrepared() && m_pSecond->IsPrepared(); }
    bool HasPoint(const IVector3D& ijk) const override;
    bool HasGaps() const override;
    QVector<IGrid*> GetLeafGrids() override;

    using IGrid::GetPoint;
    DVector3D GetPoint(const IVector3D& ijk) const override;
    DVector3D GetPoint(qint64 nIndex) const override { return GetPoint(GetIJK(nIndex)); }
    void SetPoint(qint64, const DVector3D&) override {}
    LoadStatus_e FillPoints(const SIJKRange& range, const SPointBuffers& out) const override;
    LoadStatus_e GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const override;

protected:
    IGrid* Inner() const override { return m_pFirst.get(); }

private:
    DVector3D Blended(const DVector3D& first, const DVector3D& second) const
    {
        return m_dWeight * first + (1.0 - m_dWeight) * second;
    }

    CLease<IGrid> m_pFirst;
    CLease<IGrid> m_pSecond;
    double m_dWeight;
};
