#include "data/variables/ivariable.h"

#include "data/icases.h"
#include "data/variables/ivariablelistener.h"
#include "data/variables/variablemanager.h"
#include "frame/novalue.h"
#include "frame/packs/bytestream.h"

IVariable::IVariable(qint64 nSimulationId, bool bAddToManager) : m_nSimulationId(nSimulationId)
{
    if (bAddToManager)
        CVariableManager::Instance().AddVariable(this);
}

IVariable::~IVariable() = default;

QByteArray IVariable::ToBytes() const
{
    const CVariableManager& manager = CVariableManager::Instance();
    CByteWriter writer;
    writer.Write(m_bFileVariable);
    writer.Write(m_sName);
    for (const qint32 nValue : {m_nTag, qint32(m_eKind), qint32(m_eLocation)})
        writer.Write(nValue);
    writer.Write(m_bHole);
    writer.Write(false); // a second flag that nothing sets; it has its place in stored keys
    writer.Write(qint32(m_inputs.size()));
    for (const SVariableInput& input : m_inputs) {
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

bool IVariable::IsConstant() const
{
    if (m_bFileVariable)
        return false;
    const CVariableManager& manager = CVariableManager::Instance();
    return std::all_of(m_inputs.begin(), m_inputs.end(), [&](const SVariableInput& input) {
        const IVariable* const pInput = manager.GetVariable(input.nVariableId);
        return !pInput || pInput->IsConstant();
    });
}

bool IVariable::IsTimeDependent() const
{
    const CVariableManager& manager = CVariableManager::Instance();
    return std::any_of(m_inputs.begin(), m_inputs.end(), [&](const SVariableInput& input) {
        const IVariable* const pInput = manager.GetVariable(input.nVariableId);
        return input.dTime != STEADY_TIME || (pInput && pInput->IsTimeDependent());
    });
}

void IVariable::CollectInputs(bool bRecursive, QVector<qint64>& ids) const
{
    for (const SVariableInput& input : m_inputs) {
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
    QVector<qint64> simulations = {m_nSimulationId};
    for (const qint64 nId : GetAllInputs(true)) {
        const IVariable* const pInput = CVariableManager::Instance().GetVariable(nId);
        if (pInput && !simulations.contains(pInput->GetSimulationId()))
            simulations.append(pInput->GetSimulationId());
    }
    return simulations;
}

void IVariable::ReplaceInput(qint64 nOldId, qint64 nNewId)
{
    for (SVariableInput& input : m_inputs)
        if (input.nVariableId == nOldId)
            input.nVariableId = nNewId;
}

QVector<qint64> IVariable::GetDependants(bool bRecursive) const
{
    QVector<qint64> ids;
    for (const auto& pOther : CVariableManager::Instance().GetVariables())
        if (pOther.get() != this && pOther->GetAllInputs(bRecursive).contains(m_nId))
            ids.append(pOther->GetId());
    return ids;
}

void IVariable::OnVariableChanged()
{
    IVariableListener* const pListener = CVariableManager::Instance().GetListener();
    if (!pListener)
        return;
    pListener->VariableChanged(m_nId);
    for (const qint64 nDependant : GetDependants(true))
        pListener->VariableChanged(nDependant);
}

void IVariable::OnVariableRemoved()
{
    IVariableListener* const pListener = CVariableManager::Instance().GetListener();
    if (!pListener)
        return;
    pListener->VariableRemoved(m_nId);
    for (const qint64 nDependant : GetDependants(true))
        pListener->VariableChanged(nDependant);
}

void IVariable::InvalidateRange()
{
    m_ranges.clear();
    for (const qint64 nDependant : GetDependants(true))
        if (IVariable* const pDependant = CVariableManager::Instance().GetVariable(nDependant))
            pDependant->m_ranges.clear();
}

double IVariable::EvaluateScalar(const double*, qint64, bool) const { return 0.0; }
DVector3D IVariable::EvaluateVector(const double*, qint64, bool) const { return {}; }
