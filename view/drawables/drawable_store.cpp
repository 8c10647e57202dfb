// CDrawable: its stored forms. Both go through the table of keys.
#include "data/variables/variablekeys.h"
#include "data/variables/variablemanager.h"
#include "frame/packs/bytestream.h"
#include "frame/packs/jsoninteger.h"
#include "view/annotations/annotationcolormap.h"
#include "view/colormaps/colormaptables.h"
#include "view/drawables/drawable.h"

#include <QJsonArray>
#include <QSet>

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

QJsonValue ToJson(bool bValue) { return bValue; }
QJsonValue ToJson(qint64 nValue) { return nValue; }
QJsonValue ToJson(double dValue) { return dValue; }
QJsonValue ToJson(const QColor& color) { return color.name(QColor::HexArgb); }
QJsonValue ToJson(const QPointF& range) { return QJsonArray{range.x(), range.y()}; }

// A missing or unfit member leaves the value.
void FromJson(const QJsonValue& json, bool& bValue) { bValue = json.toBool(bValue); }
void FromJson(const QJsonValue& json, qint64& nValue) { nValue = ToInteger(json, nValue); }
void FromJson(const QJsonValue& json, double& dValue) { dValue = json.toDouble(dValue); }
void FromJson(const QJsonValue& json, QColor& color)
{
    const QColor read(json.toString());
    if (read.isValid())
        color = read;
}
void FromJson(const QJsonValue& json, QPointF& range)
{
    const QJsonArray array = json.toArray();
    if (array.size() >= 2)
        range = {array[0].toDouble(range.x()), array[1].toDouble(range.y())};
}

template <class T> void Write(CByteWriter& writer, const T& value) { writer.Write(value); }
void Write(CByteWriter& writer, const QPointF& range)
{
    writer.Write(range.x());
    writer.Write(range.y());
}

template <class T> void Read(CByteReader& reader, T& value) { reader.Read(value); }
void Read(CByteReader& reader, QPointF& range)
{
    double dX = range.x(), dY = range.y();
    if (reader.Read(dX) && reader.Read(dY))
        range = {dX, dY};
}

qint64 SDisplayState::*VariableOf(const SDisplayKey& key)
{
    return std::get<qint64 SDisplayState::*>(key.member);
}

const QSet<QString>& KnownMembers()
{
    static const QSet<QString> s_known = [] {
        QSet<QString> known;
        for (const SDisplayKey& key : DisplayKeys())
            known.insert(key.sKey);
        for (const char* const sKey : DisplayJson::ALL)
            known.insert(sKey);
        return known;
    }();
    return s_known;
}

/** As many as a user can ask for; what stands in a file may be any number, and each takes a pass. */
constexpr qint64 MOST_CONTOURS = 1000;

} // namespace

/** What was read, within what can be shown. */
void CDrawable::TakeState(SDisplayState state)
{
    state.nContourCount = std::clamp<qint64>(state.nContourCount, 0, MOST_CONTOURS);
    const qint64 nType = state.nDisplayType;
    if (nType < DisplayOutline || nType > DisplayVector || !AllowsDisplayType(DisplayType_e(nType)))
        state.nDisplayType = m_state.nDisplayType;
    m_state = state;
    invalidateAll();
}

/** For who reads the file: least and greatest value of the scalar with their places, where they are known. */
void CDrawable::WriteExtremes(QJsonObject& display) const
{
    const SPickedPoint least = minimumRecord(), greatest = maximumRecord();
    if (IsStale(Stale::VALUES) || !least.bHasPoint || !greatest.bHasPoint)
        return;
    const auto place = [](const DVector3D& xyz) { return QJsonArray{xyz.x, xyz.y, xyz.z}; };
    display[DisplayJson::MIN_VALUE] = least.dValue;
    display[DisplayJson::MAX_VALUE] = greatest.dValue;
    display[DisplayJson::MIN_POINT] = place(least.xyz);
    display[DisplayJson::MAX_POINT] = place(greatest.xyz);
}

