#pragma once

#include "view/mesh/surfaceplane.h"

class CItem;
class IDrawable;
class ISimulation;

/** The plane of the same direction inside a block, its begin not behind its end. */
SSurfacePlane InsideBlock(const SSurfacePlane& plane, const IVector3D& dimensions);

/** The direction in which a block is one or two points thick, the thinnest of several; -1 for a solid one. */
int ThinDirection(const IVector3D& dimensions);

/**
 * The faces by which a block is shown at first, numbered as FacePlane does.
 *
 * @param nDefaultFace  0 to 5 a face, 6 all; anything else is the usual one, K min
 * @return the one plane of a thin block, whatever the default
 */
QVector<int> FacesToShow(const IVector3D& dimensions, qint64 nDefaultFace);

/** How an item looks when it comes into a view: shaded, with its outline, in its own colour. */
void ApplyFirstDisplay(IDrawable& drawable);

/**
 * A new item of the type KindSurface under the block, with its selectables in all views of the case, coloured
 * as the block is there. The undo bracket is the caller's.
 *
 * @return null if there is no such block, or if the case doesn't make surfaces
 */
CItem* CreateSurfaceItem(ISimulation& simulation, qint64 nBlockId, const SSurfacePlane& plane);
