#include "frame/accelerators.h"

#include <QKeySequence>

namespace {

constexpr int SHIFT = Qt::Key_Shift;
constexpr int CTRL = Qt::Key_Control;
constexpr int ALT = Qt::Key_Alt;

constexpr SAccelerator Key(const CKeyList& required, const CKeyList& optional = {})
{
    return {.requiredKeys = required, .optionalKeys = optional};
}

constexpr SAccelerator Drag(Qt::MouseButton eButton, const CKeyList& required = {},
                            const CKeyList& optional = {}, DragMode_e eDrag = DragAny)
{
    return {eButton == Qt::LeftButton,
            eButton == Qt::MiddleButton,
            eButton == Qt::RightButton,
            eDrag,
            required,
            optional};
}

constexpr SAccelerator Click(Qt::MouseButton eButton, const CKeyList& required = {},
                             const CKeyList& optional = {})
{
    return Drag(eButton, required, optional, DragNone);
}

/** An action with what each preset asks for it. */
struct SActionRow
{
    const char* sName;
    std::array<SAccelerator, KEY_PRESET_COUNT> accelerators;

    constexpr SActionRow(const char* sTheName, const std::array<SAccelerator, KEY_PRESET_COUNT>& each)
        : sName(sTheName), accelerators(each)
    {}
    constexpr SActionRow(const char* sTheName, const SAccelerator& all)
        : SActionRow(sTheName, {all, all, all, all, all})
    {}
};

constexpr Qt::MouseButton LEFT = Qt::LeftButton;
constexpr Qt::MouseButton MIDDLE = Qt::MiddleButton;
constexpr Qt::MouseButton RIGHT = Qt::RightButton;

constexpr CKeyList STEP_KEYS(CTRL, Qt::Key_PageUp, Qt::Key_PageDown);
// Of the keyboards of other systems. On those of this one Alt stands there, and the window's command for the
// only row that has it takes that.
constexpr int OPTION_KEY = 0x10000E1;

using Each = std::array<SAccelerator, KEY_PRESET_COUNT>;

// The order of the rows is MouseAction_e. Of the presets, "Fast" has the drag and the click of Ctrl + Left
// for two actions, and in "Tecplot" a plain left drag rotates, so that a box takes Ctrl there.
constexpr SActionRow ACTION_ROWS[] = {
    {"Toggle Hover", Key(Qt::Key_Space)},
    {"Zoom In", Each{Key(Qt::Key_Plus), Key(Qt::Key_Plus), Key(Qt::Key_Plus), Key(Qt::Key_Plus),
                     Drag(MIDDLE, {}, {}, DragUp)}},
    {"Zoom Out", Each{Key(Qt::Key_Minus), Key(Qt::Key_Minus), Key(Qt::Key_Minus), Key(Qt::Key_Minus),
                      Drag(MIDDLE, {}, {}, DragDown)}},
    {"Panning", Each{Drag(RIGHT, SHIFT), Drag(LEFT), Drag(LEFT), Drag(RIGHT), Drag(RIGHT)}},
    {"Rotate", Each{Drag(RIGHT, CTRL), Drag(MIDDLE), Drag(LEFT, CTRL), Drag(LEFT), Drag(LEFT)}},
    {"Change Axis", Each{Click(RIGHT, {CTRL, SHIFT}), Click(RIGHT, {CTRL, SHIFT}), Click(LEFT, CTRL),
                         Click(LEFT, CTRL), Key(Qt::Key_O)}},
    {"Select On Box", Each{Drag(LEFT, {}, CTRL), Drag(LEFT, ALT, CTRL), Drag(RIGHT, {}, CTRL),
                           Drag(RIGHT, ALT, CTRL), Drag(LEFT, CTRL)}},
    {"Select In Box", Each{Drag(LEFT, SHIFT, CTRL), Drag(LEFT, {ALT, SHIFT}, CTRL), Drag(RIGHT, SHIFT, CTRL),
                           Drag(RIGHT, {ALT, SHIFT}, CTRL), Drag(LEFT, SHIFT, CTRL)}},
    {"Zoom Box (1)", Each{Drag(MIDDLE, SHIFT), Drag(RIGHT, SHIFT), Drag(MIDDLE, SHIFT), Drag(MIDDLE, SHIFT),
                          Drag(MIDDLE, SHIFT)}},
    {"Zoom Box (2)", Drag(LEFT, {CTRL, ALT})},
    {"Select", Each{Click(LEFT, {}, CTRL), Click(LEFT, {}, CTRL), Click(RIGHT, {}, CTRL),
                    Click(LEFT, {}, CTRL), Click(LEFT, {}, CTRL)}},
    {"Popup Menu", Each{Click(RIGHT), Click(RIGHT), Click(RIGHT, ALT), Click(RIGHT), Click(RIGHT)}},
    {"Zoom To Fit", Each{Click(MIDDLE), Click(MIDDLE), Click(MIDDLE), Click(MIDDLE), Key({CTRL, Qt::Key_F})}},
    {"Zoom To Selection", Key({SHIFT, Qt::Key_F2})},
    {"Reset View", Key({OPTION_KEY, Qt::Key_R})},
    {"Point Information", Key(ALT)},
    {"Rotate Around Screen",
     Each{Drag(MIDDLE, CTRL), Drag(MIDDLE, CTRL), Drag(MIDDLE, CTRL), Drag(LEFT, CTRL), Drag(MIDDLE, CTRL)}},
    {"Rotate Screen X", Key(Qt::Key_7, STEP_KEYS)},
    {"Rotate Screen Y", Key(Qt::Key_8, STEP_KEYS)},
    {"Rotate Screen Z", Key(Qt::Key_9, STEP_KEYS)},
    {"Panning Left", Key({CTRL, Qt::Key_Left})},
    {"Panning Right", Key({CTRL, Qt::Key_Right})},
    {"Panning Up", Key({CTRL, Qt::Key_Up})},
    {"Panning Down", Key({CTRL, Qt::Key_Down})},
    {"Rotate Left", Key({CTRL, SHIFT, Qt::Key_Left})},
    {"Rotate Right", Key({CTRL, SHIFT, Qt::Key_Right})},
    {"Rotate Up", Key({CTRL, SHIFT, Qt::Key_Up})},
    {"Rotate Down", Key({CTRL, SHIFT, Qt::Key_Down})},
    {"Measure Distance", Click(LEFT, ALT)},
    {"Focus Rotation", Key(Qt::Key_F)},
};
static_assert(std::size(ACTION_ROWS) == MOUSE_ACTION_COUNT);

bool IsAction(qint64 nAction) { return nAction >= 0 && nAction < MOUSE_ACTION_COUNT; }

QString KeyName(int nKey)
{
    // Qt has no text for a modifier alone, and its "Left" reads as a mouse button here.
    static constexpr std::pair<int, const char*> OWN_NAMES[] = {{SHIFT, "Shift"},
                                                                {CTRL, "Ctrl"},
                                                                {ALT, "Alt"},
                                                                {OPTION_KEY, "Alt"},
                                                                {Qt::Key_Left, "Left Arrow"},
                                                                {Qt::Key_Right, "Right Arrow"},
                                                                {Qt::Key_Up, "Up Arrow"},
                                                                {Qt::Key_Down, "Down Arrow"}};
    for (const auto& [nOwn, sName] : OWN_NAMES)
        if (nOwn == nKey)
            return sName;
    return QKeySequence(nKey).toString(QKeySequence::PortableText);
}

/** Texts one after the other: what follows an optional key has a blank before it, all else a "+". */
class CTextChain
{
public:
    void Add(const QString& sText, bool bOptional = false)
    {
        if (m_sText.isEmpty())
            m_sText = sText;
        else
            m_sText = QString(m_bAfterOptional ? "%1 %2" : "%1 + %2").arg(m_sText, sText);
        m_bAfterOptional = bOptional;
    }
    const QString& Text() const { return m_sText; }

private:
    QString m_sText;
    bool m_bAfterOptional = false;
};

} // namespace

