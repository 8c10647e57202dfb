#include "view/annotations/canvas.h"

#include <QImage>
#include <QPainter>

#include <cmath>

namespace {

constexpr double LEAST_POINTS = 12.0;
constexpr double POINTS_TO_PIXELS = 96.0 / 72.0; // at 100 % scaling

/** Relative luminance of a colour, 0 to 1. */
double Luminance(const QColor& color)
{
    const auto linear = [](double d) {
        return d <= 0.04045 ? d / 12.92 : std::pow((d + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/** What the brush gives there, over white. */
QColor ColorAt(const QBrush& brush, const QSize& size, const QPointF& place)
{
    QImage pixel(1, 1, QImage::Format_RGB32);
    pixel.fill(Qt::white);
    QPainter painter(&pixel);
    painter.translate(-place);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRect(QRect({0, 0}, size));
    painter.end();
    return pixel.pixelColor(0, 0);
}

} // namespace

QColor SCanvas::TextColor(const QColor& color, const QRectF& place) const
{
    return color.isValid() ? color : ColorToReadOn(ColorAt(background, size, place.center()));
}

QColor ColorToReadOn(const QColor& background)
{
    // Where both have the same ratio of luminances, each with the 0.05 of a display's own light.
    constexpr double EVEN = 0.179129;
    return Luminance(background) < EVEN ? Qt::white : Qt::black;
}

QFont OverlayFont()
{
    QFont font;
    if (font.pointSizeF() > 0.0)
        font.setPointSizeF(std::max(font.pointSizeF(), LEAST_POINTS));
    else
        font.setPixelSize(std::max(font.pixelSize(), qRound(LEAST_POINTS * POINTS_TO_PIXELS)));
    return font;
}

QFont Scaled(QFont font, double dScale)
{
    if (font.pointSizeF() > 0.0)
        font.setPointSizeF(font.pointSizeF() * dScale);
    else
        font.setPixelSize(std::max(1, qRound(font.pixelSize() * dScale)));
    return font;
}
