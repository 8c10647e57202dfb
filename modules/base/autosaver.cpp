#include "modules/base/autosaver.h"

#include "frame/imoduleinterface.h"
#include "frame/moduleregistry.h"
#include "modules/base/casestorage.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

namespace {

/** A case that was never saved is lost once somebody has edited it; till then its data files open it again.
 */
bool IsEdited(const ISimulation& simulation)
{
    return simulation.GetUndoCount() > 0 || simulation.GetRedoCount() > 0 ||
           !simulation.GetSavedData().isEmpty(); // one that was recovered
}

bool HasNothingToLose(const ISimulation& simulation, const SCaseFile& now)
{
    if (simulation.GetFilePath().isEmpty())
        return !IsEdited(simulation);
    return now.data == simulation.GetSavedData() && now.display == simulation.GetSavedDisplay();
}

} // namespace

bool CAutosaver::Run()
{
    const CSimulationManager& manager = CSimulationManager::Instance();
    const QVector<qint64> openIds = manager.GetSimulationIds();
    for (const qint64 nId : m_folder.GetStoredIds())
        if (!openIds.contains(nId))
            m_folder.Drop(nId);
    bool bAll = true;
    for (const qint64 nId : openIds) {
        const ISimulation* const pSimulation = manager.GetSimulation(nId);
        const IModuleInterface* const pModule =
            CModuleRegistry::Instance().FindById(qint32(pSimulation->GetModuleId()));
        if (pModule && pModule->CanOpen() && pSimulation->AllowsSaving())
            bAll = Keep(*pSimulation, pModule->GetName()) && bAll;
    }
    return bAll;
}

bool CAutosaver::Keep(const ISimulation& simulation, const QString& sModule)
{
    const SCaseFile now = TakeCase(simulation, sModule);
    if (!HasNothingToLose(simulation, now))
        return m_folder.Store(
            simulation.GetId(),
            SAutosaveFile{sModule, simulation.GetName(), simulation.GetFilePath(), now.ToBytes()}.ToBytes());
    m_folder.Drop(simulation.GetId());
    return true;
}
