#include "window/commands/editcommands.h"

#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/undostep.h"
#include "window/commands/windowactions.h"

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

/** The selected items of the first one's grid and type, and those that aren't selected. */
struct SLinkable
{
    QVector<qint64> items;
    QVector<qint64> group;
};

SLinkable FindLinkable(const ISimulation& simulation, qint64 nViewId)
{
    const CWaitCursor wait; // blocks may have to be read to be compared
    QVector<qint64> selected;
    for (const ISelectable* const p : CSelectableManager::Instance().GetSelected(nViewId, simulation.GetId()))
        selected.append(p->itemId());
    SLinkable linkable;
    if (selected.isEmpty())
        return linkable;
    linkable.group = simulation.GetLinkedItems(selected.first());
    for (const qint64 nId : std::as_const(selected))
        if (linkable.group.removeOne(nId))
            linkable.items.append(nId);
    return linkable;
}

enum { GROUP_TO_ITEMS, ITEMS_TO_GROUP, CANCEL };

int AskWhoseSettings(const QString& sItemName)
{
    SPrompt prompt;
    prompt.eKind = PromptQuestion;
    prompt.sTitle = QString("Link Items: %1").arg(sItemName);
    prompt.sText = "The data between the linked items must match.";
    prompt.sButtonList = QStringList{"Unify group to items", "Unify items to group", "Cancel link"};
    prompt.nDefault = prompt.nEscape = CANCEL;
    return UserPrompt::Ask(prompt);
}

} // namespace

CEditCommands::CEditCommands(CWindowActions& actions)
{
    actions.Bind(ActionUndo, this, &CEditCommands::SlotUndo);
    actions.Bind(ActionRedo, this, &CEditCommands::SlotRedo);
    actions.Bind(ActionDuplicate, this, &CEditCommands::SlotDuplicate);
    actions.Bind(ActionDelete, this, &CEditCommands::SlotDelete);
    actions.Bind(ActionUnify, this, &CEditCommands::SlotUnify);
}

void CEditCommands::SlotUndo() { Step(&ISimulation::Undo); }
void CEditCommands::SlotRedo() { Step(&ISimulation::Redo); }

void CEditCommands::SlotDuplicate()
{
    ISimulation* const pSimulation = ActiveSimulation();
    if (!pSimulation)
        return;
    {
        const CUndoStep step(pSimulation->GetId());
        pSimulation->DuplicateSelection(CWidgetManager::Instance().GetActiveViewId());
    }
    CWidgetManager::Instance().UpdateActions();
}

void CEditCommands::SlotDelete()
{
    ISimulation* const pSimulation = ActiveSimulation();
    if (!pSimulation)
        return;
    DeleteSelectionInOneStep(*pSimulation, CWidgetManager::Instance().GetActiveViewId());
    CWidgetManager::Instance().UpdateActions();
}

void CEditCommands::SlotUnify()
{
    ISimulation* const pSimulation = ActiveSimulation();
    if (!pSimulation)
        return;
    const SLinkable linkable = FindLinkable(*pSimulation, CWidgetManager::Instance().GetActiveViewId());
    if (linkable.items.size() + linkable.group.size() < 2) {
        CWidgetManager::Instance().SetStatusText("There is no other item with the grid of the selected one");
        return;
    }
    const QVector<qint64>& items = linkable.items;
    const int nAnswer = AskWhoseSettings(pSimulation->GetItem(items.first())->GetName());
    if (nAnswer == CANCEL)
        return;
    {
        const CUndoStep step(pSimulation->GetId());
        // The settings of the first go to all others.
        pSimulation->MakeLinks(nAnswer == GROUP_TO_ITEMS ? linkable.group + items : items + linkable.group,
                               true);
    }
    pSimulation->RefreshViews();
    CWidgetManager::Instance().UpdateActions();
}
