#include "view/camera/cameramoves.h"

#include "frame/preferences/preferences.h"

#include <cmath>

namespace {

constexpr double LEAST_DRAG = 1e-5; // of the widget's size
constexpr double KEY_STEP = 0.2;    // a key held acts as a drag of that size
constexpr double DEGREES_A_TICK = 100.0;
constexpr double ZOOM_UNIT = 0.001;

SCameraMove Turn(double dX, double dY, double dSensitivity, const DVector3D& rotationPoint)
{
    SCameraMove move{CameraRotate, {}};
    move.values.dX = dX;
    move.values.dY = dY;
    move.values.dScreenAngle = (dX * dX + dY * dY) * dSensitivity * DEGREES_A_TICK;
    move.values.rotationPoint = rotationPoint;
    return move;
}

} // namespace

SCameraMove CameraMoves::Pan(const QPointF& drag)
{
    SCameraMove move{CameraPan, {}};
    move.values.dX = drag.x();
    move.values.dY = drag.y();
    return move;
}

SCameraMove CameraMoves::PanByKey(int nRight, int nDown, double dKeyboardSensitivity,
                                  double dMouseSensitivity)
{
    const double dStep = dMouseSensitivity > 0.0 ? KEY_STEP * dKeyboardSensitivity / dMouseSensitivity : 0.0;
    return Pan({nRight * dStep, nDown * dStep});
}

std::optional<SCameraMove> CameraMoves::Rotate(const QPointF& drag, double dMouseSensitivity,
                                               const DVector3D& rotationPoint)
{
    if (std::abs(drag.x()) + std::abs(drag.y()) < LEAST_DRAG)
        return {};
    return Turn(drag.x(), drag.y(), dMouseSensitivity, rotationPoint);
}

SCameraMove CameraMoves::RotateByKey(int nLeft, int nUp, double dKeyboardSensitivity,
                                     const DVector3D& rotationPoint)
{
    return Turn(nLeft * KEY_STEP, nUp * KEY_STEP, dKeyboardSensitivity, rotationPoint);
}

std::optional<SCameraMove> CameraMoves::RotateAroundScreen(const QPointF& drag, double dMouseSensitivity)
{
    if (std::abs(drag.x()) < LEAST_DRAG)
        return {};
    SCameraMove move{CameraRotateAxis, {}};
    move.values.nAxis = 2;
    move.values.dAngle = drag.x() * std::abs(drag.x()) * dMouseSensitivity * DEGREES_A_TICK;
    return move;
}

SCameraMove CameraMoves::RotateRow(int nRow, double dAngle, const DVector3D& rotationPoint)
{
    SCameraMove move{CameraRotateRow, {}};
    move.values.nRow = nRow;
    move.values.dScreenAngle = dAngle;
    move.values.rotationPoint = rotationPoint;
    return move;
}

SCameraMove CameraMoves::Zoom(int nDirection, qint64 nZoomSensitivity, const QPointF* pCentre)
{
    SCameraMove move{CameraZoom, {}};
    move.values.dZoomStep = nDirection * double(nZoomSensitivity) * ZOOM_UNIT;
    if (pCentre) {
        move.values.dZoomX = pCentre->x();
        move.values.dZoomY = pCentre->y();
    }
    return move;
}

SCameraMove CameraMoves::ZoomBox(const QRect& pixels)
{
    SCameraMove move{CameraZoomBox, {}};
    move.values.box = pixels;
    return move;
}

SCameraMove CameraMoves::SetView(const QMatrix4x4& view)
{
    SCameraMove move{CameraSetView, {}};
    move.values.view = view;
    return move;
}

std::optional<SCameraMove> CameraMoves::Held(MouseAction_e eAction, const QPointF& drag,
                                             const DVector3D& point)
{
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    const double dMouse = draw.dMouseSensitivity;
    const double dKeyboard = draw.dKeyboardSensitivity;
    switch (eAction) {
    case MousePanning:
        return Pan(drag);
    case MousePanningLeft:
        return PanByKey(-1, 0, dKeyboard, dMouse);
    case MousePanningRight:
        return PanByKey(1, 0, dKeyboard, dMouse);
    case MousePanningUp:
        return PanByKey(0, -1, dKeyboard, dMouse);
    case MousePanningDown:
        return PanByKey(0, 1, dKeyboard, dMouse);
    case MouseRotate:
        return Rotate(drag, dMouse, point);
    case MouseRotateLeft:
        return RotateByKey(1, 0, dKeyboard, point);
    case MouseRotateRight:
        return RotateByKey(-1, 0, dKeyboard, point);
    case MouseRotateUp:
        return RotateByKey(0, 1, dKeyboard, point);
    case MouseRotateDown:
        return RotateByKey(0, -1, dKeyboard, point);
    case MouseRotateAroundScreen:
        return RotateAroundScreen(drag, dMouse);
    case MouseZoomIn:
        return Zoom(1, draw.nZoomSensitivity);
    case MouseZoomOut:
        return Zoom(-1, draw.nZoomSensitivity);
    default:
        return {};
    }
}
