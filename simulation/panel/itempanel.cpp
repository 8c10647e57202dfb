#include "simulation/panel/itempanel.h"

#include "frame/moduleregistry.h"
#include "frame/themeicon.h"
#include "frame/widgetmanager.h"
#include "scene/itemdrag.h"
#include "scene/selectablemanager.h"
#include "simulation/displayfilechoice.h"
#include "simulation/isimulation.h"
#include "simulation/panel/itemfilter.h"
#include "simulation/panel/itemnode.h"
#include "simulation/panel/itemtrees.h"
#include "simulation/panel/treeselection.h"
#include "simulation/simulationmanager.h"
#include "simulation/undostep.h"
#include "ui_itempanel.h"

#include <QActionGroup>
#include <QHeaderView>
#include <QScopedValueRollback>

CItemPanel::CItemPanel(qint64 nViewId, qint64 nSimulationId, QWidget* pParent)
    : QWidget(pParent),
      m_pUi(std::make_unique<Ui::CItemPanel>()),
      m_nViewId(nViewId),
      m_nSimulationId(nSimulationId)
{
    m_pUi->setupUi(this);
    m_pTrees = std::make_unique<CItemTrees>(*m_pUi->m_pCategoryTreeList, *m_pUi->m_pHierarchyTreeList,
                                            nSimulationId);
    m_refreshTimer.setSingleShot(true);
    connect(&m_refreshTimer, &QTimer::timeout, this, &CItemPanel::Refresh);
    PrepareWidgets();
    if (IModuleInterface* const pModule = GetModule())
        m_pTrees->AddCategories(*pModule);
    SlotRefreshAll();
    ConnectSelectables();
}

CItemPanel::~CItemPanel()
{
    Detach();
    emit SignalDeleted(m_nViewId, m_nSimulationId);
}

void CItemPanel::Detach()
{
    CSelectableManager::Instance().disconnect(this);
    m_refreshTimer.stop();
    SlotItemHover(nullptr, -1);
    m_bUpdating = true; // for good: what goes now isn't deselected by the user
    m_pTrees->Clear();
}

void CItemPanel::PrepareWidgets()
{
    IModuleInterface* const pModule = GetModule();
    m_pUi->m_pRefreshSimulationB->setIcon(ThemeIcon(":/Icons/refresh.png"));
    m_pUi->m_pRefreshSimulationB->setEnabled(pModule && pModule->CanAddTransient());
    m_pUi->m_pDispFilesB->setIcon(ThemeIcon(":/Icons/display.png"));
    m_pUi->m_pHierarchyTreeList->setExpandsOnDoubleClick(false); // it opens the item's dock

    auto* const pGroup = new QActionGroup(this);
    pGroup->addAction(m_pUi->actionCategory_View);
    pGroup->addAction(m_pUi->actionHierarchy_View);
    const bool bHierarchy = pModule && pModule->ShowsHierarchy(m_nSimulationId);
    for (QWidget* const pWidget :
         std::initializer_list<QWidget*>{m_pUi->label, m_pUi->m_pCategoryViewCB, m_pUi->m_pHierarchyViewCB})
        pWidget->setVisible(bHierarchy); // with a single view there is nothing to choose

    ConnectTree(m_pUi->m_pCategoryTreeList);
    ConnectTree(m_pUi->m_pHierarchyTreeList);
}

void CItemPanel::ConnectTree(CTreeWidget* pTree)
{
    pTree->SetSupplier(this);
    pTree->header()->setResizeContentsPrecision(0); // columns fit what is in sight, not thousands of rows
    pTree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(pTree, &CTreeWidget::SignalMouseRelease, this, &CItemPanel::SlotMouseRelease);
    connect(pTree, &CTreeWidget::SignalDeleteItem, this, &CItemPanel::SlotDeleteItem);
    connect(pTree, &CTreeWidget::SignalItemHover, this, &CItemPanel::SlotItemHover);
    connect(pTree, &CTreeWidget::SignalEnterPressed, this, &CItemPanel::SlotEnterPressed);
}

