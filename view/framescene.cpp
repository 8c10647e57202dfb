#include "view/framescene.h"

#include "scene/drawablemanager.h"
#include "scene/idrawable.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

CFrameScene::CFrameScene(qint64 nViewId, const QMatrix4x4& view, bool bSilhouette)
{
    const CSimulationManager& manager = CSimulationManager::Instance();
    for (const qint64 nSimulationId : manager.GetSimulationIds(nViewId)) {
        SCaseScene& scene = m_cases.emplace_back();
        scene.nSimulationId = nSimulationId;
        scene.bDoubleWidth = manager.GetSimulation(nSimulationId)->UsesDoubleLineWidth();
        for (const STransform& transform : manager.GetDisplayTransforms(nViewId, nSimulationId))
            scene.views.append(transform.IsIdentity() ? view : view * transform.FloatMatrix());
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

QPointF CFrameScene::DepthRange() const
{
    double dLeast = std::numeric_limits<double>::max();
    double dGreatest = std::numeric_limits<double>::lowest();
    for (const SCaseScene& scene : m_cases)
        for (const QMatrix4x4& view : scene.views)
            for (const IDrawable* const pDrawable : scene.visible)
                if (const auto corners = BoxCorners(*pDrawable, view))
                    for (const QVector3D& corner : *corners) {
                        dLeast = std::min<double>(dLeast, corner.z());
                        dGreatest = std::max<double>(dGreatest, corner.z());
                    }
    return {dLeast, dGreatest};
}

std::optional<std::array<QVector3D, 8>> BoxCorners(const IDrawable& drawable, const QMatrix4x4& view)
{
    const DVector3D minimum = drawable.boundsMinimum();
    const DVector3D maximum = drawable.boundsMaximum();
    if (minimum.x > maximum.x)
        return {};
    const QMatrix4x4 model = drawable.modelMatrix();
    const QMatrix4x4 product = model.isIdentity() ? view : view * model;
    std::array<QVector3D, 8> corners;
    for (int n = 0; n < 8; ++n)
        corners[n] =
            product * QVector3D(float(n & 1 ? maximum.x : minimum.x), float(n & 2 ? maximum.y : minimum.y),
                                float(n & 4 ? maximum.z : minimum.z));
    return corners;
}

bool IsInRectangle(const IDrawable& drawable, const QMatrix4x4& view, double dLeft, double dRight,
                   double dTop, double dBottom)
{
    const auto corners = BoxCorners(drawable, view);
    if (!corners)
        return true;
    const auto allAre = [&](auto isBeyond) {
        return std::all_of(corners->begin(), corners->end(), isBeyond);
    };
    return !(allAre([=](const QVector3D& c) { return c.x() < dLeft; }) ||
             allAre([=](const QVector3D& c) { return c.x() > dRight; }) ||
             allAre([=](const QVector3D& c) { return c.y() > dTop; }) ||
             allAre([=](const QVector3D& c) { return c.y() < dBottom; }));
}
