#pragma once

#include "simulation/iitempanels.h"

/**
 * Makes the item panels of the program with a window, for CSimulationManager::SetItemPanels. A panel has no
 * parent until somebody embeds it.
 */
class CItemPanels : public IItemPanels
{
public:
    CItemPanel* Create(qint64 nViewId, qint64 nSimulationId) override;
    /** Empties it at once; the widget goes with the event loop, since its own slot may be running. */
    void Delete(CItemPanel* pPanel) override;
};
