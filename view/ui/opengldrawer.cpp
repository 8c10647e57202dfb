#include "view/ui/opengldrawer.h"

#include "frame/preferences/preferences.h"
#include "scene/drawablemanager.h"
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

COpenGLDrawer::COpenGLDrawer(qint64 nViewId, QWidget* pParent)
    : QOpenGLWidget(pParent), m_nViewId(nViewId), m_hover(nViewId)
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
        if (nChangedViewId == m_nViewId)
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

void COpenGLDrawer::resizeGL(int nWidth, int nHeight) { m_camera.Resize(QSize(nWidth, nHeight)); }

void COpenGLDrawer::SetCamera(const SCamera& camera, int nFit)
{
    m_bFitNext = false;
    m_camera.SetCamera(camera, nFit);
    UpdateCamera();
}

void COpenGLDrawer::SetActive(bool bActive)
{
    m_bActive = bActive;
    if (!bActive)
        ClearHover();
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
    const MouseAction_e eAction = CurrentAction();
    if (m_capture)
        return false;
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
    ShowDemotion(bInteracting);
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

void COpenGLDrawer::PaintScene(bool bInteracting)
{
    if (m_bFitNext) {
        CSceneRenderer::Build(m_nViewId);
        if (!BoundsInView(false).IsEmpty()) {
            const bool bTurned = !m_camera.FloatView().isIdentity();
            if (const int nAxis = bTurned ? -1 : AxisAcrossPlaneCase(m_nViewId); nAxis >= 0)
                m_camera.LookAlong(nAxis, LooksAlongPositive(nAxis));
            m_camera.ZoomToBounds(BoundsInView(false));
            m_bFitNext = false;
        }
    }
    SFrameSettings frame;
    frame.nViewId = m_nViewId;
    frame.view = m_camera.View();
    frame.dLeft = m_camera.Box().dLeft;
    frame.dRight = m_camera.Box().dRight;
    frame.dTop = m_camera.Box().dTop;
    frame.dBottom = m_camera.Box().dBottom;
    frame.viewport = size() * devicePixelRatioF();
    frame.bBoundingBoxes = bInteracting && m_eDemotion == DemotionBoundingBox;
    frame.bCheckDrawables = TakeNeedsCheck();
    frame.bMarks = !m_capture;
    frame.fScale = float(devicePixelRatioF() * RenderScale());
    if (m_bMeasureShown && m_measureFrom && m_measureTo)
        frame.measureLine = {*m_measureFrom, *m_measureTo};
    m_renderer.Render(frame);
}

QVector<IDrawable*> COpenGLDrawer::Drawables() const
{
    QVector<IDrawable*> drawables;
    for (const qint64 nSimulationId : CSimulationManager::Instance().GetSimulationIds(m_nViewId))
        drawables += CDrawableManager::Instance().GetDrawables(m_nViewId, nSimulationId);
    return drawables;
}

QVector<IDrawable*> COpenGLDrawer::VisibleDrawables() const
{
    QVector<IDrawable*> visible = Drawables();
    visible.erase(std::remove_if(visible.begin(), visible.end(), [](auto* p) { return !p->isVisible(); }),
                  visible.end());
    return visible;
}

// Demotion: while the view moves, surfaces are drawn as wireframes.

void COpenGLDrawer::SetDemotion(Demotion_e eDemotion)
{
    m_eDemotion = eDemotion;
    UpdateAll();
}

void COpenGLDrawer::ShowDemotion(bool bInteracting)
{
    if (m_eDemotion != DemotionWireframe || !bInteracting) {
        RestoreDemoted();
        return;
    }
    if (std::exchange(m_bDemoted, true))
        return;
    for (IDrawable* const pDrawable : VisibleDrawables()) {
        const DisplayType_e eType = pDrawable->displayType();
        if (!pDrawable->canDemote() || eType == DisplayContour || eType == DisplayNodes ||
            eType == DisplayVector)
            continue;
        m_savedParts.insert(pDrawable, {eType, pDrawable->drawWireframe(), pDrawable->drawShaded(),
                                        pDrawable->drawNodes(), pDrawable->drawOutlines(),
                                        pDrawable->drawContoursFlag(), pDrawable->drawVectorsFlag()});
        if (eType > DisplayWireframe)
            pDrawable->setDisplayTypeQuick(DisplayWireframe);
    }
}

void COpenGLDrawer::RestoreDemoted()
{
    if (!std::exchange(m_bDemoted, false))
        return;
    const QHash<IDrawable*, SShownParts> saved = std::exchange(m_savedParts, {});
    for (IDrawable* const pDrawable : Drawables()) // those that still live
        if (const auto parts = saved.constFind(pDrawable); parts != saved.cend()) {
            pDrawable->setDisplayTypeQuick(parts->eType);
            pDrawable->setDrawWireframe(parts->bWireframe);
            pDrawable->setDrawShaded(parts->bShaded);
            pDrawable->setDrawNodes(parts->bNodes);
            pDrawable->setDrawOutlines(parts->bOutlines);
            pDrawable->setDrawContours(parts->bContours);
            pDrawable->setDrawVectors(parts->bVectors);
        }
}

// What is painted over the scene.

SCanvas COpenGLDrawer::Canvas() const
{
    const QBrush& background = m_capture ? m_capture->background : CPreferences::Instance().Draw().background;
    return {(QSizeF(size()) / RenderScale()).toSize(), RenderScale(), background, !m_capture};
}

QColor COpenGLDrawer::OverlayColor(const QPointF& place) const
{
    return Canvas().TextColor(CPreferences::Instance().Draw().axesColor,
                              QRectF(place / RenderScale(), QSizeF()));
}

void COpenGLDrawer::PaintAnnotations(QPainter& painter)
{
    if (m_capture && !m_capture->parts.bAnnotations)
        return;
    const SCanvas canvas = Canvas();
    PlaceLegends(Drawables(), canvas.size);
    for (const IDrawable* const pDrawable : VisibleDrawables())
        if (CAnnotationColormap* const pLegend = pDrawable->annotationColormap(); pLegend->isVisible())
            pLegend->paint(&painter, canvas);
}

void COpenGLDrawer::PaintOverlays(QPainter& painter, bool bInteracting)
{
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    const double dScale = RenderScale();
    if (m_capture ? m_capture->parts.bAxes : draw.bShowAxes)
        Overlays::PaintAxes(painter, size(), m_camera.FloatView(),
                            OverlayColor(Overlays::AxesOrigin(size(), dScale)), dScale);
    PaintRotationMarker(painter, bInteracting);
    if (m_capture ? m_capture->parts.bScale : !bInteracting && draw.bShowScaling) {
        const SScaleBar bar = MakeScaleBar(size() / dScale, m_camera.Box().Width());
        Overlays::PaintScaleBar(painter, bar, OverlayColor({0.5 * width(), bar.dY * dScale}), dScale);
    }
    if (const QRect band = RubberBand(); !m_capture && !band.isEmpty())
        Overlays::PaintRubberBand(painter, band);
}

bool COpenGLDrawer::ShowsItems()
{
    if (!m_showsItems)
        m_showsItems = !VisibleDrawables().isEmpty();
    return *m_showsItems;
}

void COpenGLDrawer::PaintRotationMarker(QPainter& painter, bool bInteracting)
{
    enum { HIDE, ALWAYS, ON_ROTATION };
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    const bool bJustNow = m_sinceRotation.isValid() && m_sinceRotation.elapsed() < MARKER_MS;
    const bool bShown = draw.nRotationAxisVisibility == ALWAYS ||
                        (draw.nRotationAxisVisibility == ON_ROTATION && (bInteracting || bJustNow));
    if (m_capture || !bShown || !ShowsItems())
        return;
    const QPointF origin = m_camera.ToPixel(m_camera.RotationPoint());
    Overlays::PaintRotationPoint(painter, size(), origin, m_camera.FloatView(), OverlayColor(origin), 1.0);
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
    m_hover.Forget(pSelectable);
    UpdateAll();
}

// The camera.

SViewBounds COpenGLDrawer::BoundsInView(bool bSelectedOnly) const
{
    if (!bSelectedOnly)
        return ViewBounds::OfVisible(m_nViewId, m_camera.View());
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulationOfView(m_nViewId);
    return pSimulation ? ViewBounds::OfSelected(m_nViewId, pSimulation->GetId(), m_camera.View())
                       : SViewBounds();
}

void COpenGLDrawer::ZoomToFit()
{
    m_camera.ZoomToBounds(BoundsInView(false));
    emit SignalCameraChange(CameraZoomFit, {});
    UpdateCamera();
}

void COpenGLDrawer::ZoomToSelection()
{
    m_camera.ZoomToBounds(BoundsInView(true));
    emit SignalCameraChange(CameraZoomSelection, {});
    UpdateCamera();
}

void COpenGLDrawer::ResetView()
{
    m_camera.ResetView();
    Move(CameraMoves::SetView(m_camera.FloatView()));
    ZoomToFit();
}

void COpenGLDrawer::LookAlong(int nAxis, bool bPositive)
{
    m_camera.LookAlong(nAxis, bPositive);
    Move(CameraMoves::SetView(m_camera.FloatView()));
    ZoomToFit();
}

void COpenGLDrawer::QuarterTurn(bool bPositive)
{
    Move(CameraMoves::RotateRow(2, bPositive ? 90.0 : -90.0, m_camera.RotationPoint()));
}
