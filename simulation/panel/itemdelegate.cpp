#include "simulation/panel/itemdelegate.h"

#include "simulation/panel/treewidget.h"

void CItemDelegate::initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(pOption, index);
    if (!index.sibling(index.row(), 0).data(TreeShadeRole).toBool())
        return;
    pOption->palette.setBrush(QPalette::Text, pOption->palette.brush(QPalette::PlaceholderText));
    pOption->font.setItalic(true); // seen on a selected row too, whose colour is that of the selection
}
