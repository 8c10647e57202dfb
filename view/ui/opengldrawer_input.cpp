// COpenGLDrawer: mouse and keyboard, and the timer that moves the camera while they are held.
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "frame/ui/waitcursor.h"
#include "frame/userprompt.h"
#include "frame/widgetmanager.h"
#include "scene/idrawable.h"
#include "simulation/isimulation.h"
#include "simulation/undostep.h"
#include "view/statustext.h"
#include "view/ui/opengldrawer.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>

namespace {

constexpr int TICK_AT_REST_MS = 100;
constexpr int TICK_HELD_MS = 10;
constexpr int SETTLE_MS = 200;        // after the last turn of the wheel
constexpr int WHEEL_SETTLED_MS = 350; // one frame after demotion has ended

const SDrawPreferences& Draw() { return CPreferences::Instance().Draw(); }

} // namespace

template <class Call> bool COpenGLDrawer::AnyTool(const Call& call)
{
    return std::any_of(std::begin(m_tools), std::end(m_tools), [&](IViewTool* p) { return call(*p); });
}

void COpenGLDrawer::CancelTools()
{
    for (IViewTool* const pTool : m_tools)
        pTool->Cancel();
}

void COpenGLDrawer::Move(const SCameraMove& move)
{
    m_state.camera.Apply(move.eOperator, move.values, Draw().dMouseSensitivity);
    if (move.eOperator == CameraRotate || move.eOperator == CameraRotateRow ||
        move.eOperator == CameraRotateAxis)
        m_sinceRotation.start();
    emit SignalCameraChange(move.eOperator, move.values);
    UpdateCamera();
}

std::shared_ptr<void> COpenGLDrawer::Wait() const { return std::make_shared<CWaitCursor>(); }

void COpenGLDrawer::TellPoint(const SPointPick& pick)
{
    emit SignalPointSelected(pick.point, pick.pDrawable->ownerSelectables().value(0));
}

void COpenGLDrawer::StartTimer()
{
    const SInputState& held = m_state.input.State();
    m_timer.setInterval(held.buttons || !held.keys.isEmpty() ? TICK_HELD_MS : TICK_AT_REST_MS);
}

// The tick: what is held moves the camera, faster the further it was dragged.

void COpenGLDrawer::SlotTimerUpdate()
{
    if (!m_bInside)
        m_hoverTool.Leave();
    if (m_sinceWheel.isValid() && m_sinceWheel.elapsed() >= SETTLE_MS &&
        m_sinceWheel.elapsed() < WHEEL_SETTLED_MS)
        UpdateAll();
    StartTimer();
    const SPointerEvent held = m_state.Held();
    if ((!held.buttons && held.state.keys.isEmpty()) || m_state.eMode == MouseZoomBox)
        return;
    const QPointF drag(double(held.state.drag.x()) / width(), double(held.state.drag.y()) / height());
    if (const auto move = CameraMoves::Held(held.eAction, drag, m_state.camera.RotationPoint()))
        Move(*move);
}

void COpenGLDrawer::ZoomStep(int nDirection, bool bAtCursor)
{
    const SPickPoint centre = m_state.camera.ToWorld(m_state.cursor);
    const QPointF point(centre.x, centre.y);
    Move(CameraMoves::Zoom(nDirection, Draw().nZoomSensitivity, bAtCursor ? &point : nullptr));
}

void COpenGLDrawer::SlotCameraChange(CameraOperator_e eOperator, SCameraOperator camera)
{
    switch (m_state.camera.Apply(eOperator, camera, Draw().dMouseSensitivity)) {
    case FollowZoomFit:
        m_state.camera.ZoomToBounds(BoundsInView(false));
        break;
    case FollowZoomSelection:
        m_state.camera.ZoomToBounds(BoundsInView(true));
        break;
    default:
        break;
    }
    UpdateCamera();
}

void COpenGLDrawer::SlotMode(OglMouseMode_e eMode)
{
    setCursor(eMode == MouseNormal ? QCursor(QPixmap(":/Icons/arrow.png"), 4, 2) : QCursor(Qt::CrossCursor));
    if (std::exchange(m_state.eMode, eMode) != eMode)
        emit SignalMode(eMode);
}

