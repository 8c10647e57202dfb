#include "view/ui/viewcanvas.h"

#include "frame/preferences.h"

#include <QMouseEvent>
#include <QPainter>

CViewCanvas::CViewCanvas(QWidget* pParent) : QWidget(pParent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(QCursor(QPixmap(":/Icons/arrow.png"), 4, 2));
}

void CViewCanvas::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(Qt::NoPen);
    painter.setBrush(CPreferences::Instance().Draw().background);
    painter.drawRect(rect());
}

void CViewCanvas::mousePressEvent(QMouseEvent*) { emit SignalActivated(); }

void CViewCanvas::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::RightButton)
        emit SignalPopupMenu();
}

void CViewCanvas::focusInEvent(QFocusEvent* pEvent)
{
    QWidget::focusInEvent(pEvent);
    emit SignalActivated();
}
