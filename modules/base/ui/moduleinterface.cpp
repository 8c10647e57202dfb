#include "modules/base/ui/moduleinterface.h"

#include "frame/widgetmanager.h"
#include "simulation/isimulation.h"
#include "simulation/panel/dockwidget.h"
#include "simulation/simulationmanager.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>

#include <bit>

CModuleInterface::~CModuleInterface()
{
    for (QObject* const pObject : std::as_const(m_ownedWidgets))
        pObject->deleteLater();
}

void CModuleInterface::SetAllVisible(bool bVisible)
{
    for (QMenu* const pMenu : std::as_const(m_menus))
        pMenu->menuAction()->setVisible(bVisible);
    for (QToolBar* const pToolBar : std::as_const(m_toolBars)) {
        const QVariant wanted = pToolBar->property(TOOLBAR_WANTED);
        pToolBar->toggleViewAction()->setVisible(bVisible);
        pToolBar->setVisible(bVisible && (!wanted.isValid() || wanted.toBool()));
    }
    for (QAction* const pAction : std::as_const(m_actions))
        pAction->setVisible(bVisible);
    for (CDockWidget* const pDock : std::as_const(m_docks))
        pDock->setVisible(bVisible);
}

void CModuleInterface::HideModuleWidgets() { SetAllVisible(false); }
void CModuleInterface::ShowAll() { SetAllVisible(true); }

bool CModuleInterface::IsShownIn(qint64 nViewId) const
{
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulationOfView(nViewId);
    return pSimulation && pSimulation->GetModuleId() == m_nId;
}

qint64 CModuleInterface::Log2(qint64 nValue) const
{
    if (nValue <= 1)
        return 0;
    const auto nBits = static_cast<quint64>(nValue);
    return std::has_single_bit(nBits) ? std::countr_zero(nBits) : -1;
}

void CModuleInterface::RefreshDocks(qint64 nViewId) const
{
    CWidgetManager::Instance().RefreshDocks(nViewId);
}
qint64 CModuleInterface::GetActiveViewId() const { return CWidgetManager::Instance().GetActiveViewId(); }

QWidget* CModuleInterface::GetActiveWidget() const
{
    return CWidgetManager::Instance().GetWidget(CWidgetManager::MAIN_WINDOW);
}

ISimulation* CModuleInterface::GetActiveSimulation() const
{
    const CSimulationManager& manager = CSimulationManager::Instance();
    ISimulation* const pOfView = manager.GetSimulationOfView(GetActiveViewId());
    return pOfView ? pOfView : manager.GetLastSimulation();
}