void CItemPanel::ConnectSelectables()
{
    const CSelectableManager* const pManager = &CSelectableManager::Instance();
    connect(pManager, &CSelectableManager::SignalSelectableCreated, this, &CItemPanel::SlotSelectableCreated);
    connect(pManager, &CSelectableManager::SignalSelectableDeleted, this, &CItemPanel::SlotSelectableDeleted);
    connect(pManager, &CSelectableManager::SignalSelectableMaskChanged, this,
            &CItemPanel::SlotSelectableMaskChanged);
    connect(pManager, &CSelectableManager::SignalUpdateSelectable, this, &CItemPanel::SlotSelectableChanged);
    connect(pManager, &CSelectableManager::SignalSelectionChanged, this, &CItemPanel::SlotSelectionChanged);
}

CTreeWidget* CItemPanel::GetCategoryTree() const { return m_pUi->m_pCategoryTreeList; }
CTreeWidget* CItemPanel::GetHierarchyTree() const { return m_pUi->m_pHierarchyTreeList; }

QList<QAction*> CItemPanel::GetViewActions() const
{
    if (m_pUi->m_pHierarchyViewCB->isHidden())
        return {};
    return {m_pUi->actionCategory_View, m_pUi->actionHierarchy_View};
}

QPoint CItemPanel::GetPopupPosition() const
{
    const bool bHierarchy = m_pUi->m_pTreeStack->currentWidget() == m_pUi->m_pHierarchyPage;
    return (bHierarchy ? GetHierarchyTree() : GetCategoryTree())->GetMenuPosition();
}

ISimulation* CItemPanel::GetSimulation() const
{
    return CSimulationManager::Instance().GetSimulation(m_nSimulationId);
}

IModuleInterface* CItemPanel::GetModule() const
{
    const ISimulation* const pSimulation = GetSimulation();
    return pSimulation ? CModuleRegistry::Instance().FindById(pSimulation->GetModuleId()) : nullptr;
}

bool CItemPanel::IsMine(const ISelectable* pSelectable) const
{
    return pSelectable->viewId() == m_nViewId && pSelectable->simulationId() == m_nSimulationId;
}

// What the trees hold.

void CItemPanel::SlotSelectableCreated(ISelectable* pSelectable)
{
    if (!IsMine(pSelectable))
        return;
    const QScopedValueRollback<bool> guard(m_bUpdating, true);
    if (m_pTrees->Add(pSelectable))
        ScheduleRefresh(pSelectable->typeId());
}

void CItemPanel::SlotSelectableDeleted(ISelectable* pSelectable)
{
    const QScopedValueRollback<bool> guard(m_bUpdating, true);
    if (m_pTrees->Remove(pSelectable))
        ScheduleRefresh(pSelectable->typeId());
}

void CItemPanel::SlotSelectableMaskChanged(ISelectable* pSelectable)
{
    if (m_pTrees->Contains(pSelectable))
        ScheduleRefresh(pSelectable->typeId());
}

void CItemPanel::SlotSelectableChanged(ISelectable* pSelectable)
{
    if (!IsMine(pSelectable))
        return;
    const QScopedValueRollback<bool> guard(m_bUpdating, true);
    m_pTrees->Update(pSelectable);
    ScheduleRefresh(pSelectable->typeId());
}

void CItemPanel::SlotRefreshAll()
{
    {
        const QScopedValueRollback<bool> guard(m_bUpdating, true);
        for (ISelectable* const pSelectable :
             CSelectableManager::Instance().GetSelectables(m_nViewId, m_nSimulationId))
            m_pTrees->Update(pSelectable);
    }
    m_staleTypes = {-1};
    Refresh();
}

