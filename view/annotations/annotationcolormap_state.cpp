// CAnnotationColormap: its stored forms.
#include "frame/bytestream.h"
#include "view/annotations/annotationcolormap.h"

#include <QDataStream>

namespace {

constexpr char TITLE[] = "title", SUBTITLE[] = "subtitle", LABELS[] = "labels", VISIBLE[] = "visible",
               TEXT[] = "text", FONT[] = "font", COLOR[] = "color", COUNT[] = "labelCount",
               FORMAT[] = "numericFormat", DIGITS[] = "digits", WIDTH[] = "colorbarWidth",
               HEIGHT[] = "colorbarHeight";

QJsonObject ToJson(const SLegendText& text)
{
    return {{VISIBLE, text.bVisible},
            {TEXT, text.sText},
            {FONT, text.font.toString()},
            {COLOR, text.color.name(QColor::HexArgb)}};
}

void FromJson(const QJsonObject& object, SLegendText& text)
{
    text.bVisible = object[VISIBLE].toBool(text.bVisible);
    text.sText = object[TEXT].toString(text.sText);
    if (QFont font; font.fromString(object[FONT].toString()))
        text.font = font;
    if (const QColor color(object[COLOR].toString()); color.isValid())
        text.color = color;
}

/** A number of the file between the limits of what makes sense. */
qint64 Number(const QJsonValue& value, qint64 nDefault, qint64 nMinimum, qint64 nMaximum)
{
    return std::clamp(qint64(value.toDouble(double(nDefault))), nMinimum, nMaximum);
}

bool IsSane(const SLegendSettings& settings)
{
    return settings.nLabelCount >= 0 && settings.nLabelCount <= SLegendSettings::MAX_LABELS &&
           settings.nDigits >= 0 && settings.nDigits <= SLegendSettings::MAX_DIGITS &&
           settings.colorbarSize.isValid() &&
           settings.colorbarSize.width() <= SLegendSettings::MAX_COLORBAR &&
           settings.colorbarSize.height() <= SLegendSettings::MAX_COLORBAR;
}

} // namespace

QByteArray CAnnotationColormap::toBinary() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    PrepareStream(stream);
    const SLegendText &title = m_settings.title, &subtitle = m_settings.subtitle, &labels = m_settings.labels;
    stream << CAnnotation::toBinary() << m_nSerial << m_layout.frame << m_layout.colorbar << m_layout.title
           << m_layout.subtitle << m_layout.labels;
    stream << title.bVisible << title.sText << title.font << title.color;
    stream << subtitle.bVisible << subtitle.sText << subtitle.font << subtitle.color;
    stream << labels.bVisible << m_settings.nLabelCount << labels.font << labels.color;
    stream << m_settings.nFormat << m_settings.nDigits << m_settings.colorbarSize;
    return bytes;
}

bool CAnnotationColormap::fromBinary(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    PrepareStream(stream);
    QByteArray base;
    qint64 nSerial = -1;
    QRect rect; // layout results: made anew
    qint32 nRects = 0;
    stream >> base >> nSerial >> rect >> rect >> rect >> rect >> nRects;
    for (qint32 n = 0; n < nRects && stream.status() == QDataStream::Ok; ++n)
        stream >> rect;
    SLegendSettings settings;
    SLegendText &title = settings.title, &subtitle = settings.subtitle, &labels = settings.labels;
    stream >> title.bVisible >> title.sText >> title.font >> title.color;
    stream >> subtitle.bVisible >> subtitle.sText >> subtitle.font >> subtitle.color;
    stream >> labels.bVisible >> settings.nLabelCount >> labels.font >> labels.color;
    stream >> settings.nFormat >> settings.nDigits >> settings.colorbarSize;
    if (stream.status() != QDataStream::Ok || !IsSane(settings) || !CAnnotation::fromBinary(base))
        return false;
    if (m_nSerial == -1)
        m_nSerial = nSerial;
    setSettings(settings);
    return true;
}

QJsonObject CAnnotationColormap::toJson() const
{
    QJsonObject object = CAnnotation::toJson();
    object[TITLE] = ToJson(m_settings.title);
    object[SUBTITLE] = ToJson(m_settings.subtitle);
    object[LABELS] = ToJson(m_settings.labels);
    object[COUNT] = m_settings.nLabelCount;
    object[FORMAT] = m_settings.nFormat;
    object[DIGITS] = m_settings.nDigits;
    object[WIDTH] = m_settings.colorbarSize.width();
    object[HEIGHT] = m_settings.colorbarSize.height();
    return object;
}

void CAnnotationColormap::fromJson(const QJsonObject& object)
{
    SLegendSettings settings = m_settings;
    FromJson(object[TITLE].toObject(), settings.title);
    FromJson(object[SUBTITLE].toObject(), settings.subtitle);
    FromJson(object[LABELS].toObject(), settings.labels);
    settings.nLabelCount = Number(object[COUNT], settings.nLabelCount, 0, SLegendSettings::MAX_LABELS);
    settings.nFormat = Number(object[FORMAT], settings.nFormat, LegendFloatingPoint, LegendExponential);
    settings.nDigits = Number(object[DIGITS], settings.nDigits, 0, SLegendSettings::MAX_DIGITS);
    const QSize size = settings.colorbarSize;
    settings.colorbarSize = {int(Number(object[WIDTH], size.width(), 1, SLegendSettings::MAX_COLORBAR)),
                             int(Number(object[HEIGHT], size.height(), 1, SLegendSettings::MAX_COLORBAR))};
    setSettings(settings);
    CAnnotation::fromJson(object);
}
