#include "modules/base/autosaver.h"

#include "frame/imoduleinterface.h"
#include "frame/moduleregistry.h"
#include "modules/base/casestorage.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

namespace {

/** Never saved, and not edited: its data files open it again. Or just being opened, while its user is asked.
 */
bool IsUntouched(const ISimulation& simulation)
{
    return simulation.GetSavedData().isEmpty() && simulation.GetUndoCount() == 0 &&
           simulation.GetRedoCount() == 0;
}

bool IsSaved(const ISimulation& simulation, const SCaseFile& now)
{
    return !simulation.GetFilePath().isEmpty() && now.data == simulation.GetSavedData() &&
           now.display == simulation.GetSavedDisplay();
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

// Whether anything has changed is told by the bytes: nothing counts the changes of what a view shows. With
// 2,000 blocks that takes 15 ms (bench/opencase_bench).
bool CAutosaver::Keep(const ISimulation& simulation, const QString& sModule)
{
    const qint64 nId = simulation.GetId();
    if (IsUntouched(simulation)) {
        m_folder.Drop(nId);
        return true;
    }
    const SCaseFile now = TakeCase(simulation, sModule);
    if (IsSaved(simulation, now)) {
        m_folder.Drop(nId);
        return true;
    }
    const SAutosaveFile kept{sModule, simulation.GetName(), simulation.GetFilePath(), now.ToBytes()};
    return m_folder.Store(nId, kept.ToBytes());
}
