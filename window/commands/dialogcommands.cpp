#include "window/commands/dialogcommands.h"

#include "frame/widgetmanager.h"
#include "simulation/isimulation.h"
#include "view/dialogs/colormapdialog.h"
#include "view/dialogs/variabledialog.h"
#include "view/dialogs/vectordialog.h"
#include "window/commands/windowactions.h"

namespace {

const ISimulation* ActiveSimulation() { return CWidgetManager::Instance().GetActiveSimulation(); }
qint64 ActiveView() { return CWidgetManager::Instance().GetActiveViewId(); }

/** After a dialog: the boxes may show another variable, and another view may be on top of its picture. */
void ShowChanges()
{
    CWidgetManager::Instance().UpdateActions();
    CWidgetManager::Instance().UpdateActiveViewer();
}

} // namespace

CDialogCommands::CDialogCommands(CWindowActions& actions, QWidget* pParent) : m_pParent(pParent)
{
    actions.Bind(ActionColormap, this, &CDialogCommands::SlotColormap);
    actions.Bind(ActionColormapDialog, this, &CDialogCommands::SlotColormapDialog);
    actions.Bind(ActionVectorDialog, this, &CDialogCommands::SlotVectorDialog);
    actions.Bind(ActionVariables, this, &CDialogCommands::SlotVariables);
}

qint64 CDialogCommands::ChooseVariable(VariableKind_e eKind, qint64 nCurrent) const
{
    const ISimulation* const pSimulation = ActiveSimulation();
    if (!pSimulation)
        return nCurrent;
    return CVariableDialog::Choose(pSimulation->GetId(), eKind, nCurrent, true, m_pParent).value_or(nCurrent);
}

void CDialogCommands::OpenColormaps(bool bGlobal)
{
    const ISimulation* const pSimulation = ActiveSimulation();
    if (!pSimulation)
        return;
    CColormapDialog dialog(pSimulation->GetId(), ActiveView(), bGlobal, m_pParent);
    if (dialog.HasItems())
        dialog.exec();
    ShowChanges();
}

void CDialogCommands::SlotColormap() { OpenColormaps(true); }
void CDialogCommands::SlotColormapDialog() { OpenColormaps(false); }

void CDialogCommands::SlotVectorDialog()
{
    if (const ISimulation* const pSimulation = ActiveSimulation())
        CVectorDialog(pSimulation->GetId(), ActiveView(), m_pParent).exec();
    ShowChanges();
}

void CDialogCommands::SlotVariables()
{
    if (const ISimulation* const pSimulation = ActiveSimulation())
        CVariableDialog(pSimulation->GetId(), FaceManager, std::nullopt, m_pParent).exec();
    ShowChanges();
}
