#pragma once

#include "data/grids/gridwrapper.h"

/** A grid whose index directions may run the other way. Owns nothing; flips off, it is the inner grid. */
class CFlippedGrid : public CGridWrapper
{
public:
    explicit CFlippedGrid(IGrid* pInner) : m_pInner(pInner) {}

    /** Turns one direction round, or back. */
    void ToggleFlip(int nAxis);
    bool IsFlipped(int nAxis) const { return m_bFlipped[nAxis]; }

    using IGrid::GetPoint;
    bool HasPoint(const IVector3D& ijk) const override { return m_pInner->HasPoint(Mirrored(ijk)); }
    DVector3D GetPoint(const IVector3D& ijk) const override { return m_pInner->GetPoint(Mirrored(ijk)); }
    DVector3D GetPoint(qint64 nIndex) const override;
    LoadStatus_e FillPoints(const SIJKRange& range, const SPointBuffers& out) const override;
    LoadStatus_e GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const override;
    const float* GetCoordinatesSingle(int nAxis) override;
    const double* GetCoordinatesDouble(int nAxis) override;

protected:
    IGrid* Inner() const override { return m_pInner; }

private:
    bool IsAnyFlipped() const { return m_bFlipped[0] || m_bFlipped[1] || m_bFlipped[2]; }
    IVector3D Mirrored(const IVector3D& ijk) const;

    IGrid* const m_pInner;
    std::array<bool, 3> m_bFlipped = {};
};
