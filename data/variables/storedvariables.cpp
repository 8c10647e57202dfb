#include "data/variables/storedvariables.h"

#include "data/variables/expressionvariable.h"
#include "data/variables/variablegroup.h"
#include "data/variables/variablemanager.h"
#include "frame/applicationinfo.h"
#include "frame/novalue.h"
#include "frame/preferences/preferences.h"

#include <algorithm>

namespace {

/** A formula that any case can have. */
bool IsKept(const IVariable& variable)
{
    return GroupOf(&variable) == GroupUser && variable.IsValid() && variable.GetSimulations().size() == 1;
}

SStoredVariable Stored(const IVariable& variable)
{
    SStoredVariable stored;
    stored.nId = variable.GetId();
    stored.sName = variable.GetName();
    stored.sFormula = variable.GetExpressionText(false, variable.IsTimeDependent());
    stored.nLocation = variable.GetLocation();
    for (const qint64 nInput : variable.GetAllInputs(false))
        if (const IVariable* const pInput = CVariableManager::Instance().GetVariable(nInput))
            stored.sUsedNameList.append(pInput->GetName());
    return stored;
}

/** Index of the one of this name and location; -1 if there is none. */
int IndexOf(const QVector<SStoredVariable>& list, const QString& sName, qint64 nLocation)
{
    const auto found = std::find_if(list.begin(), list.end(), [&](const SStoredVariable& stored) {
        return stored.sName == sName && stored.nLocation == nLocation;
    });
    return found == list.end() ? -1 : int(found - list.begin());
}

bool Write(const QVector<SStoredVariable>& list)
{
    CPreferences& preferences = CPreferences::Instance();
    if (list == preferences.StoredVariables())
        return false;
    preferences.SetStoredVariables(list);
    preferences.Save(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    return true;
}

/** An input by name, at the location or as a constant; -1 if the simulation has none. */
qint64 FindInput(qint64 nSimulationId, const QString& sName, VariableLocation_e eLocation)
{
    const CVariableManager& manager = CVariableManager::Instance();
    const qint64 nId = manager.FindByName(nSimulationId, sName, eLocation);
    return nId != NO_ID ? nId : manager.FindByName(nSimulationId, sName, LocationNone);
}

/** The ids of all inputs; nothing if one is missing. */
std::optional<QVector<qint64>> FindInputs(qint64 nSimulationId, const SStoredVariable& stored)
{
    QVector<qint64> ids;
    for (const QString& sName : stored.sUsedNameList) {
        ids.append(FindInput(nSimulationId, sName, VariableLocation_e(stored.nLocation)));
        if (ids.last() == NO_ID)
            return std::nullopt;
    }
    return ids;
}

/** Its id; -1 if it can't be made there (yet). */
qint64 Make(qint64 nSimulationId, const SStoredVariable& stored)
{
    CVariableManager& manager = CVariableManager::Instance();
    const auto inputs = FindInputs(nSimulationId, stored);
    if (!inputs ||
        !manager.IsNameValid(NO_ID, stored.sName, nSimulationId, VariableLocation_e(stored.nLocation)))
        return NO_ID;
    auto* const pVariable = new CExpressionVariable(nSimulationId, true);
    pVariable->SetName(stored.sName);
    pVariable->SetScope(*inputs);
    // Names from files may hold an "@", so that a time is only looked for where there must be one.
    const bool bValid = pVariable->SetExpression(stored.sFormula, false, false) ||
                        pVariable->SetExpression(stored.sFormula, false, true);
    if (bValid)
        return pVariable->GetId();
    manager.RemoveVariable(pVariable->GetId());
    return NO_ID;
}

} // namespace

bool StoredVariables::Keep(const IVariable& variable, const QString& sFormerName, int nFormerLocation)
{
    QVector<SStoredVariable> list = CPreferences::Instance().StoredVariables();
    int nIndex = IndexOf(list, sFormerName, nFormerLocation);
    if (!IsKept(variable)) {
        if (variable.IsValid() && nIndex >= 0)
            list.remove(nIndex); // it has become one that only this case can have
        return Write(list);
    }
    if (nIndex < 0)
        nIndex = IndexOf(list, variable.GetName(), variable.GetLocation());
    if (nIndex < 0)
        list.append(Stored(variable));
    else
        list[nIndex] = Stored(variable);
    return Write(list);
}

bool StoredVariables::Forget(const IVariable& variable)
{
    QVector<SStoredVariable> list = CPreferences::Instance().StoredVariables();
    const int nIndex = IndexOf(list, variable.GetName(), variable.GetLocation());
    if (nIndex < 0 || GroupOf(&variable) != GroupUser)
        return false;
    list.remove(nIndex);
    return Write(list);
}

void StoredVariables::RemoveForGood(qint64 nVariableId)
{
    CVariableManager& manager = CVariableManager::Instance();
    const IVariable* const pVariable = manager.GetVariable(nVariableId);
    if (!pVariable)
        return;
    Forget(*pVariable);
    for (const qint64 nDependant : pVariable->GetDependants(true))
        if (const IVariable* const pDependant = manager.GetVariable(nDependant))
            Forget(*pDependant);
    manager.RemoveWithDependants(nVariableId);
}

QVector<qint64> MakeStoredVariables(qint64 nSimulationId)
{
    QVector<SStoredVariable> left = CPreferences::Instance().StoredVariables();
    QVector<qint64> made;
    // One may be made of another that stands behind it in the list, so it is gone through again.
    for (int nBefore = -1; nBefore != left.size();) {
        nBefore = left.size();
        for (int n = 0; n < left.size();) {
            const qint64 nId = Make(nSimulationId, left[n]);
            if (nId == NO_ID) {
                ++n;
                continue;
            }
            made.append(nId);
            left.remove(n);
        }
    }
    return made;
}
