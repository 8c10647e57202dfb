#include "tools/rendericons/svgpainter.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace {

struct SColorRow
{
    const char* sDrawn;
    const char* sByVariant[2];
};

// Lines, what an icon is about, hidden or gone, take care.
constexpr SColorRow COLORS[] = {
    {"#2b3137", {"#2b3137", "#e3e6ea"}},
    {"#1a74c8", {"#1a74c8", "#5db2ff"}},
    {"#d03a44", {"#d03a44", "#ff7078"}},
    {"#c96a10", {"#b85f0c", "#ffab4a"}},
};
constexpr const char* LINE_COLOR = COLORS[0].sDrawn;

} // namespace

const char* VariantName(IconVariant_e eVariant) { return eVariant == LightIcons ? "light" : "dark"; }

bool CSvgPainter::Load(const QString& sPath)
{
    QFile file(sPath);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    m_svg = file.readAll();
    return QSvgRenderer(m_svg).isValid();
}

int CSvgPainter::Side() const { return QSvgRenderer(m_svg).defaultSize().width(); }

QByteArray CSvgPainter::Svg(IconVariant_e eVariant) const
{
    QByteArray svg = m_svg;
    for (const SColorRow& row : COLORS)
        svg.replace(row.sDrawn, row.sByVariant[eVariant]);
    return svg;
}

QByteArray CSvgPainter::Svg(const QString& sColor) const
{
    return QByteArray(m_svg).replace(LINE_COLOR, sColor.toUtf8());
}

QImage CSvgPainter::Draw(const QByteArray& svg, int nSize)
{
    QImage image(nSize, nSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer(svg).render(&painter);
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}
