#pragma once

#include "frame/novalue.h"
#include "frame/packs/packkey.h"

/** Keys of every selectable's pack: the fixed properties of its kind, set by the concrete class. */
namespace SelectableKey {

inline constexpr SKey<bool> IS_MAIN{"IsMainSelectable", false}; // stands at the top level of the item tree
inline constexpr SKey<qint64> ITEM_ORDER{"ItemOrder", 0};       // sort key in the item tree
inline constexpr SKey<const char*> STATUSBAR_STRING{"StatusbarString", ""};
inline constexpr SKey<qint64> COLUMN_COUNT{"ColumnCount", 1};      // text columns in the item panel
inline constexpr SNumberedKey<const char*> COLUMN{"Column%1", ""}; // text of a column from 1; 0 is the name

inline constexpr SKey<qint64> UNIFY_TYPE{"UnifyType", NO_ID};    // items of one type share a dock; -1: none
inline constexpr SKey<qint64> DATA_DOCKS{"BaseDataDockMask", 0}; // DataDock_e bits: what can edit it
inline constexpr SKey<bool> HAS_LEGEND{"IsSupportAnnotationColormap", false};
inline constexpr SKey<bool> CAN_PLANE_INTERSECTION{"CanCalculatePlaneIntersection", false};
inline constexpr SKey<bool> CAN_ISO_SURFACE{"CanCalculateISOSurface", false};
inline constexpr SKey<bool> CAN_SCALAR_EXTREME{"CanCalculateScalarExtreme", false};
inline constexpr SKey<bool> CAN_INTEGRATE_SCALAR{"CanIntegrateScalar", false};
inline constexpr SKey<bool> CAN_INTEGRATE_FORCE{"CanIntegrateForce", false};

} // namespace SelectableKey

/** The docks that edit selectables, each a bit. */
enum DataDock_e : qint64 {
    DataDockSurface = 1,
};
