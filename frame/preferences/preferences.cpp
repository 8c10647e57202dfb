#include "frame/preferences/preferences.h"

#include "frame/memory/memorymanager.h"
#include "frame/messagesink.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferenceranges.h"
#include "frame/preferences/settingsstore.h"

namespace {

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

} // namespace

CPreferences& CPreferences::Instance()
{
    static CPreferences* const pPreferences = new CPreferences; // never destroyed, see CMessageSink
    return *pPreferences;
}

CPreferences::CPreferences() : m_draw(ReadDrawPreferences(*this)) {}

void CPreferences::Load(const QString& sOrganisation, const QString& sApplication)
{
    const SStoredSettings stored = CSettingsStore(sOrganisation, sApplication).Read();
    if (stored.eState != StoreEmpty)
        Assign(stored.content.pack);
    m_storedVariables = stored.content.variables;
    Apply();
    m_saved = {stored.content.pack, m_storedVariables};
    // What was out of range is no change of the user: the store keeps it until there is one.
    BringIntoRange(m_saved.pack);
}

bool CPreferences::Save(const QString& sOrganisation, const QString& sApplication)
{
    const SSettings own = Content();
    SSettings merged;
    const bool bWritten =
        CSettingsStore(sOrganisation, sApplication).Update([&](const SStoredSettings& stored) {
            merged = MergeSettings(stored.eState == StoreWhole ? stored.content : Repaired(stored.content),
                                   m_saved, own);
            return merged;
        });
    if (!bWritten)
        return false;
    Set(*this, PreferenceKey::RECENT_FILES, Get(merged.pack, PreferenceKey::RECENT_FILES));
    ReplaceSubPack(*this, PreferenceKey::REMOTE_PACK, merged.pack.GetSubPack(PreferenceKey::REMOTE_PACK));
    BringIntoRange(*this);
    m_storedVariables = merged.variables;
    m_saved = Content();
    return true;
}

SSettings CPreferences::Content() const { return {*this, m_storedVariables}; }

/** What is left of a store that was lost or damaged, with what this instance knows of it from before. */
SSettings CPreferences::Repaired(SSettings stored) const
{
    stored.pack.MergeChanges(CDataPack(), m_saved.pack);
    if (stored.variables.isEmpty())
        stored.variables = m_saved.variables;
    return stored;
}

void CPreferences::Apply()
{
    for (const QString& sPath : BringIntoRange(*this))
        CMessageSink::Instance().Log(QString("Settings: %1 was out of range").arg(sPath));
    m_draw = ReadDrawPreferences(*this);
    CMessageSink::Instance().SetDebugLevel(Get(*this, PreferenceKey::DEBUG_LEVEL));
    CMemoryManager::Instance().SetLimit(Get(*this, PreferenceKey::MEMORY_LIMIT));
}
