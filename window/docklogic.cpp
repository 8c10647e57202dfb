#include "window/docklogic.h"

#include "frame/moduleregistry.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/panel/dockwidget.h"
#include "simulation/simulationmanager.h"
#include "window/mainwindow.h"
#include "window/picksession.h"

namespace {

/** All docks of a module, those of the further rows included. */
QVector<QWidget*> DocksOf(const IModuleInterface& module)
{
    QVector<QWidget*> docks;
    for (CDockWidget* const pDock : module.GetDocks())
        docks.append(pDock);
    return docks + module.GetSecondDocks() + module.GetThirdDocks();
}

} // namespace

CDockLogic::CDockLogic(CMainWindow& window, CPickSession& picks) : m_picks(picks)
{
    connect(this, &CDockLogic::SignalCloseExcept, &window, &CMainWindow::SignalCloseExcept);
    for (qint32 nId = 0; nId <= CModuleRegistry::HIGHEST_ID; ++nId)
        if (const IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(nId))
            for (QWidget* const pWidget : DocksOf(*pModule))
                if (auto* const pDock = qobject_cast<CDockWidget*>(pWidget))
                    AddDock(window, nId, pDock);
    RouteSelectables();
}

void CDockLogic::RouteSelectables()
{
    CSelectableManager* const pManager = &CSelectableManager::Instance();
    const auto toAll = [this](auto slot, bool bShownOnly) {
        return [this, slot, bShownOnly](ISelectable* pSelectable) {
            for (const SModuleDock& dock : std::as_const(m_docks))
                if (dock.pDock && !(bShownOnly && dock.pDock->isHidden()))
                    (dock.pDock->*slot)(pSelectable);
        };
    };
    connect(pManager, &CSelectableManager::SignalSelectableDeleted, this,
            toAll(&CDockWidget::SlotSelectableDeleted, false));
    connect(pManager, &CSelectableManager::SignalUpdateSelectable, this,
            toAll(&CDockWidget::SlotSelectableChanged, true));
    connect(pManager, &CSelectableManager::SignalSelectableDisplayOnNodes, this,
            toAll(&CDockWidget::SlotSelectableDisplayOnNodes, true));
    connect(pManager, qOverload<ISelectable*>(&CSelectableManager::SignalSelectableDoubleClicked), this,
            [this](ISelectable* pSelectable) { OpenFor({pSelectable}); });
    connect(pManager, qOverload<QVector<ISelectable*>>(&CSelectableManager::SignalSelectableDoubleClicked),
            this, &CDockLogic::OpenFor);
}

void CDockLogic::OpenFor(const QVector<ISelectable*>& selectables) const
{
    const ISimulation* const pSimulation =
        selectables.isEmpty()
            ? nullptr
            : CSimulationManager::Instance().GetSimulation(selectables.first()->simulationId());
    for (const SModuleDock& dock : m_docks)
        if (dock.pDock && pSimulation && pSimulation->GetModuleId() == dock.nModuleId)
            dock.pDock->SlotSelectableDoubleClicked(selectables);
}

void CDockLogic::AddDock(CMainWindow& window, qint64 nModuleId, CDockWidget* pDock)
{
    m_docks.append({nModuleId, pDock});
    window.addDockWidget(Qt::RightDockWidgetArea, pDock);
    pDock->hide();
    connect(pDock, &CDockWidget::SignalCloseExcept, this, &CDockLogic::SignalCloseExcept);
    connect(&window, &CMainWindow::SignalCloseExcept, pDock, &CDockWidget::SlotCloseExcept);
    connect(&window, &CMainWindow::SignalRefreshDockWidgets, pDock, &CDockWidget::SlotRefreshAll);
    connect(pDock, &CDockWidget::SignalMouseClickReceiver, this, &CDockLogic::SlotMouseClickReceiver);
}

void CDockLogic::SlotMouseClickReceiver(IMouseClickReceiver* pMouseClickReceiver)
{
    if (pMouseClickReceiver)
        m_picks.Begin(pMouseClickReceiver);
    else
        m_picks.End();
}