// The mouse.

SPointerEvent COpenGLDrawer::EventOf(const QMouseEvent& event) const
{
    SPointerEvent pointer = m_state.Held();
    pointer.position = event.pos();
    pointer.eButton = event.button();
    pointer.buttons = event.buttons();
    return pointer;
}

void COpenGLDrawer::mousePressEvent(QMouseEvent* pEvent)
{
    emit SignalActivated();
    m_state.cursor = pEvent->pos();
    m_state.input.SetModifiers(pEvent->modifiers());
    m_state.input.PressButton(pEvent->button(), pEvent->pos());
    const SPointerEvent event = EventOf(*pEvent);
    if (AnyTool([&](IViewTool& tool) { return tool.Press(event); }))
        m_state.input.Clear();
    StartTimer();
}

void COpenGLDrawer::mouseMoveEvent(QMouseEvent* pEvent)
{
    m_bInside = rect().contains(pEvent->pos());
    m_state.cursor = pEvent->pos();
    m_state.input.SetModifiers(pEvent->modifiers());
    m_state.input.MovePointer(pEvent->pos());
    const SPointerEvent event = EventOf(*pEvent);
    AnyTool([&](IViewTool& tool) { return tool.Move(event); });
}

void COpenGLDrawer::mouseReleaseEvent(QMouseEvent* pEvent)
{
    m_state.input.SetModifiers(pEvent->modifiers());
    m_state.input.MovePointer(pEvent->pos());
    SPointerEvent event = EventOf(*pEvent);
    event.state = m_state.input.ReleaseButton(pEvent->button());
    event.eAction = FindAction(Get(CPreferences::Instance(), PreferenceKey::KEY_PRESET), event.state);
    StartTimer();
    if (!AnyTool([&](IViewTool& tool) { return tool.Release(event); }) && !event.state.bDragged)
        ClickAction(event.eAction);
    UpdateAll(); // without demotion, without the band
}

void COpenGLDrawer::ClickAction(MouseAction_e eAction)
{
    if (eAction == MousePopupMenu)
        emit SignalPopupMenu();
    else if (eAction == MouseZoomToFit)
        ZoomToFit();
    else if (eAction == MouseChangeAxis)
        FocusRotation(false);
}

void COpenGLDrawer::mouseDoubleClickEvent(QMouseEvent* pEvent)
{
    const SPointerEvent event = EventOf(*pEvent);
    AnyTool([&](IViewTool& tool) { return tool.DoubleClick(event); });
}

void COpenGLDrawer::wheelEvent(QWheelEvent* pEvent)
{
    m_state.cursor = pEvent->position().toPoint();
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
    for (IViewTool* const pTool : m_tools)
        pTool->Leave();
    m_pointer.ForgetTold(); // a picked point needs nothing hovered
}

void COpenGLDrawer::focusOutEvent(QFocusEvent* pEvent)
{
    QOpenGLWidget::focusOutEvent(pEvent);
    m_state.input.Clear(); // what goes up elsewhere isn't seen here
    CancelTools();
    UpdateAll();
}

// The keyboard.

void COpenGLDrawer::keyPressEvent(QKeyEvent* pEvent)
{
    m_state.input.SetModifiers(pEvent->modifiers());
    if (pEvent->key() == Qt::Key_Escape) {
        m_state.input.Clear();
        CancelTools();
        LeaveMode();
        UpdateAll();
        return;
    }
    if (pEvent->matches(QKeySequence::Copy)) {
        if (const SPickedPoint& point = m_pointer.Picked().point; point.bHasPoint)
            QGuiApplication::clipboard()->setText(StatusText::ToCopy(point));
        return;
    }
    const bool bRepeat = pEvent->isAutoRepeat();
    m_state.input.PressKey(pEvent->key(), pEvent->nativeScanCode());
    StartTimer();
    if (!bRepeat && !PlainKey(*pEvent) && !KeyAction(m_state.Held().eAction))
        QOpenGLWidget::keyPressEvent(pEvent);
}

