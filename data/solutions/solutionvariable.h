#pragma once

#include "data/solutions/solution.h"

#include <memory>

class CFormula;
class IVariable;

/**
 * A field that a variable computes of others, with no storage of its own. It covers what all its inputs
 * cover; a constant takes no share in that, and a field of constants alone is 2 x 2 x 2.
 *
 * Formulas over formulas become one flat program over what stands in memory, compiled at the first fill. By
 * point an object is for one thread at a time.
 */
class CSolutionVariable : public CSolution
{
public:
    /** One input: a field, or the same value everywhere. */
    struct SInput
    {
        CLease<IStructredSolution> pSolution;
        DVector3D constant;
    };

    CSolutionVariable(std::vector<SInput> inputs, qint64 nVariableId);
    ~CSolutionVariable() override;

    void Dispose() override { delete this; }
    bool Prepare() override;
    bool IsPrepared() const override;
    bool HasValue(const IVector3D& ijk) const override;
    QVector<IStructredSolution*> GetLeafSolutions() override;

    using IStructredSolution::GetValue;
    using IStructredSolution::GetVector;
    double GetValue(const IVector3D& ijk) const override;
    DVector3D GetVector(const IVector3D& ijk) const override;
    LoadStatus_e FillValues(const SIJKRange& range, std::span<double> out) const override;
    LoadStatus_e FillVectors(const SIJKRange& range, const SPointBuffers& out) const override;

private:
    /** The formula over what it rests on in the end. */
    struct SFlat
    {
        std::shared_ptr<const CFormula> pFormula;
        std::vector<const IStructredSolution*> leaves;
    };

    const IVariable* Variable() const;
    std::shared_ptr<const CFormula> Formula() const;
    bool IsVector() const;
    void Gather(const IVector3D& ijk, bool bVectors) const;
    const SFlat& Flat() const;
    const CSolutionVariable* NestedFormula(const SInput& input) const;
    void CollectLeaves(std::vector<const IStructredSolution*>& leaves) const;
    std::shared_ptr<const CFormula> Compose(const std::vector<const IStructredSolution*>& leaves) const;
    bool FillFromStored(const SIJKRange& range, std::span<double> out) const;
    LoadStatus_e FillSlice(const SIJKRange& part, std::span<double> out) const;
    LoadStatus_e FillVectorSlice(const SIJKRange& part, const SPointBuffers& out) const;

    std::vector<SInput> m_inputs;
    const qint64 m_nVariableId;
    mutable std::vector<double> m_gathered; // the values of one point
    mutable std::unique_ptr<SFlat> m_pFlat; // made at the first fill
};
