#pragma once

#include "frame/vector3d.h"

#include <QMatrix4x4>
#include <QPointF>
#include <QRect>
#include <QSizeF>

/** The camera of a view, as it is handed to another view and stored. Orthographic. */
struct SCamera
{
    QMatrix4x4 projection;
    QMatrix4x4 view;
    QRect rect;                         ///< the widget when the camera was taken [pixels]
    QPointF viewCenter;                 ///< middle of the visible rectangle [world units]
    QSizeF viewSize = QSizeF(4.0, 4.0); ///< its width and height [world units]
    DVector3D rotationPoint;            ///< centre of all rotations

    friend bool operator==(const SCamera&, const SCamera&) = default;
};
