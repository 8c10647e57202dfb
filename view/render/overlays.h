#pragma once

#include <QMatrix4x4>
#include <QPointF>
#include <QRect>
#include <QSize>

class QColor;
class QPainter;
struct SScaleBar;

/** What is painted over the scene of a view. Sizes in logical pixels, y downwards; dScale is that of a
 * capture. */
namespace Overlays {

/** Where the axes at the lower left start. */
QPointF AxesOrigin(const QSize& size, double dScale);

/** The directions of the axes there. */
void PaintAxes(QPainter& painter, const QSize& size, const QMatrix4x4& view, const QColor& color,
               double dScale);

/** The same with a dot, at the point that rotations turn about. @param origin  its place in the view */
void PaintRotationPoint(QPainter& painter, const QSize& size, const QPointF& origin, const QMatrix4x4& view,
                        const QColor& color, double dScale);

/** @param bar  of the view without the scale, see MakeScaleBar */
void PaintScaleBar(QPainter& painter, const SScaleBar& bar, const QColor& color, double dScale);

void PaintRubberBand(QPainter& painter, const QRect& rectangle);

} // namespace Overlays
