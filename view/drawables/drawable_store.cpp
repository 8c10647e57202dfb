// CDrawable: its stored forms. Both go through one list of fields.
#include "data/variables/variablekeys.h"
#include "data/variables/variablemanager.h"
#include "frame/packs/bytestream.h"
#include "frame/packs/jsoninteger.h"
#include "view/annotations/annotationcolormap.h"
#include "view/colormaps/colormaptables.h"
#include "view/drawables/drawable.h"

#include <QJsonArray>

namespace {

QString NameOf(qint64 nVariableId)
{
    const IVariable* const pVariable = CVariableManager::Instance().GetVariable(nVariableId);
    return pVariable ? pVariable->GetName() : QString();
}

/** At nodes, then at cells, then among constants; -1 if there is none. */
qint64 FindVariable(qint64 nSimulationId, const QString& sName)
{
    if (sName.isEmpty())
        return -1;
    for (const VariableLocation_e eLocation : {LocationNode, LocationCell, LocationNone}) {
        const qint64 nId = CVariableManager::Instance().FindByName(nSimulationId, sName, eLocation);
        if (nId != -1)
            return nId;
    }
    return -1;
}

class CJsonFieldWriter
{
public:
    void operator()(const char* sKey, bool bValue) { m_object[sKey] = bValue; }
    void operator()(const char* sKey, qint64 nValue) { m_object[sKey] = nValue; }
    void operator()(const char* sKey, double dValue) { m_object[sKey] = dValue; }
    void operator()(const char* sKey, const QColor& color) { m_object[sKey] = color.name(QColor::HexArgb); }
    void operator()(const char* sKey, const QPointF& range)
    {
        m_object[sKey] = QJsonArray{range.x(), range.y()};
    }

    QJsonObject m_object;
};

/** A missing or unfit member leaves the field. */
class CJsonFieldReader
{
public:
    explicit CJsonFieldReader(const QJsonObject& object) : m_object(object) {}
    void operator()(const char* sKey, bool& bValue) { bValue = m_object[sKey].toBool(bValue); }
    void operator()(const char* sKey, qint64& nValue) { nValue = ToInteger(m_object[sKey], nValue); }
    void operator()(const char* sKey, double& dValue) { dValue = m_object[sKey].toDouble(dValue); }
    void operator()(const char* sKey, QColor& color)
    {
        const QColor read(m_object[sKey].toString());
        if (read.isValid())
            color = read;
    }
    void operator()(const char* sKey, QPointF& range)
    {
        const QJsonArray array = m_object[sKey].toArray();
        if (array.size() >= 2)
            range = {array[0].toDouble(range.x()), array[1].toDouble(range.y())};
    }

private:
    const QJsonObject& m_object;
};

class CByteFieldWriter
{
public:
    template <class T> void operator()(const char*, const T& value) { m_writer.Write(value); }
    void operator()(const char*, const QPointF& range)
    {
        m_writer.Write(range.x());
        m_writer.Write(range.y());
    }
    CByteWriter m_writer;
};

class CByteFieldReader
{
public:
    explicit CByteFieldReader(CByteReader& reader) : m_reader(reader) {}
    template <class T> void operator()(const char*, T& value) { m_reader.Read(value); }
    void operator()(const char*, QPointF& range)
    {
        double dX = range.x(), dY = range.y();
        if (m_reader.Read(dX) && m_reader.Read(dY))
            range = {dX, dY};
    }

private:
    CByteReader& m_reader;
};

/** As many as a user can ask for; what stands in a file may be any number, and each takes a pass. */
constexpr qint64 MOST_CONTOURS = 1000;

} // namespace

template <class Drawable, class Visitor> void CDrawable::VisitFields(Drawable& drawable, Visitor& visit)
{
    visit("visible", drawable.m_bVisible);
    visit("forceInvisible", drawable.m_bForceInvisible);
    visit("nodeVisible", drawable.m_bNodeVisible);
    visit("displayOnNodes", drawable.m_bDisplayOnNodes);
    visit("drawWireframe", drawable.m_bDrawWireframe);
    visit("drawShaded", drawable.m_bDrawShaded);
    visit("drawNodes", drawable.m_bDrawNodes);
    visit("drawOutlines", drawable.m_bDrawOutlines);
    visit("showHoles", drawable.m_bShowHoles);
    visit("drawContours", drawable.m_bDrawContours);
    visit("contourCount", drawable.m_nContourCount);
    visit("geometricColor", drawable.m_bGeometricColor);
    visit("thresholdEnable", drawable.m_bThresholdEnable);
    visit("thresholdRange", drawable.m_thresholdRange);
    visit("shadeColor", drawable.m_shadeColor);
    visit("wireframeColor", drawable.m_wireframeColor);
    visit("lineThickness", drawable.m_dLineThickness);
    visit("alphaValue", drawable.m_dAlpha);
    visit("vectorPlane", drawable.m_nVectorPlane);
    visit("vectorSkip", drawable.m_nVectorSkip);
    visit("vectorHeadScale", drawable.m_dVectorHeadScale);
    visit("vectorBodyScale", drawable.m_dVectorBodyScale);
    visit("colormapBindToLocal", drawable.m_bColormapBindToLocal);
}

