#pragma once

#include "frame/transform.h"

#include <QPointF>
#include <QSize>

#include <array>

/** The three axes as they are drawn over a view [pixels from the upper left corner], X, Y and Z in order. */
struct SAxesTriad
{
    struct SAxis
    {
        QPointF tip;
        QPointF label; ///< where its letter stands
    };

    QPointF origin;
    std::array<SAxis, 3> axes;
};

/** Length of an axis that lies in the screen: a fifteenth of the smaller side, whole pixels. */
int AxesLength(const QSize& viewport);

/** The axes round a point of the screen, turned as the view is. */
SAxesTriad MakeAxes(const QPointF& origin, const QSize& viewport, const DMatrix4x4& view);

/** Those in the lower left corner. @param dScale  pixels of the picture for one of the screen */
SAxesTriad MakeCornerAxes(const QSize& viewport, const DMatrix4x4& view, double dScale);
