#include "simulation/casesaving.h"

#include "frame/imoduleinterface.h"
#include "frame/moduleregistry.h"
#include "frame/preferences/recentfolder.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

#include <QDir>

namespace {

IModuleInterface* ModuleOf(const ISimulation& simulation)
{
    return CModuleRegistry::Instance().FindById(qint32(simulation.GetModuleId()));
}

/** The file of the case, or a name for one: beside its data if it has some. */
QString StartName(const ISimulation& simulation)
{
    if (!simulation.GetFilePath().isEmpty())
        return simulation.GetFilePath();
    const QString sDirectory = Get(simulation, SimulationKey::DIRECTORY);
    const QString sName = simulation.GetName().isEmpty() ? QString("case") : simulation.GetName();
    return sDirectory.isEmpty() ? sName + ".zento" : QDir(sDirectory).filePath(sName + ".zento");
}

bool SaveTo(const ISimulation& simulation, const QString& sFile)
{
    IModuleInterface* const pModule = ModuleOf(simulation);
    if (!pModule || !pModule->Save(sFile, simulation.GetId()))
        return false;
    emit CSimulationManager::Instance().SignalSimulationSaved(simulation.GetId());
    return true;
}

} // namespace

bool CaseSaving::CanSave(const ISimulation& simulation)
{
    const IModuleInterface* const pModule = ModuleOf(simulation);
    return pModule && pModule->CanOpen() && simulation.AllowsSaving();
}

bool CaseSaving::Save(const ISimulation& simulation)
{
    const QString sFile = simulation.GetFilePath();
    return sFile.isEmpty() ? SaveAs(simulation) : SaveTo(simulation, sFile);
}

bool CaseSaving::SaveAs(const ISimulation& simulation)
{
    const QString sFile = RecentFolder::AskFile(
        {"Save Simulation", StartName(simulation), "Simulation File (*.zento)", true, ".zento"});
    return !sFile.isEmpty() && SaveTo(simulation, sFile);
}
