#include "data/cases/casedata.h"

#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "data/variables/variablemanager.h"

void RemoveCaseData(qint64 nSimulationId)
{
    CVariableManager::Instance().RemoveSimulationVariables(nSimulationId);
    CSolutionManager::Instance().RemoveSimulation(nSimulationId);
    CGridManager::Instance().RemoveSimulation(nSimulationId);
}
