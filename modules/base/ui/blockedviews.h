#pragma once

#include "frame/ui/waitcursor.h"
#include "frame/widgetmanager.h"

/** The views of a simulation don't follow what happens while this lives; the user sees the wait cursor. */
class CBlockedViews
{
public:
    explicit CBlockedViews(qint64 nSimulationId) : m_nSimulationId(nSimulationId)
    {
        CWidgetManager::Instance().BlockUpdates(m_nSimulationId, true);
    }
    ~CBlockedViews() { CWidgetManager::Instance().BlockUpdates(m_nSimulationId, false); }
    CBlockedViews(const CBlockedViews&) = delete;
    CBlockedViews& operator=(const CBlockedViews&) = delete;

private:
    const qint64 m_nSimulationId;
    const CWaitCursor m_wait;
};
