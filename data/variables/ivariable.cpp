#include "data/variables/ivariable.h"

#include "data/variables/constantvalues.h"
#include "data/variables/icases.h"
#include "data/variables/ifieldranges.h"
#include "data/variables/ivariablelistener.h"
#include "data/variables/variablemanager.h"
#include "frame/novalue.h"
#include "frame/packs/bytestream.h"

IVariable::IVariable(qint64 nSimulationId, bool bAddToManager)
{
    m_recipe.nSimulationId = nSimulationId;
    if (bAddToManager)
        CVariableManager::Instance().AddVariable(this);
}

IVariable::~IVariable() = default;

QByteArray IVariable::ToBytes() const
{
    const CVariableManager& manager = CVariableManager::Instance();
    CByteWriter writer;
    writer.Write(m_recipe.bOfFile);
    writer.Write(m_sName);
    for (const qint32 nValue : {m_nTag, qint32(m_recipe.eKind), qint32(m_recipe.eLocation)})
        writer.Write(nValue);
    writer.Write(m_bHole);
    writer.Write(false); // a second flag that nothing sets; it has its place in stored keys
    writer.Write(qint32(m_recipe.inputs.size()));
    for (const SVariableInput& input : m_recipe.inputs) {
        const IVariable* const pInput = manager.GetVariable(input.nVariableId);
        writer.Write(pInput ? pInput->ToBytes() : QByteArray(""));
        writer.Write(input.dTime);
    }
    const QVector<qint64> simulations = GetSimulations();
    writer.Write(qint32(simulations.size()));
    for (const qint64 nSimulationId : simulations)
        writer.Write(ICases::Installed().GetKey(nSimulationId));
    return writer.Take();
}

void IVariable::Publish() const
{
    if (m_recipe.nVariableId != NO_ID)
        CVariableManager::Instance().Publish(m_recipe);
}

bool IVariable::IsConstant() const
{
    const auto pRecipes = CVariableManager::Instance().GetRecipes();
    return CConstantValues(*pRecipes).Of(m_recipe).has_value();
}

bool IVariable::IsTimeDependent() const
{
    const auto isFixed = [](const SFieldRecipe& recipe) {
        return std::any_of(recipe.inputs.begin(), recipe.inputs.end(),
                           [](const SVariableInput& input) { return input.dTime != STEADY_TIME; });
    };
    const QVector<qint64> inputs = GetAllInputs(true);
    return isFixed(m_recipe) || std::any_of(inputs.begin(), inputs.end(), [&](qint64 nId) {
               const IVariable* const pInput = CVariableManager::Instance().GetVariable(nId);
               return pInput && isFixed(pInput->m_recipe);
           });
}

void IVariable::CollectInputs(bool bRecursive, QVector<qint64>& ids) const
{
    for (const SVariableInput& input : m_recipe.inputs) {
        if (input.nVariableId == NO_ID || ids.contains(input.nVariableId))
            continue;
        ids.append(input.nVariableId);
        const IVariable* const pInput =
            bRecursive ? CVariableManager::Instance().GetVariable(input.nVariableId) : nullptr;
        if (pInput)
            pInput->CollectInputs(true, ids);
    }
}

QVector<qint64> IVariable::GetAllInputs(bool bRecursive) const
{
    QVector<qint64> ids;
    CollectInputs(bRecursive, ids);
    return ids;
}

QVector<qint64> IVariable::GetSimulations() const
{
    QVector<qint64> simulations = {m_recipe.nSimulationId};
    for (const qint64 nId : GetAllInputs(true)) {
        const IVariable* const pInput = CVariableManager::Instance().GetVariable(nId);
        if (pInput && !simulations.contains(pInput->GetSimulationId()))
            simulations.append(pInput->GetSimulationId());
    }
    return simulations;
}

void IVariable::ReplaceInput(qint64 nOldId, qint64 nNewId)
{
    QVector<SVariableInput> inputs = GetInputs();
    for (SVariableInput& input : inputs)
        if (input.nVariableId == nOldId)
            input.nVariableId = nNewId;
    SetInputs(inputs);
}

QVector<qint64> IVariable::GetDependants(bool bRecursive) const
{
    QVector<qint64> ids;
    for (const auto& pOther : CVariableManager::Instance().GetVariables())
        if (pOther.get() != this && pOther->GetAllInputs(bRecursive).contains(m_recipe.nVariableId))
            ids.append(pOther->GetId());
    return ids;
}

void IVariable::OnVariableChanged()
{
    const QVector<qint64> dependants = GetDependants(true);
    CVariableManager::Instance().Tell([&](IVariableListener& listener) {
        listener.VariableChanged(GetId());
        for (const qint64 nDependant : dependants)
            listener.VariableChanged(nDependant);
    });
}

void IVariable::OnVariableRemoved()
{
    const QVector<qint64> dependants = GetDependants(true);
    CVariableManager::Instance().Tell([&](IVariableListener& listener) {
        listener.VariableRemoved(GetId());
        for (const qint64 nDependant : dependants)
            listener.VariableChanged(nDependant);
    });
}

void IVariable::ForgetRanges()
{
    const std::lock_guard lock(m_rangeMutex);
    m_ranges.clear();
}

void IVariable::InvalidateRange()
{
    ForgetRanges();
    for (const qint64 nDependant : GetDependants(true))
        if (IVariable* const pDependant = CVariableManager::Instance().GetVariable(nDependant))
            pDependant->ForgetRanges();
}

DVector3D IVariable::EvaluateVectorConstant() const
{
    const auto pRecipes = CVariableManager::Instance().GetRecipes();
    return CConstantValues(*pRecipes).Of(m_recipe).value_or(DVector3D{NO_VALUE, NO_VALUE, NO_VALUE});
}

double IVariable::EvaluateScalar(const double*, qint64, bool) const { return 0.0; }
DVector3D IVariable::EvaluateVector(const double*, qint64, bool) const { return {}; }

std::optional<SValueRange> IVariable::GetGlobalRange(qint64 nViewId, qint64 nSimulationId, qint64 nItemId)
{
    const double dTime = ICases::Installed().GetTime(nViewId, nSimulationId);
    const IFieldRanges& fields = IFieldRanges::Installed();
    const auto key = [&] {
        return QString("%1@%2@%3@%4")
            .arg(nSimulationId)
            .arg(QString::number(dTime, 'g', 17))
            .arg(nItemId)
            .arg(fields.CountRestarts());
    };
    {
        const std::lock_guard lock(m_rangeMutex);
        const auto known = m_ranges.constFind(key());
        if (known != m_ranges.cend())
            return *known;
    }
    const std::optional<SValueRange> range = fields.ComputeRange(GetId(), nSimulationId, nItemId, dTime);
    if (range) {
        const std::lock_guard lock(m_rangeMutex);
        m_ranges.insert(key(), *range); // of now: a request may have been a restart
    }
    return range;
}
