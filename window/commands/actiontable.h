#pragma once

#include "window/commands/actionid.h"
#include "window/commands/actionstate.h"

#include <span>

/** One action as the user meets it. */
struct SActionRow
{
    ActionId_e eId;
    const char* sText;
    const char* sIcon = "";      ///< full resource name; empty: none
    const char* sShortcuts = ""; ///< portable text, several separated by "; "
    const char* sToolTip = "";   ///< empty: the text
    bool bCheckable = false;
    bool (*IsEnabled)(const SActionState&) = nullptr; ///< null: always
};

/** All rows, in the order of ActionId_e. */
std::span<const SActionRow> ActionTable();
