#include "frame/ui/colorswatch.h"

#include <QPainter>
#include <QPainterPath>

void PaintColorSwatch(QPainter& painter, const QRect& rect, const QColor& color)
{
    painter.fillRect(rect, color.isValid() ? color : QColor(Qt::white));
    if (color.isValid())
        return;
    QPainterPath half;
    half.addPolygon(QPolygon({rect.topLeft(), QPoint(rect.right() + 1, rect.top()),
                              QPoint(rect.left(), rect.bottom() + 1), rect.topLeft()}));
    painter.fillPath(half, Qt::black);
}
