#pragma once

#include "data/solutions/solution.h"

/**
 * Two time levels of a field blended: w * a + (1 - w) * b in each component, NO_VALUE where either level has
 * none. Gives both back when it is deleted.
 */
class CInterpSolution : public CSolution
{
public:
    /** @param dWeight  w, the weight of the first level */
    CInterpSolution(ISolution* pFirst, ISolution* pSecond, double dWeight);

    void Dispose() override { delete this; }
    bool Prepare() override;
    bool IsPrepared() const override { return m_pFirst->IsPrepared() && m_pSecond->IsPrepared(); }
    IStructredSolution* AsStructured() override { return m_pFirst->AsStructured() ? this : nullptr; }
    ISolution* GetBaseSolution() override { return m_pFirst->GetBaseSolution(); }
    bool IsDoublePrecision() const override { return m_pFirst->IsDoublePrecision(); }
    SBlockShape GetShape() const override { return m_pFirst->GetShape(); }
    bool HasValue(const IVector3D& ijk) const override;
    QVector<ISolution*> GetLeafSolutions() override;

    using IStructredSolution::GetValue;
    using IStructredSolution::GetVector;
    double GetValue(const IVector3D& ijk) const override;
    DVector3D GetVector(const IVector3D& ijk) const override;
    LoadStatus_e FillValues(const SIJKRange& range, std::span<double> out) const override;
    LoadStatus_e FillVectors(const SIJKRange& range, const SPointBuffers& out) const override;
    LoadStatus_e GatherValues(std::span<const qint64> points, std::span<double> out) const override;
    LoadStatus_e GatherVectors(std::span<const qint64> points, const SPointBuffers& out) const override;

private:
    CLease<ISolution> m_pFirst;
    CLease<ISolution> m_pSecond;
    double m_dWeight;
};
