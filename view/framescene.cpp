#include "view/framescene.h"

#include "scene/drawablemanager.h"
#include "scene/idrawable.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

CFrameScene::CFrameScene(qint64 nViewId, const DMatrix4x4& view, bool bSilhouette)
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
                Sort(pDrawable, bSilhouette, scene);
    }
}

void CFrameScene::Sort(IDrawable* pDrawable, bool bSilhouette, SCaseScene& scene) const
{
    scene.visible.push_back(pDrawable);
    const int nProgram = pDrawable->shaderKey() - 1;
    const DisplayType_e eType = pDrawable->displayType();
    const bool bHighlighted = pDrawable->isHighlighted(true);
    const bool bSelected = !bHighlighted && pDrawable->isSelected(true);
    if (bSelected)
        scene.marked[nProgram][PassSelected].push_back(pDrawable);
    if (bHighlighted)
        scene.marked[nProgram][PassHighlighted].push_back(pDrawable);
    const bool bShaded = eType == DisplayShaded || eType == DisplayShadedWireframe;
    if ((bSelected || bHighlighted) && !bShaded && !bSilhouette)
        return; // a line that is drawn in front needn't be drawn behind too
    const bool bOpaque = pDrawable->alphaValue() == 1.0; // NaN isn't
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
    for (const SCaseScene& scene : m_cases)
        for (const STransform& view : scene.views)
            for (const IDrawable* const pDrawable : scene.visible)
                if (const auto corners = BoxCorners(*pDrawable, view.Matrix()))
                    for (const DVector3D& corner : *corners) {
                        dLeast = std::min(dLeast, corner.z);
                        dGreatest = std::max(dGreatest, corner.z);
                    }
    return {dLeast, dGreatest};
}

void CFrameScene::Move(const DVector3D& offset)
{
    for (SCaseScene& scene : m_cases)
        for (STransform& view : scene.views)
            view = STransform(DMatrix4x4::Translation(offset) * view.Matrix());
}

std::optional<std::array<DVector3D, 8>> BoxCorners(const IDrawable& drawable, const DMatrix4x4& view)
{
    const DVector3D minimum = drawable.boundsMinimum();
    const DVector3D maximum = drawable.boundsMaximum();
    if (minimum.x > maximum.x)
        return {};
    const QMatrix4x4 model = drawable.modelMatrix();
    const DMatrix4x4 product = model.isIdentity() ? view : view * DMatrix4x4::FromFloat(model);
    std::array<DVector3D, 8> corners;
    for (int n = 0; n < 8; ++n)
        corners[n] = product.MapPoint(
            {n & 1 ? maximum.x : minimum.x, n & 2 ? maximum.y : minimum.y, n & 4 ? maximum.z : minimum.z});
    return corners;
}

bool IsInRectangle(const IDrawable& drawable, const DMatrix4x4& view, double dLeft, double dRight,
                   double dTop, double dBottom)
{
    const auto corners = BoxCorners(drawable, view);
    if (!corners)
        return true;
    const auto allAre = [&](auto isBeyond) {
        return std::all_of(corners->begin(), corners->end(), isBeyond);
    };
    return !(allAre([=](const DVector3D& c) { return c.x < dLeft; }) ||
             allAre([=](const DVector3D& c) { return c.x > dRight; }) ||
             allAre([=](const DVector3D& c) { return c.y > dTop; }) ||
             allAre([=](const DVector3D& c) { return c.y < dBottom; }));
}
