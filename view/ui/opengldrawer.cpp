#include "view/ui/opengldrawer.h"

#include "frame/preferences/preferences.h"
#include "scene/idrawable.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "view/annotations/annotationcolormap.h"
#include "view/annotations/legendplaces.h"
#include "view/camera/viewbounds.h"
#include "view/planecase.h"
#include "view/render/overlays.h"
#include "view/render/scalebar.h"
#include "view/ui/openglcheck.h"
#include "view/viewdrawables.h"

#include <QPainter>

namespace {

constexpr int SETTLE_MS = 200; // after the last turn of the wheel
constexpr int MARKER_MS = 350; // that the rotation point stays after a rotation
constexpr int TICK_AT_REST_MS = 100;

/** The application's format with an alpha channel, so that a picture can be transparent. */
QSurfaceFormat FormatWithAlpha()
{
    QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    format.setAlphaBufferSize(8);
    return format;
}

} // namespace

COpenGLDrawer::COpenGLDrawer(qint64 nViewId, QWidget* pParent) : QOpenGLWidget(pParent), m_state{nViewId}
{
    setFormat(FormatWithAlpha());
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(QCursor(QPixmap(":/Icons/arrow.png"), 4, 2));
    const CSelectableManager& manager = CSelectableManager::Instance();
    connect(&manager, &CSelectableManager::SignalSelectableCreated, this,
            &COpenGLDrawer::SlotSelectableCreated);
    connect(&manager, &CSelectableManager::SignalSelectableDeleted, this,
            &COpenGLDrawer::SlotSelectableDeleted);
    connect(&manager, &CSelectableManager::SignalSelectionChanged, this, [this](qlonglong nChangedViewId) {
        if (nChangedViewId == m_state.nViewId)
            update();
    });
    m_timer.setInterval(TICK_AT_REST_MS);
    connect(&m_timer, &QTimer::timeout, this, &COpenGLDrawer::SlotTimerUpdate);
    m_timer.start();
}

COpenGLDrawer::~COpenGLDrawer()
{
    if (!isValid())
        return;
    makeCurrent();
    m_renderer.Release();
    doneCurrent();
}

void COpenGLDrawer::initializeGL()
{
    RequireOpenGL();
    m_renderer.Initialize();
}

void COpenGLDrawer::resizeGL(int nWidth, int nHeight) { m_state.camera.Resize(QSize(nWidth, nHeight)); }

void COpenGLDrawer::SetCamera(const SCamera& camera, int nFit)
{
    m_bFitNext = false;
    m_state.camera.SetCamera(camera, nFit);
    UpdateCamera();
}

void COpenGLDrawer::SetActive(bool bActive)
{
    m_state.bActive = bActive;
    if (!bActive)
        m_hoverTool.Leave();
}

void COpenGLDrawer::SetDemotion(Demotion_e eDemotion)
{
    m_demotion.Set(eDemotion);
    UpdateAll();
}

void COpenGLDrawer::renderToImage(QImage& image, double dScale, const SCaptureParts& parts)
{
    image = m_capture.Take(*this, dScale, parts);
}

void COpenGLDrawer::UpdateCamera()
{
    m_bCameraAsked = true;
    update();
}

void COpenGLDrawer::UpdateAll()
{
    m_bChangeAsked = true;
    update();
}

/** Whether drawables have to be asked if they need building: not in a frame that only a camera asked for. */
bool COpenGLDrawer::TakeNeedsCheck()
{
    const bool bCameraAsked = std::exchange(m_bCameraAsked, false);
    return std::exchange(m_bChangeAsked, false) || !bCameraAsked;
}

// The frame.

bool COpenGLDrawer::IsInteracting() const
{
    if (m_capture.IsOn())
        return false;
    const MouseAction_e eAction = m_state.Held().eAction;
    return eAction == MousePanning || eAction == MouseRotate || eAction == MouseRotateAroundScreen ||
           (m_sinceWheel.isValid() && m_sinceWheel.elapsed() < SETTLE_MS);
}

void COpenGLDrawer::paintGL()
{
    if (!m_paintMutex.tryLock()) {
        UpdateAll(); // from an event handled inside of the frame
        return;
    }
    const bool bInteracting = IsInteracting();
    m_demotion.Show(m_state.nViewId, bInteracting);
    QPainter painter(this);
    PaintBackground(painter);
    painter.beginNativePainting();
    PaintScene(bInteracting);
    painter.endNativePainting();
    PaintAnnotations(painter);
    PaintOverlays(painter, bInteracting);
    painter.end();
    m_paintMutex.unlock();
}

void COpenGLDrawer::PaintBackground(QPainter& painter) const
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(Canvas().background);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawRect(rect());
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void COpenGLDrawer::FitNextFrame()
{
    m_bFitNext = true;
    UpdateAll();
}

void COpenGLDrawer::FitIfAsked()
{
    if (!m_bFitNext)
        return;
    CSceneRenderer::Build(m_state.nViewId);
    if (BoundsInView(false).IsEmpty())
        return;
    const bool bTurned = !m_state.camera.FloatView().isIdentity();
    if (const int nAxis = bTurned ? -1 : AxisAcrossPlaneCase(m_state.nViewId); nAxis >= 0)
        m_state.camera.LookAlong(nAxis, LooksAlongPositive(nAxis));
    m_state.camera.ZoomToBounds(BoundsInView(false));
    m_bFitNext = false;
}