QJsonObject CDrawable::toJson() const
{
    QJsonObject display = m_unknown.Members();
    for (const SDisplayKey& key : DisplayKeys())
        if (key.eForm == FormVariable)
            display[key.sKey] = NameOf(m_state.*VariableOf(key));
        else if (key.eForm == FormValue)
            std::visit([&](auto member) { display[key.sKey] = ToJson(m_state.*member); }, key.member);
    display[DisplayJson::TIME_CODE] = m_dTimeCode;
    const SColormapRecord& map = m_state.colormap;
    const SColormap* const pMap = FindColormap(map.nId);
    display[DisplayJson::COLORMAP_NAME] = pMap ? pMap->sName : QString();
    display[DisplayJson::COLORMAP_RANGE] = QJsonArray{map.dMinimum, map.dMaximum};
    display[DisplayJson::LEGEND] = m_pLegend->toJson();
    WriteExtremes(display);
    return display;
}

bool CDrawable::fromJson(const QJsonObject& display)
{
    SDisplayState state = m_state;
    for (const SDisplayKey& key : DisplayKeys())
        if (key.eForm == FormVariable)
            state.*VariableOf(key) = FindVariable(m_nSimulationId, display[key.sKey].toString());
        else if (key.eForm == FormValue)
            std::visit([&](auto member) { FromJson(display[key.sKey], state.*member); }, key.member);
    if (const qint32 nMap = ColormapId(display[DisplayJson::COLORMAP_NAME].toString()); nMap != -1)
        state.colormap.nId = nMap;
    QPointF range(state.colormap.dMinimum, state.colormap.dMaximum);
    FromJson(display[DisplayJson::COLORMAP_RANGE], range);
    state.colormap.dMinimum = range.x();
    state.colormap.dMaximum = range.y();
    TakeState(state);
    m_state.bDrawVectors = m_state.nDisplayType == DisplayVector; // has no member of its own
    if (const QJsonValue legend = display[DisplayJson::LEGEND]; legend.isObject())
        m_pLegend->fromJson(legend.toObject());
    m_unknown.Take(display, KnownMembers());
    return true;
}

QByteArray CDrawable::toBinary() const
{
    CByteWriter writer;
    for (const SDisplayKey& key : DisplayKeys())
        if (key.eForm == FormVariable)
            writer.Write(VariableKeys::KeyOf(m_state.*VariableOf(key)));
        else if (key.eForm != FormNone)
            std::visit([&](auto member) { Write(writer, m_state.*member); }, key.member);
    writer.Write(m_state.colormap.nId);
    writer.Write(m_state.colormap.dMinimum);
    writer.Write(m_state.colormap.dMaximum);
    CAnnotationColormap legend = *m_pLegend;
    // Of this session, or of the last frame alone: equal states must have equal bytes.
    legend.setDrawableSerial(-1);
    legend.forgetLayout();
    writer.Write(legend.toBinary());
    m_unknown.Write(writer);
    return writer.Take();
}

bool CDrawable::fromBinary(const QByteArray& bytes, double)
{
    CByteReader reader(bytes);
    SDisplayState state = m_state;
    for (const SDisplayKey& key : DisplayKeys())
        if (QByteArray variable; key.eForm == FormVariable && reader.Read(variable))
            state.*VariableOf(key) = VariableKeys::Find(variable, m_nSimulationId);
        else if (key.eForm == FormValue || key.eForm == FormBytes)
            std::visit([&](auto member) { Read(reader, state.*member); }, key.member);
    reader.Read(state.colormap.nId);
    reader.Read(state.colormap.dMinimum);
    reader.Read(state.colormap.dMaximum);
    TakeState(state);
    if (QByteArray legend; reader.Read(legend))
        m_pLegend->fromBinary(legend);
    m_unknown.Read(reader);
    return reader.IsOk();
}
