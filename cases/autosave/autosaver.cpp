#include "cases/autosave/autosaver.h"

#include "cases/files/casestorage.h"
#include "cases/files/viewcamera.h"
#include "frame/imoduleinterface.h"
#include "frame/moduleregistry.h"
#include "simulation/casesaving.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

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
        if (CaseSaving::CanSave(*pSimulation))
            bAll = Keep(*pSimulation) && bAll;
    }
    return bAll;
}

// Whether anything has changed is told by the bytes: nothing counts the changes of what a view shows. With
// 2,000 blocks that takes 15 ms (bench/opencase_bench).
bool CAutosaver::Keep(const ISimulation& simulation)
{
    const qint64 nId = simulation.GetId();
    if (!simulation.HasUnsavedEdits()) {
        m_folder.Drop(nId);
        return true;
    }
    const QString sModule = CModuleRegistry::Instance().FindById(qint32(simulation.GetModuleId()))->GetName();
    const qint64 nViewId = ViewToStore(simulation);
    const SAutosaveFile kept{sModule, simulation.GetName(), simulation.GetFilePath(),
                             TakeCase(simulation, sModule, nViewId, TakeViewCamera(nViewId)).ToBytes()};
    return m_folder.Store(nId, kept.ToBytes());
}
