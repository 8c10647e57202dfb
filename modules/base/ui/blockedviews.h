#pragma once

#include "frame/ui/waitcursor.h"
#include "modules/base/updateblock.h"

/** The views of a simulation don't repaint while this lives, and the user sees the wait cursor. */
class CBlockedViews
{
public:
    explicit CBlockedViews(qint64 nSimulationId) : m_block(nSimulationId) {}

private:
    const CUpdateBlock m_block;
    const CWaitCursor m_wait;
};
