#include "window/docklogic.h"

#include "frame/moduleregistry.h"
#include "simulation/panel/dockwidget.h"
#include "window/mainwindow.h"

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

CDockLogic::CDockLogic(CMainWindow& window)
{
    connect(this, &CDockLogic::SignalCloseExcept, &window, &CMainWindow::SignalCloseExcept);
    for (qint32 nId = 0; nId <= CModuleRegistry::HIGHEST_ID; ++nId)
        if (const IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(nId))
            for (QWidget* const pWidget : DocksOf(*pModule))
                if (auto* const pDock = qobject_cast<CDockWidget*>(pWidget))
                    AddDock(window, pDock);
}

void CDockLogic::AddDock(CMainWindow& window, CDockWidget* pDock)
{
    window.addDockWidget(Qt::RightDockWidgetArea, pDock);
    pDock->hide();
    connect(pDock, &CDockWidget::SignalCloseExcept, this, &CDockLogic::SignalCloseExcept);
    connect(&window, &CMainWindow::SignalCloseExcept, pDock, &CDockWidget::SlotCloseExcept);
    connect(&window, &CMainWindow::SignalRefreshDockWidgets, pDock, &CDockWidget::SlotRefreshAll);
    connect(pDock, &CDockWidget::SignalMouseClickReceiver, this, &CDockLogic::SlotMouseClickReceiver);
}

void CDockLogic::SlotMouseClickReceiver(IMouseClickReceiver* pMouseClickReceiver)
{
    m_pMouseClickReceiver = pMouseClickReceiver;
}