void CDrawable::TakeDisplayType(qint64 nType)
{
    if (nType >= DisplayOutline && nType <= DisplayVector &&
        AllowsDisplayType(static_cast<DisplayType_e>(nType)))
        m_eDisplayType = static_cast<DisplayType_e>(nType);
}

/** For who reads the file: least and greatest value of the scalar with their places, where they are known. */
void CDrawable::WriteExtremes(QJsonObject& display) const
{
    const SPickedPoint least = minimumRecord(), greatest = maximumRecord();
    if (!m_bValuesValid || !least.bHasPoint || !greatest.bHasPoint)
        return;
    const auto place = [](const DVector3D& xyz) { return QJsonArray{xyz.x, xyz.y, xyz.z}; };
    display["minValue"] = least.dValue;
    display["maxValue"] = greatest.dValue;
    display["minPoint"] = place(least.xyz);
    display["maxPoint"] = place(greatest.xyz);
}

QJsonObject CDrawable::toJson() const
{
    CJsonFieldWriter writer;
    VisitFields(*this, writer);
    QJsonObject& display = writer.m_object;
    display["displayType"] = m_eDisplayType;
    display["timeCode"] = m_dTimeCode;
    display["scalarVariable"] = NameOf(m_nScalarVariable);
    display["vectorVariable"] = NameOf(m_nVectorVariable);
    display["thresholdVariable"] = NameOf(m_nThresholdVariable);
    const SColormap* const pMap = FindColormap(m_colormap.nId);
    display["colormapName"] = pMap ? pMap->sName : QString();
    display["colormapRange"] = QJsonArray{m_colormap.dMinimum, m_colormap.dMaximum};
    display["annotationColormap"] = m_pLegend->toJson();
    WriteExtremes(display);
    return display;
}

bool CDrawable::fromJson(const QJsonObject& display)
{
    CJsonFieldReader reader(display);
    VisitFields(*this, reader);
    m_nContourCount = std::clamp<qint64>(m_nContourCount, 0, MOST_CONTOURS);
    TakeDisplayType(ToInteger(display["displayType"], m_eDisplayType));
    m_bDrawVectors = m_eDisplayType == DisplayVector; // has no key of its own
    m_nScalarVariable = FindVariable(m_nSimulationId, display["scalarVariable"].toString());
    m_nVectorVariable = FindVariable(m_nSimulationId, display["vectorVariable"].toString());
    m_nThresholdVariable = FindVariable(m_nSimulationId, display["thresholdVariable"].toString());
    if (const qint32 nMap = ColormapId(display["colormapName"].toString()); nMap != -1)
        m_colormap.nId = nMap;
    QPointF range(m_colormap.dMinimum, m_colormap.dMaximum);
    reader("colormapRange", range);
    m_colormap.dMinimum = range.x();
    m_colormap.dMaximum = range.y();
    if (const QJsonValue legend = display["annotationColormap"]; legend.isObject())
        m_pLegend->fromJson(legend.toObject());
    invalidateAll();
    return true;
}

QByteArray CDrawable::toBinary() const
{
    CByteFieldWriter fields;
    VisitFields(*this, fields);
    CByteWriter& writer = fields.m_writer;
    writer.Write(qint64(m_eDisplayType));
    writer.Write(m_bDrawVectors);
    for (const qint64 nVariable : {m_nScalarVariable, m_nVectorVariable, m_nThresholdVariable})
        writer.Write(VariableKeys::KeyOf(nVariable));
    writer.Write(m_colormap.nId);
    writer.Write(m_colormap.dMinimum);
    writer.Write(m_colormap.dMaximum);
    CAnnotationColormap legend = *m_pLegend;
    // Of this session, or of the last frame alone: equal states must have equal bytes.
    legend.setDrawableSerial(-1);
    legend.forgetLayout();
    writer.Write(legend.toBinary());
    return writer.Take();
}

bool CDrawable::fromBinary(const QByteArray& bytes, double)
{
    CByteReader reader(bytes);
    CByteFieldReader fields(reader);
    VisitFields(*this, fields);
    m_nContourCount = std::clamp<qint64>(m_nContourCount, 0, MOST_CONTOURS);
    qint64 nType = m_eDisplayType;
    if (reader.Read(nType))
        TakeDisplayType(nType);
    reader.Read(m_bDrawVectors);
    for (qint64* const pVariable : {&m_nScalarVariable, &m_nVectorVariable, &m_nThresholdVariable}) {
        QByteArray key;
        if (reader.Read(key))
            *pVariable = VariableKeys::Find(key, m_nSimulationId);
    }
    reader.Read(m_colormap.nId);
    reader.Read(m_colormap.dMinimum);
    reader.Read(m_colormap.dMaximum);
    if (QByteArray legend; reader.Read(legend))
        m_pLegend->fromBinary(legend);
    invalidateAll();
    return reader.IsOk();
}
