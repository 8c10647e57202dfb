#pragma once

#include <QHash>
#include <QIcon>
#include <QVector>

class CItemNode;
class CTreeWidget;
class IModuleInterface;
class ISelectable;
class QTreeWidgetItem;

/**
 * What stands in the two trees of an item panel. Each selectable has a node under the category of its type
 * (none if there is no such category) and one in the hierarchy, under the node of its item's parent, or at
 * the top level. Several selectables of one item: the first stands for the item, the others below it, or
 * beside it if they are of a main kind (SelectableKey::IS_MAIN).
 *
 * The selection of the trees is the caller's: nodes that move or go change it.
 */
class CItemTrees
{
public:
    /** The trees, empty and not owned, must outlive it. */
    CItemTrees(CTreeWidget& categoryTree, CTreeWidget& hierarchyTree, qint64 nSimulationId);

    void AddCategories(IModuleInterface& module);
    /** Adds the nodes of a selectable; false for one whose item isn't to be seen in the panel. */
    bool Add(ISelectable* pSelectable);
    /** Deletes its nodes; those below find another place. False for an unknown one. */
    bool Remove(ISelectable* pSelectable);
    /** Reads texts and place anew, and whether it is to be seen at all; false if it is in no tree afterwards.
     */
    bool Update(ISelectable* pSelectable);
    bool Contains(ISelectable* pSelectable) const { return m_nodes.contains(pSelectable); }
    /** In no order. */
    QList<ISelectable*> Selectables() const { return m_nodes.keys(); }

    /** Counts what is shown and what there is, and shades what isn't shown; -1: of all types. */
    void UpdateVisible(qint64 nType);
    /** Empties both trees. Selectables may go then without a word. */
    void Clear();
    /** All nodes take over the size of the preferences. */
    void ApplyFonts();

private:
    struct SNodes
    {
        CItemNode* pCategory = nullptr; // null without a category of its type
        CItemNode* pHierarchy = nullptr;
    };
    struct SCategory
    {
        QTreeWidgetItem* pNode = nullptr;
        QString sName;
        QIcon icon;
    };

    bool IsToBeSeen(const ISelectable* pSelectable) const;
    CItemNode* MakeNode(ISelectable* pSelectable) const;
    CItemNode* OwnNode(qint64 nItemId) const;
    QTreeWidgetItem* FindHierarchyParent(const CItemNode& node) const;
    void PlaceInHierarchy(CItemNode& node);
    void PlaceChildrenOfItem(qint64 nItemId);

    CTreeWidget& m_categoryTree;
    CTreeWidget& m_hierarchyTree;
    const qint64 m_nSimulationId;
    QHash<qint64, SCategory> m_categories; // by type
    QHash<ISelectable*, SNodes> m_nodes;
    QHash<qint64, QVector<CItemNode*>> m_ofItem; // hierarchy nodes by item; the first stands for it
};
