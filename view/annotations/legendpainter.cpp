#include "view/annotations/legendpainter.h"

#include "frame/preferences.h"
#include "view/annotations/annotationcolormap.h"
#include "view/colormaps/colormaptables.h"

#include <QPainter>

namespace {

QRect Scaled(const QRect& rect, double dScale)
{
    return {qRound(rect.x() * dScale), qRound(rect.y() * dScale), qRound(rect.width() * dScale),
            qRound(rect.height() * dScale)};
}

QFont Scaled(QFont font, double dScale)
{
    if (font.pointSizeF() > 0.0)
        font.setPointSizeF(font.pointSizeF() * dScale);
    else
        font.setPixelSize(std::max(1, qRound(font.pixelSize() * dScale)));
    return font;
}

void PaintFrame(QPainter& painter, const CAnnotationColormap& legend, double dScale)
{
    const QRect frame = Scaled(legend.layout().frame, dScale);
    const bool bHot = legend.isHot() && legend.isVisible();
    QPen pen(bHot ? CPreferences::Instance().Draw().selectColor : legend.brush().color());
    pen.setWidthF(painter.pen().widthF() * dScale);
    if (legend.isBackgroundSolid())
        painter.fillRect(frame, legend.brush());
    if (bHot || (legend.isBackgroundOutline() && !legend.isBackgroundSolid())) {
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(frame);
    }
}

void PaintColorbar(QPainter& painter, const QRect& rect, qint32 nColormap)
{
    QLinearGradient gradient(rect.topLeft(), rect.topLeft() + QPoint(0, rect.height()));
    gradient.setStops(LegendStops(nColormap));
    painter.fillRect(rect, gradient);
}

/** In its rectangle, at the left, centred in height; nothing is cut off. */
void PaintText(QPainter& painter, const SLegendText& text, const QString& sText, const QRect& rect,
               double dScale)
{
    if (!text.bVisible)
        return;
    painter.setFont(Scaled(text.font, dScale));
    painter.setPen(text.color);
    painter.drawText(Scaled(rect, dScale), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, sText);
}

} // namespace

void PaintLegend(QPainter& painter, const CAnnotationColormap& legend, qint32 nColormap, double dScale)
{
    const SLegendSettings& settings = legend.settings();
    const SLegendLayout& layout = legend.layout();
    const SLegendContent& content = legend.content();
    painter.save();
    PaintFrame(painter, legend, dScale);
    PaintColorbar(painter, Scaled(layout.colorbar, dScale), nColormap);
    PaintText(painter, settings.title, content.sTitle, layout.title, dScale);
    PaintText(painter, settings.subtitle, content.sSubtitle, layout.subtitle, dScale);
    for (int n = 0; n < layout.labels.size(); ++n)
        PaintText(painter, settings.labels, content.sLabelList[n], layout.labels[n], dScale);
    painter.restore();
}
