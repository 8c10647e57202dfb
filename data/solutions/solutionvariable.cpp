#include "data/solutions/solutionvariable.h"

#include "data/blockslices.h"
#include "data/variables/expressionvariable.h"
#include "data/variables/formula.h"
#include "data/variables/variablemanager.h"
#include "data/variables/vectorvariable.h"

#include <numeric>

CSolutionVariable::CSolutionVariable(std::vector<SInput> inputs, qint64 nVariableId)
    : m_inputs(std::move(inputs)), m_nVariableId(nVariableId)
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

CSolutionVariable::~CSolutionVariable() = default;

bool CSolutionVariable::Prepare()
{
    bool bAll = true;
    for (const SInput& input : m_inputs)
        bAll = (!input.pSolution || input.pSolution->Prepare()) && bAll;
    return bAll;
}

bool CSolutionVariable::IsPrepared() const
{
    return std::all_of(m_inputs.begin(), m_inputs.end(),
                       [](const SInput& input) { return !input.pSolution || input.pSolution->IsPrepared(); });
}

bool CSolutionVariable::HasValue(const IVector3D& ijk) const
{
    return GetShape().Contains(ijk) &&
           std::all_of(m_inputs.begin(), m_inputs.end(), [&](const SInput& input) {
               return !input.pSolution || input.pSolution->HasValue(ijk);
           });
}

QVector<IStructredSolution*> CSolutionVariable::GetLeafSolutions()
{
    QVector<IStructredSolution*> leaves;
    for (const SInput& input : m_inputs) {
        if (!input.pSolution)
            continue;
        for (IStructredSolution* const pLeaf : input.pSolution->GetLeafSolutions())
            if (!leaves.contains(pLeaf))
                leaves.append(pLeaf);
    }
    return leaves;
}

const IVariable* CSolutionVariable::Variable() const
{
    return CVariableManager::Instance().GetVariable(m_nVariableId);
}

/** Null for a variable that isn't a formula. */
std::shared_ptr<const CFormula> CSolutionVariable::Formula() const
{
    const auto* const pExpression = dynamic_cast<const CExpressionVariable*>(Variable());
    return pExpression ? pExpression->GetFormula() : nullptr;
}

bool CSolutionVariable::IsVector() const
{
    const IVariable* const pVariable = Variable();
    return pVariable && pVariable->GetKind() == KindVector;
}

/** The values of all inputs at a point, one each or three. */
void CSolutionVariable::Gather(const IVector3D& ijk, bool bVectors) const
{
    const IVector3D inside = GetShape().Clamped(ijk);
    m_gathered.clear();
    for (const SInput& input : m_inputs) {
        if (!bVectors) {
            m_gathered.push_back(input.pSolution ? input.pSolution->GetValue(inside) : input.constant.x);
            continue;
        }
        const DVector3D vector = input.pSolution ? input.pSolution->GetVector(inside) : input.constant;
        m_gathered.insert(m_gathered.end(), {vector.x, vector.y, vector.z});
    }
}

double CSolutionVariable::GetValue(const IVector3D& ijk) const
{
    const IVariable* const pVariable = Variable();
    if (!pVariable)
        return 0.0;
    Gather(ijk, IsVector());
    return IsVector() ? pVariable->EvaluateVector(m_gathered.data(), qint64(m_inputs.size()), true).x
                      : pVariable->EvaluateScalar(m_gathered.data(), qint64(m_inputs.size()), false);
}

DVector3D CSolutionVariable::GetVector(const IVector3D& ijk) const
{
    const IVariable* const pVariable = Variable();
    if (!pVariable)
        return {};
    Gather(ijk, IsVector());
    return pVariable->EvaluateVector(m_gathered.data(), qint64(m_inputs.size()), IsVector());
}

LoadStatus_e CSolutionVariable::FillValues(const SIJKRange& range, std::span<double> out) const
{
    const qint64 nCount = range.Count();
    if (!Variable())
        return LoadFailed;
    if (IsVector() || !Formula()) {
        std::vector<double> others(2 * nCount);
        const std::span<double> all(others);
        return FillVectors(range, {out.first(nCount), all.first(nCount), all.subspan(nCount)});
    }
    if (FillFromStored(range, out))
        return LoadOk;
    return ForEachSlice(range, [&](const SIJKRange& part) {
        return FillSlice(part, out.subspan(range.IndexOf(part.min), part.Count()));
    });
}

LoadStatus_e CSolutionVariable::FillVectors(const SIJKRange& range, const SPointBuffers& out) const
{
    if (Variable() && !IsVector() && Formula())
        return CSolution::FillVectors(range, out);
    return ForEachSlice(range, [&](const SIJKRange& part) {
        const qint64 nPlace = range.IndexOf(part.min);
        const qint64 nCount = part.Count();
        return FillVectorSlice(part, {out.x.subspan(nPlace, nCount), out.y.subspan(nPlace, nCount),
                                      out.z.subspan(nPlace, nCount)});
    });
}

const CSolutionVariable::SFlat& CSolutionVariable::Flat() const
{
    if (!m_pFlat) {
        auto pFlat = std::make_unique<SFlat>();
        CollectLeaves(pFlat->leaves);
        pFlat->pFormula = Compose(pFlat->leaves);
        m_pFlat = std::move(pFlat);
    }
    return *m_pFlat;
}

