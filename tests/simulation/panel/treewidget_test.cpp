#include "simulation/panel/treewidget.h"

#include "scene/imimedata.h"
#include "scene/itemdrag.h"
#include "simulation/panel/dockwidget.h"
#include "tests/support/testsimulation.h"

#include "scene/selectablemanager.h"

#include <QDragMoveEvent>
#include <QMainWindow>
#include <QMimeData>

namespace {

/** A tree whose own drags can be played. */
class CDragTree : public CTreeWidget, public IMimeDataSupplier
{
public:
    CDragTree()
    {
        SetSupplier(this);
        auto* const pGroup = new QTreeWidgetItem(this, {"group"});
        pGroup->setData(0, TreeKindRole, TreeInnerNode);
        for (const qint64 nId : {5, 6, 7}) {
            auto* const pNode = new QTreeWidgetItem(pGroup, {QString::number(nId)});
            pNode->setData(0, TreeIdRole, nId);
        }
        pGroup->setExpanded(true);
        resize(200, 200);
        show();
    }
    void WriteMimeData(QMimeData& data, const QVector<qint64>& itemIds) const override
    {
        WriteItemDrag(data, {1, 2, itemIds});
    }
    QMimeData* Drag() const { return mimeData(selectedItems()); }
};

/** A dock that keeps what is dropped on it. */
class CDropDock : public CDockWidget, public IMimeDataHandler
{
public:
    using CDockWidget::BeginPick;
    using CDockWidget::CDockWidget;
    bool CanDrop(const QMimeData* pData) const override { return !FindDragged(pData, 2).isEmpty(); }
    void Drop(const QPoint&, const QMimeData* pData) override { m_dropped = FindDragged(pData, 2); }
    QVector<ISelectable*> m_dropped;

protected:
    bool GoesWith(QWidget* pOther) const override { return pOther->objectName() == "friend"; }
};

bool DropOn(QWidget& widget, QMimeData* pData)
{
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, pData, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget, &enter);
    QDropEvent drop({5, 5}, Qt::CopyAction, pData, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget, &drop);
    return enter.isAccepted() && drop.isAccepted();
}

} // namespace

TEST(TreeWidget, ADragHoldsTheItemsButNoCategory)
{
    CDragTree tree;
    tree.selectAll();
    const std::unique_ptr<QMimeData> pData(tree.Drag());
    EXPECT_EQ(ReadItemDrag(pData.get())->itemIds, (QVector<qint64>{5, 6, 7}));
    tree.clearSelection();
    tree.topLevelItem(0)->setSelected(true);
    EXPECT_EQ(tree.Drag(), nullptr) << "a category is no item";
}

TEST(ItemDrag, OnlyWholeStreamsWithTheMarkerAreRead)
{
    QMimeData data;
    WriteItemDrag(data, {3, 4, {10, 11}});
    const QByteArray bytes = data.data(ITEM_DRAG_TYPE);
    EXPECT_EQ(bytes.left(16).toHex(), "ffffffffffffffff0000000000000003");
    EXPECT_EQ(ReadItemDrag(&data), (SItemDrag{3, 4, {10, 11}}));
    for (int n = 0; n < bytes.size(); ++n)
        EXPECT_FALSE(ReadItemDrag(bytes.left(n))) << n;
    QByteArray other = bytes;
    other[0] = 0; // an item model's own drag begins with a row
    EXPECT_FALSE(ReadItemDrag(other));
    QByteArray many = bytes;
    many[24] = 0x7f; // a count beyond all bytes
    EXPECT_FALSE(ReadItemDrag(many));
    EXPECT_FALSE(ReadItemDrag(static_cast<const QMimeData*>(nullptr)));
}

TEST(DockWidget, TakesItemsOfItsSimulationThatStillLive)
{
    CSelectableManager& manager = CSelectableManager::Instance();
    auto* const pSelectable = new CTestSelectable(1, 2, 5);
    manager.Add(pSelectable);
    QMainWindow window;
    CDropDock dock;
    window.addDockWidget(Qt::LeftDockWidgetArea, &dock);
    window.show();

    QMimeData data;
    WriteItemDrag(data, {1, 2, {5, 6, 5}});
    EXPECT_TRUE(dock.acceptDrops());
    EXPECT_TRUE(DropOn(dock, &data));
    EXPECT_EQ(dock.m_dropped, QVector<ISelectable*>{pSelectable});
    WriteItemDrag(data, {1, 3, {5}}); // of another simulation
    EXPECT_FALSE(DropOn(dock, &data));
    manager.RemovePair(1, 2);
}

TEST(DockWidget, OneThatOpensClosesOthersAndOneThatGoesGivesTheClicksBack)
{
    QMainWindow window;
    CDropDock dock("dock"), other("other"), friendly("friendly");
    friendly.setObjectName("friend");
    for (CDropDock* const pDock : {&dock, &other, &friendly}) {
        window.addDockWidget(Qt::LeftDockWidgetArea, pDock);
        pDock->hide();
        for (CDropDock* const pListener : {&dock, &other, &friendly})
            QObject::connect(pDock, &CDockWidget::SignalCloseExcept, pListener,
                             &CDockWidget::SlotCloseExcept);
    }
    window.show();
    dock.show();
    friendly.show();
    EXPECT_TRUE(dock.isVisible() && friendly.isVisible());
    QVector<IMouseClickReceiver*> receivers;
    QObject::connect(&dock, &CDockWidget::SignalMouseClickReceiver, [&](auto* p) { receivers.append(p); });
    dock.BeginPick();
    other.show();
    QCoreApplication::processEvents();
    EXPECT_FALSE(dock.isVisible() || friendly.isVisible());
    EXPECT_EQ(receivers, (QVector<IMouseClickReceiver*>{&dock, nullptr}));
}
