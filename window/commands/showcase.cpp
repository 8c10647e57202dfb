#include "window/commands/showcase.h"

#include "frame/widgetmanager.h"
#include "simulation/simulationmanager.h"

void ShowCase::InActiveView(qint64 nSimulationId)
{
    if (nSimulationId == -1)
        return;
    const qint64 nViewId = CWidgetManager::Instance().GetActiveViewId();
    CSimulationManager::Instance().SetActiveSimulation(nViewId, nSimulationId);
    CWidgetManager::Instance().RefreshDocks(nViewId);
    CWidgetManager::Instance().UpdateActions();
    CWidgetManager::Instance().UpdateActiveViewer();
}
