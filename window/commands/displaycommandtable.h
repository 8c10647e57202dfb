#pragma once

#include "scene/selectablemanager.h"
#include "window/commands/actionid.h"

#include <QColor>
#include <QVector>

#include <optional>
#include <span>

class ISelectable;

/** What the user has answered, or set, for a command. */
struct SDisplayAnswer
{
    double dNumber = 0.0;
    QColor color;
    bool bFlag = false; ///< checked state of the action
};

/** A command on selected items. */
struct SDisplayCommand
{
    ActionId_e eAction;
    void (*Apply)(const QVector<ISelectable*>&, const SDisplayAnswer&);
    /** Asks the user, starting from the first item; nothing: cancelled. Null: there is nothing to ask. */
    std::optional<SDisplayAnswer> (*Ask)(const ISelectable&) = nullptr;
    /** The flag that the answer is to have for all items, from what they are. Null: the action's check. */
    bool (*Flag)(const QVector<ISelectable*>&) = nullptr;
    /** Whether the item can be shown that way; those that can't are left out, and the status bar says why. */
    bool (*IsPossible)(const ISelectable&) = nullptr;
    const char* sRefusal = "";
    /** Who is told of each item. */
    void (CSelectableManager::*Notify)(ISelectable*) = &CSelectableManager::NotifyUpdated;
};

std::span<const SDisplayCommand> DisplayCommandTable();
