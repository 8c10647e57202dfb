#include "simulation/panel/itemfilter.h"

#include "simulation/panel/treewidget.h"

namespace {

bool ContainsText(const QTreeWidgetItem& node, const QString& sText)
{
    if (CTreeWidget::IsInner(&node)) // its counts would match any digit
        return node.data(0, TreeNameRole).toString().contains(sText, Qt::CaseInsensitive);
    for (int n = 0; n < node.columnCount(); ++n)
        if (node.text(n).contains(sText, Qt::CaseInsensitive))
            return true;
    return false;
}

/** @param bPassed  a node above contains the text. True if the node passes. */
bool FilterNode(QTreeWidgetItem& node, const QString& sText, bool bPassed)
{
    bPassed = bPassed || ContainsText(node, sText);
    bool bBelow = false;
    for (int n = 0; n < node.childCount(); ++n)
        bBelow |= FilterNode(*node.child(n), sText, bPassed);
    const bool bPasses = sText.isEmpty() || bBelow || (bPassed && !CTreeWidget::IsInner(&node));
    if (node.isHidden() == bPasses)
        node.setHidden(!bPasses);
    if (bBelow && !sText.isEmpty())
        node.setExpanded(true);
    return bPasses;
}

} // namespace

void FilterTree(QTreeWidget& tree, const QString& sText)
{
    for (int n = 0; n < tree.topLevelItemCount(); ++n)
        FilterNode(*tree.topLevelItem(n), sText, false);
}