void COpenGLDrawer::keyReleaseEvent(QKeyEvent* pEvent)
{
    m_state.input.SetModifiers(pEvent->modifiers());
    if (!pEvent->isAutoRepeat())
        m_state.input.ReleaseKey(pEvent->key(), pEvent->nativeScanCode());
    const MouseAction_e eAction = m_state.Held().eAction;
    AnyTool([&](IViewTool& tool) { return tool.Key(eAction, false); });
    StartTimer();
    UpdateAll();
}

/** Keys with a meaning of their own when they are pressed alone. */
bool COpenGLDrawer::PlainKey(const QKeyEvent& event)
{
    if (m_state.input.State().keys.size() != 1 || event.modifiers() & ~Qt::KeypadModifier)
        return false;
    ISimulation* const pSimulation = CWidgetManager::Instance().GetActiveSimulation();
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (pSimulation && pSimulation->CanActivateSelection(m_state.nViewId))
            pSimulation->ActivateSelection(m_state.nViewId);
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (pSimulation)
            DeleteSelectionInOneStep(*pSimulation, m_state.nViewId);
        return true;
    case Qt::Key_Period:
        FocusRotation(true);
        return true;
    default:
        return false;
    }
}

bool COpenGLDrawer::KeyAction(MouseAction_e eAction)
{
    if (AnyTool([&](IViewTool& tool) { return tool.Key(eAction, true); }))
        return true;
    switch (eAction) {
    case MouseNone:
        return false;
    case MouseZoomToSelection:
        ZoomToSelection();
        break;
    case MouseFocusRotation:
        FocusRotation(true);
        break;
    case MouseRotateScreenX:
    case MouseRotateScreenY:
    case MouseRotateScreenZ:
        RotateScreen(eAction - MouseRotateScreenX);
        break;
    case MouseZoomToFit:
    case MouseChangeAxis:
        ClickAction(eAction);
        break;
    default:
        break; // one that the timer does while the key is held
    }
    return true;
}

void COpenGLDrawer::RotateScreen(int nRow)
{
    constexpr double STEP = 45.0, SMALL_STEP = 5.0;
    const SInputState& state = m_state.input.State();
    double dAngle = state.modifiers & Qt::ControlModifier ? SMALL_STEP : STEP;
    if (state.keys.contains(Qt::Key_PageUp)) {
        const auto answer =
            UserPrompt::AskNumber({"Custom Rotation", "Angle [deg]", dAngle, -360.0, 360.0, 5});
        m_state.input.Clear(); // the keys went up in the dialog
        if (!answer)
            return;
        dAngle = *answer;
    } else if (state.keys.contains(Qt::Key_PageDown)) {
        dAngle = -dAngle;
    }
    Move(CameraMoves::RotateRow(nRow, dAngle, m_state.camera.RotationPoint()));
}

// The point that rotations turn about.

void COpenGLDrawer::TurnAbout(const DVector3D& point)
{
    m_state.camera.SetRotationPoint(point);
    m_sinceRotation.start();
    UpdateCamera();
}

/** @param bElseBounds  with nothing under the pointer the middle of what is selected, or of all */
void COpenGLDrawer::FocusRotation(bool bElseBounds)
{
    if (const SPointPick& pick = m_pointer.Pick(); pick.point.bHasPoint) {
        m_pointer.Tell(StatusText::OfPoint(pick.point.sItemName, pick.point));
        TurnAbout(pick.displayed);
        return;
    }
    for (const bool bSelectedOnly : {true, false}) {
        const SViewBounds bounds = BoundsInView(bSelectedOnly);
        if (!bElseBounds || bounds.IsEmpty())
            continue;
        const DVector3D centre = bounds.Centre();
        const QVector3D world = m_state.camera.FloatView().inverted() *
                                QVector3D(float(centre.x), float(centre.y), float(centre.z));
        TurnAbout({world.x(), world.y(), world.z()});
        return;
    }
}
