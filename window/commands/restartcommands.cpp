#include "window/commands/restartcommands.h"

#include "cases/files/casestorage.h"
#include "cases/files/restartfile.h"
#include "cases/files/updateblock.h"
#include "cases/files/viewcamera.h"
#include "frame/moduleregistry.h"
#include "frame/preferences/recentfolder.h"
#include "frame/replacefile.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "simulation/undostep.h"
#include "window/commands/activepair.h"
#include "window/commands/showcase.h"
#include "window/commands/windowactions.h"

#include <QFileInfo>

namespace {

constexpr const char *TITLE = "Simulation Restart File", *INVALID_TITLE = "Invalid Simulation";
constexpr const char *FILTER = "Simulation Restart Files (*.srst)", *ENDING = ".srst";

QString Ask(const QString& sFilter, bool bSave)
{
    return RecentFolder::AskFile({TITLE, {}, sFilter, bSave, bSave ? ENDING : QString()});
}

void TellNoData()
{
    UserPrompt::Tell(PromptWarning, INVALID_TITLE, "Failed to load the data of the selected restart file");
}

SRestartFile TakeRestart(const SActivePair& active)
{
    SRestartFile file;
    file.nModuleId = active.pSimulation->GetModuleId();
    file.key = active.pSimulation->GetDataFileKey();
    file.display = active.pSimulation->SaveViewState(active.nViewId);
    if (const std::optional<SCamera> camera = TakeViewCamera(active.nViewId))
        file.camera = SStoredCamera(*camera).block;
    return file;
}

} // namespace

CRestartCommands::CRestartCommands(CWindowActions& actions)
{
    actions.Bind(ActionExportSimulation, this, &CRestartCommands::SlotExportSimulationRestart);
    actions.Bind(ActionImportSimulationAll, this, [this] { SlotImportSimulationRestart(true); });
    actions.Bind(ActionImportSimulationDisplay, this, [this] { SlotImportSimulationRestart(false); });
}

void CRestartCommands::SlotExportSimulationRestart()
{
    const SActivePair active;
    const QString sFile = active.pSimulation ? Ask(FILTER, true) : QString();
    if (sFile.isEmpty())
        return;
    if (!ReplaceFile(sFile, TakeRestart(active).ToBytes()))
        UserPrompt::Tell(PromptCritical, TITLE,
                         QString("Failed to write simulation restart file %1").arg(sFile));
}

void CRestartCommands::SlotImportSimulationRestart(bool bData)
{
    const QString sFile = Ask(QString("%1;; All Files (*)").arg(FILTER), false);
    if (sFile.isEmpty())
        return;
    QByteArray bytes;
    if (!ReadWholeFile(sFile, bytes)) {
        UserPrompt::Tell(PromptCritical, TITLE, "Failed to open the selected file");
        return;
    }
    SRestartFile file;
    const StoredFile_e eStored = file.FromBytes(bytes);
    if (eStored == StoredNewer)
        TellNewer(sFile);
    else if (eStored == StoredBad)
        TellNoData();
    else
        Show(file, QFileInfo(sFile).absolutePath(), bData);
}

/** Null if there is none. */
ISimulation* CRestartCommands::FindCase(const SRestartFile& file, const QString& sFolder, bool bData) const
{
    ISimulation* const pActive = SActivePair().pSimulation;
    if (!bData || (pActive && pActive->IsSameDataFile(file.key)))
        return pActive;
    IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(file.nModuleId);
    return pModule ? CSimulationManager::Instance().GetSimulation(pModule->OpenFromKey(file.key, -1, sFolder))
                   : nullptr;
}

void CRestartCommands::Show(const SRestartFile& file, const QString& sFolder, bool bData) const
{
    const SActivePair active;
    if (active.pSimulation && active.pSimulation->GetModuleId() != file.nModuleId) {
        UserPrompt::Tell(PromptWarning, INVALID_TITLE,
                         "The selected file contains a simulation of a different module than the current "
                         "active simulation");
        return;
    }
    const QVector<qint64> openIds = CSimulationManager::Instance().GetSimulationIds();
    ISimulation* const pSimulation = FindCase(file, sFolder, bData);
    bool bShown = false;
    if (pSimulation) {
        const CUpdateBlock block(pSimulation->GetId());
        CUndoStep step(pSimulation->GetId());
        bShown = pSimulation->LoadViewState(file.display, active.nViewId, file.dVersion);
        if (!bShown)
            step.Discard();
    }
    if (!bShown) {
        TellNoData();
        return;
    }
    ApplyCameraBlock(active.nViewId, file.camera);
    ShowCase::InActiveView(pSimulation->GetId());
    if (!openIds.contains(pSimulation->GetId()))
        pSimulation->NoteSaved();
}
