#include "simulation/panel/dockwidget.h"

#include "scene/imimedata.h"

#include <QDropEvent>
#include <QShowEvent>
#include <QTimer>

CDockWidget::~CDockWidget() { EndPick(); }

void CDockWidget::SlotCloseExcept(QWidget* pRequestingWidget)
{
    if (pRequestingWidget != this && !GoesWith(pRequestingWidget))
        close();
}

void CDockWidget::BeginPick()
{
    m_bPicking = true;
    emit SignalMouseClickReceiver(this);
}

void CDockWidget::EndPick()
{
    if (!m_bPicking)
        return;
    m_bPicking = false;
    emit SignalMouseClickReceiver(nullptr);
}

bool CDockWidget::event(QEvent* pEvent)
{
    // Only now, once it is complete, can the dock be asked what else it is.
    if (pEvent->type() == QEvent::Polish && dynamic_cast<IMimeDataHandler*>(this))
        setAcceptDrops(true);
    return QDockWidget::event(pEvent);
}

void CDockWidget::showEvent(QShowEvent* pEvent)
{
    QDockWidget::showEvent(pEvent);
    if (!pEvent->spontaneous()) // a window that comes back from being minimised opens nothing
        emit SignalCloseExcept(this);
}

void CDockWidget::hideEvent(QHideEvent* pEvent)
{
    QDockWidget::hideEvent(pEvent);
    // A dock that comes loose is hidden for a moment too; then it goes on picking.
    QTimer::singleShot(0, this, [this] {
        if (isHidden())
            EndPick();
    });
}

void CDockWidget::dragEnterEvent(QDragEnterEvent* pEvent)
{
    const auto* const pHandler = dynamic_cast<IMimeDataHandler*>(this);
    pEvent->setAccepted(pHandler && pHandler->CanDrop(pEvent->mimeData()));
}

void CDockWidget::dragMoveEvent(QDragMoveEvent* pEvent)
{
    const auto* const pHandler = dynamic_cast<IMimeDataHandler*>(this);
    pEvent->setAccepted(pHandler && pHandler->CanDrop(pEvent->mimeData()));
}

void CDockWidget::dropEvent(QDropEvent* pEvent)
{
    auto* const pHandler = dynamic_cast<IMimeDataHandler*>(this);
    pEvent->setAccepted(pHandler && pHandler->CanDrop(pEvent->mimeData()));
    if (pEvent->isAccepted())
        pHandler->Drop(pEvent->pos(), pEvent->mimeData());
}
