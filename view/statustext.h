#pragma once

#include "scene/pickedpoint.h"

/** The texts that a pick writes. Pure functions. */
namespace StatusText {

/**
 * For an item under the pointer: what it is and its name.
 *
 * @param sKind  "Block"; left out where the name begins with it
 */
QString OfItem(const QString& sKind, const QString& sName);

/**
 * For the status bar: name, indices, place with 15 digits, variable and value with 10. What isn't known is
 * left out.
 *
 * @param sName  of the item; empty: no name
 */
QString OfPoint(const QString& sName, const SPickedPoint& point);

/** While the second end of a measured line moves: its distance from the first and the way along each axis. */
QString Distance(const DVector3D& from, const DVector3D& to);
/** After a press: the same to the point pressed before. */
QString DistanceFromPrevious(const DVector3D& from, const DVector3D& to);

/**
 * All about a point, a line each, to be copied: item, indices, place, variable and value, whether it is a
 * hole. Numbers have the digits that read back to the same number. Empty without a point.
 */
QString ToCopy(const SPickedPoint& point);

} // namespace StatusText
