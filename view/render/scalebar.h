#pragma once

#include <QPointF>
#include <QSize>
#include <QString>
#include <QVector>

/** The bar that tells the scale of a view [pixels from the upper left corner]. */
struct SScaleBar
{
    struct SMark
    {
        double dX = 0.0;
        QString sLabel; ///< distance from the first mark [world units]
    };

    double dY = 0.0;      ///< of the bar; it runs from the first mark to the last
    double dLabelY = 0.0; ///< of the labels' base line
    QVector<SMark> marks; ///< in order from the left; empty: nothing to draw

    static constexpr double TICK = 2.0; ///< reach of a mark above and below the bar
};

/** Marks at one-digit distances, as many as half the view's width holds; none if that is zero. */
SScaleBar MakeScaleBar(const QSize& viewport, double dBoxWidth);
