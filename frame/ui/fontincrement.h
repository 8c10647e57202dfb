#pragma once

class QTableWidgetItem;
class QTreeWidgetItem;
class QWidget;

/**
 * Makes the fonts of the widget and all widgets below it larger or smaller by the preference "Data.FontInc",
 * at least 1 point. It counts from the size that each widget had at its first call, so that it may be
 * called again after the preference has changed.
 */
void ApplyFontIncrement(QWidget* pWidget);

/** The same for one column of a tree item; it counts from the font that the column had at its first call. */
void ApplyItemFont(QTreeWidgetItem* pItem, int nColumn);

/** The same for a table item (-1), or for the item of that column in its row, if there is one. */
void ApplyTableFont(QTableWidgetItem* pItem, int nColumn = -1);
