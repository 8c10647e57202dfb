#include "view/tools/bandtool.h"

#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "view/pick/viewselection.h"
#include "view/render/overlays.h"
#include "view/tools/viewpointer.h"

QRect CBandTool::BandOf(const SPointerEvent& event) const
{
    const MouseAction_e eAction = event.eAction;
    const bool bBand = (m_view.State().eMode == MouseZoomBox && event.state.buttons & Qt::LeftButton) ||
                       eAction == MouseZoomBox1 || eAction == MouseZoomBox2 || eAction == MouseSelectInBox ||
                       eAction == MouseSelectOnBox;
    return bBand && event.state.bDragged
               ? QRect(event.position - event.state.drag, event.position).normalized()
               : QRect();
}

bool CBandTool::Move(const SPointerEvent& event)
{
    if (BandOf(event).isEmpty())
        return false;
    m_view.UpdateCamera();
    return true;
}

void CBandTool::Paint(QPainter& painter) const
{
    if (const QRect band = BandOf(m_view.State().Held()); !band.isEmpty())
        Overlays::PaintRubberBand(painter, band);
}

bool CBandTool::Release(const SPointerEvent& event)
{
    const MouseAction_e eAction = event.eAction;
    const QRect band = BandOf(event);
    if (m_view.State().eMode == MouseZoomBox && event.eButton == Qt::LeftButton)
        ZoomTo(band);
    else if (!event.state.bDragged)
        return false;
    else if (eAction == MouseZoomBox1 || eAction == MouseZoomBox2)
        ZoomTo(band);
    else if (eAction == MouseSelectOnBox || eAction == MouseSelectInBox)
        Select(band, eAction == MouseSelectInBox, event.state.modifiers & Qt::ControlModifier);
    else
        return false;
    return true;
}

/** Leaves the mode of the zoom box once one was drawn that can be zoomed to. */
void CBandTool::ZoomTo(const QRect& band)
{
    COrthoCamera zoomed = m_view.State().camera;
    if (!zoomed.ZoomBox(band))
        return;
    m_view.Move(CameraMoves::ZoomBox(band));
    if (m_view.State().eMode == MouseZoomBox)
        m_view.LeaveMode();
}

void CBandTool::Select(const QRect& band, bool bWhole, bool bControl)
{
    const SViewState& state = m_view.State();
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulationOfView(state.nViewId);
    if (!pSimulation)
        return;
    const SPickRect whole = state.camera.WholeRect();
    const SPickArea area{state.nViewId, state.camera.View(), state.camera.ToRect(band)};
    const auto pWait = WaitForTrees(m_view, {state.nViewId, state.camera.View(), whole});
    const QVector<ISelectable*> hits = bWhole ? ViewPicker::HitsInside(area, whole) : ViewPicker::Hits(area);
    ViewSelection::SelectHits(state.nViewId, pSimulation->GetId(), hits, bControl);
    m_view.UpdateCamera();
}
