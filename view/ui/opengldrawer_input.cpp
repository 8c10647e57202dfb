// COpenGLDrawer: mouse, keyboard and the timer that moves the camera while they are held.
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "scene/idrawable.h"
#include "scene/iselectable.h"
#include "simulation/isimulation.h"
#include "view/annotations/annotationcolormap.h"
#include "view/ui/opengldrawer.h"

#include <QMouseEvent>

namespace {

constexpr int TICK_AT_REST_MS = 100;
constexpr int TICK_HELD_MS = 10;
constexpr int WHEEL_SETTLED_MS = 350; // one frame after demotion has ended

const SDrawPreferences& Draw() { return CPreferences::Instance().Draw(); }

qint64 Preset() { return Get(CPreferences::Instance(), PreferenceKey::KEY_PRESET); }

} // namespace

MouseAction_e COpenGLDrawer::CurrentAction() const { return FindAction(Preset(), m_input.State()); }

void COpenGLDrawer::Move(const SCameraMove& move)
{
    m_camera.Apply(move.eOperator, move.values, Draw().dMouseSensitivity);
    if (move.eOperator == CameraRotate || move.eOperator == CameraRotateRow ||
        move.eOperator == CameraRotateAxis)
        m_sinceRotation.start();
    emit SignalCameraChange(move.eOperator, move.values);
    UpdateCamera();
}

void COpenGLDrawer::StartTimer()
{
    const bool bHeld = m_input.State().buttons || !m_input.State().keys.isEmpty();
    m_timer.setInterval(bHeld ? TICK_HELD_MS : TICK_AT_REST_MS);
}

QRect COpenGLDrawer::RubberBand() const
{
    const SInputState& state = m_input.State();
    const MouseAction_e eAction = CurrentAction();
    const bool bBand = (m_eMode == MouseZoomBox && state.buttons & Qt::LeftButton) ||
                       eAction == MouseZoomBox1 || eAction == MouseZoomBox2 || eAction == MouseSelectInBox ||
                       eAction == MouseSelectOnBox;
    return bBand && state.bDragged ? QRect(m_cursor - state.drag, m_cursor).normalized() : QRect();
}

// The tick: what is held moves the camera, faster the further it was dragged.

void COpenGLDrawer::SlotTimerUpdate()
{
    if (!m_bInside)
        ClearHover();
    if (m_sinceWheel.isValid() && m_sinceWheel.elapsed() >= 200 && m_sinceWheel.elapsed() < WHEEL_SETTLED_MS)
        UpdateAll();
    StartTimer();
    const bool bHeld = m_input.State().buttons || !m_input.State().keys.isEmpty();
    if (!bHeld || m_eMode == MouseZoomBox)
        return;
    if (const auto move = TickMove(CurrentAction()))
        Move(*move);
}

std::optional<SCameraMove> COpenGLDrawer::TickMove(MouseAction_e eAction) const
{
    const QPoint way = m_input.State().drag;
    const QPointF drag(double(way.x()) / width(), double(way.y()) / height());
    const double dMouse = Draw().dMouseSensitivity;
    const double dKeyboard = Draw().dKeyboardSensitivity;
    const DVector3D& point = m_camera.RotationPoint();
    switch (eAction) {
    case MousePanning:
        return CameraMoves::Pan(drag);
    case MousePanningLeft:
        return CameraMoves::PanByKey(-1, 0, dKeyboard, dMouse);
    case MousePanningRight:
        return CameraMoves::PanByKey(1, 0, dKeyboard, dMouse);
    case MousePanningUp:
        return CameraMoves::PanByKey(0, -1, dKeyboard, dMouse);
    case MousePanningDown:
        return CameraMoves::PanByKey(0, 1, dKeyboard, dMouse);
    case MouseRotate:
        return CameraMoves::Rotate(drag, dMouse, point);
    case MouseRotateLeft:
        return CameraMoves::RotateByKey(1, 0, dKeyboard, point);
    case MouseRotateRight:
        return CameraMoves::RotateByKey(-1, 0, dKeyboard, point);
    case MouseRotateUp:
        return CameraMoves::RotateByKey(0, 1, dKeyboard, point);
    case MouseRotateDown:
        return CameraMoves::RotateByKey(0, -1, dKeyboard, point);
    case MouseRotateAroundScreen:
        return CameraMoves::RotateAroundScreen(drag, dMouse);
    case MouseZoomIn:
        return CameraMoves::Zoom(1, Draw().nZoomSensitivity);
    case MouseZoomOut:
        return CameraMoves::Zoom(-1, Draw().nZoomSensitivity);
    default:
        return {};
    }
}

