#include "simulation/panel/itemdelegate.h"

#include "simulation/panel/treewidget.h"

void CItemDelegate::initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(pOption, index);
    if (!index.sibling(index.row(), 0).data(TreeShadeRole).toBool())
        return;
    QPalette& palette = pOption->palette;
    palette.setBrush(QPalette::Text, palette.brush(QPalette::PlaceholderText));
    QColor selected = palette.color(QPalette::HighlightedText);
    selected.setAlpha(palette.color(QPalette::PlaceholderText).alpha());
    palette.setColor(QPalette::HighlightedText, selected);
}