/** The input if it is a scalar formula itself, which then becomes part of this one. */
const CSolutionVariable* CSolutionVariable::NestedFormula(const SInput& input) const
{
    const auto* const pNested = dynamic_cast<const CSolutionVariable*>(input.pSolution.get());
    return pNested && !pNested->IsVector() && pNested->Formula() ? pNested : nullptr;
}

/** What the formula rests on in the end, each field once: the same field asked for twice is one object. */
void CSolutionVariable::CollectLeaves(std::vector<const IStructredSolution*>& leaves) const
{
    for (const SInput& input : m_inputs) {
        const IStructredSolution* const pField = input.pSolution.get();
        if (const CSolutionVariable* const pNested = NestedFormula(input))
            pNested->CollectLeaves(leaves);
        else if (pField && std::find(leaves.begin(), leaves.end(), pField) == leaves.end())
            leaves.push_back(pField);
    }
}

std::shared_ptr<const CFormula>
CSolutionVariable::Compose(const std::vector<const IStructredSolution*>& leaves) const
{
    std::vector<int> all(leaves.size());
    std::iota(all.begin(), all.end(), 0);
    std::vector<SFormulaBinding> bindings;
    for (const SInput& input : m_inputs) {
        if (!input.pSolution)
            bindings.push_back({CFormula::Constant(input.constant.x), {}});
        else if (const CSolutionVariable* const pNested = NestedFormula(input))
            bindings.push_back({pNested->Compose(leaves), all});
        else
            bindings.push_back(
                {nullptr,
                 {int(std::find(leaves.begin(), leaves.end(), input.pSolution.get()) - leaves.begin())}});
    }
    return CFormula::Compose(*Formula(), bindings, int(leaves.size()));
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
    for (const IStructredSolution* const pLeaf : Flat().leaves) {
        if (!(pLeaf->GetShape() == shape) || pLeaf->ReadsInPart(range))
            return false;
        const SStoredValues stored = pLeaf->GetStoredValues();
        if (stored.pSingle)
            columns.emplace_back(std::span<const float>(stored.pSingle + nFirst, nCount));
        else if (stored.pDouble)
            columns.emplace_back(std::span<const double>(stored.pDouble + nFirst, nCount));
        else
            return false;
    }
    Flat().pFormula->EvaluateRange(columns, out.first(nCount));
    return true;
}

LoadStatus_e CSolutionVariable::FillSlice(const SIJKRange& part, std::span<double> out) const
{
    const qint64 nCount = part.Count();
    const std::vector<const IStructredSolution*>& leaves = Flat().leaves;
    std::vector<double> scratch(leaves.size() * nCount);
    std::vector<CFormulaColumn> columns;
    for (size_t n = 0; n < leaves.size(); ++n) {
        const std::span<double> values = std::span(scratch).subspan(n * nCount, nCount);
        if (const LoadStatus_e eStatus = leaves[n]->FillValues(part, values); eStatus != LoadOk)
            return eStatus;
        columns.emplace_back(std::span<const double>(values));
    }
    Flat().pFormula->EvaluateRange(columns, out);
    return LoadOk;
}

/** Three components: of a vector variable, or of a formula over vectors, which runs once for each. */
LoadStatus_e CSolutionVariable::FillVectorSlice(const SIJKRange& part, const SPointBuffers& out) const
{
    const qint64 nCount = part.Count();
    const qint64 nInputs = qint64(m_inputs.size());
    const bool bVectors = IsVector();
    std::vector<double> scratch(3 * nInputs * nCount);
    const auto component = [&](qint64 nInput, int n) {
        return std::span(scratch).subspan((3 * nInput + n) * nCount, nCount);
    };
    for (qint64 nInput = 0; nInput < nInputs; ++nInput) {
        const SInput& input = m_inputs[nInput];
        const SPointBuffers values{component(nInput, 0), component(nInput, 1), component(nInput, 2)};
        if (input.pSolution) {
            if (const LoadStatus_e eStatus = input.pSolution->FillVectors(part, values); eStatus != LoadOk)
                return eStatus;
            continue;
        }
        for (int n = 0; n < 3; ++n)
            std::fill(values.Axis(n).begin(), values.Axis(n).end(), input.constant[n]);
    }
    const IVariable* const pVariable = Variable();
    const std::shared_ptr<const CFormula> pFormula = Formula();
    for (int n = 0; n < 3; ++n) {
        if (pFormula) {
            std::vector<CFormulaColumn> columns;
            for (qint64 nInput = 0; nInput < nInputs; ++nInput)
                columns.emplace_back(std::span<const double>(component(nInput, bVectors ? n : 0)));
            pFormula->EvaluateRange(columns, out.Axis(n).first(nCount));
            continue;
        }
        const auto* const pVector = dynamic_cast<const CVectorVariable*>(pVariable);
        const qint64 nPosition = pVector ? pVector->GetPosition(n) : -1;
        if (nPosition < 0 || nPosition >= nInputs) // no component; of a formula that didn't compile, no value
            std::fill_n(out.Axis(n).begin(), nCount, pVariable && pVariable->IsExpression() ? NO_VALUE : 0.0);
        else
            std::copy_n(component(nPosition, 0).begin(), nCount, out.Axis(n).begin());
    }
    return LoadOk;
}