void COpenGLDrawer::ZoomStep(int nDirection, bool bAtCursor)
{
    const SPickPoint centre = m_camera.ToWorld(m_cursor);
    const QPointF point(centre.x, centre.y);
    Move(CameraMoves::Zoom(nDirection, Draw().nZoomSensitivity, bAtCursor ? &point : nullptr));
}

/** Leaves the mode of the zoom box once one was drawn that can be zoomed to. */
void COpenGLDrawer::ZoomToBand(const QRect& band)
{
    COrthoCamera zoomed = m_camera;
    if (!zoomed.ZoomBox(band))
        return;
    Move(CameraMoves::ZoomBox(band));
    if (m_eMode == MouseZoomBox)
        SlotMode(MouseNormal);
}

void COpenGLDrawer::SlotCameraChange(CameraOperator_e eOperator, SCameraOperator camera)
{
    switch (m_camera.Apply(eOperator, camera, Draw().dMouseSensitivity)) {
    case FollowZoomFit:
        m_camera.ZoomToBounds(BoundsInView(false));
        break;
    case FollowZoomSelection:
        m_camera.ZoomToBounds(BoundsInView(true));
        break;
    default:
        break;
    }
    UpdateCamera();
}

void COpenGLDrawer::SlotMode(OglMouseMode_e eMode)
{
    setCursor(eMode == MouseNormal ? QCursor(QPixmap(":/Icons/arrow.png"), 4, 2) : QCursor(Qt::CrossCursor));
    if (std::exchange(m_eMode, eMode) != eMode)
        emit SignalMode(eMode);
}

// The mouse.

CAnnotation* COpenGLDrawer::AnnotationAt(const QPoint& position) const
{
    for (const IDrawable* const pDrawable : VisibleDrawables())
        if (CAnnotation* const pLegend = pDrawable->annotationColormap(); pLegend->hitTest(position))
            return pLegend;
    return nullptr;
}

bool COpenGLDrawer::IsShown(const CAnnotation* pAnnotation) const
{
    const QVector<IDrawable*> visible = VisibleDrawables();
    return std::any_of(visible.begin(), visible.end(), [pAnnotation](const IDrawable* pDrawable) {
        return pDrawable->annotationColormap() == pAnnotation;
    });
}

/** Frames the annotation that a press would take hold of. */
void COpenGLDrawer::ShowHot(const CAnnotation* pHot)
{
    for (const IDrawable* const pDrawable : VisibleDrawables()) {
        CAnnotation* const pLegend = pDrawable->annotationColormap();
        if (pLegend->isHot() == (pLegend == pHot))
            continue;
        pLegend->setHot(pLegend == pHot);
        UpdateCamera();
    }
}

void COpenGLDrawer::mousePressEvent(QMouseEvent* pEvent)
{
    emit SignalActivated();
    if (ISelectable* const pTarget = EventTarget(); pTarget && pTarget->handleMousePress(pEvent))
        return;
    m_cursor = pEvent->pos();
    m_input.SetModifiers(pEvent->modifiers());
    m_input.PressButton(pEvent->button(), pEvent->pos());
    m_pDragged = pEvent->button() == Qt::LeftButton ? AnnotationAt(pEvent->pos()) : nullptr;
    if (m_pDragged) {
        m_dragGrip = pEvent->pos() - m_pDragged->shownPosition();
        m_input.Clear();
    }
    StartTimer();
}

void COpenGLDrawer::mouseMoveEvent(QMouseEvent* pEvent)
{
    if (ISelectable* const pTarget = EventTarget(); pTarget && pTarget->handleMouseMove(pEvent))
        return;
    m_bInside = rect().contains(pEvent->pos());
    m_cursor = pEvent->pos();
    m_input.SetModifiers(pEvent->modifiers());
    m_input.MovePointer(pEvent->pos());
    if (m_pDragged && !IsShown(m_pDragged))
        m_pDragged = nullptr; // it went with its item
    if (m_pDragged) {
        m_pDragged->setPosition(m_pDragged->inside(pEvent->pos() - m_dragGrip, size()));
        UpdateCamera();
        return;
    }
    if (!RubberBand().isEmpty())
        UpdateCamera();
    if (!pEvent->buttons())
        ShowHot(AnnotationAt(pEvent->pos()));
    const MouseAction_e eAction = CurrentAction();
    if (m_eMode == MousePointPick || eAction == MousePointInformation || eAction == MouseMeasureDistance)
        PickPoint();
    else if (m_bActive && m_eMode == MouseNormal && !pEvent->buttons() && eAction == MouseNone)
        Hover();
}

