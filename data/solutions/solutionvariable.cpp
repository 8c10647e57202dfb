#include "data/solutions/solutionvariable.h"

#include "data/formula/formula.h"
#include "data/values/blockslices.h"
#include "data/values/sharedpoints.h"

#include <QVarLengthArray>

namespace {

/** Points that are gathered at a time: their columns stay in the cache. */
constexpr size_t PIECE = 1 << 14;

} // namespace

CSolutionVariable::CSolutionVariable(std::shared_ptr<const SFieldRecipe> pRecipe, std::vector<SInput> inputs)
    : m_pRecipe(std::move(pRecipe)), m_inputs(std::move(inputs))
{
    CoverWhatInputsCover();
    CollectEnds();
    Compose();
}

void CSolutionVariable::CoverWhatInputsCover()
{
    constexpr qint64 HIGH = std::numeric_limits<qint32>::max();
    SIJKRange range{{1, 1, 1}, {HIGH, HIGH, HIGH}};
    bool bDouble = false;
    bool bAnyField = false;
    for (const SInput& input : m_inputs) {
        if (!input.pSolution)
            continue;
        range = Intersection(range, input.pSolution->GetShape().Range());
        bDouble = bDouble || input.pSolution->IsDoublePrecision();
        bAnyField = true;
    }
    SetShape(bAnyField ? SBlockShape{range.Extent(), range.min} : SBlockShape{{2, 2, 2}, {1, 1, 1}});
    SetDoublePrecision(bDouble);
}

int CSolutionVariable::ColumnOf(const ISolution* pField)
{
    const auto found = std::find(m_columns.begin(), m_columns.end(), pField);
    if (found != m_columns.end())
        return int(found - m_columns.begin());
    m_columns.push_back(pField);
    return int(m_columns.size()) - 1;
}

/** An input that is a scalar formula itself becomes part of this one; it is flat already. */
void CSolutionVariable::Compose()
{
    if (IsVector() || !m_pRecipe->pFormula || m_pRecipe->pFormula->GetInputCount() != int(m_inputs.size()))
        return;
    std::vector<SFormulaBinding> bindings;
    for (const SInput& input : m_inputs) {
        const auto* const pNested = dynamic_cast<const CSolutionVariable*>(input.pSolution.get());
        SFormulaBinding& binding = bindings.emplace_back();
        if (!input.pSolution) {
            binding.pFormula = CFormula::Constant(input.constant.x);
        } else if (pNested && pNested->m_pFlat) {
            binding.pFormula = pNested->m_pFlat;
            for (const ISolution* const pColumn : pNested->m_columns)
                binding.leaves.push_back(ColumnOf(pColumn));
        } else {
            binding.leaves = {ColumnOf(input.pSolution.get())};
        }
    }
    m_pFlat = CFormula::Compose(*m_pRecipe->pFormula, bindings, int(m_columns.size()));
}

/** Taken over from the inputs, which are shared: going down from here would take each way that leads there.
 */
void CSolutionVariable::CollectEnds()
{
    const auto add = [this](ISolution* pField) {
        if (std::find(m_ends.begin(), m_ends.end(), pField) == m_ends.end())
            m_ends.push_back(pField);
    };
    for (const SInput& input : m_inputs) {
        if (const auto* const pComputed = dynamic_cast<const CSolutionVariable*>(input.pSolution.get()))
            std::for_each(pComputed->m_ends.begin(), pComputed->m_ends.end(), add);
        else if (input.pSolution)
            add(input.pSolution.get());
    }
}

IStructredSolution* CSolutionVariable::AsStructured()
{
    const bool bAll =
        std::all_of(m_ends.begin(), m_ends.end(), [](auto* pEnd) { return pEnd->AsStructured(); });
    return bAll ? this : nullptr;
}

bool CSolutionVariable::Prepare()
{
    bool bAll = true;
    for (ISolution* const pEnd : m_ends)
        bAll = pEnd->Prepare() && bAll;
    return bAll;
}

bool CSolutionVariable::IsPrepared() const
{
    return std::all_of(m_ends.begin(), m_ends.end(), [](const auto* pEnd) { return pEnd->IsPrepared(); });
}

bool CSolutionVariable::HasValue(const IVector3D& ijk) const
{
    return GetShape().Contains(ijk) &&
           std::all_of(m_ends.begin(), m_ends.end(), [&](const auto* pEnd) { return pEnd->HasValue(ijk); });
}

