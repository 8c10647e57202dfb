#include "data/casedata.h"

#include "data/gridmanager.h"
#include "data/solutionmanager.h"
#include "data/variables/variablemanager.h"

void RemoveCaseData(qint64 nSimulationId)
{
    CVariableManager::Instance().RemoveSimulationVariables(nSimulationId);
    CSolutionManager::Instance().RemoveSimulation(nSimulationId);
    CGridManager::Instance().RemoveSimulation(nSimulationId);
}
