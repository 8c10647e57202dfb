// CAnnotationColormap: its stored forms.
#include "frame/packs/bytestream.h"
#include "frame/packs/jsoninteger.h"
#include "view/annotations/annotationcolormap.h"

#include <QDataStream>

namespace {

constexpr char TITLE[] = "title", SUBTITLE[] = "subtitle", LABELS[] = "labels", VISIBLE[] = "visible",
               TEXT[] = "text", FONT[] = "font", COLOR[] = "color", COUNT[] = "labelCount",
               FORMAT[] = "numericFormat", DIGITS[] = "digits", WIDTH[] = "colorbarWidth",
               HEIGHT[] = "colorbarHeight", AUTOMATIC[] = "automaticColor";

/** What stands in the place of the automatic colour; files that don't know it have this where nobody chose.
 */
constexpr Qt::GlobalColor FORMER_COLOR = Qt::black;

QColor StoredColor(const SLegendText& text) { return text.color.isValid() ? text.color : FORMER_COLOR; }

QJsonObject ToJson(const SLegendText& text)
{
    return {{VISIBLE, text.bVisible},
            {TEXT, text.sText},
            {FONT, text.font.toString()},
            {COLOR, StoredColor(text).name(QColor::HexArgb)},
            {AUTOMATIC, !text.color.isValid()}};
}

void FromJson(const QJsonObject& object, SLegendText& text)
{
    text.bVisible = object[VISIBLE].toBool(text.bVisible);
    text.sText = object[TEXT].toString(text.sText);
    const QString sFont = object[FONT].toString();
    if (QFont font; !sFont.isEmpty() && font.fromString(sFont)) // Qt warns of an empty one
        text.font = font;
    const QColor color(object[COLOR].toString());
    if (object[AUTOMATIC].toBool(color == FORMER_COLOR))
        text.color = QColor();
    else if (color.isValid())
        text.color = color;
}

/** Four rectangles and a list of them: results that are found anew. */
void SkipLayout(CByteReader& reader)
{
    constexpr int RECT = 4; // numbers of one
    qint32 nSkipped = 0;
    for (int n = 0; n < 4 * RECT; ++n)
        reader.Read(nSkipped);
    for (qint64 n = RECT * qint64(reader.ReadCount(RECT * sizeof(qint32))); n > 0 && reader.IsOk(); --n)
        reader.Read(nSkipped);
}

void ReadLook(CByteReader& reader, SLegendText& text)
{
    reader.Read(text.font);
    reader.Read(text.color);
}

/** Behind all else, where black was chosen: which of the colours are automatic. */
void ReadAutomatic(CByteReader& reader, SLegendSettings& settings)
{
    const bool bKnown = reader.BytesLeft() > 0;
    for (SLegendText* const pText : {&settings.title, &settings.subtitle, &settings.labels}) {
        bool bAutomatic = pText->color == FORMER_COLOR;
        if (bKnown)
            reader.Read(bAutomatic);
        if (bAutomatic)
            pText->color = QColor();
    }
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
    stream << title.bVisible << title.sText << title.font << StoredColor(title);
    stream << subtitle.bVisible << subtitle.sText << subtitle.font << StoredColor(subtitle);
    stream << labels.bVisible << m_settings.nLabelCount << labels.font << StoredColor(labels);
    stream << m_settings.nFormat << m_settings.nDigits << m_settings.colorbarSize;
    const auto texts = {&title, &subtitle, &labels};
    const auto isMistakable = [](const SLegendText* pText) { return pText->color == FORMER_COLOR; };
    if (std::any_of(texts.begin(), texts.end(), isMistakable))
        for (const SLegendText* const pText : texts)
            stream << !pText->color.isValid();
    return bytes;
}

bool CAnnotationColormap::fromBinary(const QByteArray& bytes)
{
    CByteReader reader(bytes);
    QByteArray base;
    qint64 nSerial = -1;
    reader.Read(base);
    reader.Read(nSerial);
    SkipLayout(reader);
    SLegendSettings settings;
    for (SLegendText* const pText : {&settings.title, &settings.subtitle}) {
        reader.Read(pText->bVisible);
        reader.Read(pText->sText);
        ReadLook(reader, *pText);
    }
    reader.Read(settings.labels.bVisible);
    reader.Read(settings.nLabelCount);
    ReadLook(reader, settings.labels);
    reader.Read(settings.nFormat);
    reader.Read(settings.nDigits);
    qint32 nWidth = 0, nHeight = 0;
    reader.Read(nWidth);
    reader.Read(nHeight);
    settings.colorbarSize = {nWidth, nHeight};
    ReadAutomatic(reader, settings);
    if (!reader.IsOk() || !IsSane(settings) || !CAnnotation::fromBinary(base))
        return false;
    if (m_nSerial == -1)
        m_nSerial = nSerial;
    setSettings(settings);
    showAt(position());
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
    settings.nLabelCount = ToInteger(object[COUNT], settings.nLabelCount, 0, SLegendSettings::MAX_LABELS);
    settings.nFormat = ToInteger(object[FORMAT], settings.nFormat, LegendFloatingPoint, LegendExponential);
    settings.nDigits = ToInteger(object[DIGITS], settings.nDigits, 0, SLegendSettings::MAX_DIGITS);
    const QSize size = settings.colorbarSize;
    settings.colorbarSize = {int(ToInteger(object[WIDTH], size.width(), 1, SLegendSettings::MAX_COLORBAR)),
                             int(ToInteger(object[HEIGHT], size.height(), 1, SLegendSettings::MAX_COLORBAR))};
    setSettings(settings);
    CAnnotation::fromJson(object);
}
