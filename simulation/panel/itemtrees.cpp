#include "simulation/panel/itemtrees.h"

#include "frame/imoduleinterface.h"
#include "frame/novalue.h"
#include "frame/ui/fontincrement.h"
#include "scene/iselectable.h"
#include "scene/selectablekeys.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/panel/itemnode.h"
#include "simulation/simulationmanager.h"

namespace {

const CItem* FindItem(qint64 nSimulationId, qint64 nItemId)
{
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(nSimulationId);
    return pSimulation ? pSimulation->GetItem(nItemId) : nullptr;
}

const CItemNode& ChildAt(const QTreeWidgetItem& parent, int n) { return *CItemNode::From(parent.child(n)); }

/** Where the node belongs among the children of a parent that it isn't below: behind its equals. */
int PlaceAmong(const QTreeWidgetItem& parent, const CItemNode& node)
{
    int nFirst = 0;
    int nEnd = parent.childCount();
    while (nFirst < nEnd) {
        const int nMid = (nFirst + nEnd) / 2;
        if (node.IsBefore(ChildAt(parent, nMid)))
            nEnd = nMid;
        else
            nFirst = nMid + 1;
    }
    return nFirst;
}

/** The invisible root for a node of the top level; null for one that is in no tree. */
QTreeWidgetItem* ParentOf(const QTreeWidgetItem& node)
{
    return node.parent() || !node.treeWidget() ? node.parent() : node.treeWidget()->invisibleRootItem();
}

bool IsInPlace(const QTreeWidgetItem& parent, const CItemNode& node)
{
    if (ParentOf(node) != &parent)
        return false;
    const int n = parent.indexOfChild(const_cast<CItemNode*>(&node));
    return !(n > 0 && node.IsBefore(ChildAt(parent, n - 1))) &&
           !(n + 1 < parent.childCount() && ChildAt(parent, n + 1).IsBefore(node));
}

void CollectExpanded(QTreeWidgetItem* pNode, QVector<QTreeWidgetItem*>& expanded)
{
    if (pNode->isExpanded())
        expanded.append(pNode);
    for (int n = 0; n < pNode->childCount(); ++n)
        CollectExpanded(pNode->child(n), expanded);
}

/** Puts the node under the parent, where it is in order. A tree forgets what was open in a branch that moves.
 */
void PlaceUnder(QTreeWidgetItem& parent, CItemNode& node)
{
    if (IsInPlace(parent, node))
        return;
    QVector<QTreeWidgetItem*> expanded;
    if (QTreeWidgetItem* const pOld = ParentOf(node)) {
        CollectExpanded(&node, expanded);
        pOld->removeChild(&node);
    }
    parent.insertChild(PlaceAmong(parent, node), &node);
    if (parent.childCount() == 1)
        parent.setExpanded(true);
    for (QTreeWidgetItem* const pNode : std::as_const(expanded))
        pNode->setExpanded(true);
}

bool IsBelow(const QTreeWidgetItem* pNode, const QTreeWidgetItem* pAncestor)
{
    while (pNode && pNode != pAncestor)
        pNode = pNode->parent();
    return pNode;
}

} // namespace

CItemTrees::CItemTrees(CTreeWidget& categoryTree, CTreeWidget& hierarchyTree, qint64 nSimulationId)
    : m_categoryTree(categoryTree), m_hierarchyTree(hierarchyTree), m_nSimulationId(nSimulationId)
{}

void CItemTrees::AddCategories(IModuleInterface& module)
{
    const QStringList sNameList = module.GetCategoryNames(m_nSimulationId);
    const QVector<SItemCategory> categories = module.GetCategoryTree(m_nSimulationId);
    for (int n = 0; n < categories.size(); ++n) {
        const qint64 nType = categories[n].nType;
        if (m_categories.contains(nType))
            continue;
        const QString sName = sNameList.value(n).isEmpty() ? module.GetItemTypeName(nType) : sNameList[n];
        auto* const pNode = new QTreeWidgetItem(&m_categoryTree);
        m_categories[nType] = {pNode, sName, module.GetItemIcon(nType)};
        pNode->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        pNode->setData(0, TreeIdRole, nType);
        pNode->setData(0, TreeKindRole, TreeInnerNode);
        pNode->setData(0, TreeNameRole, sName);
        pNode->setIcon(0, m_categories[nType].icon);
        pNode->setToolTip(0, module.GetItemToolTip(nType));
        pNode->setFirstColumnSpanned(true);
        ApplyItemFont(pNode, 0);
    }
}

CItemNode* CItemTrees::MakeNode(ISelectable* pSelectable) const
{
    auto* const pNode = new CItemNode(pSelectable);
    for (CTreeWidget* const pTree : {&m_categoryTree, &m_hierarchyTree})
        pTree->setColumnCount(std::max(pTree->columnCount(), pNode->columnCount()));
    return pNode;
}

bool CItemTrees::IsToBeSeen(const ISelectable* pSelectable) const
{
    const CItem* const pItem = FindItem(m_nSimulationId, pSelectable->itemId());
    return !pItem || pItem->IsVisibleInPanel();
}

