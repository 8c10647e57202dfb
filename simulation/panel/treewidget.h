#pragma once

#include <QTreeWidget>

class IMimeDataSupplier;

/** What a node of an item tree keeps in column 0. */
enum TreeRole_e {
    TreeIdRole = Qt::UserRole,        ///< id of the item; of an inner node: its category
    TreeKindRole = Qt::UserRole + 1,  ///< a TreeKind_e
    TreeShadeRole = Qt::UserRole + 2, ///< true: drawn in the colour of what isn't in use
    TreeNameRole = Qt::UserRole + 3   ///< of an inner node: its name, without the counts of its text
};

enum TreeKind_e { TreeItemNode = 0, TreeInnerNode = 1 };

/**
 * A tree of items that tells what the user does in it and changes nothing itself: keys, clicks, hovering and
 * drops are signals. The id that comes with each is that of the node it concerns, -1 for none. What is
 * dragged out of it comes from the supplier.
 */
class CTreeWidget : public QTreeWidget
{
    Q_OBJECT

public:
    explicit CTreeWidget(QWidget* pParent = nullptr);

    /** @param pSupplier  not owned; null: nothing can be dragged */
    void SetSupplier(const IMimeDataSupplier* pSupplier) { m_pSupplier = pSupplier; }

    /** Where a menu belongs after a release of the right button, on the screen. */
    QPoint GetMenuPosition() const { return m_menuPosition; }

    /** Id of the node; -1 for none. */
    static qint64 IdOf(const QTreeWidgetItem* pItem);
    static bool IsInner(const QTreeWidgetItem* pItem);

signals:
    void SignalMousePress(Qt::MouseButton eButton, qlonglong nId);
    /** Also for the menu key, as a release of the right button on the current node. */
    void SignalMouseRelease(Qt::MouseButton eButton, qlonglong nId);
    /** Nodes were dropped on another one of this tree. Drops are accepted only while somebody listens. */
    void SignalItemsMoved(QList<QTreeWidgetItem*> pDragItems, qlonglong nId);
    /** The delete key. The listener may delete nodes. */
    void SignalDeleteItem(QList<QTreeWidgetItem*> pSelectedItems, qlonglong nId);
    /** The pointer has come to another node; null: it has left them. */
    void SignalItemHover(QTreeWidgetItem* pItem, qlonglong nId);
    void SignalEnterPressed();

protected:
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void leaveEvent(QEvent* pEvent) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* pEvent) override;
    void dragMoveEvent(QDragMoveEvent* pEvent) override;
    void dropEvent(QDropEvent* pEvent) override;
    QMimeData* mimeData(const QList<QTreeWidgetItem*> items) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }

private:
    /** The node that the pointer is over, if what is dragged may be dropped on it. */
    QTreeWidgetItem* FindTarget(const QDropEvent* pEvent) const;

    const IMimeDataSupplier* m_pSupplier = nullptr;
    QPoint m_menuPosition;
};