QVector<ISolution*> CSolutionVariable::GetLeafSolutions()
{
    QVector<ISolution*> leaves;
    for (ISolution* const pEnd : m_ends)
        for (ISolution* const pLeaf : pEnd->GetLeafSolutions())
            if (!leaves.contains(pLeaf))
                leaves.append(pLeaf);
    return leaves;
}

double CSolutionVariable::GetValue(const IVector3D& ijk) const
{
    if (!m_pFlat)
        return GetVector(ijk).x;
    const IVector3D inside = GetShape().Clamped(ijk);
    QVarLengthArray<double, 16> values;
    for (const ISolution* const pColumn : m_columns)
        values.append(pColumn->GetValue(NearestIndex(*pColumn, inside)));
    return m_pFlat->Evaluate({values.data(), size_t(values.size())});
}

DVector3D CSolutionVariable::GetVector(const IVector3D& ijk) const
{
    if (m_pFlat)
        return CSolution::GetVector(ijk);
    const IVector3D inside = GetShape().Clamped(ijk);
    std::vector<double> inputs;
    for (const SInput& input : m_inputs) {
        const DVector3D vector = input.pSolution
                                     ? input.pSolution->GetVector(NearestIndex(*input.pSolution, inside))
                                     : input.constant;
        inputs.insert(inputs.end(), {vector.x, vector.y, vector.z});
    }
    DVector3D result;
    Combine(inputs, {{&result.x, 1}, {&result.y, 1}, {&result.z, 1}});
    return result;
}

LoadStatus_e CSolutionVariable::FillValues(const SIJKRange& range, std::span<double> out) const
{
    const qint64 nCount = range.Count();
    if (!m_pFlat) {
        std::vector<double> others(2 * nCount);
        const std::span<double> all(others);
        return FillVectors(range, {out.first(nCount), all.first(nCount), all.subspan(nCount)});
    }
    if (FillFromStored(range, out))
        return LoadOk;
    return ForEachSlice(range, [&](const SIJKRange& part) {
        return Evaluate(
            part.Count(), out.subspan(range.IndexOf(part.min), part.Count()),
            [&](const ISolution& field, std::span<double> values) { return field.FillValues(part, values); });
    });
}

LoadStatus_e CSolutionVariable::FillVectors(const SIJKRange& range, const SPointBuffers& out) const
{
    if (m_pFlat)
        return CSolution::FillVectors(range, out);
    return ForEachSlice(range, [&](const SIJKRange& part) {
        const qint64 nPlace = range.IndexOf(part.min);
        const qint64 nCount = part.Count();
        const SPointBuffers slice{out.x.subspan(nPlace, nCount), out.y.subspan(nPlace, nCount),
                                  out.z.subspan(nPlace, nCount)};
        return EvaluateVectors(nCount, slice, [&](const ISolution& field, const SPointBuffers& values) {
            return field.FillVectors(part, values);
        });
    });
}

LoadStatus_e CSolutionVariable::GatherValues(std::span<const qint64> points, std::span<double> out) const
{
    if (!m_pFlat) {
        std::vector<double> others(2 * points.size());
        const std::span<double> all(others);
        return GatherVectors(points, {out, all.first(points.size()), all.subspan(points.size())});
    }
    for (size_t nFirst = 0; nFirst < points.size(); nFirst += PIECE) {
        const std::span<const qint64> piece = points.subspan(nFirst, std::min(PIECE, points.size() - nFirst));
        const LoadStatus_e eStatus =
            Evaluate(qint64(piece.size()), out.subspan(nFirst, piece.size()),
                     [&](const ISolution& field, std::span<double> values) {
                         return field.GatherValues(Translated(piece, GetShape(), field.GetShape()), values);
                     });
        if (eStatus != LoadOk)
            return eStatus;
    }
    return LoadOk;
}

LoadStatus_e CSolutionVariable::GatherVectors(std::span<const qint64> points, const SPointBuffers& out) const
{
    if (m_pFlat)
        return CSolution::GatherVectors(points, out);
    for (size_t nFirst = 0; nFirst < points.size(); nFirst += PIECE) {
        const std::span<const qint64> piece = points.subspan(nFirst, std::min(PIECE, points.size() - nFirst));
        const SPointBuffers slice{out.x.subspan(nFirst, piece.size()), out.y.subspan(nFirst, piece.size()),
                                  out.z.subspan(nFirst, piece.size())};
        const LoadStatus_e eStatus = EvaluateVectors(
            qint64(piece.size()), slice, [&](const ISolution& field, const SPointBuffers& values) {
                return field.GatherVectors(Translated(piece, GetShape(), field.GetShape()), values);
            });
        if (eStatus != LoadOk)
            return eStatus;
    }
    return LoadOk;
}

