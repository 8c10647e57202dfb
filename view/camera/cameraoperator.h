#pragma once

#include "frame/novalue.h"
#include "frame/vector3d.h"

#include <QMatrix4x4>
#include <QMetaType>
#include <QRect>

/** One change of a camera, passed between linked views as this and the record below. */
enum CameraOperator_e {
    CameraSetView = 1,
    CameraPan = 2,
    CameraRotate = 3,
    CameraRotateRow = 4,
    CameraZoom = 5,
    CameraZoomFit = 6,
    CameraZoomSelection = 7,
    CameraZoomBox = 8,
    CameraRotateAxis = 9,
};

/** What the mouse does in the views. */
enum OglMouseMode_e { MouseNormal = 0, MousePointPick = 1, MouseZoomBox = 4 };

/** The values of one CameraOperator_e; which of them count depends on it. */
struct SCameraOperator
{
    QMatrix4x4 view;
    double dX = 0.0;           ///< drag distance divided by the widget's width
    double dY = 0.0;           ///< and by its height
    double dScreenAngle = 0.0; ///< [degrees]
    DVector3D rotationPoint;
    int nRow = 0;        ///< row of the view matrix to turn about
    double dAngle = 0.0; ///< [degrees]
    int nAxis = 0;       ///< row of the view matrix for CameraRotateAxis
    double dZoomStep = 0.0;
    double dZoomX = NO_VALUE; ///< centre of a zoom in world units; NO_VALUE: the middle of the view
    double dZoomY = NO_VALUE;
    QRect box; ///< [pixels]
};

Q_DECLARE_METATYPE(CameraOperator_e)
Q_DECLARE_METATYPE(OglMouseMode_e)
Q_DECLARE_METATYPE(SCameraOperator)
