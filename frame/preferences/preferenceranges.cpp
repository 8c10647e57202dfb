#include "frame/preferences/preferenceranges.h"

#include "frame/accelerators.h"
#include "frame/preferences/colormapnames.h"
#include "frame/preferences/preferencekeys.h"

#include <cmath>
#include <limits>

namespace {

using namespace PreferenceKey;

/** Choices and quantities differ in what a value out of range becomes. */
enum RangeKind_e { Choice, Quantity };

struct SIntRange
{
    const SKey<qint64>& key;
    qint64 nMinimum;
    qint64 nMaximum;
    RangeKind_e eKind;
};

struct SRealRange
{
    const SKey<double>& key;
    double dMinimum; // a value of 0 or less, where this is more, is no slow one but a wrong one: default
    double dMaximum;
};

constexpr qint64 UNLIMITED = std::numeric_limits<qint64>::max();
constexpr int LAST_COLORMAP = int(std::size(COLORMAP_NAMES)) - 1;

constexpr SIntRange INT_RANGES[] = {
    {SELECTION_AREA, 0, 100, Quantity},
    {ZOOM_SENSITIVITY, 1, 400, Quantity}, // a step of 500 would make the view box empty
    {KEY_PRESET, 0, KEY_PRESET_COUNT - 1, Choice},
    {POINT_SIZE, 1, 100, Quantity},
    {ROTATION_AXIS_VISIBILITY, 0, 2, Choice},
    {DEFAULT_COLORMAP, 0, LAST_COLORMAP, Choice},
    {FONT_INCREMENT, -50, 50, Quantity},
    {MEMORY_LIMIT, 0, UNLIMITED, Quantity},
    {DEBUG_LEVEL, 0, 10, Quantity},
    {DEFAULT_FACE, 0, 6, Choice},
    {THEME, 0, 3, Choice},
    {SPLITTER_WIDTH, 1, 50, Quantity},
};

constexpr SRealRange REAL_RANGES[] = {
    {MOUSE_SENSITIVITY, 0.001, 10.0},
    {KEYBOARD_SENSITIVITY, 0.001, 10.0},
    {LINE_THICKNESS, 0.1, 100.0},
    {ANGLE_LIMIT, 0.0, M_PI},
};

constexpr const SKey<QColor>* COLOR_KEYS[] = {
    &AXES_COLOR,           &HIGHLIGHT_COLOR,      &SELECT_COLOR,         &OUTLINE_COLOR,       &PREVIEW_COLOR,
    &BACKGROUND_COLORS[0], &BACKGROUND_COLORS[1], &BACKGROUND_COLORS[2], &BACKGROUND_COLORS[3]};

qint64 InRange(const SIntRange& range, qint64 nValue)
{
    if (nValue >= range.nMinimum && nValue <= range.nMaximum)
        return nValue;
    return range.eKind == Choice ? range.key.defaultValue
                                 : std::clamp(nValue, range.nMinimum, range.nMaximum);
}

double InRange(const SRealRange& range, double dValue)
{
    if (!std::isfinite(dValue) || (range.dMinimum > 0.0 && dValue <= 0.0))
        return range.key.defaultValue;
    return std::clamp(dValue, range.dMinimum, range.dMaximum);
}

QColor InRange(const SKey<QColor>& key, const QColor& value)
{
    return value.isValid() ? value : key.defaultValue;
}

/** Stores the value in range if it differs, with a word in the list. */
template <class T>
void Correct(CDataPack& pack, const SKey<T>& key, const std::type_identity_t<T>& inRange, QStringList& sList)
{
    if (Get(pack, key) == inRange) // a NaN differs from itself, too
        return;
    Set(pack, key, inRange);
    sList.append(key.sPath);
}

void CorrectPorts(CDataPack& pack, QStringList& sList)
{
    for (const QString& sName : pack.SubPackNames(REMOTE_PACK)) {
        const QString sPath = QString(REMOTE_PORT.sPath).arg(sName);
        const qint64 nPort = pack.GetInt(sPath, REMOTE_PORT.defaultValue);
        if (nPort >= 1 && nPort <= 65535)
            continue;
        pack.SetInt(sPath, REMOTE_PORT.defaultValue, REMOTE_PORT.defaultValue);
        sList.append(sPath);
    }
}

} // namespace

QStringList BringIntoRange(CDataPack& preferences)
{
    QStringList sChangedList;
    for (const SIntRange& range : INT_RANGES)
        Correct(preferences, range.key, InRange(range, Get(preferences, range.key)), sChangedList);
    for (const SRealRange& range : REAL_RANGES)
        Correct(preferences, range.key, InRange(range, Get(preferences, range.key)), sChangedList);
    for (const SKey<QColor>* const pKey : COLOR_KEYS)
        Correct(preferences, *pKey, InRange(*pKey, Get(preferences, *pKey)), sChangedList);
    CorrectPorts(preferences, sChangedList);
    Correct(preferences, RECENT_FILES, Get(preferences, RECENT_FILES).mid(0, RECENT_FILES_LIMIT),
            sChangedList);
    return sChangedList;
}
