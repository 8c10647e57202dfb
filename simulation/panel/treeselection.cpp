#include "simulation/panel/treeselection.h"

#include "scene/iselectable.h"
#include "simulation/panel/itemnode.h"

namespace {

bool IsSelected(const QTreeWidgetItem* pItem)
{
    const CItemNode* const pNode = CItemNode::From(pItem);
    return pNode && pNode->Selectable()->isSelected();
}

// Neighbours make one range: a selection model takes far longer for many ranges than for long ones.
void CollectRanges(const QTreeWidgetItem& parent, const QModelIndex& index, const QAbstractItemModel& model,
                   QItemSelection& ranges)
{
    int nFirst = -1;
    for (int n = 0; n <= parent.childCount(); ++n) {
        const bool bSelected = n < parent.childCount() && IsSelected(parent.child(n));
        if (bSelected && nFirst < 0)
            nFirst = n;
        if (!bSelected && nFirst >= 0) {
            ranges.append(QItemSelectionRange(model.index(nFirst, 0, index),
                                              model.index(n - 1, model.columnCount() - 1, index)));
            nFirst = -1;
        }
        if (n < parent.childCount() && parent.child(n)->childCount() > 0)
            CollectRanges(*parent.child(n), model.index(n, 0, index), model, ranges);
    }
}

int CountSelected(const QTreeWidgetItem& parent)
{
    int nCount = 0;
    for (int n = 0; n < parent.childCount(); ++n)
        nCount += IsSelected(parent.child(n)) + CountSelected(*parent.child(n));
    return nCount;
}

} // namespace

void ShowSelection(QTreeWidget& tree)
{
    QItemSelection ranges;
    CollectRanges(*tree.invisibleRootItem(), {}, *tree.model(), ranges);
    tree.selectionModel()->select(ranges, QItemSelectionModel::ClearAndSelect);
}

bool IsSelectionShown(const QTreeWidget& tree)
{
    int nCount = 0;
    for (const QTreeWidgetItem* const pItem : tree.selectedItems()) {
        if (CItemNode::From(pItem) && !IsSelected(pItem))
            return false;
        nCount += IsSelected(pItem);
    }
    return nCount == CountSelected(*tree.invisibleRootItem());
}