void COpenGLDrawer::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (ISelectable* const pTarget = EventTarget(); pTarget && pTarget->handleMouseRelease(pEvent))
        return;
    if (std::exchange(m_pDragged, nullptr)) {
        m_input.Clear();
        return;
    }
    m_input.SetModifiers(pEvent->modifiers());
    m_input.MovePointer(pEvent->pos());
    const QRect band = RubberBand();
    const SInputState state = m_input.ReleaseButton(pEvent->button());
    StartTimer();
    if (m_eMode == MouseZoomBox && pEvent->button() == Qt::LeftButton) {
        ZoomToBand(band);
        UpdateAll();
        return;
    }
    const MouseAction_e eAction = FindAction(Preset(), state);
    if (state.bDragged)
        BoxAction(eAction, band, state.modifiers);
    else
        ClickAction(eAction, state.modifiers);
    UpdateAll(); // without demotion, without the band
}

void COpenGLDrawer::ClickAction(MouseAction_e eAction, Qt::KeyboardModifiers modifiers)
{
    switch (eAction) {
    case MouseSelect:
        if (m_eMode == MousePointPick)
            emit SignalPointSelected(m_picked.point.xyz, m_picked.point.ijk);
        else
            SelectClicked(modifiers & Qt::ControlModifier);
        return;
    case MousePopupMenu:
        emit SignalPopupMenu();
        return;
    case MouseZoomToFit:
        return ZoomToFit();
    case MouseChangeAxis:
        return ChangeAxis();
    case MouseMeasureDistance:
        return MeasurePress();
    default:
        return;
    }
}

void COpenGLDrawer::BoxAction(MouseAction_e eAction, const QRect& band, Qt::KeyboardModifiers modifiers)
{
    if (eAction == MouseZoomBox1 || eAction == MouseZoomBox2)
        ZoomToBand(band);
    else if (eAction == MouseSelectOnBox || eAction == MouseSelectInBox)
        SelectInRectangle(band, eAction == MouseSelectInBox, modifiers & Qt::ControlModifier);
}

void COpenGLDrawer::mouseDoubleClickEvent(QMouseEvent* pEvent)
{
    if (ISelectable* const pTarget = EventTarget(); pTarget && pTarget->handleMouseDoubleClick(pEvent))
        return;
    if (CAnnotation* const pAnnotation = AnnotationAt(pEvent->pos())) {
        pAnnotation->doubleClicked();
        UpdateAll();
        return;
    }
    if (pEvent->button() == Qt::LeftButton && m_hover.Current())
        NotifyDoubleClicked(m_hover.Current());
}

void COpenGLDrawer::wheelEvent(QWheelEvent* pEvent)
{
    if (ISelectable* const pTarget = EventTarget(); pTarget && pTarget->handleWheel(pEvent))
        return;
    m_cursor = pEvent->position().toPoint();
    if (pEvent->angleDelta().y() == 0)
        return;
    const int nDirection = pEvent->angleDelta().y() > 0 ? 1 : -1;
    m_sinceWheel.start();
    ZoomStep(Draw().bFlipZoomDirection ? -nDirection : nDirection, Draw().bZoomOnMouse);
}

void COpenGLDrawer::leaveEvent(QEvent* pEvent)
{
    QOpenGLWidget::leaveEvent(pEvent);
    m_bInside = false;
    ClearHover();
    CWidgetManager::Instance().ForgetStatusText(m_sTold); // a picked point needs nothing hovered
    ShowHot(nullptr);
}

void COpenGLDrawer::focusOutEvent(QFocusEvent* pEvent)
{
    QOpenGLWidget::focusOutEvent(pEvent);
    m_input.Clear(); // what goes up elsewhere isn't seen here
    HideMeasureLine();
    UpdateAll();
}

// The keyboard.

void COpenGLDrawer::keyPressEvent(QKeyEvent* pEvent)
{
    if (ISelectable* const pTarget = EventTarget(); pTarget && pTarget->handleKeyPress(pEvent))
        return;
    m_input.SetModifiers(pEvent->modifiers());
    if (pEvent->key() == Qt::Key_Escape) {
        m_input.Clear();
        HideMeasureLine();
        SlotMode(MouseNormal);
        UpdateAll();
        return;
    }
    if (pEvent->matches(QKeySequence::Copy)) {
        CopyPickedPoint();
        return;
    }
    const bool bRepeat = pEvent->isAutoRepeat();
    m_input.PressKey(pEvent->key(), pEvent->nativeScanCode());
    StartTimer();
    if (!bRepeat && !PlainKey(*pEvent) && !KeyAction(CurrentAction(), pEvent->modifiers()))
        QOpenGLWidget::keyPressEvent(pEvent);
}

