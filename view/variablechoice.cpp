#include "view/variablechoice.h"

#include "data/managers/solutionmanager.h"
#include "data/solutions/istructredsolution.h"
#include "data/variables/variablemanager.h"
#include "frame/commonvalue.h"
#include "scene/iselectable.h"
#include "simulation/simulationmanager.h"
#include "view/camera/viewbounds.h"

#include <cmath>

namespace {

std::optional<SValueRange> GlobalRange(const ISelectable& selectable, qint64 nId)
{
    IVariable* const pVariable = CVariableManager::Instance().GetVariable(nId);
    return pVariable ? pVariable->GetGlobalRange(selectable.viewId(), selectable.simulationId(), NO_ID)
                     : std::nullopt;
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
    if (const auto range = bNew ? GlobalRange(selectable, nId) : std::nullopt)
        selectable.setColormapValues(range->dMin, range->dMax);
}

void ShowVector(ISelectable& selectable, qint64 nId)
{
    selectable.setVectorVariable(nId);
    if (nId == NO_ID)
        LeaveType(selectable, DisplayVector);
}

/** The largest component of the vector over the item's block. */
double LargestComponent(const ISelectable& selectable, qint64 nId)
{
    const double dTime =
        CSimulationManager::Instance().GetRequestTime(selectable.viewId(), selectable.simulationId());
    const auto pField = CSolutionManager::Instance().GetSolution(nId, selectable.simulationId(),
                                                                 selectable.blockId(), -1, dTime);
    double dLargest = 0.0;
    for (int nAxis = 0; pField && nAxis < 3; ++nAxis)
        if (const std::optional<SValueRange> range = pField->GetRange(nAxis, true))
            dLargest = std::max({dLargest, std::abs(range->dMin), std::abs(range->dMax)});
    return dLargest;
}

/**
 * Gives items whose arrows have the scale of the start one with which they can be seen: the longest is about
 * a twentieth of all items. A scale that the user has set stays.
 */
void ScaleFirstArrows(const QVector<ISelectable*>& subjects, qint64 nId)
{
    constexpr double FIRST_SCALE = 1.0;
    constexpr double UNIT = 0.001; // of the length that a scale of 1 gives a vector of 1
    constexpr double SHARE = 1.0 / 20.0;
    double dLargest = 0.0;
    SViewBounds bounds;
    for (const ISelectable* const pSubject : subjects) {
        dLargest = std::max(dLargest, LargestComponent(*pSubject, nId));
        for (const IDrawable* const pDrawable : pSubject->drawables())
            bounds.AddBox(pDrawable->boundsMinimum(), pDrawable->boundsMaximum(), DMatrix4x4());
    }
    if (bounds.IsEmpty() || !(dLargest > 0.0))
        return;
    const double dScale = Length(bounds.maximum - bounds.minimum) * SHARE / (dLargest * UNIT);
    const double dDecade = std::pow(10.0, std::floor(std::log10(dScale)));
    for (ISelectable* const pSubject : subjects)
        if (pSubject->vectorBodyScale() == FIRST_SCALE)
            pSubject->setVectorBodyScale(std::round(dScale / dDecade) * dDecade); // one digit is enough
}

void ShowThreshold(ISelectable& selectable, qint64 nId)
{
    const bool bNew = selectable.thresholdVariable() != nId;
    selectable.setThresholdVariable(nId);
    selectable.setThresholdEnable(nId != NO_ID);
    if (const auto range = bNew ? GlobalRange(selectable, nId) : std::nullopt)
        selectable.setThresholdRange({range->dMin, range->dMax});
}

struct SRole
{
    VariableKind_e eKind;
    qint64 SDisplayState::*pVariable;
    void (*Show)(ISelectable&, qint64 nId);
    const char* sInvalid;
};

constexpr SRole ROLES[] = {
    {KindScalar, &SDisplayState::nScalarVariable, ShowScalar, "This is not a valid value for the scalar."},
    {KindVector, &SDisplayState::nVectorVariable, ShowVector, "This is not a valid value for the vector."},
    {KindScalar, &SDisplayState::nThresholdVariable, ShowThreshold,
     "This is not a valid value for the threshold."},
};

bool HasDrawables(const ISelectable* pSelectable) { return !pSelectable->drawables().isEmpty(); }

/** The variable of each item that can have one, and whether they all are the same. */
std::pair<qint64, bool> Common(const QVector<ISelectable*>& subjects, VariableRole_e eRole)
{
    const auto pVariable = ROLES[eRole].pVariable;
    const auto first = std::find_if(subjects.begin(), subjects.end(), HasDrawables);
    if (first == subjects.end())
        return {NO_ID, true};
    const qint64 nId = (*first)->Value(pVariable);
    const bool bSame = std::all_of(first, subjects.end(), [&](const ISelectable* p) {
        return !HasDrawables(p) || p->Value(pVariable) == nId;
    });
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
    if (eRole == RoleVector && nId != NO_ID)
        ScaleFirstArrows(subjects, nId);
}

QString VariableChoice::InvalidText(VariableRole_e eRole) { return ROLES[eRole].sInvalid; }
