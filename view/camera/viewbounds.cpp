#include "view/camera/viewbounds.h"

#include "scene/drawablemanager.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "view/pick/seencopies.h"

namespace {

void AddDrawable(SViewBounds& bounds, const IDrawable& drawable, const CSeenCopies& copies,
                 const DMatrix4x4& view)
{
    if (!drawable.isVisible())
        return;
    copies.Any(drawable, [&](const DMatrix4x4& toWorld) {
        bounds.AddBox(drawable.boundsMinimum(), drawable.boundsMaximum(), view * toWorld);
        return false;
    });
}

} // namespace

void SViewBounds::Add(const DVector3D& point)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        minimum[nAxis] = std::min(minimum[nAxis], point[nAxis]);
        maximum[nAxis] = std::max(maximum[nAxis], point[nAxis]);
    }
}

void SViewBounds::AddBox(const DVector3D& boxMinimum, const DVector3D& boxMaximum, const DMatrix4x4& matrix)
{
    if (SViewBounds{boxMinimum, boxMaximum}.IsEmpty())
        return;
    for (int nCorner = 0; nCorner < 8; ++nCorner)
        Add(matrix.MapPoint({(nCorner & 1 ? boxMaximum : boxMinimum).x,
                             (nCorner & 2 ? boxMaximum : boxMinimum).y,
                             (nCorner & 4 ? boxMaximum : boxMinimum).z}));
}

SViewBounds ViewBounds::OfVisible(qint64 nViewId, const DMatrix4x4& view)
{
    SViewBounds bounds;
    for (const qint64 nSimulationId : CSimulationManager::Instance().GetSimulationIds(nViewId)) {
        const CSeenCopies copies(nViewId, nSimulationId);
        for (const IDrawable* const pDrawable :
             CDrawableManager::Instance().GetDrawables(nViewId, nSimulationId))
            AddDrawable(bounds, *pDrawable, copies, view);
    }
    return bounds;
}

SViewBounds ViewBounds::OfSelected(qint64 nViewId, qint64 nSimulationId, const DMatrix4x4& view)
{
    SViewBounds bounds;
    const CSeenCopies copies(nViewId, nSimulationId);
    for (const ISelectable* const pSelectable :
         CSelectableManager::Instance().GetSelected(nViewId, nSimulationId))
        for (const IDrawable* const pDrawable : pSelectable->drawables())
            AddDrawable(bounds, *pDrawable, copies, view);
    return bounds;
}