const std::array<const char*, KEY_PRESET_COUNT> KEY_PRESET_NAMES = {"Pointwise", "Fieldview", "Gridgen",
                                                                    "Fast", "Tecplot"};

QString GetMouseActionName(qint64 nAction)
{
    return IsAction(nAction) ? QString(ACTION_ROWS[nAction].sName) : QString();
}

const SAccelerator& GetAccelerator(qint64 nPreset, qint64 nAction)
{
    static constexpr SAccelerator NOTHING;
    if (!IsAction(nAction))
        return NOTHING;
    const bool bIsPreset = nPreset >= 0 && nPreset < KEY_PRESET_COUNT;
    return ACTION_ROWS[nAction].accelerators[bIsPreset ? nPreset : 0];
}

QString GetAcceleratorText(const SAccelerator& accelerator)
{
    static constexpr const char* DRAG_TEXTS[] = {"", "Drag", "Drag Up", "Drag Down"};
    CTextChain chain;
    for (const int nKey : accelerator.optionalKeys)
        chain.Add(QString("(%1)").arg(KeyName(nKey)), true);
    for (const int nKey : accelerator.requiredKeys)
        chain.Add(KeyName(nKey));
    if (accelerator.bLeft)
        chain.Add("Left Mouse Button");
    if (accelerator.bMiddle)
        chain.Add("Middle Mouse Button");
    if (accelerator.bRight)
        chain.Add("Right Mouse Button");
    if (accelerator.eDrag != DragNone)
        chain.Add(DRAG_TEXTS[accelerator.eDrag]);
    return chain.Text();
}
