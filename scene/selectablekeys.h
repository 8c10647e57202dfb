#pragma once

#include "frame/packkey.h"

/** Keys of every selectable's pack: the fixed properties of its kind, set by the concrete class. */
namespace SelectableKey {

inline constexpr SKey<bool> IS_MAIN{"IsMainSelectable", false}; // stands at the top level of the item tree
inline constexpr SKey<qint64> ITEM_ORDER{"ItemOrder", 0};       // sort key in the item tree
inline constexpr SKey<const char*> STATUSBAR_STRING{"StatusbarString", ""};
inline constexpr SKey<qint64> COLUMN_COUNT{"ColumnCount", 1};      // text columns in the item panel
inline constexpr SNumberedKey<const char*> COLUMN{"Column%1", ""}; // text of a column from 1; 0 is the name

} // namespace SelectableKey
