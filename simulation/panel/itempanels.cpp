#include "simulation/panel/itempanels.h"

#include "simulation/panel/itempanel.h"
#include "simulation/simulationmanager.h"

CItemPanel* CItemPanels::Create(qint64 nViewId, qint64 nSimulationId)
{
    auto* const pPanel = new CItemPanel(nViewId, nSimulationId);
    QObject::connect(pPanel, &CItemPanel::SignalDeleted, &CSimulationManager::Instance(),
                     &CSimulationManager::SlotItemPanelDeleted);
    return pPanel;
}

void CItemPanels::Delete(CItemPanel* pPanel)
{
    pPanel->disconnect(&CSimulationManager::Instance());
    pPanel->Detach();
    pPanel->hide();
    pPanel->deleteLater();
}