bool CItemTrees::Add(ISelectable* pSelectable)
{
    if (Contains(pSelectable) || !IsToBeSeen(pSelectable))
        return false;
    const qint64 nItemId = pSelectable->itemId();
    const SCategory category = m_categories.value(pSelectable->typeId());
    SNodes& nodes = m_nodes[pSelectable];
    if (category.pNode) {
        nodes.pCategory = MakeNode(pSelectable);
        PlaceUnder(*category.pNode, *nodes.pCategory);
    }
    nodes.pHierarchy = MakeNode(pSelectable);
    nodes.pHierarchy->setIcon(0, category.icon);
    if (nItemId != NO_ID)
        m_ofItem[nItemId].append(nodes.pHierarchy);
    PlaceInHierarchy(*nodes.pHierarchy);
    if (OwnNode(nItemId) == nodes.pHierarchy)
        PlaceChildrenOfItem(nItemId); // those that came ahead of it
    return true;
}

bool CItemTrees::Remove(ISelectable* pSelectable)
{
    if (!Contains(pSelectable))
        return false;
    const SNodes nodes = m_nodes.take(pSelectable);
    const qint64 nItemId = pSelectable->itemId();
    const QList<QTreeWidgetItem*> below = nodes.pHierarchy->takeChildren();
    QVector<CItemNode*>& ofItem = m_ofItem[nItemId];
    ofItem.removeOne(nodes.pHierarchy);
    if (ofItem.isEmpty())
        m_ofItem.remove(nItemId);
    delete nodes.pCategory;
    delete nodes.pHierarchy;
    for (QTreeWidgetItem* const pNode : below)
        PlaceInHierarchy(*CItemNode::From(pNode));
    if (CItemNode* const pNext = OwnNode(nItemId))
        PlaceInHierarchy(*pNext);
    return true;
}

bool CItemTrees::Update(ISelectable* pSelectable)
{
    if (!Contains(pSelectable))
        return Add(pSelectable);
    if (!IsToBeSeen(pSelectable))
        return !Remove(pSelectable);
    const SNodes nodes = m_nodes.value(pSelectable);
    nodes.pHierarchy->Read();
    PlaceInHierarchy(*nodes.pHierarchy);
    if (nodes.pCategory) {
        nodes.pCategory->Read();
        PlaceUnder(*nodes.pCategory->parent(), *nodes.pCategory);
    }
    return true;
}

/** The node that stands for the item; null if it has none. */
CItemNode* CItemTrees::OwnNode(qint64 nItemId) const { return m_ofItem.value(nItemId).value(0); }

/** The invisible root for a node of the top level. */
QTreeWidgetItem* CItemTrees::FindHierarchyParent(const CItemNode& node) const
{
    const qint64 nItemId = node.Selectable()->itemId();
    QTreeWidgetItem* pParent = OwnNode(nItemId);
    if (!pParent || pParent == &node || Get(*node.Selectable(), SelectableKey::IS_MAIN)) {
        const CItem* const pItem = FindItem(m_nSimulationId, nItemId);
        pParent = pItem ? OwnNode(pItem->GetParentId()) : nullptr;
    }
    // In a damaged case items may stand below each other in a ring.
    return pParent && !IsBelow(pParent, &node) ? pParent : m_hierarchyTree.invisibleRootItem();
}

void CItemTrees::PlaceInHierarchy(CItemNode& node) { PlaceUnder(*FindHierarchyParent(node), node); }

void CItemTrees::PlaceChildrenOfItem(qint64 nItemId)
{
    const CItem* const pItem = FindItem(m_nSimulationId, nItemId);
    if (!pItem)
        return;
    for (const qint64 nChildId : pItem->GetChildIds())
        for (CItemNode* const pNode : m_ofItem.value(nChildId))
            PlaceInHierarchy(*pNode);
}

void CItemTrees::UpdateVisible(qint64 nType)
{
    struct SCounts
    {
        int nShown = 0;
        int nAll = 0;
    };
    QHash<qint64, SCounts> counts;
    for (auto it = m_nodes.cbegin(); it != m_nodes.cend(); ++it) {
        if (nType != -1 && it.key()->typeId() != nType)
            continue;
        const bool bVisible = it->pHierarchy->ReadVisible();
        if (!it->pCategory)
            continue;
        it->pCategory->ReadVisible();
        SCounts& count = counts[it.key()->typeId()];
        count.nShown += bVisible;
        ++count.nAll;
    }
    for (auto it = m_categories.cbegin(); it != m_categories.cend(); ++it) {
        if (nType != -1 && it.key() != nType)
            continue;
        const SCounts count = counts.value(it.key());
        it->pNode->setText(0,
                           QString("%1 (%2 / %3)")
                               .arg(it->sName, QString::number(count.nShown), QString::number(count.nAll)));
    }
}

void CItemTrees::Clear()
{
    m_nodes.clear();
    m_ofItem.clear();
    m_categories.clear();
    m_categoryTree.clear();
    m_hierarchyTree.clear();
}

void CItemTrees::ApplyFonts()
{
    for (const SCategory& category : std::as_const(m_categories))
        ApplyItemFont(category.pNode, 0);
    for (const SNodes& nodes : std::as_const(m_nodes))
        for (CItemNode* const pNode : {nodes.pCategory, nodes.pHierarchy})
            if (pNode)
                pNode->ApplyFont();
}
