#include "view/pick/viewpicker.h"

#include "scene/drawablemanager.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "view/pick/seencopies.h"

#include <QSet>

namespace {

/** No part of the drawable is in the rectangle; looks at its box alone, so that no tree is built for a miss.
 */
bool MissesBox(const DMatrix4x4& seen, const SPickRect& rect, const IDrawable& drawable)
{
    return PickGeometry::TestBox(seen, drawable.boundsMinimum(), drawable.boundsMaximum(), rect) == BoxMisses;
}

bool IsHit(const SPickArea& area, const CSeenCopies& copies, IDrawable& drawable)
{
    return copies.Any(drawable, [&](const DMatrix4x4& toWorld) {
        const DMatrix4x4 seen = area.view * toWorld;
        return !MissesBox(seen, area.rect, drawable) &&
               drawable.pickTree().anyHit(seen, area.rect, ViewPicker::PickKinds(drawable.displayType()),
                                          !drawable.showHoles());
    });
}

/** Calls visit(drawable, copies) for the drawables of the view that can be picked, until one returns true. */
template <class Visit> void AnyPickable(qint64 nViewId, const Visit& visit)
{
    for (const qint64 nSimulationId : CSimulationManager::Instance().GetSimulationIds(nViewId)) {
        const CSeenCopies copies(nViewId, nSimulationId);
        for (IDrawable* const pDrawable : CDrawableManager::Instance().GetDrawables(nViewId, nSimulationId))
            if (pDrawable->isVisible() && !pDrawable->isPreview() && visit(*pDrawable, copies))
                return;
    }
}

/** The drawable's first point in the rectangle. */
SPointPick PointOf(const SPickArea& area, const CSeenCopies& copies, IDrawable& drawable)
{
    SPointPick pick;
    copies.Any(drawable, [&](const DMatrix4x4& toWorld) {
        const DMatrix4x4 seen = area.view * toWorld;
        if (MissesBox(seen, area.rect, drawable))
            return false;
        const CGLItem* const pItem =
            drawable.pickTree().pickFirst(seen, area.rect, PickPoint, !drawable.showHoles());
        if (!pItem)
            return false;
        pick.point = drawable.pickedPoint(pItem->nCorners[0]);
        pick.displayed = toWorld.MapPoint(pick.point.xyz);
        pick.pDrawable = &drawable;
        return pick.point.bHasPoint;
    });
    return pick.point.bHasPoint ? pick : SPointPick();
}

/** The drawables of what is hovered and of what stands below it. */
QSet<const IDrawable*> HoveredDrawables(qint64 nViewId)
{
    const CSelectableManager& manager = CSelectableManager::Instance();
    const QVector<ISelectable*> hovered = manager.GetHovered(nViewId);
    QSet<const IDrawable*> drawables;
    if (hovered.isEmpty())
        return drawables;
    for (const ISelectable* const pSelectable : manager.GetSelectables(nViewId)) {
        const auto isAbove = [&](const ISelectable* p) {
            return p == pSelectable || pSelectable->isDescendantOf(p);
        };
        if (std::any_of(hovered.begin(), hovered.end(), isAbove))
            for (const IDrawable* const pDrawable : pSelectable->drawables())
                drawables.insert(pDrawable);
    }
    return drawables;
}

/** The rectangles between one and the whole; those of no size are left out. */
QVector<SPickRect> Surroundings(const SPickRect& rect, const SPickRect& whole)
{
    QVector<SPickRect> around;
    for (const SPickRect& side : {SPickRect{whole.dLeft, whole.dBottom, rect.dLeft, whole.dTop},
                                  SPickRect{rect.dRight, whole.dBottom, whole.dRight, whole.dTop},
                                  SPickRect{whole.dLeft, rect.dTop, whole.dRight, whole.dTop},
                                  SPickRect{whole.dLeft, whole.dBottom, whole.dRight, rect.dBottom}})
        if (!side.IsEmpty())
            around.append(side);
    return around;
}

} // namespace

int ViewPicker::PickKinds(DisplayType_e eType)
{
    static constexpr int KINDS[] = {
        PickPoint | PickLine,                // outline
        PickPoint | PickLine,                // wireframe
        PickPoint | PickLine | PickTriangle, // shaded
        PickPoint | PickLine | PickTriangle, // shaded and wireframe
        PickLine,                            // contours
        PickPoint,                           // nodes
        PickPoint | PickLine,                // vectors
    };
    return KINDS[eType];
}

QVector<ISelectable*> ViewPicker::Hits(const SPickArea& area)
{
    QVector<ISelectable*> hits;
    QSet<const ISelectable*> known;
    AnyPickable(area.nViewId, [&](IDrawable& drawable, const CSeenCopies& copies) {
        const QVector<ISelectable*> owners = drawable.ownerSelectables();
        const auto isKnown = [&known](const ISelectable* p) { return known.contains(p); };
        if (std::all_of(owners.begin(), owners.end(), isKnown) || !IsHit(area, copies, drawable))
            return false;
        for (ISelectable* const pOwner : owners)
            if (!isKnown(pOwner)) {
                known.insert(pOwner);
                hits.append(pOwner);
            }
        return false;
    });
    return hits;
}

QVector<ISelectable*> ViewPicker::HitsInside(const SPickArea& area, const SPickRect& whole)
{
    QVector<ISelectable*> inside = Hits(area);
    for (const SPickRect& side : Surroundings(area.rect, whole)) {
        if (inside.isEmpty())
            break;
        for (ISelectable* const pOutside : Hits({area.nViewId, area.view, side}))
            inside.removeOne(pOutside);
    }
    return inside;
}

SPointPick ViewPicker::FirstPoint(const SPickArea& area)
{
    const QSet<const IDrawable*> hovered = HoveredDrawables(area.nViewId);
    SPointPick pick;
    const auto take = [&](bool bHovered) {
        AnyPickable(area.nViewId, [&](IDrawable& drawable, const CSeenCopies& copies) {
            if (hovered.contains(&drawable) == bHovered)
                pick = PointOf(area, copies, drawable);
            return pick.pDrawable != nullptr;
        });
    };
    if (!hovered.isEmpty())
        take(true);
    if (!pick.pDrawable)
        take(false);
    return pick;
}

qint64 ViewPicker::CountNewItems(const SPickArea& area)
{
    qint64 nItems = 0;
    AnyPickable(area.nViewId, [&](IDrawable& drawable, const CSeenCopies& copies) {
        const auto isThere = [&](const DMatrix4x4& toWorld) {
            return !MissesBox(area.view * toWorld, area.rect, drawable);
        };
        if (!drawable.hasPickTree() && copies.Any(drawable, isThere)) {
            const SMeshStatistics counts = drawable.meshStatistics();
            nItems += counts.nPoints + counts.nLines + counts.nTriangles;
        }
        return false;
    });
    return nItems;
}
