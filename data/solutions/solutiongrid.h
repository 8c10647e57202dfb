#pragma once

#include "data/grids/igrid.h"
#include "data/solutions/solution.h"

/** The coordinates of a grid as a vector field; its value is x. Gives the grid back when it is deleted. */
class CSolutionGrid : public CSolution
{
public:
    explicit CSolutionGrid(IGrid* pGrid) : m_pGrid(pGrid) { SetShape(pGrid->GetShape()); }

    void Dispose() override { delete this; }
    bool Prepare() override { return m_pGrid->Prepare(); }
    bool IsPrepared() const override { return m_pGrid->IsPrepared(); }
    IStructredSolution* AsStructured() override
    {
        return m_pGrid->GetGridKind() == GridKindUnstructured ? nullptr : this;
    }
    bool IsDoublePrecision() const override { return m_pGrid->IsDoublePrecision(); }
    bool HasValue(const IVector3D& ijk) const override { return m_pGrid->HasPoint(ijk); }

    using IStructredSolution::GetValue;
    using IStructredSolution::GetVector;
    double GetValue(const IVector3D& ijk) const override { return GetVector(ijk).x; }
    DVector3D GetVector(const IVector3D& ijk) const override
    {
        return m_pGrid->GetPoint(GetShape().Clamped(ijk));
    }
    LoadStatus_e FillValues(const SIJKRange& range, std::span<double> out) const override
    {
        std::vector<double> others(2 * range.Count()); // a grid gives its points whole
        const std::span<double> all(others);
        return m_pGrid->FillPoints(range, {out, all.first(range.Count()), all.subspan(range.Count())});
    }
    LoadStatus_e FillVectors(const SIJKRange& range, const SPointBuffers& out) const override
    {
        return m_pGrid->FillPoints(range, out);
    }
    LoadStatus_e GatherValues(std::span<const qint64> points, std::span<double> out) const override
    {
        std::vector<double> others(2 * points.size());
        const std::span<double> all(others);
        return m_pGrid->GatherPoints(points, {out, all.first(points.size()), all.subspan(points.size())});
    }
    LoadStatus_e GatherVectors(std::span<const qint64> points, const SPointBuffers& out) const override
    {
        return m_pGrid->GatherPoints(points, out);
    }

private:
    CLease<IGrid> m_pGrid;
};
