#pragma once

#include "data/grids/grid.h"

#include <vector>

/**
 * Several grids seen as one: the box round all of them, with gaps where none has a point. Where they overlap
 * the first one counts. Arrays, boundaries and base grid are those of the first. Gives its members back when
 * it is deleted.
 */
class CGridPack : public CGrid
{
public:
    explicit CGridPack(const QVector<IGrid*>& members);

    void Dispose() override { delete this; }
    bool Prepare() override;
    bool IsPrepared() const override;
    IGrid* GetBaseGrid() override { return m_members.empty() ? this : m_members.front()->GetBaseGrid(); }
    GridKind_e GetGridKind() const override;
    bool HasPoint(const IVector3D& ijk) const override { return FindMember(ijk) != nullptr; }
    bool HasGaps() const override;
    const QStringList& GetBoundaryNames() const override;
    const QVector<QVector<qint64>>& GetBoundaryPoints() const override;
    QVector<IGrid*> GetLeafGrids() override;

    using IGrid::GetPoint;
    DVector3D GetPoint(const IVector3D& ijk) const override;
    LoadStatus_e FillPoints(const SIJKRange& range, const SPointBuffers& out) const override;
    LoadStatus_e GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const override;
    const float* GetCoordinatesSingle(int nAxis) override;
    const double* GetCoordinatesDouble(int nAxis) override;
    void ReleaseCoordinateCopies() override;

private:
    IGrid* FindMember(const IVector3D& ijk) const;

    std::vector<CLease<IGrid>> m_members;
};