void CItemPanel::ScheduleRefresh(qint64 nType)
{
    m_staleTypes.insert(nType);
    if (!m_refreshTimer.isActive())
        m_refreshTimer.start(0);
}

void CItemPanel::Refresh()
{
    const QScopedValueRollback<bool> guard(m_bUpdating, true);
    m_refreshTimer.stop();
    const QSet<qint64> types = std::exchange(m_staleTypes, {});
    m_pTrees->UpdateVisible(types.size() == 1 ? *types.cbegin() : -1);
    if (const QString sFilter = m_pUi->m_pFilterE->text(); !sFilter.isEmpty())
        on_m_pFilterE_textChanged(sFilter);
    ShowSelectionInTrees();
}

void CItemPanel::UpdateCategoryText(qint64 nCategory) { m_pTrees->UpdateVisible(nCategory); }

void CItemPanel::ApplyFonts() { m_pTrees->ApplyFonts(); }

// Which view and which nodes of it.

void CItemPanel::ShowPage(QWidget* pPage, bool bHierarchy)
{
    m_pUi->m_pTreeStack->setCurrentWidget(pPage);
    (bHierarchy ? m_pUi->actionHierarchy_View : m_pUi->actionCategory_View)->setChecked(true);
    SlotItemHover(nullptr, -1);
}

void CItemPanel::on_m_pCategoryViewCB_toggled(bool bChecked)
{
    if (bChecked)
        ShowPage(m_pUi->m_pCategoryPage, false);
}

void CItemPanel::on_m_pHierarchyViewCB_toggled(bool bChecked)
{
    if (bChecked)
        ShowPage(m_pUi->m_pHierarchyPage, true);
}

void CItemPanel::on_actionCategory_View_triggered() { m_pUi->m_pCategoryViewCB->setChecked(true); }
void CItemPanel::on_actionHierarchy_View_triggered() { m_pUi->m_pHierarchyViewCB->setChecked(true); }

void CItemPanel::on_m_pFilterE_textChanged(const QString& sText)
{
    FilterTree(*m_pUi->m_pCategoryTreeList, sText);
    FilterTree(*m_pUi->m_pHierarchyTreeList, sText);
}

// The selection: the selectables have it, the trees show it.

void CItemPanel::on_m_pCategoryTreeList_itemSelectionChanged() { TakeSelection(*m_pUi->m_pCategoryTreeList); }

void CItemPanel::on_m_pHierarchyTreeList_itemSelectionChanged()
{
    TakeSelection(*m_pUi->m_pHierarchyTreeList);
}

void CItemPanel::TakeSelection(const CTreeWidget& source)
{
    if (m_bUpdating)
        return;
    QSet<ISelectable*> selected;
    for (const QTreeWidgetItem* const pItem : source.selectedItems())
        if (const CItemNode* const pNode = CItemNode::From(pItem))
            selected.insert(pNode->Selectable());
    bool bChanged = false;
    for (ISelectable* const pSelectable : m_pTrees->Selectables()) {
        const bool bSelect = selected.contains(pSelectable);
        if (pSelectable->isSelected() == bSelect)
            continue;
        pSelectable->setSelected(bSelect);
        bChanged = true;
    }
    if (bChanged) // comes back to SlotSelectionChanged, for the other tree
        CSelectableManager::Instance().NotifySelectionChanged(m_nViewId, m_nSimulationId);
}

void CItemPanel::SlotSelectionChanged(qlonglong nViewId, qlonglong nSimulationId)
{
    if (nViewId != m_nViewId || nSimulationId != m_nSimulationId)
        return;
    const QScopedValueRollback<bool> guard(m_bUpdating, true);
    ShowSelectionInTrees();
}

void CItemPanel::ShowSelectionInTrees()
{
    for (CTreeWidget* const pTree : {m_pUi->m_pCategoryTreeList, m_pUi->m_pHierarchyTreeList}) {
        if (IsSelectionShown(*pTree))
            continue; // one that the user is just making must not be made anew under the mouse
        ShowSelection(*pTree);
        ShowFirstSelected(*pTree);
    }
}

