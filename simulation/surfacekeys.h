#pragma once

#include "frame/packs/packkey.h"

/** Keys of an item that is an index plane of its parent's block. Addresses are one-based, ends included. */
namespace SurfaceKey {

inline constexpr SKey<qint64> DIRECTION{"Surface.ConstantDirection", 2}; // 0 I, 1 J, 2 K
/** Of each direction; only that of the constant direction counts. */
inline constexpr SKey<IVector3D> CONSTANTS{"Surface.ConstantValue", IVector3D{1, 1, 1}};
inline constexpr SKey<IVector3D> START{"Surface.IjkMin", IVector3D{1, 1, 1}};
inline constexpr SKey<IVector3D> END{"Surface.IjkMax", IVector3D{1, 1, 1}};

} // namespace SurfaceKey
