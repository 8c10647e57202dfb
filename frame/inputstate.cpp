#include "frame/inputstate.h"

#include <algorithm>

namespace {

struct SModifier
{
    int nKey;
    Qt::KeyboardModifier eFlag;
};
constexpr SModifier MODIFIERS[] = {{Qt::Key_Shift, Qt::ShiftModifier},
                                   {Qt::Key_Control, Qt::ControlModifier},
                                   {Qt::Key_Alt, Qt::AltModifier}};

bool IsModifier(int nKey)
{
    return std::ranges::any_of(MODIFIERS, [=](const SModifier& modifier) { return modifier.nKey == nKey; });
}

/**
 * Digits and signs: on many keyboards some of them are typed with Shift ("+" on American ones, digits on
 * French ones). With another character on the same key the code would be another.
 */
bool IsTypedSign(int nKey)
{
    return nKey > Qt::Key_Space && nKey <= Qt::Key_AsciiTilde && !(nKey >= Qt::Key_A && nKey <= Qt::Key_Z);
}

bool Allows(const SAccelerator& accelerator, int nKey)
{
    return accelerator.requiredKeys.Contains(nKey) || accelerator.optionalKeys.Contains(nKey);
}

bool ButtonsFit(const SAccelerator& accelerator, const SInputState& state)
{
    return accelerator.bLeft == state.buttons.testFlag(Qt::LeftButton) &&
           accelerator.bMiddle == state.buttons.testFlag(Qt::MiddleButton) &&
           accelerator.bRight == state.buttons.testFlag(Qt::RightButton) &&
           !(accelerator.HasButton() && state.bSpent);
}

bool DragFits(DragMode_e eDrag, const SInputState& state)
{
    switch (eDrag) {
    case DragNone:
        return !state.bDragged;
    case DragUp:
        return state.bDragged && state.drag.y() < 0;
    case DragDown:
        return state.bDragged && state.drag.y() > 0;
    case DragAny:
        break;
    }
    return state.bDragged;
}

bool ModifiersFit(const SAccelerator& accelerator, const SInputState& state)
{
    const bool bShiftTyped = std::ranges::any_of(state.keys, IsTypedSign);
    return std::ranges::all_of(MODIFIERS, [&](const SModifier& modifier) {
        if (!state.modifiers.testFlag(modifier.eFlag))
            return !accelerator.requiredKeys.Contains(modifier.nKey);
        return Allows(accelerator, modifier.nKey) || (modifier.nKey == Qt::Key_Shift && bShiftTyped);
    });
}

bool KeysFit(const SAccelerator& accelerator, const SInputState& state)
{
    const auto IsAllowed = [&](int nKey) { return Allows(accelerator, nKey); };
    const auto IsDown = [&](int nKey) { return IsModifier(nKey) || state.keys.contains(nKey); };
    return std::ranges::all_of(state.keys, IsAllowed) &&
           std::ranges::all_of(accelerator.requiredKeys, IsDown);
}

} // namespace

void CInputTracker::PressButton(Qt::MouseButton eButton, const QPoint& position)
{
    if (m_state.buttons == Qt::NoButton) {
        m_pressPosition = position;
        m_state.drag = {};
        m_state.bDragged = m_state.bSpent = false;
    }
    m_state.buttons |= eButton;
}

void CInputTracker::MovePointer(const QPoint& position)
{
    if (m_state.buttons == Qt::NoButton)
        return;
    m_state.drag = position - m_pressPosition;
    if (QPoint::dotProduct(m_state.drag, m_state.drag) > CLICK_RADIUS * CLICK_RADIUS)
        m_state.bDragged = true;
}

SInputState CInputTracker::ReleaseButton(Qt::MouseButton eButton)
{
    const SInputState before = m_state;
    m_state.buttons &= ~Qt::MouseButtons(eButton);
    m_state.bSpent = m_state.buttons != Qt::NoButton;
    if (!m_state.bSpent) {
        m_state.drag = {};
        m_state.bDragged = false;
    }
    return before;
}

void CInputTracker::PressKey(int nKey, quint32 nScanCode)
{
    if (IsModifier(nKey) || (nScanCode && m_typed.contains(nScanCode)))
        return;
    if (nScanCode)
        m_typed.insert(nScanCode, nKey);
    if (!m_state.keys.contains(nKey))
        m_state.keys.append(nKey);
}

void CInputTracker::ReleaseKey(int nKey, quint32 nScanCode)
{
    const auto typed = m_typed.constFind(nScanCode);
    m_state.keys.removeAll(typed == m_typed.cend() ? nKey : *typed);
    m_typed.remove(nScanCode);
}

bool Matches(const SAccelerator& accelerator, const SInputState& state)
{
    return (accelerator.HasButton() || accelerator.requiredKeys.Count() > 0) &&
           ButtonsFit(accelerator, state) && DragFits(accelerator.eDrag, state) &&
           ModifiersFit(accelerator, state) && KeysFit(accelerator, state);
}

MouseAction_e FindAction(qint64 nPreset, const SInputState& state)
{
    MouseAction_e eBest = MouseNone;
    int nBestRequired = -1;
    for (int nAction = 0; nAction < MOUSE_ACTION_COUNT; ++nAction) {
        const SAccelerator& accelerator = GetAccelerator(nPreset, nAction);
        if (accelerator.requiredKeys.Count() > nBestRequired && Matches(accelerator, state)) {
            eBest = MouseAction_e(nAction);
            nBestRequired = accelerator.requiredKeys.Count();
        }
    }
    return eBest;
}

bool IsActionActive(qint64 nPreset, MouseAction_e eAction, const SInputState& state)
{
    return eAction != MouseNone && FindAction(nPreset, state) == eAction;
}
