#include "view/redrawviews.h"

#include "frame/widgetmanager.h"
#include "simulation/simulationmanager.h"
#include "view/iviewer.h"

void RedrawViews(qint64 nSimulationId)
{
    for (const qint64 nViewId : CSimulationManager::Instance().GetViewIds(nSimulationId))
        if (IViewer* const pViewer = CWidgetManager::Instance().GetViewerById(nViewId))
            pViewer->Refresh();
}
