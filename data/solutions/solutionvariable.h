#pragma once

#include "data/formula/fieldrecipe.h"
#include "data/solutions/solution.h"

/**
 * A field that is computed of others, with no storage of its own. It covers what all its inputs cover; a
 * constant takes no share in that, and a field of constants alone is 2 x 2 x 2.
 *
 * It keeps the recipe with which it was made, whatever becomes of its variable, and never changes: any thread
 * may read it. Formulas over formulas are one flat program over what stands in memory.
 */
class CSolutionVariable : public CSolution
{
public:
    /** One input: a field, which may be that of others too, or the same value everywhere. */
    struct SInput
    {
        std::shared_ptr<ISolution> pSolution;
        DVector3D constant;
    };

    /** @param inputs  one for each of the recipe's */
    CSolutionVariable(std::shared_ptr<const SFieldRecipe> pRecipe, std::vector<SInput> inputs);

    void Dispose() override { delete this; }
    IStructredSolution* AsStructured() override;
    bool Prepare() override;
    bool IsPrepared() const override;
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
    bool IsVector() const { return m_pRecipe->eKind == KindVector; }
    void CoverWhatInputsCover();
    void Compose();
    int ColumnOf(const ISolution* pField);
    void CollectEnds();
    bool FillFromStored(const SIJKRange& range, std::span<double> out) const;
    template <class Read> LoadStatus_e Evaluate(qint64 nCount, std::span<double> out, const Read& read) const;
    template <class Read>
    LoadStatus_e EvaluateVectors(qint64 nCount, const SPointBuffers& out, const Read& read) const;
    void Combine(std::span<const double> inputs, const SPointBuffers& out) const;

    const std::shared_ptr<const SFieldRecipe> m_pRecipe;
    const std::vector<SInput> m_inputs;
    // All that isn't computed and on which the field rests in the end, each once; owned by the inputs.
    std::vector<ISolution*> m_ends;
    // A scalar formula over fields that aren't scalar formulas, each once. Null for any other field.
    std::shared_ptr<const CFormula> m_pFlat;
    std::vector<const ISolution*> m_columns; // owned by the inputs
};
