#include "frame/preferences.h"

#include "frame/memorymanager.h"
#include "frame/messagesink.h"
#include "frame/preferencekeys.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace {

constexpr const char* DATA_KEY = "data";
constexpr const char* VARIABLE_ID_KEY = "variable/id";
constexpr const char* VARIABLE_NAME_KEY = "variable/name";
constexpr const char* VARIABLE_FORMULA_KEY = "variable/formula";
constexpr const char* VARIABLE_LOCATION_KEY = "variable/position";
constexpr const char* VARIABLE_USED_KEY = "variable/usedvar%1";

QBrush BackgroundBrush(const QVector<QColor>& colors)
{
    QRadialGradient gradient(QPointF(0.5, 0.5), 0.5, QPointF(0.5, 0.5));
    gradient.setCoordinateMode(QGradient::ObjectBoundingMode);
    gradient.setColorAt(0.0, colors[0]);
    gradient.setColorAt(0.4, colors[1]);
    gradient.setColorAt(0.8, colors[2]);
    return QBrush(gradient);
}

SDrawPreferences ReadDrawPreferences(const CDataPack& pack)
{
    using namespace PreferenceKey;
    SDrawPreferences draw;
    draw.bUseDisplayLists = Get(pack, USE_DISPLAY_LISTS);
    draw.nSelectionArea = Get(pack, SELECTION_AREA);
    draw.bUseOutlineColor = Get(pack, USE_OUTLINE_COLOR);
    draw.dMouseSensitivity = Get(pack, MOUSE_SENSITIVITY);
    draw.dKeyboardSensitivity = Get(pack, KEYBOARD_SENSITIVITY);
    draw.nZoomSensitivity = Get(pack, ZOOM_SENSITIVITY);
    draw.bZoomOnMouse = Get(pack, ZOOM_ON_MOUSE);
    draw.bFlipZoomDirection = Get(pack, FLIP_ZOOM_DIRECTION);
    draw.bHighlightInAnalyze = Get(pack, HIGHLIGHT_IN_ANALYZE);
    draw.bHighlightOutline = Get(pack, HIGHLIGHT_OUTLINE);
    draw.fPointSize = Get(pack, POINT_SIZE);
    draw.fLineThickness = Get(pack, LINE_THICKNESS);
    draw.bShowAxes = Get(pack, SHOW_AXES);
    draw.nRotationAxisVisibility = Get(pack, ROTATION_AXIS_VISIBILITY);
    draw.bShowScaling = Get(pack, SHOW_SCALING);
    draw.axesColor = Get(pack, AXES_COLOR);
    draw.highlightColor = Get(pack, HIGHLIGHT_COLOR);
    draw.selectColor = Get(pack, SELECT_COLOR);
    draw.outlineColor = Get(pack, OUTLINE_COLOR);
    draw.previewColor = Get(pack, PREVIEW_COLOR);
    for (const SKey<QColor>& key : BACKGROUND_COLORS)
        draw.backgroundColors.append(Get(pack, key));
    draw.background = BackgroundBrush(draw.backgroundColors);
    return draw;
}

QVector<SStoredVariable> ReadVariables(const QSettings& settings)
{
    const QVariantList ids = settings.value(VARIABLE_ID_KEY).toList();
    const QStringList sNameList = settings.value(VARIABLE_NAME_KEY).toStringList();
    const QStringList sFormulaList = settings.value(VARIABLE_FORMULA_KEY).toStringList();
    const QVariantList locations = settings.value(VARIABLE_LOCATION_KEY).toList();
    const int nCount = std::min({ids.size(), sNameList.size(), sFormulaList.size(), locations.size()});
    if (nCount != ids.size())
        CMessageSink::Instance().Log(
            QString("Settings: only %1 of %2 stored variables are complete").arg(nCount).arg(ids.size()));
    QVector<SStoredVariable> variables;
    for (int n = 0; n < nCount; ++n)
        variables.append({ids[n].toLongLong(), sNameList[n], sFormulaList[n], locations[n].toLongLong(),
                          settings.value(QString(VARIABLE_USED_KEY).arg(n)).toStringList()});
    return variables;
}

void WriteVariables(QSettings& settings, const QVector<SStoredVariable>& variables)
{
    QVariantList ids, locations;
    QStringList sNameList, sFormulaList;
    settings.remove("variable"); // no lists of variables that are gone
    for (const SStoredVariable& variable : variables) {
        settings.setValue(QString(VARIABLE_USED_KEY).arg(ids.size()), variable.sUsedNameList);
        ids.append(variable.nId);
        sNameList.append(variable.sName);
        sFormulaList.append(variable.sFormula);
        locations.append(variable.nLocation);
    }
    if (ids.isEmpty())
        return;
    settings.setValue(VARIABLE_ID_KEY, ids);
    settings.setValue(VARIABLE_NAME_KEY, sNameList);
    settings.setValue(VARIABLE_FORMULA_KEY, sFormulaList);
    settings.setValue(VARIABLE_LOCATION_KEY, locations);
}

/** The settings hold passwords: makes the file the owner's alone before a word is written to it. */
void RestrictToOwner(const QString& sFileName)
{
    QDir().mkpath(QFileInfo(sFileName).path());
    QFile file(sFileName);
    if (!file.exists() && file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace

CPreferences& CPreferences::Instance()
{
    static CPreferences* const pPreferences = new CPreferences; // never destroyed, see CMessageSink
    return *pPreferences;
}

CPreferences::CPreferences() : m_draw(ReadDrawPreferences(*this)) {}

void CPreferences::Load(const QString& sOrganisation, const QString& sApplication)
{
    const QSettings settings(QSettings::UserScope, sOrganisation, sApplication);
    if (settings.status() != QSettings::NoError)
        CMessageSink::Instance().Log(QString("Settings: %1 can't be read whole").arg(settings.fileName()));
    if (!FromBytes(settings.value(DATA_KEY, ToBytes()).toByteArray(), -1.0))
        CMessageSink::Instance().Log(
            QString("Settings: %1 is damaged; what could be read was kept").arg(settings.fileName()));
    m_storedVariables = ReadVariables(settings);
    Apply();
}

bool CPreferences::Save(const QString& sOrganisation, const QString& sApplication) const
{
    QSettings settings(QSettings::UserScope, sOrganisation, sApplication);
    RestrictToOwner(settings.fileName());
    settings.setValue(DATA_KEY, ToBytes());
    WriteVariables(settings, m_storedVariables);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

void CPreferences::Apply()
{
    m_draw = ReadDrawPreferences(*this);
    CMessageSink::Instance().SetDebugLevel(Get(*this, PreferenceKey::DEBUG_LEVEL));
    CMemoryManager::Instance().SetLimit(Get(*this, PreferenceKey::MEMORY_LIMIT));
}