void COpenGLDrawer::PaintScene(bool bInteracting)
{
    FitIfAsked();
    SFrameSettings frame;
    frame.nViewId = m_state.nViewId;
    frame.view = m_state.camera.View();
    frame.dLeft = m_state.camera.Box().dLeft;
    frame.dRight = m_state.camera.Box().dRight;
    frame.dTop = m_state.camera.Box().dTop;
    frame.dBottom = m_state.camera.Box().dBottom;
    frame.viewport = size() * devicePixelRatioF();
    frame.bBoundingBoxes = bInteracting && m_demotion.ShowsBoxes();
    frame.bCheckDrawables = TakeNeedsCheck();
    frame.bMarks = !m_capture.IsOn();
    frame.fScale = float(devicePixelRatioF() * m_capture.Scale());
    if (const auto line = m_measureTool.Line())
        frame.measureLine = {line->first, line->second};
    m_renderer.Render(frame);
}

// What is painted over the scene.

SCanvas COpenGLDrawer::Canvas() const
{
    return {(QSizeF(size()) / m_capture.Scale()).toSize(), m_capture.Scale(), m_capture.Background(),
            !m_capture.IsOn()};
}

QColor COpenGLDrawer::OverlayColor(const QPointF& place) const
{
    return Canvas().TextColor(CPreferences::Instance().Draw().axesColor,
                              QRectF(place / m_capture.Scale(), QSizeF()));
}

void COpenGLDrawer::PaintAnnotations(QPainter& painter)
{
    if (m_capture.IsOn() && !m_capture.Parts()->bAnnotations)
        return;
    const SCanvas canvas = Canvas();
    PlaceLegends(ViewDrawables::All(m_state.nViewId), canvas.size);
    for (const IDrawable* const pDrawable : ViewDrawables::Visible(m_state.nViewId))
        if (CAnnotationColormap* const pLegend = pDrawable->annotationColormap(); pLegend->isVisible())
            pLegend->paint(&painter, canvas);
}

void COpenGLDrawer::PaintOverlays(QPainter& painter, bool bInteracting)
{
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    const double dScale = m_capture.Scale();
    const SCaptureParts* const pParts = m_capture.Parts();
    if (pParts ? pParts->bAxes : draw.bShowAxes)
        Overlays::PaintAxes(painter, size(), m_state.camera.FloatView(),
                            OverlayColor(Overlays::AxesOrigin(size(), dScale)), dScale);
    PaintRotationMarker(painter, bInteracting);
    if (pParts ? pParts->bScale : !bInteracting && draw.bShowScaling) {
        const SScaleBar bar = MakeScaleBar(size() / dScale, m_state.camera.Box().Width());
        Overlays::PaintScaleBar(painter, bar, OverlayColor({0.5 * width(), bar.dY * dScale}), dScale);
    }
    for (const IViewTool* const pTool : m_tools)
        if (!pParts)
            pTool->Paint(painter);
}

bool COpenGLDrawer::ShowsItems()
{
    if (!m_showsItems)
        m_showsItems = !ViewDrawables::Visible(m_state.nViewId).isEmpty();
    return *m_showsItems;
}

void COpenGLDrawer::PaintRotationMarker(QPainter& painter, bool bInteracting)
{
    enum { HIDE, ALWAYS, ON_ROTATION };
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    const bool bJustNow = m_sinceRotation.isValid() && m_sinceRotation.elapsed() < MARKER_MS;
    const bool bShown = draw.nRotationAxisVisibility == ALWAYS ||
                        (draw.nRotationAxisVisibility == ON_ROTATION && (bInteracting || bJustNow));
    if (m_capture.IsOn() || !bShown || !ShowsItems())
        return;
    const QPointF origin = m_state.camera.ToPixel(m_state.camera.RotationPoint());
    Overlays::PaintRotationPoint(painter, size(), origin, m_state.camera.FloatView(), OverlayColor(origin),
                                 1.0);
    if (draw.nRotationAxisVisibility == ON_ROTATION && bJustNow) // one more frame takes it away
        QTimer::singleShot(int(MARKER_MS + 16 - m_sinceRotation.elapsed()), this, [this] { UpdateCamera(); });
}

void COpenGLDrawer::SlotSelectableCreated(ISelectable*)
{
    m_showsItems.reset();
    UpdateAll();
}

void COpenGLDrawer::SlotSelectableDeleted(ISelectable* pSelectable)
{
    m_showsItems.reset();
    m_pointer.Hovered().Forget(pSelectable);
    UpdateAll();
}

// The camera.

SViewBounds COpenGLDrawer::BoundsInView(bool bSelectedOnly) const
{
    if (!bSelectedOnly)
        return ViewBounds::OfVisible(m_state.nViewId, m_state.camera.View());
    const ISimulation* const pSimulation =
        CSimulationManager::Instance().GetSimulationOfView(m_state.nViewId);
    return pSimulation ? ViewBounds::OfSelected(m_state.nViewId, pSimulation->GetId(), m_state.camera.View())
                       : SViewBounds();
}

void COpenGLDrawer::ZoomToFit()
{
    m_state.camera.ZoomToBounds(BoundsInView(false));
    emit SignalCameraChange(CameraZoomFit, {});
    UpdateCamera();
}

void COpenGLDrawer::ZoomToSelection()
{
    m_state.camera.ZoomToBounds(BoundsInView(true));
    emit SignalCameraChange(CameraZoomSelection, {});
    UpdateCamera();
}

void COpenGLDrawer::ResetView()
{
    m_state.camera.ResetView();
    Move(CameraMoves::SetView(m_state.camera.FloatView()));
    ZoomToFit();
}

void COpenGLDrawer::LookAlong(int nAxis, bool bPositive)
{
    m_state.camera.LookAlong(nAxis, bPositive);
    Move(CameraMoves::SetView(m_state.camera.FloatView()));
    ZoomToFit();
}

void COpenGLDrawer::QuarterTurn(bool bPositive)
{
    Move(CameraMoves::RotateRow(2, bPositive ? 90.0 : -90.0, m_state.camera.RotationPoint()));
}
