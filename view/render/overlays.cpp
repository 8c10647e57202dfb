#include "view/render/overlays.h"

#include "view/annotations/canvas.h"
#include "view/render/scalebar.h"

#include <QPainter>
#include <QVector3D>

namespace {

constexpr const char* AXIS_NAMES[] = {"X", "Y", "Z"};
constexpr double LABEL_DISTANCE = 10.0; // beyond the end of an axis
constexpr double LABEL_BOX = 40.0;

double AxisLength(const QSize& size) { return std::min(size.width(), size.height()) / 15; }

void PaintTriad(QPainter& painter, const QPointF& origin, double dLength, const QMatrix4x4& view,
                double dScale)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const QVector3D column = view.column(nAxis).toVector3D().normalized();
        const QPointF direction(column.x(), -column.y());
        painter.drawLine(origin, origin + dLength * direction);
        const QPointF label = origin + (dLength + LABEL_DISTANCE * dScale) * direction;
        const double dBox = LABEL_BOX * dScale;
        painter.drawText(QRectF(label.x() - dBox / 2, label.y() - dBox / 2, dBox, dBox), Qt::AlignCenter,
                         AXIS_NAMES[nAxis]);
    }
}

void SetUp(QPainter& painter, const QColor& color, double dScale)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, dScale));
    painter.setBrush(color);
    painter.setFont(Scaled(OverlayFont(), dScale));
}

} // namespace

QPointF Overlays::AxesOrigin(const QSize& size, double dScale)
{
    const double dCorner = AxisLength(size) + 10.0 * dScale;
    return {dCorner, size.height() - dCorner};
}

void Overlays::PaintAxes(QPainter& painter, const QSize& size, const QMatrix4x4& view, const QColor& color,
                         double dScale)
{
    painter.save();
    SetUp(painter, color, dScale);
    PaintTriad(painter, AxesOrigin(size, dScale), AxisLength(size), view, dScale);
    painter.restore();
}

void Overlays::PaintRotationPoint(QPainter& painter, const QSize& size, const QPointF& origin,
                                  const QMatrix4x4& view, const QColor& color, double dScale)
{
    painter.save();
    SetUp(painter, color, dScale);
    const double dRadius = std::max(3.0 * dScale, 2.0);
    painter.drawEllipse(origin, dRadius, dRadius);
    PaintTriad(painter, origin, AxisLength(size), view, dScale);
    painter.restore();
}

void Overlays::PaintScaleBar(QPainter& painter, const SScaleBar& bar, const QColor& color, double dScale)
{
    if (bar.marks.isEmpty())
        return;
    painter.save();
    painter.scale(dScale, dScale);
    painter.setFont(OverlayFont());
    painter.setPen(QPen(color, 1.0));
    painter.drawLine(QPointF(bar.marks.first().dX, bar.dY), QPointF(bar.marks.last().dX, bar.dY));
    for (const SScaleBar::SMark& mark : bar.marks) {
        painter.drawLine(QPointF(mark.dX, bar.dY - SScaleBar::TICK),
                         QPointF(mark.dX, bar.dY + SScaleBar::TICK));
        painter.drawText(QPointF(mark.dX, bar.dLabelY), mark.sLabel);
    }
    painter.restore();
}

void Overlays::PaintRubberBand(QPainter& painter, const QRect& rectangle)
{
    painter.save();
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rectangle);
    painter.restore();
}
