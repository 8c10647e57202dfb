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

/** One copy of a drawable as it lies under the pointer. */
struct SUnderPointer
{
    IDrawable* pDrawable;
    DMatrix4x4 toWorld;
    DMatrix4x4 seen;
    double dBoxFront;                 ///< greatest depth that any of it can have
    double dDepth = CGLTree::NOT_MET; ///< of the place that is met
    bool bHides = false;              ///< it is filled there: what lies behind isn't seen
    bool bBeside = false;             ///< filled, and only its edge is within reach

    bool IsMet() const { return dDepth != CGLTree::NOT_MET; }
    bool HasFill() const { return ViewPicker::PickKinds(pDrawable->displayType()) & PickTriangle; }
};
using Copies = std::vector<SUnderPointer>;
using CopyOrder = std::vector<SUnderPointer*>; // of copies that stay where they are

template <class Takes> CopyOrder OrderOf(Copies& copies, const Takes& takes)
{
    CopyOrder order;
    for (SUnderPointer& copy : copies)
        if (takes(copy))
            order.push_back(&copy);
    return order;
}

/** All copies whose boxes come into the rectangle; nothing is met yet. */
Copies CopiesIn(const SPickArea& area)
{
    Copies found;
    AnyPickable(area.nViewId, [&](IDrawable& drawable, const CSeenCopies& copies) {
        return copies.Any(drawable, [&](const DMatrix4x4& toWorld) {
            const DMatrix4x4 seen = area.view * toWorld;
            if (MissesBox(seen, area.rect, drawable))
                return false;
            const PickGeometry::SSeenBox box(seen, drawable.boundsMinimum(), drawable.boundsMaximum());
            found.push_back({&drawable, toWorld, seen, box.maximum.z});
            return false;
        });
    });
    return found;
}

/** Finds what of the copy the pointer meets. */
void Meet(const SPickArea& area, SUnderPointer& copy)
{
    CGLTree& tree = copy.pDrawable->pickTree();
    const bool bHoles = !copy.pDrawable->showHoles();
    if (copy.HasFill())
        copy.dDepth = tree.frontTriangle(copy.seen, area.rect.Middle(), bHoles);
    copy.bHides = copy.IsMet();
    if (copy.bHides)
        return;
    const int nKinds = ViewPicker::PickKinds(copy.pDrawable->displayType());
    copy.dDepth = tree.frontLine(copy.seen, area.rect, nKinds, bHoles);
    copy.bBeside = copy.IsMet() && copy.HasFill();
}

/** In one place, as far as the pointer can tell. */
double Together(const SPickArea& area) { return 1e-3 * (area.rect.dRight - area.rect.dLeft); }

/** Leaves those that are met, the one in front first; what lies beside the pointer comes last. */
void SortFromFront(const SPickArea& area, CopyOrder& copies)
{
    std::erase_if(copies, [](const auto* pCopy) { return !pCopy->IsMet(); });
    std::sort(copies.begin(), copies.end(), [](const auto* a, const auto* b) {
        return std::pair(a->bBeside, -a->dDepth) < std::pair(b->bBeside, -b->dDepth);
    });
    // Those in one place keep the order of their drawables wherever on them the pointer is.
    for (auto first = copies.begin(); first != copies.end();) {
        const auto end = std::find_if(first, copies.end(), [&](const auto* pCopy) {
            return pCopy->bBeside != (*first)->bBeside || (*first)->dDepth - pCopy->dDepth > Together(area);
        });
        std::sort(first, end); // as they stand in memory
        first = end;
    }
}

/** Leaves what can be seen at the pointer, from the front to what hides all behind it. */
void FindSeen(const SPickArea& area, CopyOrder& copies)
{
    std::sort(copies.begin(), copies.end(),
              [](const auto* a, const auto* b) { return a->dBoxFront > b->dBoxFront; });
    double dHidden = CGLTree::NOT_MET;
    for (SUnderPointer* const pCopy : copies) {
        if (pCopy->dBoxFront < dHidden - Together(area))
            break;
        Meet(area, *pCopy);
        if (pCopy->bHides)
            dHidden = std::max(dHidden, pCopy->dDepth);
    }
    SortFromFront(area, copies);
    const auto hiding = std::find_if(copies.begin(), copies.end(), [](const auto* p) { return p->bHides; });
    if (hiding != copies.end())
        copies.erase(hiding + 1, copies.end());
}

/** The node that is seen nearest to the pointer, of the first of the copies that has one in reach. */
SPointPick NearestNode(const SPickArea& area, CopyOrder copies)
{
    FindSeen(area, copies);
    const double dRadius = 0.5 * (area.rect.dRight - area.rect.dLeft);
    for (const SUnderPointer* const pCopy : copies) {
        IDrawable& drawable = *pCopy->pDrawable;
        const CGLItem* const pItem = drawable.pickTree().nearestPoint(
            pCopy->seen, area.rect.Middle(), dRadius, !drawable.showHoles(), pCopy->HasFill());
        if (!pItem)
            continue;
        const SPickedPoint point = drawable.pickedPoint(pItem->nCorners[0]);
        return {point, pCopy->toWorld.MapPoint(point.xyz), &drawable};
    }
    return {};
}

/** The drawables of an item and of what stands below it. */
QSet<const IDrawable*> DrawablesOf(const ISelectable& item)
{
    QSet<const IDrawable*> drawables;
    for (const ISelectable* const pSelectable : CSelectableManager::Instance().GetSelectables(item.viewId()))
        if (pSelectable == &item || pSelectable->isDescendantOf(&item))
            for (const IDrawable* const pDrawable : pSelectable->drawables())
                drawables.insert(pDrawable);
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

QVector<ISelectable*> ViewPicker::HitsFromFront(const SPickArea& area)
{
    Copies copies = CopiesIn(area);
    for (SUnderPointer& copy : copies)
        Meet(area, copy);
    CopyOrder met = OrderOf(copies, [](const SUnderPointer& copy) { return copy.IsMet(); });
    SortFromFront(area, met);
    QVector<ISelectable*> hits;
    QSet<const ISelectable*> known;
    for (const SUnderPointer* const pCopy : met)
        for (ISelectable* const pOwner : pCopy->pDrawable->ownerSelectables())
            if (!known.contains(pOwner)) {
                known.insert(pOwner);
                hits.append(pOwner);
            }
    return hits;
}

SPointPick ViewPicker::PointAt(const SPickArea& area, const ISelectable* pAsked)
{
    Copies copies = CopiesIn(area);
    if (pAsked) {
        const QSet<const IDrawable*> drawables = DrawablesOf(*pAsked);
        const auto isAsked = [&](const SUnderPointer& copy) { return drawables.contains(copy.pDrawable); };
        if (const SPointPick pick = NearestNode(area, OrderOf(copies, isAsked)); pick.pDrawable)
            return pick;
    }
    return NearestNode(area, OrderOf(copies, [](const SUnderPointer&) { return true; }));
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
