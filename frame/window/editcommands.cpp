#include "frame/window/editcommands.h"

#include "frame/widgetmanager.h"
#include "frame/window/windowactions.h"
#include "simulation/isimulation.h"

namespace {

ISimulation* ActiveSimulation() { return CWidgetManager::Instance().GetActiveSimulation(); }

void Step(void (ISimulation::*step)())
{
    ISimulation* const pSimulation = ActiveSimulation();
    if (!pSimulation)
        return;
    (pSimulation->*step)();
    pSimulation->RefreshViews();
    CWidgetManager::Instance().UpdateActions();
}

void Edit(void (ISimulation::*edit)(qint64))
{
    ISimulation* const pSimulation = ActiveSimulation();
    if (!pSimulation)
        return;
    pSimulation->BeginUndoStep();
    (pSimulation->*edit)(CWidgetManager::Instance().GetActiveViewId());
    pSimulation->EndUndoStep(false);
    CWidgetManager::Instance().UpdateActions();
}

} // namespace

CEditCommands::CEditCommands(CWindowActions& actions)
{
    actions.Bind(ActionUndo, this, &CEditCommands::SlotUndo);
    actions.Bind(ActionRedo, this, &CEditCommands::SlotRedo);
    actions.Bind(ActionDuplicate, this, &CEditCommands::SlotDuplicate);
    actions.Bind(ActionDelete, this, &CEditCommands::SlotDelete);
}

void CEditCommands::SlotUndo() { Step(&ISimulation::Undo); }
void CEditCommands::SlotRedo() { Step(&ISimulation::Redo); }
void CEditCommands::SlotDuplicate() { Edit(&ISimulation::DuplicateSelection); }
void CEditCommands::SlotDelete() { Edit(&ISimulation::DeleteSelection); }
