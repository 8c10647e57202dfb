#pragma once

#include "simulation/panel/treewidget.h"

class ISelectable;

/** The row of a selectable in one of the trees of an item panel. */
class CItemNode : public QTreeWidgetItem
{
public:
    static constexpr int NODE_TYPE = UserType + 1; ///< QTreeWidgetItem::type of these nodes

    /** @param pSelectable  not owned; the node has to go ahead of it */
    explicit CItemNode(ISelectable* pSelectable);

    /** The node itself if it is one of these; null for an inner node and for none. */
    static CItemNode* From(QTreeWidgetItem* pItem);
    static const CItemNode* From(const QTreeWidgetItem* pItem);

    ISelectable* Selectable() const { return m_pSelectable; }
    /** Reads name, columns and place in the order from the selectable. */
    void Read();
    /** Reads whether it is shown, which it gives, and shades the row if not. */
    bool ReadVisible();
    /** Takes over the size of the preferences. */
    void ApplyFont();
    /** Order among siblings: by the item order of the kind, then by item. */
    bool IsBefore(const CItemNode& other) const;

private:
    ISelectable* m_pSelectable;
    qint64 m_nOrder = 0;
};