/** One pass over the stored arrays, where the range is a run of each of them. */
bool CSolutionVariable::FillFromStored(const SIJKRange& range, std::span<double> out) const
{
    const SBlockShape shape = GetShape();
    const IVector3D extent = range.Extent();
    if (extent.i != shape.dimensions.i || extent.j != shape.dimensions.j)
        return false;
    const qint64 nFirst = shape.PointIndex(range.min);
    const size_t nCount = range.Count();
    std::vector<CFormulaColumn> columns;
    for (const ISolution* const pColumn : m_columns) {
        if (!(pColumn->GetShape() == shape) || pColumn->ReadsInPart(range))
            return false;
        const SStoredValues stored = pColumn->GetStoredValues();
        if (stored.pSingle)
            columns.emplace_back(std::span<const float>(stored.pSingle + nFirst, nCount));
        else if (stored.pDouble)
            columns.emplace_back(std::span<const double>(stored.pDouble + nFirst, nCount));
        else
            return false;
    }
    m_pFlat->EvaluateRange(columns, out.first(nCount));
    return true;
}

/** The formula at nCount points. @param read  read(field, values) of these points */
template <class Read>
LoadStatus_e CSolutionVariable::Evaluate(qint64 nCount, std::span<double> out, const Read& read) const
{
    std::vector<double> scratch(m_columns.size() * nCount);
    std::vector<CFormulaColumn> columns;
    for (size_t n = 0; n < m_columns.size(); ++n) {
        const std::span<double> values = std::span(scratch).subspan(n * nCount, nCount);
        if (const LoadStatus_e eStatus = read(*m_columns[n], values); eStatus != LoadOk)
            return eStatus;
        columns.emplace_back(std::span<const double>(values));
    }
    m_pFlat->EvaluateRange(columns, out);
    return LoadOk;
}

/** Three components at nCount points. @param read  read(field, vectors) of these points */
template <class Read>
LoadStatus_e CSolutionVariable::EvaluateVectors(qint64 nCount, const SPointBuffers& out,
                                                const Read& read) const
{
    std::vector<double> scratch(3 * m_inputs.size() * nCount);
    for (size_t nInput = 0; nInput < m_inputs.size(); ++nInput) {
        const std::span<double> all = std::span(scratch).subspan(3 * nInput * nCount, 3 * nCount);
        const SPointBuffers values{all.first(nCount), all.subspan(nCount, nCount), all.last(nCount)};
        const SInput& input = m_inputs[nInput];
        if (input.pSolution) {
            if (const LoadStatus_e eStatus = read(*input.pSolution, values); eStatus != LoadOk)
                return eStatus;
            continue;
        }
        for (int n = 0; n < 3; ++n)
            std::fill(values.Axis(n).begin(), values.Axis(n).end(), input.constant[n]);
    }
    Combine(scratch, out);
    return LoadOk;
}

/**
 * Three components: of a vector variable, or of a formula over vectors, which runs once for each.
 *
 * @param inputs  x, y and z of the first input, then those of the next
 */
void CSolutionVariable::Combine(std::span<const double> inputs, const SPointBuffers& out) const
{
    const qint64 nCount = qint64(out.x.size());
    const qint64 nInputs = qint64(m_inputs.size());
    const auto component = [&](qint64 nInput, int n) {
        return inputs.subspan((3 * nInput + n) * nCount, nCount);
    };
    for (int n = 0; n < 3; ++n) {
        if (m_pRecipe->bFormula) {
            std::vector<CFormulaColumn> columns;
            for (qint64 nInput = 0; nInput < nInputs; ++nInput)
                columns.emplace_back(component(nInput, IsVector() ? n : 0));
            const bool bFits = m_pRecipe->pFormula && m_pRecipe->pFormula->GetInputCount() == nInputs;
            if (bFits)
                m_pRecipe->pFormula->EvaluateRange(columns, out.Axis(n));
            else
                std::fill_n(out.Axis(n).begin(), nCount, NO_VALUE);
            continue;
        }
        const qint64 nPlace = m_pRecipe->components[n];
        if (nPlace < 0 || nPlace >= nInputs) // a vector of fewer components
            std::fill_n(out.Axis(n).begin(), nCount, 0.0);
        else
            std::copy_n(component(nPlace, 0).begin(), nCount, out.Axis(n).begin());
    }
}
