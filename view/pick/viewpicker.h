#pragma once

#include "scene/displaytype.h"
#include "scene/pickedpoint.h"
#include "view/pick/gltree.h"

#include <QVector>

class IDrawable;
class ISelectable;

/** What of a view is picked. */
struct SPickArea
{
    qint64 nViewId = -1;
    DMatrix4x4 view; ///< world to view
    SPickRect rect;  ///< in view coordinates [world units]
};

/** A point that was picked, and what it belongs to. */
struct SPointPick
{
    SPickedPoint point;             ///< xyz in the coordinates of the block; without a point if there is none
    DVector3D displayed;            ///< where it is seen: after model matrix, mirror and sectors
    IDrawable* pDrawable = nullptr; ///< null without a point
};

/**
 * What lies in a rectangle of a view. All visible drawables of the view's simulations are asked, through
 * every display transform of the pair (mirror, sectors); a preview is passed over. Whether items of blanked
 * cells count is the drawable's choice: they do while it doesn't show its holes. Main thread only.
 */
namespace ViewPicker {

/** The kinds of pick items that a display type lets the user hit, as a mask. */
int PickKinds(DisplayType_e eType);

/** The selectables with a drawable that is hit, each once, in the order of drawables. */
QVector<ISelectable*> Hits(const SPickArea& area);

/**
 * The same under a pointer, whose reach the rectangle is: what is in front at its middle comes first. Lines
 * and points count within the reach; what is filled comes last where the pointer is only beside it.
 */
QVector<ISelectable*> HitsFromFront(const SPickArea& area);

/**
 * Those that lie wholly in the rectangle: hits that aren't hit in the rectangles that surround it.
 *
 * @param whole  what the view shows; where it ends at the rectangle there is no surrounding one
 */
QVector<ISelectable*> HitsInside(const SPickArea& area, const SPickRect& whole);

/**
 * The node of what is in front under a pointer, whose reach the rectangle is, that is seen nearest to it.
 * What hides the rest has it or none has.
 *
 * @param pAsked  an item that goes ahead of all else with what stands below it, though it may lie behind; or
 *                null
 */
SPointPick PointAt(const SPickArea& area, const ISelectable* pAsked = nullptr);

/** How many pick items a pick in the rectangle would first have to put into trees: what is picked there
 * first. */
qint64 CountNewItems(const SPickArea& area);

} // namespace ViewPicker
