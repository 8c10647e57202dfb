#include "window/commands/selectioncommands.h"

#include "frame/applicationinfo.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/undostep.h"
#include "view/annotations/onelegend.h"
#include "window/commands/activepair.h"
#include "window/commands/windowactions.h"

#include <QtMath>

CSelectionCommands::CSelectionCommands(CWindowActions& actions) : m_actions(actions)
{
    actions.Bind(ActionSelectAll, this, &CSelectionCommands::SlotSelectAll);
    actions.Bind(ActionDeselectAll, this, &CSelectionCommands::SlotDeselectAll);
    actions.Bind(ActionToggleSelection, this, &CSelectionCommands::SlotToggleSelection);
    actions.Bind(ActionSelectAdjacent, this, &CSelectionCommands::SlotSelectAdjacent);
    actions.Bind(ActionAngleLimit, this, &CSelectionCommands::SlotAngleLimit);
    actions.Bind(ActionShow, this, &CSelectionCommands::SlotShow);
    actions.Bind(ActionHide, this, &CSelectionCommands::SlotHide);
    actions.BindWithoutSlot(ActionApplyToChildren);
}

void CSelectionCommands::Select(bool (*select)(const ISelectable&))
{
    const SActivePair pair;
    if (!pair.pSimulation)
        return;
    for (ISelectable* const pSelectable : pair.GetSelectables())
        pSelectable->setSelected(select(*pSelectable));
    CSelectableManager::Instance().NotifySelectionChanged(pair.nViewId, pair.pSimulation->GetId());
}

void CSelectionCommands::SlotSelectAll()
{
    Select([](const ISelectable&) { return true; });
}

void CSelectionCommands::SlotDeselectAll()
{
    Select([](const ISelectable&) { return false; });
}

void CSelectionCommands::SlotToggleSelection()
{
    Select([](const ISelectable& selectable) { return !selectable.isSelected(); });
}

void CSelectionCommands::SlotSelectAdjacent()
{
    const SActivePair pair;
    if (!pair.pSimulation)
        return;
    const CWaitCursor wait;
    pair.pSimulation->SelectAdjacent(pair.nViewId);
}

void CSelectionCommands::SlotAngleLimit()
{
    constexpr double LARGEST = 180.0;
    CPreferences& preferences = CPreferences::Instance();
    const double dDegrees = qRadiansToDegrees(Get(preferences, PreferenceKey::ANGLE_LIMIT));
    const auto answer =
        UserPrompt::AskNumber({"Angle Limit", "Angle limit [deg]:", dDegrees, 0.0, LARGEST, 3});
    if (!answer)
        return;
    Set(preferences, PreferenceKey::ANGLE_LIMIT, qDegreesToRadians(*answer));
    preferences.Save(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
}

void CSelectionCommands::SetVisible(bool bVisible)
{
    const SActivePair pair;
    if (!pair.pSimulation)
        return;
    const QVector<ISelectable*> subjects =
        pair.GetSubjects(m_actions.Get(ActionApplyToChildren)->isChecked());
    {
        const CUndoStep step(pair.pSimulation->GetId());
        for (ISelectable* const pSelectable : subjects) {
            pSelectable->setVisible(bVisible);
            CSelectableManager::Instance().NotifyMaskChanged(pSelectable);
        }
        if (!bVisible)
            PassLegendsOn(subjects, pair.GetSelectables());
    }
    CWidgetManager::Instance().UpdateActiveViewer();
}

void CSelectionCommands::SlotShow() { SetVisible(true); }
void CSelectionCommands::SlotHide() { SetVisible(false); }
