#include "window/twinviews.h"

#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

#include <QScopedValueRollback>

namespace {
constexpr double STATE_VERSION = -1.0; // of this session
}

const QVector<qint64>* CTwinViews::TwinsOf(qint64 nViewId) const
{
    const auto group = std::find_if(m_groups.begin(), m_groups.end(),
                                    [nViewId](const auto& views) { return views.contains(nViewId); });
    return group == m_groups.end() ? nullptr : &*group;
}

void CTwinViews::Join(qint64 nViewId, qint64 nNewViewId)
{
    for (QVector<qint64>& views : m_groups)
        if (views.contains(nViewId)) {
            views.append(nNewViewId);
            return;
        }
    m_groups.append({nViewId, nNewViewId});
}

void CTwinViews::Forget(qint64 nViewId)
{
    for (QVector<qint64>& views : m_groups)
        views.removeAll(nViewId);
    m_groups.erase(std::remove_if(m_groups.begin(), m_groups.end(),
                                  [](const QVector<qint64>& views) { return views.size() < 2; }),
                   m_groups.end());
}

void CTwinViews::Follow(qint64 nViewId)
{
    const QVector<qint64>* const pTwins = TwinsOf(nViewId);
    const CSimulationManager& manager = CSimulationManager::Instance();
    ISimulation* const pSimulation = manager.GetSimulationOfView(nViewId);
    if (!pTwins || !pSimulation || m_bFollowing)
        return;
    const QScopedValueRollback<bool> guard(m_bFollowing, true);
    const QByteArray state = pSimulation->SaveViewState(nViewId);
    QByteArray& shown = m_shown[pSimulation->GetId()];
    if (state == shown)
        return;
    shown = state;
    const QVector<qint64> views = *pTwins;
    for (const qint64 nTwin : views)
        if (nTwin != nViewId && manager.GetSimulationIds(nTwin).contains(pSimulation->GetId()))
            pSimulation->LoadViewState(state, nTwin, STATE_VERSION);
}
