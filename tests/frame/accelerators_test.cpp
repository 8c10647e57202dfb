#include "frame/accelerators.h"

#include "frame/inputstate.h"

namespace {

/** Holds down exactly what the record asks for, and its optional keys if wished. */
SInputState StateFor(const SAccelerator& accelerator, bool bWithOptional = false)
{
    CInputTracker tracker;
    Qt::KeyboardModifiers modifiers;
    const auto press = [&](int nKey) {
        modifiers |= nKey == Qt::Key_Shift     ? Qt::ShiftModifier
                     : nKey == Qt::Key_Control ? Qt::ControlModifier
                     : nKey == Qt::Key_Alt     ? Qt::AltModifier
                                               : Qt::NoModifier;
        tracker.PressKey(nKey);
    };
    for (const int nKey : accelerator.requiredKeys)
        press(nKey);
    if (bWithOptional)
        for (const int nKey : accelerator.optionalKeys)
            press(nKey);
    tracker.SetModifiers(modifiers);
    for (const auto& [bDown, eButton] : {std::pair{accelerator.bLeft, Qt::LeftButton},
                                         {accelerator.bMiddle, Qt::MiddleButton},
                                         {accelerator.bRight, Qt::RightButton}})
        if (bDown)
            tracker.PressButton(eButton, {50, 50});
    if (accelerator.eDrag != DragNone)
        tracker.MovePointer({50, accelerator.eDrag == DragDown ? 60 : 40});
    return tracker.State();
}

/** Button down, pointer on its way, modifiers held. */
SInputState Gesture(Qt::MouseButton eButton, const QPoint& way, Qt::KeyboardModifiers modifiers = {})
{
    CInputTracker tracker;
    tracker.SetModifiers(modifiers);
    tracker.PressButton(eButton, {50, 50});
    tracker.MovePointer(QPoint(50, 50) + way);
    return tracker.State();
}

SInputState KeyDown(int nKey, Qt::KeyboardModifiers modifiers = {})
{
    CInputTracker tracker;
    tracker.SetModifiers(modifiers);
    tracker.PressKey(nKey);
    return tracker.State();
}

enum Preset_e { Pointwise, Fieldview, Gridgen, Fast, Tecplot };
constexpr QPoint STILL(0, 0), LEVEL(8, 0), UP(1, -8), DOWN(1, 8);

} // namespace

TEST(Accelerators, InEveryPresetEveryActionCanBeReached)
{
    for (int nPreset = 0; nPreset < KEY_PRESET_COUNT; ++nPreset)
        for (int nAction = 0; nAction < MOUSE_ACTION_COUNT; ++nAction) {
            const SInputState state = StateFor(GetAccelerator(nPreset, nAction));
            EXPECT_EQ(FindAction(nPreset, state), nAction)
                << KEY_PRESET_NAMES[nPreset] << ": " << GetMouseActionName(nAction).toStdString();
        }
}

TEST(Accelerators, TwoRowsThatFitTheSameStateDifferInTheKeysTheyRequire)
{
    for (int nPreset = 0; nPreset < KEY_PRESET_COUNT; ++nPreset)
        for (int nAction = 0; nAction < MOUSE_ACTION_COUNT; ++nAction)
            for (const bool bWithOptional : {false, true}) {
                const SAccelerator& own = GetAccelerator(nPreset, nAction);
                const SInputState state = StateFor(own, bWithOptional);
                const int nWinner = FindAction(nPreset, state);
                const int nRequired = GetAccelerator(nPreset, nWinner).requiredKeys.Count();
                for (int nOther = 0; nOther < MOUSE_ACTION_COUNT; ++nOther)
                    if (const SAccelerator& other = GetAccelerator(nPreset, nOther);
                        nOther != nWinner && Matches(other, state)) {
                        EXPECT_LT(other.requiredKeys.Count(), nRequired)
                            << KEY_PRESET_NAMES[nPreset] << ": " << GetMouseActionName(nOther).toStdString()
                            << " and " << GetMouseActionName(nWinner).toStdString();
                    }
            }
}

