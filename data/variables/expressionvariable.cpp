#include "data/variables/expressionvariable.h"

#include "data/formula/formula.h"
#include "data/formula/formulatext.h"
#include "data/variables/variablemanager.h"
#include "frame/novalue.h"
#include "frame/packs/bytestream.h"

namespace {

/** What a reference has to know of a variable; nothing for one that doesn't exist. */
std::optional<SReferencedVariable> Referenced(qint64 nId)
{
    const IVariable* const pVariable = CVariableManager::Instance().GetVariable(nId);
    if (!pVariable)
        return std::nullopt;
    const bool bSeveral = pVariable->GetSimulations().size() >= 2;
    return SReferencedVariable{nId, pVariable->GetName(), bSeveral ? 0 : pVariable->GetSimulationId()};
}

QVector<SReferencedVariable> ScopeOf(const QVector<qint64>& ids)
{
    QVector<SReferencedVariable> scope;
    for (const qint64 nId : ids)
        if (const auto variable = Referenced(nId))
            scope.append(*variable);
    return scope;
}

/** A place in the stored text, from 1, as a place in the text with references that it was made of. */
int PositionAsTyped(const QString& sTyped, const QString& sStored, const QVector<SVariableInput>& inputs,
                    int nPosition)
{
    const QStringList sPlaceholderList = FormulaText::Placeholders(inputs);
    int nTyped = 0;
    for (int nStored = 0; nStored < nPosition - 1 && nTyped < sTyped.size();) {
        const auto begins = [&](const QString& s) { return sStored.midRef(nStored).startsWith(s); };
        const auto found = std::find_if(sPlaceholderList.begin(), sPlaceholderList.end(), begins);
        if (sTyped[nTyped] == '<' && found != sPlaceholderList.end()) {
            nStored += found->size();
            nTyped = sTyped.indexOf('>', nTyped) + 1;
        } else {
            ++nStored;
            ++nTyped;
        }
    }
    return nTyped + 1;
}

} // namespace

CExpressionVariable::CExpressionVariable(qint64 nSimulationId, bool bAddToManager)
    : IVariable(nSimulationId, bAddToManager)
{
    SetFileVariable(false);
    Change(&SFieldRecipe::bFormula, true);
    SetValid(false);
    SetLocation(LocationNone);
}

QByteArray CExpressionVariable::ToBytes() const
{
    CByteWriter writer;
    writer.Write(FormulaText::ShowInputPositions(m_sText, GetInputs()));
    return IVariable::ToBytes() + writer.Take();
}

bool CExpressionVariable::SetExpression(const QString& sText, bool bSimulations, bool bTimes)
{
    const SBoundText bound = FormulaText::BindReferences(sText, ScopeOf(m_scope), {bSimulations, bTimes});
    for (const SVariableInput& input : bound.inputs) {
        const IVariable* const pInput = CVariableManager::Instance().GetVariable(input.nVariableId);
        if (GetId() != NO_ID && (input.nVariableId == GetId() || (pInput && pInput->DependsOn(GetId()))))
            return false;
    }
    m_sText = bound.sText;
    SetInputs(bound.inputs);
    const bool bCompiled = Compile();
    if (!bCompiled)
        m_nErrorPosition = PositionAsTyped(sText, m_sText, GetInputs(), m_nErrorPosition);
    CVariableManager::Instance().NotifyChanged(GetId());
    TakeLocationAndKind();
    InvalidateRange();
    return bCompiled;
}

bool CExpressionVariable::SetGivenExpression(const QString& sText)
{
    m_sGivenText = sText;
    return SetExpression(sText, false, false);
}

bool CExpressionVariable::Compile()
{
    const SCompiledFormula compiled = CFormula::Compile(m_sText, FormulaText::Placeholders(GetInputs()));
    Change(&SFieldRecipe::pFormula, compiled.pFormula);
    m_nErrorPosition = compiled.nErrorPosition;
    SetValid(compiled.pFormula != nullptr);
    return compiled.pFormula != nullptr;
}

/** The kind is the first input's; the location that of the first input that isn't a constant. */
void CExpressionVariable::TakeLocationAndKind()
{
    SetKind(KindScalar);
    SetLocation(LocationNone);
    bool bFirst = true;
    for (const SVariableInput& input : GetInputs()) {
        const IVariable* const pInput = CVariableManager::Instance().GetVariable(input.nVariableId);
        if (pInput && bFirst)
            SetKind(pInput->GetKind());
        if (pInput && GetLocation() == LocationNone)
            SetLocation(pInput->GetLocation());
        bFirst = false;
    }
}

QString CExpressionVariable::GetExpressionText(bool bSimulations, bool bTimes) const
{
    return FormulaText::ShowReferences(m_sText, GetInputs(), Referenced, {bSimulations, bTimes});
}

void CExpressionVariable::ReplaceInput(qint64 nOldId, qint64 nNewId)
{
    for (const SVariableInput& input : GetInputs())
        if (input.nVariableId == nOldId)
            m_sText = FormulaText::ReplaceInput(m_sText, input, {nNewId, input.dTime});
    IVariable::ReplaceInput(nOldId, nNewId);
    Compile();
}

// As users see the text afterwards: what is left is read again without simulations and times, so a formula
// with other references isn't valid any more, and one without is a constant.
void CExpressionVariable::RemoveInput(qint64 nId)
{
    QVector<SVariableInput> inputs = GetInputs();
    bool bFound = false;
    for (int n = inputs.size() - 1; n >= 0; --n) {
        if (inputs[n].nVariableId != nId)
            continue;
        m_sText = FormulaText::RemoveInput(m_sText, inputs[n]);
        inputs.remove(n);
        bFound = true;
    }
    if (!bFound)
        return;
    SetInputs(inputs);
    SetExpression(GetExpressionText(true, true), false, false);
}

double CExpressionVariable::EvaluateScalar(const double* pInputs, qint64 nCount, bool bVectors) const
{
    if (!GetRecipe().pFormula || nCount != GetRecipe().pFormula->GetInputCount())
        return NO_VALUE;
    if (!bVectors)
        return GetRecipe().pFormula->Evaluate({pInputs, size_t(nCount)});
    return EvaluateVector(pInputs, nCount, true).x;
}

DVector3D CExpressionVariable::EvaluateVector(const double* pInputs, qint64 nCount, bool bVectors) const
{
    if (!bVectors) {
        const double dValue = EvaluateScalar(pInputs, nCount, false);
        return {dValue, dValue, dValue};
    }
    if (!GetRecipe().pFormula || nCount != GetRecipe().pFormula->GetInputCount())
        return {NO_VALUE, NO_VALUE, NO_VALUE};
    DVector3D result;
    std::vector<double> values(nCount);
    for (int nComponent = 0; nComponent < 3; ++nComponent) {
        for (qint64 n = 0; n < nCount; ++n)
            values[n] = pInputs[3 * n + nComponent];
        result[nComponent] = GetRecipe().pFormula->Evaluate(values);
    }
    return result;
}
