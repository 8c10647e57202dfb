#pragma once

#include "frame/novalue.h"
#include "frame/packs/packkey.h"

/** Keys of every item's pack. "#" marks bookkeeping of the object itself, not settings. */
namespace ItemKey {

inline constexpr SKey<qint64> PARENT_ID{"#ParentId", NO_ID};
inline const SKey<QVector<qint64>> CHILD_IDS{"#ChildIdList", {}};
inline const SKey<QVector<qint64>> DEPENDED_IDS{"#DependedItemIdList", {}}; // items that depend on this one
inline constexpr SKey<bool> IS_CONTAINER{"#IsContainer", false};
inline constexpr SKey<const char*> DESCRIPTION{"#Description", ""};
inline constexpr SKey<qint64> GRID_TYPE{"#GridType", -1}; // what the block's origin was
inline constexpr SKey<double> CELL_POINT_TOLERANCE{"#CellPointTolerance", NO_VALUE};
inline constexpr SKey<bool> IS_LINKED{"IsLinked", false};
inline constexpr SKey<bool> IS_SIMULATION_CLOSING{"IsSimulationClosing", false};
inline constexpr SKey<DMatrix4x4> TRANSFORM{"Grid.Transform", DMatrix4x4()};
inline constexpr SKey<IVector3D> CONVERT{"Grid.Convert", IVector3D()}; // 1: the axis is reversed
inline constexpr SKey<bool> IS_2D{"Is2D", false};

} // namespace ItemKey
