#include "data/variables/vectorvariable.h"

#include "data/variables/variablemanager.h"
#include "frame/novalue.h"

CVectorVariable::CVectorVariable(qint64 nSimulationId, const std::array<qint64, 3>& ids, bool bAddToManager)
    : IVariable(nSimulationId, bAddToManager)
{
    SetKind(KindVector);
    SetFileVariable(false);
    SetComponents(ids);
}

void CVectorVariable::SetComponents(const std::array<qint64, 3>& ids)
{
    std::array<qint64, 3> positions = {-1, -1, -1};
    QVector<SVariableInput> inputs;
    for (int nComponent = 0; nComponent < 3; ++nComponent) {
        if (!CVariableManager::Instance().GetVariable(ids[nComponent]))
            continue;
        positions[nComponent] = inputs.size();
        inputs.append({ids[nComponent], STEADY_TIME});
    }
    if (positions == GetRecipe().components && inputs == GetInputs())
        return;
    Change(&SFieldRecipe::components, positions);
    SetInputs(inputs);
    SetValid(true);
    CVariableManager::Instance().NotifyChanged(GetId());
    InvalidateRange();
}

void CVectorVariable::RemoveInput(qint64 nId)
{
    QVector<SVariableInput> inputs = GetInputs();
    for (SVariableInput& input : inputs) {
        if (input.nVariableId != nId)
            continue;
        input.nVariableId = NO_ID;
        SetValid(false);
    }
    SetInputs(inputs);
}

double CVectorVariable::EvaluateScalar(const double* pInputs, qint64 nCount, bool) const
{
    return nCount > 0 ? pInputs[0] : 0.0;
}

DVector3D CVectorVariable::EvaluateVector(const double* pInputs, qint64 nCount, bool bVectors) const
{
    DVector3D result;
    for (int nComponent = 0; nComponent < 3; ++nComponent) {
        const qint64 nPosition = GetPosition(nComponent);
        if (nPosition >= 0 && nPosition < nCount)
            result[nComponent] = pInputs[(bVectors ? 3 : 1) * nPosition];
    }
    return result;
}
