#include "view/render/framescene.h"

#include "scene/drawablemanager.h"
#include "scene/idrawable.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "view/pick/seencopies.h"

namespace {

/** Calls visit(corners) for the box of what is drawn, in each copy; whether one returned true. */
template <class Visit> bool AnyDrawnBox(const IDrawable& drawable, const DMatrix4x4& view, const Visit& visit)
{
    const double dReach = drawable.reachOutOfBounds();
    return HasBox(drawable) && AnyCopy(drawable, view, [&](const DMatrix4x4& toView) {
               return visit(CornersOf(drawable, toView, dReach));
           });
}

} // namespace

CFrameScene::CFrameScene(qint64 nViewId, const DMatrix4x4& view, FrameMarks_e eMarks) : m_eMarks(eMarks)
{
    const CSimulationManager& manager = CSimulationManager::Instance();
    for (const qint64 nSimulationId : manager.GetSimulationIds(nViewId)) {
        SCaseScene& scene = m_cases.emplace_back();
        scene.nSimulationId = nSimulationId;
        scene.bDoubleWidth = manager.GetSimulation(nSimulationId)->UsesDoubleLineWidth();
        for (const STransform& transform : manager.GetDisplayTransforms(nViewId, nSimulationId))
            scene.views.append(STransform(transform.IsIdentity() ? view : view * transform.Matrix()));
        for (IDrawable* const pDrawable : CDrawableManager::Instance().GetDrawables(nViewId, nSimulationId))
            if (pDrawable->isVisible())
                Sort(pDrawable, scene);
    }
}

void CFrameScene::Sort(IDrawable* pDrawable, SCaseScene& scene)
{
    scene.visible.push_back(pDrawable);
    m_dThickestLine = std::max(m_dThickestLine, pDrawable->lineThickness());
    const int nProgram = pDrawable->shaderKey() - 1;
    const DisplayType_e eType = pDrawable->displayType();
    const bool bHighlighted = m_eMarks != MarksHidden && pDrawable->isHighlighted(true);
    const bool bSelected = m_eMarks != MarksHidden && !bHighlighted && pDrawable->isSelected(true);
    if (bSelected)
        scene.marked[nProgram][PassSelected].push_back(pDrawable);
    if (bHighlighted)
        scene.marked[nProgram][PassHighlighted].push_back(pDrawable);
    const bool bShaded = eType == DisplayShaded || eType == DisplayShadedWireframe;
    if ((bSelected || bHighlighted) && !bShaded && m_eMarks == MarksInFront)
        return; // a line that is drawn in front needn't be drawn behind too
    const bool bOpaque = pDrawable->alphaValue() == 1.0; // NaN isn't
    m_bTransparent |= !bOpaque;
    scene.buckets[nProgram][bOpaque ? 0 : 1][eType].push_back(pDrawable);
}

bool CFrameScene::IsEmpty() const
{
    return std::all_of(m_cases.begin(), m_cases.end(),
                       [](const SCaseScene& scene) { return scene.visible.empty(); });
}

bool CFrameScene::HasMarked(int nKey) const
{
    return std::any_of(m_cases.begin(), m_cases.end(), [nKey](const SCaseScene& scene) {
        return !scene.Marked(nKey, PassSelected).empty() || !scene.Marked(nKey, PassHighlighted).empty();
    });
}

bool CFrameScene::HasFilled() const
{
    return std::any_of(m_cases.begin(), m_cases.end(), [](const SCaseScene& scene) {
        return std::any_of(scene.visible.begin(), scene.visible.end(),
                           [](const IDrawable* pDrawable) { return pDrawable->drawShaded(); });
    });
}

QPointF CFrameScene::DepthRange() const
{
    double dLeast = std::numeric_limits<double>::max();
    double dGreatest = std::numeric_limits<double>::lowest();
    const auto widen = [&](const BoxCorners& corners) {
        for (const DVector3D& corner : corners) {
            dLeast = std::min(dLeast, corner.z);
            dGreatest = std::max(dGreatest, corner.z);
        }
        return false;
    };
    for (const SCaseScene& scene : m_cases)
        for (const STransform& view : scene.views)
            for (const IDrawable* const pDrawable : scene.visible)
                AnyDrawnBox(*pDrawable, view.Matrix(), widen);
    return {dLeast, dGreatest};
}

void CFrameScene::Move(const DVector3D& offset)
{
    for (SCaseScene& scene : m_cases)
        for (STransform& view : scene.views)
            view = STransform(DMatrix4x4::Translation(offset) * view.Matrix());
}

bool HasBox(const IDrawable& drawable) { return drawable.boundsMinimum().x <= drawable.boundsMaximum().x; }

BoxCorners CornersOf(const IDrawable& drawable, const DMatrix4x4& toView, double dReach)
{
    const DVector3D reach{dReach, dReach, dReach};
    const DVector3D minimum = drawable.boundsMinimum() - reach;
    const DVector3D maximum = drawable.boundsMaximum() + reach;
    BoxCorners corners;
    for (int n = 0; n < 8; ++n)
        corners[n] = toView.MapPoint(
            {n & 1 ? maximum.x : minimum.x, n & 2 ? maximum.y : minimum.y, n & 4 ? maximum.z : minimum.z});
    return corners;
}

bool IsInRectangle(const IDrawable& drawable, const DMatrix4x4& view, double dLeft, double dRight,
                   double dTop, double dBottom)
{
    return !HasBox(drawable) || AnyDrawnBox(drawable, view, [&](const BoxCorners& corners) {
        const auto allAre = [&](auto isBeyond) {
            return std::all_of(corners.begin(), corners.end(), isBeyond);
        };
        return !(allAre([=](const DVector3D& c) { return c.x < dLeft; }) ||
                 allAre([=](const DVector3D& c) { return c.x > dRight; }) ||
                 allAre([=](const DVector3D& c) { return c.y > dTop; }) ||
                 allAre([=](const DVector3D& c) { return c.y < dBottom; }));
    });
}
