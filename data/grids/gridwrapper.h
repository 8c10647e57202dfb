#pragma once

#include "data/grids/grid.h"

/**
 * A grid that shows another one: everything is the inner grid's, unless a derived class changes it. Without
 * an inner grid all answers are zero, empty or false, and nothing can be read.
 */
class CGridWrapper : public CGrid
{
public:
    void Dispose() override;
    qint64 GetGridId() const override;
    void SetGridId(qint64 nId) override;
    bool Prepare() override;
    bool IsPrepared() const override;
    bool Allocate(qint64 nPointCount) override;
    IGrid* GetBaseGrid() override;
    GridKind_e GetGridKind() const override;
    QString GetFileName() const override;
    qint64 GetFileIndex() const override;
    bool IsDoublePrecision() const override;
    SBlockShape GetShape() const override;
    void SetDimensions(const IVector3D& dimensions) override;
    void SetStart(const IVector3D& start) override;
    bool IsPlanar() const override;
    qint64 GetPointCount() const override;
    qint64 GetEdgeCount() const override;
    qint64 GetFaceCount() const override;
    qint64 GetCellCount() const override;
    bool HasPoint(const IVector3D& ijk) const override;
    bool HasGaps() const override;
    const QStringList& GetBoundaryNames() const override;
    const QVector<QVector<qint64>>& GetBoundaryPoints() const override;
    QVector<IGrid*> GetLeafGrids() override;

    using IGrid::GetPoint;
    DVector3D GetPoint(const IVector3D& ijk) const override;
    DVector3D GetPoint(qint64 nIndex) const override;
    void SetPoint(qint64 nIndex, const DVector3D& point) override;
    LoadStatus_e FillPoints(const SIJKRange& range, const SPointBuffers& out) const override;
    LoadStatus_e GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const override;
    bool IsRightHanded() const override;

protected:
    virtual IGrid* Inner() const = 0;
};
