#pragma once

#include "data/solutions/solution.h"
#include "data/values/sharedpoints.h"

/**
 * Several fields seen as one: the box round all of them, with gaps (zeros) where none has a value. Where they
 * overlap the first one counts. Gives its members back when it is deleted.
 */
class CSolutionPack : public CSolution
{
public:
    explicit CSolutionPack(const QVector<ISolution*>& members);

    void Dispose() override { delete this; }
    bool Prepare() override;
    bool IsPrepared() const override;
    ISolution* GetBaseSolution() override;
    bool HasValue(const IVector3D& ijk) const override { return FindMember(ijk) != nullptr; }
    QVector<ISolution*> GetLeafSolutions() override;

    using IStructredSolution::GetValue;
    using IStructredSolution::GetVector;
    double GetValue(const IVector3D& ijk) const override;
    DVector3D GetVector(const IVector3D& ijk) const override;
    LoadStatus_e FillValues(const SIJKRange& range, std::span<double> out) const override;
    LoadStatus_e FillVectors(const SIJKRange& range, const SPointBuffers& out) const override;
    LoadStatus_e GatherValues(std::span<const qint64> points, std::span<double> out) const override;
    LoadStatus_e GatherVectors(std::span<const qint64> points, const SPointBuffers& out) const override;
    /** Merges the members' ranges: gaps don't count. */
    LoadStatus_e ComputeRanges() override;

private:
    SSharedPoints SharedWith(const ISolution& member, std::span<const qint64> points) const;
    const ISolution* FindMember(const IVector3D& ijk) const;

    std::vector<CLease<ISolution>> m_members;
};
