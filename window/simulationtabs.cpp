#include "window/simulationtabs.h"

#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

#include <QScopedValueRollback>
#include <QTabBar>

namespace {

QString TabText(const ISimulation& simulation)
{
    const QString sMark = simulation.HasUnsavedEdits() ? QString(" *") : QString();
    return simulation.GetName().replace('&', "&&") + sMark;
}

} // namespace

CSimulationTabs::CSimulationTabs(QTabBar* pTabBar) : m_pTabBar(pTabBar) {}

qint64 CSimulationTabs::IdAt(int nIndex) const
{
    const QVariant id = m_pTabBar->tabData(nIndex);
    return id.isValid() ? id.toLongLong() : -1;
}

void CSimulationTabs::Fill(qint64 nViewId)
{
    const QScopedValueRollback<bool> guard(m_bFilling, true);
    m_nViewId = nViewId;
    const CSimulationManager& manager = CSimulationManager::Instance();
    const QVector<qint64> ids = manager.GetSimulationIds(nViewId);
    const ISimulation* const pActive = manager.GetSimulationOfView(nViewId);
    while (m_pTabBar->count() > ids.size())
        m_pTabBar->removeTab(m_pTabBar->count() - 1);
    while (m_pTabBar->count() < ids.size())
        m_pTabBar->addTab({});
    for (int n = 0; n < ids.size(); ++n) {
        const ISimulation* const pSimulation = manager.GetSimulation(ids[n]);
        m_pTabBar->setTabText(n, TabText(*pSimulation));
        m_pTabBar->setTabToolTip(n, pSimulation->GetToolTip());
        m_pTabBar->setTabIcon(n, pSimulation->GetIcon());
        m_pTabBar->setTabData(n, ids[n]);
        if (pSimulation == pActive)
            m_pTabBar->setCurrentIndex(n);
    }
    m_pTabBar->setVisible(!ids.isEmpty());
}

void CSimulationTabs::ShowUnsaved()
{
    for (int n = 0; n < m_pTabBar->count(); ++n)
        if (const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(IdAt(n)))
            m_pTabBar->setTabText(n, TabText(*pSimulation));
}

void CSimulationTabs::Choose(int nIndex)
{
    const qint64 nId = IdAt(nIndex);
    if (!m_bFilling && nId != -1)
        CSimulationManager::Instance().SetActiveSimulation(m_nViewId, nId);
}

void CSimulationTabs::Close(int nIndex)
{
    CSimulationManager& manager = CSimulationManager::Instance();
    const qint64 nViewId = m_nViewId;
    const qint64 nId = IdAt(nIndex);
    if (nId == -1 || !manager.CloseInView(nId, nViewId))
        return;
    manager.RemoveSimulationFromView(nId, nViewId);
    manager.CopyDisplayFiles();
    const QVector<qint64> rest = manager.GetSimulationIds(nViewId);
    if (!manager.GetSimulationOfView(nViewId) && !rest.isEmpty())
        manager.SetActiveSimulation(nViewId, rest[std::min(nIndex, rest.size() - 1)]);
}
