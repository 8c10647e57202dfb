#include "view/tools/legendtool.h"

#include "scene/idrawable.h"
#include "view/annotations/annotationcolormap.h"
#include "view/viewdrawables.h"

CAnnotation* CLegendTool::At(const QPoint& position) const
{
    for (const IDrawable* const pDrawable : ViewDrawables::Visible(m_view.State().nViewId))
        if (CAnnotation* const pLegend = pDrawable->annotationColormap(); pLegend->hitTest(position))
            return pLegend;
    return nullptr;
}

bool CLegendTool::IsShown(const CAnnotation* pAnnotation) const
{
    const QVector<IDrawable*> visible = ViewDrawables::Visible(m_view.State().nViewId);
    return std::any_of(visible.begin(), visible.end(), [pAnnotation](const IDrawable* pDrawable) {
        return pDrawable->annotationColormap() == pAnnotation;
    });
}

void CLegendTool::ShowHot(const CAnnotation* pHot)
{
    for (const IDrawable* const pDrawable : ViewDrawables::Visible(m_view.State().nViewId)) {
        CAnnotation* const pLegend = pDrawable->annotationColormap();
        if (pLegend->isHot() == (pLegend == pHot))
            continue;
        pLegend->setHot(pLegend == pHot);
        m_view.UpdateCamera();
    }
}

bool CLegendTool::Press(const SPointerEvent& event)
{
    m_pDragged = event.eButton == Qt::LeftButton ? At(event.position) : nullptr;
    if (!m_pDragged)
        return false;
    m_grip = event.position - m_pDragged->shownPosition();
    return true;
}

bool CLegendTool::Move(const SPointerEvent& event)
{
    if (m_pDragged && !IsShown(m_pDragged))
        m_pDragged = nullptr; // it went with its item
    if (m_pDragged) {
        const QSize view = m_view.State().camera.Viewport();
        m_pDragged->setPosition(m_pDragged->inside(event.position - m_grip, view));
        m_view.UpdateCamera();
        return true;
    }
    if (!event.buttons)
        ShowHot(At(event.position));
    return false;
}

bool CLegendTool::Release(const SPointerEvent&) { return std::exchange(m_pDragged, nullptr); }

bool CLegendTool::DoubleClick(const SPointerEvent& event)
{
    CAnnotation* const pLegend = At(event.position);
    if (!pLegend)
        return false;
    pLegend->doubleClicked();
    m_view.UpdateAll();
    return true;
}