void COpenGLDrawer::keyReleaseEvent(QKeyEvent* pEvent)
{
    if (ISelectable* const pTarget = EventTarget(); pTarget && pTarget->handleKeyRelease(pEvent))
        return;
    m_input.SetModifiers(pEvent->modifiers());
    if (!pEvent->isAutoRepeat())
        m_input.ReleaseKey(pEvent->key(), pEvent->nativeScanCode());
    if (!IsMeasuring())
        HideMeasureLine();
    StartTimer();
    UpdateAll();
}

/** Keys with a meaning of their own when they are pressed alone. */
bool COpenGLDrawer::PlainKey(const QKeyEvent& event)
{
    if (m_input.State().keys.size() != 1 || event.modifiers() & ~Qt::KeypadModifier)
        return false;
    ISimulation* const pSimulation = CWidgetManager::Instance().GetActiveSimulation();
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (pSimulation && pSimulation->CanActivateSelection(m_nViewId))
            pSimulation->ActivateSelection(m_nViewId);
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (pSimulation && pSimulation->CanDelete(m_nViewId)) {
            pSimulation->BeginUndoStep();
            pSimulation->DeleteSelection(m_nViewId);
            pSimulation->EndUndoStep();
        }
        return true;
    case Qt::Key_Period:
        FocusRotation();
        return true;
    default:
        return false;
    }
}

bool COpenGLDrawer::KeyAction(MouseAction_e eAction, Qt::KeyboardModifiers modifiers)
{
    switch (eAction) {
    case MouseNone:
        return false;
    case MouseToggleHover:
        StepHover();
        break;
    case MouseZoomToSelection:
        ZoomToSelection();
        break;
    case MouseFocusRotation:
        FocusRotation();
        break;
    case MouseRotateScreenX:
    case MouseRotateScreenY:
    case MouseRotateScreenZ:
        RotateScreen(eAction - MouseRotateScreenX);
        break;
    case MouseZoomToFit:
    case MouseChangeAxis:
        ClickAction(eAction, modifiers);
        break;
    case MousePointInformation:
        PickPoint();
        break;
    default:
        break; // one that the timer does while the key is held
    }
    return true;
}

void COpenGLDrawer::RotateScreen(int nRow)
{
    constexpr double STEP = 45.0, SMALL_STEP = 5.0;
    const SInputState& state = m_input.State();
    double dAngle = state.modifiers & Qt::ControlModifier ? SMALL_STEP : STEP;
    if (state.keys.contains(Qt::Key_PageUp)) {
        const auto answer =
            UserPrompt::AskNumber({"Custom Rotation", "Angle [deg]", dAngle, -360.0, 360.0, 5});
        m_input.Clear(); // the keys went up in the dialog
        if (!answer)
            return;
        dAngle = *answer;
    } else if (state.keys.contains(Qt::Key_PageDown)) {
        dAngle = -dAngle;
    }
    Move(CameraMoves::RotateRow(nRow, dAngle, m_camera.RotationPoint()));
}

// The point that rotations turn about.

void COpenGLDrawer::TurnAbout(const DVector3D& point)
{
    m_camera.SetRotationPoint(point);
    m_sinceRotation.start();
    UpdateCamera();
}

void COpenGLDrawer::ChangeAxis()
{
    PickPoint();
    if (m_picked.point.bHasPoint)
        TurnAbout(m_picked.displayed);
}

void COpenGLDrawer::FocusRotation()
{
    PickPoint();
    if (m_picked.point.bHasPoint) {
        TurnAbout(m_picked.displayed);
        return;
    }
    for (const bool bSelectedOnly : {true, false}) {
        const SViewBounds bounds = BoundsInView(bSelectedOnly);
        if (bounds.IsEmpty())
            continue;
        const DVector3D centre = bounds.Centre();
        const QVector3D world =
            m_camera.FloatView().inverted() * QVector3D(float(centre.x), float(centre.y), float(centre.z));
        TurnAbout({world.x(), world.y(), world.z()});
        return;
    }
}

ISelectable* COpenGLDrawer::EventTarget() const
{
    ISelectable* const pCurrent = m_hover.Current();
    return pCurrent && pCurrent->isEnabledForEvents() ? pCurrent : nullptr;
}
