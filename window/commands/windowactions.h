#pragma once

#include "window/commands/actionid.h"
#include "window/commands/actionstate.h"

#include <QAction>
#include <QObject>

#include <array>

/**
 * The common actions of the main window, made from the action table. An action that is bound to nothing
 * has no effect yet and stays grey; a bound one can be used when its row's condition holds.
 */
class CWindowActions : public QObject
{
    Q_OBJECT

public:
    /** The actions belong to the parent, whose shortcuts they are. */
    explicit CWindowActions(QWidget* pParent);

    QAction* Get(ActionId_e eId) const { return m_actions[eId]; }

    /** From now on the action calls the slot, which takes nothing, or the checked state. */
    template <class Receiver, class Slot> void Bind(ActionId_e eId, Receiver* pReceiver, Slot slot)
    {
        connect(m_actions[eId], &QAction::triggered, pReceiver, slot);
        m_bound[eId] = true;
    }
    /** For an action whose state is read by others, or that stands for a menu. */
    void BindWithoutSlot(ActionId_e eId) { m_bound[eId] = true; }

    /** Enables each action by the state. */
    void Update(const SActionState& state);

private:
    std::array<QAction*, ACTION_COUNT> m_actions;
    std::array<bool, ACTION_COUNT> m_bound = {};
};
