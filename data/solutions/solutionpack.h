#pragma once

#include "data/solutions/solution.h"

/**
 * Several fields seen as one: the box round all of them, with gaps (zeros) where none has a value. Where they
 * overlap the first one counts. Gives its members back when it is deleted.
 */
class CSolutionPack : public CSolution
{
public:
    explicit CSolutionPack(const QVector<IStructredSolution*>& members);

    void Dispose() override { delete this; }
    bool Prepare() override;
    bool IsPrepared() const override;
    ISolution* GetBaseSolution() override;
    bool HasValue(const IVector3D& ijk) const override { return FindMember(ijk) != nullptr; }
    QVector<IStructredSolution*> GetLeafSolutions() override;

    using IStructredSolution::GetValue;
    using IStructredSolution::GetVector;
    double GetValue(const IVector3D& ijk) const override;
    DVector3D GetVector(const IVector3D& ijk) const override;
    LoadStatus_e FillValues(const SIJKRange& range, std::span<double> out) const override;
    LoadStatus_e FillVectors(const SIJKRange& range, const SPointBuffers& out) const override;
    /** Merges the members' ranges: gaps don't count. */
    LoadStatus_e ComputeRanges() override;

private:
    const IStructredSolution* FindMember(const IVector3D& ijk) const;

    std::vector<CLease<IStructredSolution>> m_members;
};
