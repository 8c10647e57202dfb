#pragma once

#include "frame/accelerators.h"

#include <QHash>
#include <QPoint>
#include <QVector>

/** Beyond so much of a way from where the button went down, a click has become a drag [pixels]. */
inline constexpr int CLICK_RADIUS = 3;

/** What the user holds down at one moment, and how far the pointer has been dragged. */
struct SInputState
{
    Qt::MouseButtons buttons;
    Qt::KeyboardModifiers modifiers;
    QVector<int> keys;     ///< Qt::Key of all keys that are down but Shift, Control and Alt
    QPoint drag;           ///< from where the first button went down to the pointer [pixels], y downwards
    bool bDragged = false; ///< the pointer has been out of CLICK_RADIUS; coming back doesn't undo it
    bool bSpent = false;   ///< of several buttons one was released: what is left of them does nothing
};

/**
 * Follows the events of a view and keeps their input state. Buttons, keys and modifiers that went up while
 * the view didn't look are what Clear is for. Positions in logical pixels of the view.
 */
class CInputTracker
{
public:
    const SInputState& State() const { return m_state; }

    void PressButton(Qt::MouseButton eButton, const QPoint& position);
    void MovePointer(const QPoint& position);
    /** Gives the state in which the button was still down: what the release means is asked of this one. */
    SInputState ReleaseButton(Qt::MouseButton eButton);

    /**
     * Shift, Control and Alt are left out, since they come with SetModifiers; a repeat changes nothing.
     *
     * @param nScanCode  names the key on the keyboard; 0: not known. With it a key whose Shift goes up first
     *                   comes up as what it was: "+" is "=" by then.
     */
    void PressKey(int nKey, quint32 nScanCode = 0);
    void ReleaseKey(int nKey, quint32 nScanCode = 0);
    /** Those of the event at hand, QInputEvent::modifiers(). */
    void SetModifiers(Qt::KeyboardModifiers modifiers) { m_state.modifiers = modifiers; }

    /** Nothing is down. */
    void Clear()
    {
        m_state = {};
        m_typed.clear();
    }

private:
    SInputState m_state;
    QHash<quint32, int> m_typed; // Qt::Key that each key was when it went down, by scan code
    QPoint m_pressPosition;
};

/** Whether the state is what the record asks for; of several records that fit FindAction takes one. */
bool Matches(const SAccelerator& accelerator, const SInputState& state);

/**
 * The one action that the state stands for in a preset, MouseNone for none. While something is held, this
 * is the action in progress; with the state at a release, what the release completes: a click acts then. With
 * the state after a key press, it is what the key means.
 *
 * Of several that match, the one that requires more keys goes ahead of those that only allow them, then the
 * first of the table.
 *
 * @param nPreset  as the preference "Basic.KeyPreset"; one out of range counts as 0
 */
MouseAction_e FindAction(qint64 nPreset, const SInputState& state);

/** Whether FindAction gives this action. */
bool IsActionActive(qint64 nPreset, MouseAction_e eAction, const SInputState& state);
