#include "window/commands/savecommands.h"

#include "cases/display/displayfile.h"
#include "frame/preferences/recentfolder.h"
#include "frame/replacefile.h"
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "simulation/casesaving.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "window/commands/activepair.h"
#include "window/commands/windowactions.h"
#include "window/recentfiles.h"

#include <QDateTime>
#include <QDir>

namespace {

constexpr const char* EXPORT_TITLE = "Export Display State";

} // namespace

CSaveCommands::CSaveCommands(CWindowActions& actions, CRecentFiles& recentFiles) : m_recentFiles(recentFiles)
{
    actions.Bind(ActionSave, this, &CSaveCommands::SlotSaveSimulation);
    actions.Bind(ActionSaveAs, this, &CSaveCommands::SlotSaveAsSimulation);
    actions.Bind(ActionDisplayState, this, &CSaveCommands::SlotExportDisplayState);
    connect(&CSimulationManager::Instance(), &CSimulationManager::SignalSimulationSaved, this,
            &CSaveCommands::SlotSimulationSaved);
}

void CSaveCommands::SlotSaveSimulation()
{
    if (const SActivePair active; active.pSimulation)
        CaseSaving::Save(*active.pSimulation);
}

void CSaveCommands::SlotSaveAsSimulation()
{
    if (const SActivePair active; active.pSimulation)
        CaseSaving::SaveAs(*active.pSimulation);
}

void CSaveCommands::SlotSimulationSaved(qlonglong nSimulationId)
{
    const QString sFile = CSimulationManager::Instance().GetSimulation(nSimulationId)->GetFilePath();
    emit SignalSaved();
    m_recentFiles.Add(sFile);
    CWidgetManager::Instance().SetStatusText(QString("Saved to %1").arg(sFile));
    CWidgetManager::Instance().UpdateActions();
}

void CSaveCommands::SlotExportDisplayState()
{
    const SActivePair active;
    if (!active.pSimulation)
        return;
    const QString sDirectory = Get(*active.pSimulation, SimulationKey::DIRECTORY);
    const QString sName = QDateTime::currentDateTime().toString("yyyy-MM-dd~hh-mm-ss") + "~display.disp";
    const QString sFile =
        RecentFolder::AskFile({EXPORT_TITLE, sDirectory.isEmpty() ? sName : QDir(sDirectory).filePath(sName),
                               "Display Files (*.disp);; All Files (*)", true, ".disp"});
    if (sFile.isEmpty())
        return;
    bool bWritten = false;
    {
        const CWaitCursor wait;
        bWritten = ReplaceFile(sFile, MakeDisplayFile(*active.pSimulation, active.nViewId));
    }
    if (bWritten)
        UserPrompt::Tell(PromptInformation, EXPORT_TITLE,
                         QString("Display state exported successfully to %1").arg(sFile));
    else
        UserPrompt::Tell(PromptCritical, EXPORT_TITLE,
                         QString("Failed to open file %1 for writing").arg(sFile));
}