TEST(Accelerators, WhereRowsMeetTheRulingsDecide)
{
    struct SCase
    {
        Preset_e ePreset;
        SInputState state;
        MouseAction_e eExpected;
    };
    const SCase cases[] = {
        {Fast, Gesture(Qt::LeftButton, STILL, Qt::ControlModifier), MouseChangeAxis},
        {Fast, Gesture(Qt::LeftButton, LEVEL, Qt::ControlModifier), MouseRotateAroundScreen},
        {Tecplot, Gesture(Qt::LeftButton, LEVEL), MouseRotate},
        {Tecplot, Gesture(Qt::LeftButton, UP, Qt::ControlModifier), MouseSelectOnBox},
        {Fieldview, Gesture(Qt::LeftButton, UP, Qt::ControlModifier | Qt::AltModifier), MouseZoomBox2},
        {Fieldview, Gesture(Qt::LeftButton, UP, Qt::AltModifier), MouseSelectOnBox},
        {Fieldview, Gesture(Qt::LeftButton, STILL, Qt::AltModifier), MouseMeasureDistance},
        {Gridgen, Gesture(Qt::LeftButton, STILL, Qt::ControlModifier), MouseChangeAxis},
        {Gridgen, Gesture(Qt::LeftButton, DOWN, Qt::ControlModifier), MouseRotate},
        {Tecplot, Gesture(Qt::MiddleButton, UP), MouseZoomIn},
        {Tecplot, Gesture(Qt::MiddleButton, DOWN), MouseZoomOut},
        {Tecplot, Gesture(Qt::MiddleButton, LEVEL), MouseNone},
        {Tecplot, KeyDown(Qt::Key_F, Qt::ControlModifier), MouseZoomToFit},
        {Tecplot, KeyDown(Qt::Key_F), MouseFocusRotation},
        {Pointwise, Gesture(Qt::LeftButton, LEVEL, Qt::ControlModifier), MouseSelectOnBox},
        {Pointwise, Gesture(Qt::LeftButton, STILL, Qt::ShiftModifier), MouseNone},
        {Pointwise, KeyDown(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier), MouseRotateLeft},
        {Pointwise, KeyDown(Qt::Key_Plus, Qt::ShiftModifier), MouseZoomIn},
        {Pointwise, KeyDown(Qt::Key_Plus, Qt::ControlModifier), MouseNone},
        {Pointwise, KeyDown(Qt::Key_F, Qt::ShiftModifier), MouseNone},
    };
    for (const SCase& each : cases)
        EXPECT_EQ(FindAction(each.ePreset, each.state), each.eExpected)
            << "case " << &each - cases << " of " << KEY_PRESET_NAMES[each.ePreset];
}

TEST(Accelerators, AClickIsOneOnReleaseUnlessThePointerWentMoreThanThreePixels)
{
    const auto Released = [](const QVector<QPoint>& way) {
        CInputTracker tracker;
        tracker.PressButton(Qt::LeftButton, {10, 10});
        for (const QPoint& step : way)
            tracker.MovePointer(QPoint(10, 10) + step);
        return FindAction(Pointwise, tracker.ReleaseButton(Qt::LeftButton));
    };
    EXPECT_EQ(Released({}), MouseSelect);
    EXPECT_EQ(Released({{0, 3}}), MouseSelect);
    EXPECT_EQ(Released({{3, 1}}), MouseSelectOnBox);
    EXPECT_EQ(Released({{0, 4}, {0, 0}}), MouseSelectOnBox) << "back at the start it is still a drag";

    CInputTracker tracker;
    tracker.PressButton(Qt::LeftButton, {});
    tracker.PressButton(Qt::RightButton, {});
    EXPECT_EQ(FindAction(Pointwise, tracker.ReleaseButton(Qt::RightButton)), MouseNone);
    EXPECT_EQ(FindAction(Pointwise, tracker.ReleaseButton(Qt::LeftButton)), MouseNone)
        << "the end of two buttons is no click";
    tracker.PressButton(Qt::LeftButton, {});
    EXPECT_EQ(FindAction(Pointwise, tracker.ReleaseButton(Qt::LeftButton)), MouseSelect);
}

TEST(Accelerators, ASignWhoseShiftGoesUpFirstDoesNotStayDown)
{
    constexpr quint32 SCAN_CODE = 21;
    CInputTracker tracker;
    tracker.SetModifiers(Qt::ShiftModifier);
    tracker.PressKey(Qt::Key_Plus, SCAN_CODE);
    tracker.SetModifiers({});
    tracker.PressKey(Qt::Key_Equal, SCAN_CODE); // repeats
    EXPECT_EQ(FindAction(Pointwise, tracker.State()), MouseZoomIn);
    tracker.ReleaseKey(Qt::Key_Equal, SCAN_CODE);
    EXPECT_EQ(FindAction(Pointwise, tracker.State()), MouseNone);
    tracker.PressKey(Qt::Key_Equal, SCAN_CODE);
    tracker.ReleaseKey(Qt::Key_Equal, SCAN_CODE);
    EXPECT_TRUE(tracker.State().keys.isEmpty());
}

TEST(Accelerators, TheTextNamesKeysButtonsAndDrag)
{
    const auto Text = [](Preset_e ePreset, MouseAction_e eAction) {
        return GetAcceleratorText(GetAccelerator(ePreset, eAction));
    };
    EXPECT_EQ(Text(Pointwise, MousePopupMenu), "Right Mouse Button");
    EXPECT_EQ(Text(Pointwise, MouseChangeAxis), "Ctrl + Shift + Right Mouse Button");
    EXPECT_EQ(Text(Pointwise, MouseSelectInBox), "(Ctrl) Shift + Left Mouse Button + Drag");
    EXPECT_EQ(Text(Pointwise, MouseSelect), "(Ctrl) Left Mouse Button");
    EXPECT_EQ(Text(Tecplot, MouseZoomIn), "Middle Mouse Button + Drag Up");
    EXPECT_EQ(Text(Tecplot, MouseZoomToFit), "Ctrl + F");
    EXPECT_EQ(Text(Tecplot, MouseRotateScreenX), "(Ctrl) (PgUp) (PgDown) 7");
    EXPECT_EQ(Text(Pointwise, MousePointInformation), "Alt");
    EXPECT_EQ(Text(Pointwise, MouseResetView), "Alt + R") << "as the window's own command has it";
    EXPECT_EQ(GetAcceleratorText(GetAccelerator(17, MousePanning)), Text(Pointwise, MousePanning));
    EXPECT_FALSE(Matches(GetAccelerator(0, MOUSE_ACTION_COUNT), SInputState()));
}
