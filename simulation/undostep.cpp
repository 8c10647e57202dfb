#include "simulation/undostep.h"

#include "runs/process.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

CUndoStep::CUndoStep(qint64 nSimulationId)
    : m_pSimulation(CSimulationManager::Instance().GetSimulation(nSimulationId)),
      m_pCaseLives(CSimulationManager::Instance().GetProcess(nSimulationId))
{
    if (m_pSimulation)
        m_pSimulation->BeginUndoStep();
}

CUndoStep::~CUndoStep()
{
    if (m_pCaseLives)
        m_pSimulation->EndUndoStep(m_bDiscard);
}

void DeleteSelectionInOneStep(ISimulation& simulation, qint64 nViewId)
{
    if (!simulation.CanDelete(nViewId))
        return;
    const CUndoStep step(simulation.GetId());
    simulation.DeleteSelection(nViewId);
}
