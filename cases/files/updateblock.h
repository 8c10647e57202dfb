#pragma once

#include "frame/widgetmanager.h"

/**
 * The views of a simulation don't repaint while this lives, and the window shows the wait cursor. Blocks of
 * one simulation don't nest.
 */
class CUpdateBlock
{
public:
    explicit CUpdateBlock(qint64 nSimulationId) : m_nSimulationId(nSimulationId)
    {
        CWidgetManager::Instance().BlockUpdates(m_nSimulationId, true);
    }
    ~CUpdateBlock() { CWidgetManager::Instance().BlockUpdates(m_nSimulationId, false); }
    CUpdateBlock(const CUpdateBlock&) = delete;
    CUpdateBlock& operator=(const CUpdateBlock&) = delete;

private:
    const qint64 m_nSimulationId;
};
