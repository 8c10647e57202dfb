#pragma once

#include <QtGlobal>

class CItemPanel;

/**
 * Who makes the item panel of a pair of view and simulation. The panel library installs itself at start-up;
 * without it (a run with no window) pairs have none.
 */
class IItemPanels
{
public:
    virtual ~IItemPanels() = default;
    virtual CItemPanel* Create(qint64 nViewId, qint64 nSimulationId) = 0;
    /** Cuts the panel's connections and deletes it. */
    virtual void Delete(CItemPanel* pPanel) = 0;
};
