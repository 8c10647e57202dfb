#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

/** The backgrounds that an icon is drawn for. */
enum IconVariant_e { LightIcons, DarkIcons };

/** The folder of a variant's images in the resource. */
const char* VariantName(IconVariant_e eVariant);

/** Draws one SVG in the colours and sizes that are asked for. */
class CSvgPainter
{
public:
    /** @return false when there is no such file or it is no SVG */
    bool Load(const QString& sPath);

    /** Side of the drawing, which is square [units = pixels at 100 %]. */
    int Side() const;

    /** The drawing in a variant's colours. */
    QByteArray Svg(IconVariant_e eVariant) const;
    /** The drawing with its lines in one colour. */
    QByteArray Svg(const QString& sColor) const;

    /** Square, transparent where nothing is drawn. @param nSize  [pixels] */
    static QImage Draw(const QByteArray& svg, int nSize);

private:
    QByteArray m_svg;
};
