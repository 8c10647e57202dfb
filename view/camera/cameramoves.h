#pragma once

#include "frame/accelerators.h"
#include "view/camera/cameraoperator.h"

#include <QPointF>

#include <optional>

/** One step of a motion: COrthoCamera::Apply does it, and linked views get the same record. */
struct SCameraMove
{
    CameraOperator_e eOperator;
    SCameraOperator values;
};

/**
 * The steps that mouse and keyboard ask for. A drag is the way of the pointer since the press, divided by the
 * widget's width and height, y downwards; a held button or key takes the step at every tick, so that motion
 * gets faster with the distance from the press.
 */
namespace CameraMoves {

SCameraMove Pan(const QPointF& drag);

/**
 * What is shown moves by 0.02 times the sensitivity of the keyboard of its size. The record holds that in
 * terms of the mouse's sensitivity, which every receiver applies.
 *
 * @param nRight, nDown  -1, 0 or 1
 * @param dMouseSensitivity  above 0; without one nothing moves
 */
SCameraMove PanByKey(int nRight, int nDown, double dKeyboardSensitivity, double dMouseSensitivity);

/** About the axis in the screen across the drag; nothing for a drag below 1e-5. */
std::optional<SCameraMove> Rotate(const QPointF& drag, double dMouseSensitivity,
                                  const DVector3D& rotationPoint);
/** @param nLeft, nUp  -1, 0 or 1 */
SCameraMove RotateByKey(int nLeft, int nUp, double dKeyboardSensitivity, const DVector3D& rotationPoint);

/** About the line of sight, by the horizontal part of the drag; nothing below 1e-5. */
std::optional<SCameraMove> RotateAroundScreen(const QPointF& drag, double dMouseSensitivity);

/** By a fixed angle [degrees] about the view's right, up or forward direction (0, 1, 2). */
SCameraMove RotateRow(int nRow, double dAngle, const DVector3D& rotationPoint);

/**
 * @param nDirection  1 zooms in, -1 out
 * @param nZoomSensitivity  thousandths of the box to take off on either side
 * @param pCentre  what stays in place [view coordinates]; null: the middle of the view
 */
SCameraMove Zoom(int nDirection, qint64 nZoomSensitivity, const QPointF* pCentre = nullptr);

/** The step of an action that goes on while it is held; nothing for any other action. */
std::optional<SCameraMove> Held(MouseAction_e eAction, const QPointF& drag, const DVector3D& rotationPoint);

SCameraMove ZoomBox(const QRect& pixels);
SCameraMove SetView(const QMatrix4x4& view);

} // namespace CameraMoves
