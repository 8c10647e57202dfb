#include "simulation/panel/treewidget.h"

#include "scene/imimedata.h"
#include "scene/itemdrag.h"
#include "simulation/panel/itemdelegate.h"

#include <QMetaMethod>
#include <QMimeData>
#include <QMouseEvent>

CTreeWidget::CTreeWidget(QWidget* pParent) : QTreeWidget(pParent)
{
    setHeaderHidden(true);
    setSelectionMode(ExtendedSelection);
    setUniformRowHeights(true); // thousands of rows are laid out without asking each
    setMouseTracking(true);
    setDragDropMode(DragDrop);
    setDragDropOverwriteMode(true);       // the mark of the place is a node, never a gap
    setDefaultDropAction(Qt::CopyAction); // a move would make Qt delete the dragged nodes
    setItemDelegate(new CItemDelegate(this));
    connect(this, &QTreeWidget::itemEntered, this,
            [this](QTreeWidgetItem* pItem) { emit SignalItemHover(pItem, IdOf(pItem)); });
    connect(this, &QTreeWidget::viewportEntered, this, [this] { emit SignalItemHover(nullptr, -1); });
}

qint64 CTreeWidget::IdOf(const QTreeWidgetItem* pItem)
{
    return pItem ? pItem->data(0, TreeIdRole).toLongLong() : -1;
}

bool CTreeWidget::IsInner(const QTreeWidgetItem* pItem)
{
    return pItem->data(0, TreeKindRole).toInt() == TreeInnerNode;
}

void CTreeWidget::mousePressEvent(QMouseEvent* pEvent)
{
    QTreeWidget::mousePressEvent(pEvent);
    emit SignalMousePress(pEvent->button(), IdOf(itemAt(pEvent->pos())));
}

void CTreeWidget::mouseReleaseEvent(QMouseEvent* pEvent)
{
    QTreeWidget::mouseReleaseEvent(pEvent);
    m_menuPosition = pEvent->globalPos();
    emit SignalMouseRelease(pEvent->button(), IdOf(itemAt(pEvent->pos())));
}

void CTreeWidget::contextMenuEvent(QContextMenuEvent* pEvent)
{
    pEvent->accept(); // the mouse has its signal by its release
    if (pEvent->reason() != QContextMenuEvent::Keyboard)
        return;
    m_menuPosition = pEvent->globalPos(); // the current node
    emit SignalMouseRelease(Qt::RightButton, IdOf(currentItem()));
}

void CTreeWidget::keyPressEvent(QKeyEvent* pEvent)
{
    switch (pEvent->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit SignalEnterPressed();
        break;
    case Qt::Key_Delete:
        emit SignalDeleteItem(selectedItems(), IdOf(currentItem()));
        break;
    default:
        QTreeWidget::keyPressEvent(pEvent);
    }
}

void CTreeWidget::leaveEvent(QEvent* pEvent)
{
    QTreeWidget::leaveEvent(pEvent);
    emit SignalItemHover(nullptr, -1);
}

// A right button that trembles opens a menu, it drags nothing.
void CTreeWidget::startDrag(Qt::DropActions actions)
{
    if (m_pSupplier && QGuiApplication::mouseButtons() & Qt::LeftButton)
        QTreeWidget::startDrag(actions);
}

QMimeData* CTreeWidget::mimeData(const QList<QTreeWidgetItem*> items) const
{
    QVector<qint64> ids;
    for (const QTreeWidgetItem* const pItem : items)
        if (!IsInner(pItem))
            ids.append(IdOf(pItem));
    if (!m_pSupplier || ids.isEmpty())
        return nullptr;
    auto* const pData = new QMimeData;
    m_pSupplier->WriteMimeData(*pData, ids);
    return pData;
}

QTreeWidgetItem* CTreeWidget::FindTarget(const QDropEvent* pEvent) const
{
    if (pEvent->source() != this || !ReadItemDrag(pEvent->mimeData()) ||
        !isSignalConnected(QMetaMethod::fromSignal(&CTreeWidget::SignalItemsMoved)))
        return nullptr;
    QTreeWidgetItem* const pTarget = itemAt(pEvent->pos());
    for (const QTreeWidgetItem* pAbove = pTarget; pAbove; pAbove = pAbove->parent())
        if (pAbove->isSelected())
            return nullptr; // nothing goes into itself
    return pTarget;
}

void CTreeWidget::dragEnterEvent(QDragEnterEvent* pEvent)
{
    QTreeWidget::dragEnterEvent(pEvent);
    pEvent->setAccepted(pEvent->source() == this); // so that moves come, which decide
}

void CTreeWidget::dragMoveEvent(QDragMoveEvent* pEvent)
{
    QTreeWidget::dragMoveEvent(pEvent); // scrolls at the edges
    pEvent->setDropAction(Qt::CopyAction);
    pEvent->setAccepted(FindTarget(pEvent));
}

void CTreeWidget::dropEvent(QDropEvent* pEvent)
{
    QTreeWidgetItem* const pTarget = FindTarget(pEvent);
    pEvent->setDropAction(Qt::CopyAction);
    pEvent->setAccepted(pTarget);
    setState(NoState);
    viewport()->update(); // without the mark of the place
    if (!pTarget)
        return;
    QList<QTreeWidgetItem*> dragged = selectedItems();
    dragged.erase(std::remove_if(dragged.begin(), dragged.end(), IsInner), dragged.end());
    emit SignalItemsMoved(dragged, IdOf(pTarget));
}
