#include "simulation/panel/itemnode.h"

#include "frame/ui/fontincrement.h"
#include "scene/iselectable.h"
#include "scene/selectablekeys.h"

namespace {

constexpr qint64 MAX_COLUMNS = 16; // a pack that was read from a file may ask for any number

// Every change of a node is a signal of its model, so one that changes nothing is left out.
void SetText(QTreeWidgetItem& item, int nColumn, const QString& sText)
{
    if (item.text(nColumn) != sText)
        item.setText(nColumn, sText);
}

} // namespace

CItemNode::CItemNode(ISelectable* pSelectable) : QTreeWidgetItem(NODE_TYPE), m_pSelectable(pSelectable)
{
    setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled);
    setData(0, TreeIdRole, pSelectable->itemId());
    setData(0, TreeKindRole, TreeItemNode);
    Read();
    ReadVisible();
    ApplyFont();
}

CItemNode* CItemNode::From(QTreeWidgetItem* pItem)
{
    return pItem && pItem->type() == NODE_TYPE ? static_cast<CItemNode*>(pItem) : nullptr;
}

const CItemNode* CItemNode::From(const QTreeWidgetItem* pItem)
{
    return From(const_cast<QTreeWidgetItem*>(pItem));
}

void CItemNode::Read()
{
    const QString sName = m_pSelectable->name();
    SetText(*this, 0, sName.isEmpty() ? "Unnamed" : sName);
    const qint64 nColumns =
        std::clamp<qint64>(Get(*m_pSelectable, SelectableKey::COLUMN_COUNT), 1, MAX_COLUMNS);
    for (int n = 1; n < nColumns; ++n)
        SetText(*this, n, Get(*m_pSelectable, SelectableKey::COLUMN, n));
    m_nOrder = Get(*m_pSelectable, SelectableKey::ITEM_ORDER);
}

bool CItemNode::ReadVisible()
{
    const bool bVisible = m_pSelectable->isVisible();
    if (data(0, TreeShadeRole).toBool() == bVisible)
        setData(0, TreeShadeRole, !bVisible);
    return bVisible;
}

void CItemNode::ApplyFont()
{
    for (int n = 0; n < columnCount(); ++n)
        ApplyItemFont(this, n);
}

bool CItemNode::IsBefore(const CItemNode& other) const
{
    return std::pair(m_nOrder, m_pSelectable->itemId()) <
           std::pair(other.m_nOrder, other.m_pSelectable->itemId());
}
