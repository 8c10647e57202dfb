#include "view/annotations/legendpainter.h"

#include "frame/preferences/preferences.h"
#include "view/annotations/annotationcolormap.h"
#include "view/colormaps/colormaptables.h"

#include <QPainter>

namespace {

QRect Scaled(const QRect& rect, double dScale)
{
    return {qRound(rect.x() * dScale), qRound(rect.y() * dScale), qRound(rect.width() * dScale),
            qRound(rect.height() * dScale)};
}

void PaintFrame(QPainter& painter, const CAnnotationColormap& legend, const SCanvas& canvas)
{
    const QRect frame = Scaled(legend.layout().frame, canvas.dScale);
    const bool bHot = canvas.bMarks && legend.isHot() && legend.isVisible();
    QPen pen(bHot ? CPreferences::Instance().Draw().selectColor : legend.brush().color());
    pen.setWidthF(painter.pen().widthF() * canvas.dScale);
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
               const SCanvas& canvas)
{
    if (!text.bVisible)
        return;
    painter.setFont(Scaled(text.font, canvas.dScale));
    painter.setPen(canvas.TextColor(text.color, rect));
    painter.drawText(Scaled(rect, canvas.dScale), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, sText);
}

} // namespace

void PaintLegend(QPainter& painter, const CAnnotationColormap& legend, qint32 nColormap,
                 const SCanvas& canvas)
{
    const SLegendSettings& settings = legend.settings();
    const SLegendLayout& layout = legend.layout();
    const SLegendContent& content = legend.content();
    SCanvas behind = canvas;
    if (legend.isBackgroundSolid())
        behind.background = legend.brush();
    painter.save();
    PaintFrame(painter, legend, canvas);
    PaintColorbar(painter, Scaled(layout.colorbar, canvas.dScale), nColormap);
    PaintText(painter, settings.title, content.sTitle, layout.title, behind);
    PaintText(painter, settings.subtitle, content.sSubtitle, layout.subtitle, behind);
    for (int n = 0; n < layout.labels.size(); ++n)
        PaintText(painter, settings.labels, content.sLabelList[n], layout.labels[n], behind);
    painter.restore();
}
