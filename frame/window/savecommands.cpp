#include "frame/window/savecommands.h"

#include "frame/moduleregistry.h"
#include "frame/recentfolder.h"
#include "frame/replacefile.h"
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "frame/window/activepair.h"
#include "frame/window/recentfiles.h"
#include "frame/window/windowactions.h"
#include "modules/base/displayfile.h"
#include "simulation/isimulation.h"

#include <QDateTime>
#include <QDir>

namespace {

constexpr const char *SAVE_TITLE = "Save Simulation", *EXPORT_TITLE = "Export Display State";

/** The file of the case, or a name for one: beside its data if it has some. */
QString StartName(const ISimulation& simulation)
{
    if (!simulation.GetFilePath().isEmpty())
        return simulation.GetFilePath();
    const QString sDirectory = Get(simulation, SimulationKey::DIRECTORY);
    const QString sName = simulation.GetName().isEmpty() ? QString("case") : simulation.GetName();
    return sDirectory.isEmpty() ? sName + ".zento" : QDir(sDirectory).filePath(sName + ".zento");
}

} // namespace

CSaveCommands::CSaveCommands(CWindowActions& actions, CRecentFiles& recentFiles) : m_recentFiles(recentFiles)
{
    actions.Bind(ActionSave, this, &CSaveCommands::SlotSaveSimulation);
    actions.Bind(ActionSaveAs, this, &CSaveCommands::SlotSaveAsSimulation);
    actions.Bind(ActionDisplayState, this, &CSaveCommands::SlotExportDisplayState);
}

void CSaveCommands::SlotSaveSimulation()
{
    const SActivePair active;
    if (active.pSimulation && !active.pSimulation->GetFilePath().isEmpty())
        Save(*active.pSimulation, active.pSimulation->GetFilePath());
    else
        SlotSaveAsSimulation();
}

void CSaveCommands::SlotSaveAsSimulation()
{
    const SActivePair active;
    if (!active.pSimulation)
        return;
    const QString sFile = RecentFolder::AskFile(
        {SAVE_TITLE, StartName(*active.pSimulation), "Simulation File (*.zento)", true, ".zento"});
    if (!sFile.isEmpty())
        Save(*active.pSimulation, sFile);
}

void CSaveCommands::Save(const ISimulation& simulation, const QString& sFile)
{
    IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(simulation.GetModuleId());
    if (!pModule || !pModule->Save(sFile, simulation.GetId()))
        return;
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
    const QString sStart =
        QString("%1%2%3~display.disp")
            .arg(Get(*active.pSimulation, SimulationKey::DIRECTORY), QString(QDir::separator()),
                 QDateTime::currentDateTime().toString("yyyy-MM-dd~hh-mm-ss"));
    const QString sFile = RecentFolder::AskFile(
        {EXPORT_TITLE, sStart, "Display Files (*.disp);; All Files (*)", true, ".disp"});
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
