#pragma once

#include "scene/imimedata.h"
#include "scene/iselectable.h"

#include <QList>
#include <QPointer>
#include <QSet>
#include <QTimer>
#include <QWidget>

#include <memory>

class CItemTrees;
class CTreeWidget;
class IModuleInterface;
class ISimulation;
class QTreeWidgetItem;

namespace Ui {
class CItemPanel;
}

/**
 * The tree of a case's items for one pair of view and simulation, by category or, where the module offers it,
 * by hierarchy. It follows CSelectableManager by itself: nodes come and go with selectables, and the
 * selection is that of the selectables in both trees. Texts with counts, shades and the filter are brought up
 * to date once the event loop runs, however much has changed; UpdateCategoryText and SlotRefreshAll do it at
 * once.
 */
class CItemPanel : public QWidget, public IMimeDataSupplier
{
    Q_OBJECT

public:
    CItemPanel(qint64 nViewId, qint64 nSimulationId, QWidget* pParent = nullptr);
    /** Emits SignalDeleted. */
    ~CItemPanel() override;

    /** Empties the panel and makes it follow nothing any more, for one that is about to go. */
    void Detach();

    qint64 GetViewId() const { return m_nViewId; }
    qint64 GetSimulationId() const { return m_nSimulationId; }
    /** Owned by the panel; whoever wants to know about moved items connects to SignalItemsMoved of them. */
    CTreeWidget* GetCategoryTree() const;
    CTreeWidget* GetHierarchyTree() const;
    /** "Category View" and "Hierarchy View" for a menu; empty where no hierarchy is offered. */
    QList<QAction*> GetViewActions() const;
    /** Where a menu belongs that SignalPopupMenu asks for, on the screen. */
    QPoint GetPopupPosition() const;

    /** Counts the items of a category, or of all (-1), and rebuilds its text at once. */
    void UpdateCategoryText(qint64 nCategory = -1);
    /** All nodes take over the font size of the preferences. */
    void ApplyFonts();

    void WriteMimeData(QMimeData& data, const QVector<qint64>& itemIds) const override;

signals:
    void SignalDeleted(qlonglong nViewId, qlonglong nSimulationId);
    void SignalPopupMenu();

public slots:
    void SlotMouseRelease(Qt::MouseButton eMouseButton, qlonglong nId);
    void SlotDeleteItem(QList<QTreeWidgetItem*> pItems, qlonglong nId);
    void SlotItemHover(QTreeWidgetItem* pItem, qlonglong nId);
    void SlotEnterPressed();
    void SlotSelectableCreated(ISelectable* pSelectable);
    void SlotSelectableDeleted(ISelectable* pSelectable);
    void SlotSelectableMaskChanged(ISelectable* pSelectable);
    void SlotSelectableChanged(ISelectable* pSelectable);
    void SlotSelectionChanged(qlonglong nViewId, qlonglong nSimulationId);
    /** Reads all selectables anew, for changes that no signal has told, as by an undo step. */
    void SlotRefreshAll();

private slots:
    void on_m_pCategoryViewCB_toggled(bool bChecked);
    void on_m_pHierarchyViewCB_toggled(bool bChecked);
    void on_actionCategory_View_triggered();
    void on_actionHierarchy_View_triggered();
    void on_m_pFilterE_textChanged(const QString& sText);
    void on_m_pRefreshSimulationB_clicked();
    void on_m_pDispFilesB_clicked();
    void on_m_pCategoryTreeList_itemSelectionChanged();
    void on_m_pHierarchyTreeList_itemSelectionChanged();
    void on_m_pCategoryTreeList_itemDoubleClicked(QTreeWidgetItem* pItem, int nColumn);
    void on_m_pHierarchyTreeList_itemDoubleClicked(QTreeWidgetItem* pItem, int nColumn);

private:
    void PrepareWidgets();
    void ConnectTree(CTreeWidget* pTree);
    void ConnectSelectables();
    void ShowPage(QWidget* pPage, bool bHierarchy);
    ISimulation* GetSimulation() const; ///< null once it is gone
    bool ChooseDisplayFile(ISimulation& simulation) const;
    IModuleInterface* GetModule() const;
    bool IsMine(const ISelectable* pSelectable) const;
    void TakeSelection(const CTreeWidget& source);
    void ShowSelectionInTrees();
    void ShowFirstSelected(CTreeWidget& tree) const;
    void ScheduleRefresh(qint64 nType);
    void Refresh();

    const std::unique_ptr<Ui::CItemPanel> m_pUi;
    const qint64 m_nViewId;
    const qint64 m_nSimulationId;
    std::unique_ptr<CItemTrees> m_pTrees;
    bool m_bUpdating = false;       // the panel itself changes its trees: that isn't the user's selection
    QTimer m_refreshTimer;          // runs Refresh when the event loop does
    QSet<qint64> m_staleTypes;      // whose counts and shades have to be read; -1: all
    QPointer<ISelectable> m_pHover; // what the pointer is over in a tree
};
