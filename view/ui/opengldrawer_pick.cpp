// COpenGLDrawer: what lies under the pointer and in rectangles.
#include "frame/preferences/preferences.h"
#include "frame/ui/waitcursor.h"
#include "frame/widgetmanager.h"
#include "scene/iselectable.h"
#include "scene/selectablekeys.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "view/pick/viewpicker.h"
#include "view/pick/viewselection.h"
#include "view/statustext.h"
#include "view/ui/opengldrawer.h"

#include <QClipboard>
#include <QGuiApplication>

namespace {

constexpr qint64 MANY_ITEMS = 1'000'000; // to put into pick trees, about 0.1 s

} // namespace

SPickArea COpenGLDrawer::AreaAtCursor() const
{
    return {m_nViewId, m_camera.View(),
            m_camera.PickRect(m_cursor, CPreferences::Instance().Draw().nSelectionArea)};
}

/** The wait cursor, if a pick there first has to build trees that take noticeably long. */
std::unique_ptr<CWaitCursor> COpenGLDrawer::WaitFor(const SPickArea& area)
{
    return ViewPicker::CountNewItems(area) > MANY_ITEMS ? std::make_unique<CWaitCursor>() : nullptr;
}

void COpenGLDrawer::Hover()
{
    const SPickArea area = AreaAtCursor();
    const auto pWait = WaitFor(area);
    if (m_hover.Update(ViewPicker::HitsFromFront(area)))
        ShowHover();
}

void COpenGLDrawer::ShowHover()
{
    if (const ISelectable* const pCurrent = m_hover.Current())
        Tell(StatusText::OfItem(Get(*pCurrent, SelectableKey::STATUSBAR_STRING), pCurrent->name()));
    else
        CWidgetManager::Instance().ForgetStatusText(m_sTold);
    UpdateCamera(); // selection and highlight need no building
}

/** In the status bar, until the pointer has gone on. */
void COpenGLDrawer::Tell(const QString& sText)
{
    m_sTold = sText;
    CWidgetManager::Instance().SetStatusText(sText);
}

void COpenGLDrawer::StepHover()
{
    if (m_hover.Step())
        ShowHover();
}

void COpenGLDrawer::ClearHover()
{
    if (m_hover.Clear())
        ShowHover();
}

void COpenGLDrawer::PickPoint()
{
    const SPickArea area = AreaAtCursor();
    const auto pWait = WaitFor(area);
    m_picked = ViewPicker::PointAt(area, m_hover.Asked());
    if (!m_picked.point.bHasPoint)
        return;
    // Not the hovered item's name: while the key is held, the pointer goes on to others.
    Tell(StatusText::OfPoint(m_picked.point.sItemName, m_picked.point));
    if (m_bMeasureShown && IsMeasuring()) {
        m_measureTo = m_picked.displayed;
        Tell(StatusText::Distance(*m_measureFrom, *m_measureTo));
        UpdateCamera();
    }
}

/** The key of a measurement is down: the second end of its line follows the pointer. */
bool COpenGLDrawer::IsMeasuring() const
{
    const MouseAction_e eAction = CurrentAction();
    return eAction == MouseMeasureDistance || eAction == MousePointInformation;
}

/** The next press goes on from the same place. */
void COpenGLDrawer::HideMeasureLine()
{
    m_measureTo.reset();
    m_bMeasureShown = false;
}

void COpenGLDrawer::MeasurePress()
{
    PickPoint();
    if (!m_picked.point.bHasPoint)
        return;
    const std::optional<DVector3D> former = std::exchange(m_measureFrom, m_picked.displayed);
    m_measureTo.reset();
    m_bMeasureShown = true;
    if (former) {
        m_measureTo = former;
        Tell(StatusText::DistanceFromPrevious(*former, *m_measureFrom));
    }
    UpdateCamera();
}

void COpenGLDrawer::CopyPickedPoint() const
{
    if (m_picked.point.bHasPoint)
        QGuiApplication::clipboard()->setText(StatusText::ToCopy(m_picked.point));
}

void COpenGLDrawer::SelectClicked(bool bControl)
{
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulationOfView(m_nViewId);
    if (!pSimulation)
        return;
    Hover(); // the pointer may not have moved since the view changed
    ViewSelection::Click(m_nViewId, pSimulation->GetId(), m_hover.Current(), bControl);
    UpdateCamera();
}

void COpenGLDrawer::SelectInRectangle(const QRect& band, bool bWhole, bool bControl)
{
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulationOfView(m_nViewId);
    if (!pSimulation)
        return;
    const SPickArea area{m_nViewId, m_camera.View(), m_camera.ToRect(band)};
    const auto pWait = WaitFor({m_nViewId, m_camera.View(), m_camera.WholeRect()});
    const QVector<ISelectable*> hits =
        bWhole ? ViewPicker::HitsInside(area, m_camera.WholeRect()) : ViewPicker::Hits(area);
    ViewSelection::SelectHits(m_nViewId, pSimulation->GetId(), hits, bControl);
    UpdateCamera();
}

void COpenGLDrawer::NotifyDoubleClicked(ISelectable* pSelectable)
{
    CSelectableManager::Instance().NotifyDoubleClicked(pSelectable);
}