/** What was picked elsewhere comes into sight, and the keys go on from there. */
void CItemPanel::ShowFirstSelected(CTreeWidget& tree) const
{
    const QItemSelection ranges = tree.selectionModel()->selection();
    if (ranges.isEmpty() || (tree.currentItem() && tree.currentItem()->isSelected()))
        return;
    const QModelIndex first = ranges.first().topLeft();
    tree.selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    tree.scrollTo(first);
}

// What the user does with the nodes.

void CItemPanel::on_m_pCategoryTreeList_itemDoubleClicked(QTreeWidgetItem* pItem, int)
{
    if (const CItemNode* const pNode = CItemNode::From(pItem))
        CSelectableManager::Instance().NotifyDoubleClicked(pNode->Selectable());
}

void CItemPanel::on_m_pHierarchyTreeList_itemDoubleClicked(QTreeWidgetItem* pItem, int nColumn)
{
    on_m_pCategoryTreeList_itemDoubleClicked(pItem, nColumn);
}

void CItemPanel::SlotMouseRelease(Qt::MouseButton eMouseButton, qlonglong)
{
    if (eMouseButton == Qt::RightButton)
        emit SignalPopupMenu();
}

void CItemPanel::SlotEnterPressed()
{
    ISimulation* const pSimulation = GetSimulation();
    if (pSimulation && pSimulation->CanActivateSelection(m_nViewId))
        pSimulation->ActivateSelection(m_nViewId);
}

void CItemPanel::SlotDeleteItem(QList<QTreeWidgetItem*>, qlonglong)
{
    if (ISimulation* const pSimulation = GetSimulation())
        DeleteSelectionInOneStep(*pSimulation, m_nViewId);
}

void CItemPanel::SlotItemHover(QTreeWidgetItem* pItem, qlonglong)
{
    const CItemNode* const pNode = CItemNode::From(pItem);
    ISelectable* const pHover = pNode ? pNode->Selectable() : nullptr;
    if (pHover == m_pHover)
        return;
    if (m_pHover)
        m_pHover->setHover(false);
    if (pHover)
        pHover->setHover(true);
    m_pHover = pHover;
    CWidgetManager::Instance().UpdateActiveViewer();
}

void CItemPanel::WriteMimeData(QMimeData& data, const QVector<qint64>& itemIds) const
{
    WriteItemDrag(data, {m_nViewId, m_nSimulationId, itemIds});
}

void CItemPanel::on_m_pRefreshSimulationB_clicked()
{
    if (IModuleInterface* const pModule = GetModule())
        pModule->AddTransient(m_nSimulationId);
    CWidgetManager::Instance().UpdateActions();
}

void CItemPanel::on_m_pDispFilesB_clicked()
{
    ISimulation* const pSimulation = GetSimulation();
    if (!pSimulation)
        return;
    if (!pSimulation->ChooseDisplayFile(m_nViewId) && !ChooseDisplayFile(*pSimulation))
        return;
    CWidgetManager::Instance().RefreshDocks(m_nViewId);
    CWidgetManager::Instance().UpdateActiveViewer();
}

/** For a simulation that doesn't put the question itself. False if nothing was loaded. */
bool CItemPanel::ChooseDisplayFile(ISimulation& simulation) const
{
    const QStringList sFileList = ListDisplayFiles(simulation);
    const QString sFile = sFileList.isEmpty() ? AskDisplayFile() : ChooseDisplayFileOf(sFileList);
    if (sFile.isEmpty())
        return false;
    // A simulation tells the user itself what is wrong with a file.
    const bool bLoaded = simulation.LoadDisplayFile(sFile, m_nViewId);
    if (!bLoaded)
        CWidgetManager::Instance().SetStatusText(QString("Failed to load the display file %1").arg(sFile));
    return bLoaded;
}
