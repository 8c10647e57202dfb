#include "view/statustext.h"

#include <QLocale>
#include <QStringList>

namespace {

constexpr int PLACE_DIGITS = 15;
constexpr int VALUE_DIGITS = 10;
constexpr int DISTANCE_DIGITS = 6;

QString Triple(const char* sFormat, const DVector3D& v, int nDigits)
{
    const auto text = [nDigits](double d) { return QString::number(d, 'g', nDigits); };
    return QString(sFormat).arg(text(v.x), text(v.y), text(v.z));
}

QString Indices(const char* sFormat, const IVector3D& ijk)
{
    return QString(sFormat).arg(ijk.i).arg(ijk.j).arg(ijk.k);
}

QString Measured(const char* sFormat, const DVector3D& from, const DVector3D& to)
{
    const auto text = [](double d) { return QString::number(d, 'g', DISTANCE_DIGITS); };
    const DVector3D way = to - from;
    return QString::fromUtf8(sFormat).arg(text(Length(way)), text(way.x), text(way.y), text(way.z));
}

} // namespace

QString StatusText::OfItem(const QString& sKind, const QString& sName)
{
    return sKind.isEmpty() || sName.startsWith(sKind) ? sName : QString("%1: %2").arg(sKind, sName);
}

QString StatusText::OfPoint(const QString& sName, const SPickedPoint& point)
{
    if (!point.bHasPoint)
        return sName;
    const bool bHasValue = !point.sVariableName.isEmpty() && point.dValue != NO_VALUE;
    const QString sText =
        QString("%1%2%3%4")
            .arg(point.bHasIjk ? Indices("IJK: (%1, %2, %3), ", point.ijk) : QString(),
                 Triple("XYZ: (%1, %2, %3)", point.xyz, PLACE_DIGITS),
                 point.sVariableName.isEmpty() ? QString() : QString("     %1").arg(point.sVariableName),
                 bHasValue ? QString(": %1").arg(QString::number(point.dValue, 'g', VALUE_DIGITS))
                           : QString());
    return sName.isEmpty() ? sText : QString("%1: %2").arg(sName, sText);
}

QString StatusText::Distance(const DVector3D& from, const DVector3D& to)
{
    return Measured("Distance: %1 [\u0394X %2 , \u0394Y %3 , \u0394Z %4]", from, to);
}

QString StatusText::DistanceFromPrevious(const DVector3D& from, const DVector3D& to)
{
    return Measured("Distance from prev. point: %1 [\u0394X %2 , \u0394Y %3 , \u0394Z %4]", from, to);
}

QString StatusText::ToCopy(const SPickedPoint& point)
{
    if (!point.bHasPoint)
        return {};
    QStringList lines;
    if (!point.sItemName.isEmpty())
        lines.append("Item: " + point.sItemName);
    if (point.bHasIjk)
        lines.append(Indices("IJK: (%1, %2, %3)", point.ijk));
    lines.append(Triple("XYZ: (%1, %2, %3)", point.xyz, QLocale::FloatingPointShortest));
    if (!point.sVariableName.isEmpty())
        lines.append(point.sVariableName + ": " +
                     (point.dValue == NO_VALUE
                          ? QString("no value")
                          : QString::number(point.dValue, 'g', QLocale::FloatingPointShortest)));
    lines.append(point.bIsHole ? "Hole: yes" : "Hole: no");
    return lines.join('\n');
}
