#pragma once

class QTreeWidget;

/** Selects exactly the nodes whose selectables are selected. */
void ShowSelection(QTreeWidget& tree);

/** True if these are selected already. A selected category counts as none. */
bool IsSelectionShown(const QTreeWidget& tree);
