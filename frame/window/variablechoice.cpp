#include "frame/window/variablechoice.h"

#include "data/variables/variablemanager.h"
#include "scene/iselectable.h"

namespace {

SValueRange GlobalRange(const ISelectable& selectable, qint64 nId)
{
    IVariable* const pVariable = CVariableManager::Instance().GetVariable(nId);
    return pVariable ? pVariable->GetGlobalRange(selectable.viewId(), selectable.simulationId(), NO_ID)
                     : SValueRange();
}

/** The item is shaded if it was shown by what has no variable now. */
void LeaveType(ISelectable& selectable, DisplayType_e eType)
{
    if (selectable.displayType() == eType)
        selectable.setDisplayType(DisplayShaded);
}

void ShowScalar(ISelectable& selectable, qint64 nId)
{
    const bool bNew = selectable.scalarVariable() != nId;
    selectable.setScalarVariable(nId);
    selectable.setGeometricColor(nId == NO_ID);
    if (nId == NO_ID)
        LeaveType(selectable, DisplayContour);
    if (const SValueRange range = bNew ? GlobalRange(selectable, nId) : SValueRange(); !range.IsEmpty())
        selectable.setColormapValues(range.dMin, range.dMax);
}

void ShowVector(ISelectable& selectable, qint64 nId)
{
    selectable.setVectorVariable(nId);
    if (nId == NO_ID)
        LeaveType(selectable, DisplayVector);
}

void ShowThreshold(ISelectable& selectable, qint64 nId)
{
    const bool bNew = selectable.thresholdVariable() != nId;
    selectable.setThresholdVariable(nId);
    selectable.setThresholdEnable(nId != NO_ID);
    if (const SValueRange range = bNew ? GlobalRange(selectable, nId) : SValueRange(); !range.IsEmpty())
        selectable.setThresholdRange({range.dMin, range.dMax});
}

struct SRole
{
    VariableKind_e eKind;
    qint64 (CDrawableGroup::*Get)() const;
    void (*Show)(ISelectable&, qint64 nId);
    const char* sInvalid;
};

constexpr SRole ROLES[] = {
    {KindScalar, &CDrawableGroup::scalarVariable, ShowScalar, "This is not a valid value for the scalar."},
    {KindVector, &CDrawableGroup::vectorVariable, ShowVector, "This is not a valid value for the vector."},
    {KindScalar, &CDrawableGroup::thresholdVariable, ShowThreshold,
     "This is not a valid value for the threshold."},
};

bool HasDrawables(const ISelectable* pSelectable) { return !pSelectable->drawables().isEmpty(); }

/** The variable of each item that can have one, and whether they all are the same. */
std::pair<qint64, bool> Common(const QVector<ISelectable*>& subjects, VariableRole_e eRole)
{
    const auto get = ROLES[eRole].Get;
    const auto first = std::find_if(subjects.begin(), subjects.end(), HasDrawables);
    if (first == subjects.end())
        return {NO_ID, true};
    const qint64 nId = ((*first)->*get)();
    const bool bSame = std::all_of(
        first, subjects.end(), [&](const ISelectable* p) { return !HasDrawables(p) || (p->*get)() == nId; });
    return {bSame ? nId : NO_ID, bSame};
}

} // namespace

QStringList VariableChoice::ListNames(qint64 nSimulationId, VariableRole_e eRole)
{
    const CVariableManager& manager = CVariableManager::Instance();
    QStringList sNameList;
    for (const qint64 nId : manager.ListVariables(nSimulationId, false)) {
        const IVariable* const pVariable = manager.GetVariable(nId);
        if (pVariable->IsListed() && pVariable->GetKind() == ROLES[eRole].eKind &&
            pVariable->GetLocation() != LocationNone)
            sNameList.append(pVariable->GetName());
    }
    sNameList.removeDuplicates();
    return sNameList;
}

qint64 VariableChoice::Find(qint64 nSimulationId, const QString& sName, VariableRole_e eRole)
{
    const CVariableManager& manager = CVariableManager::Instance();
    for (const VariableLocation_e eLocation : {LocationNode, LocationCell, LocationNone}) {
        const IVariable* const pVariable =
            manager.GetVariable(manager.FindByName(nSimulationId, sName, eLocation));
        if (pVariable && pVariable->GetKind() == ROLES[eRole].eKind)
            return pVariable->GetId();
    }
    return NO_ID;
}

qint64 VariableChoice::CommonId(const QVector<ISelectable*>& subjects, VariableRole_e eRole)
{
    return Common(subjects, eRole).first;
}

QString VariableChoice::CommonName(const QVector<ISelectable*>& subjects, VariableRole_e eRole)
{
    const auto [nId, bSame] = Common(subjects, eRole);
    if (!bSame)
        return MULTIPLE;
    const IVariable* const pVariable = CVariableManager::Instance().GetVariable(nId);
    return pVariable ? pVariable->GetName() : QString();
}

void VariableChoice::Show(const QVector<ISelectable*>& subjects, VariableRole_e eRole, qint64 nId)
{
    for (ISelectable* const pSubject : subjects)
        ROLES[eRole].Show(*pSubject, nId);
}

QString VariableChoice::InvalidText(VariableRole_e eRole) { return ROLES[eRole].sInvalid; }
