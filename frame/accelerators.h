#pragma once

#include <QString>

#include <array>
#include <concepts>

/** What mouse and keyboard do in a view. The values are the rows of the accelerator table. */
enum MouseAction_e {
    MouseNone = -1,
    MouseToggleHover,
    MouseZoomIn,
    MouseZoomOut,
    MousePanning,
    MouseRotate,
    MouseChangeAxis,
    MouseSelectOnBox,
    MouseSelectInBox,
    MouseZoomBox1,
    MouseZoomBox2,
    MouseSelect,
    MousePopupMenu,
    MouseZoomToFit,
    MouseZoomToSelection,
    MouseResetView,
    MousePointInformation,
    MouseRotateAroundScreen,
    MouseRotateScreenX,
    MouseRotateScreenY,
    MouseRotateScreenZ,
    MousePanningLeft,
    MousePanningRight,
    MousePanningUp,
    MousePanningDown,
    MouseRotateLeft,
    MouseRotateRight,
    MouseRotateUp,
    MouseRotateDown,
    MouseMeasureDistance,
    MouseFocusRotation,
    MOUSE_ACTION_COUNT
};

enum DragMode_e {
    DragNone, ///< a click: the pointer stays where the button went down
    DragAny,  ///< in any direction, level too
    DragUp,
    DragDown
};

/** Up to three key codes (Qt::Key), modifiers among them. */
class CKeyList
{
public:
    template <std::convertible_to<int>... Keys>
    constexpr CKeyList(Keys... keys) : m_keys{int(keys)...}, m_nCount(sizeof...(keys))
    {}

    constexpr const int* begin() const { return m_keys.data(); }
    constexpr const int* end() const { return m_keys.data() + m_nCount; }
    constexpr int Count() const { return m_nCount; }
    constexpr bool Contains(int nKey) const
    {
        for (const int nOwn : *this)
            if (nOwn == nKey)
                return true;
        return false;
    }

private:
    std::array<int, 3> m_keys;
    int m_nCount;
};

/** What has to be pressed for an action. One without buttons and required keys stands for nothing at all. */
struct SAccelerator
{
    bool bLeft = false;
    bool bMiddle = false;
    bool bRight = false;
    DragMode_e eDrag = DragNone;
    CKeyList requiredKeys;
    CKeyList optionalKeys; ///< may be down as well; they change how the action works

    constexpr bool HasButton() const { return bLeft || bMiddle || bRight; }
};

inline constexpr int KEY_PRESET_COUNT = 5;
/** "Pointwise", the default, "Fieldview", "Gridgen", "Fast", "Tecplot". */
extern const std::array<const char*, KEY_PRESET_COUNT> KEY_PRESET_NAMES;

/** The name of an action as the user sees it; empty for an action out of range. */
QString GetMouseActionName(qint64 nAction);

/**
 * What a preset asks for an action.
 *
 * @param nPreset  as the preference "Basic.KeyPreset"; one out of range counts as 0
 * @param nAction  a MouseAction_e; one out of range gives a record that stands for nothing
 */
const SAccelerator& GetAccelerator(qint64 nPreset, qint64 nAction);

/**
 * The record in words: "Ctrl + Shift + Right Mouse Button", "Middle Mouse Button + Drag Up". Optional keys
 * lead in brackets and without a "+": "(Ctrl) Shift + Left Mouse Button + Drag".
 */
QString GetAcceleratorText(const SAccelerator& accelerator);
