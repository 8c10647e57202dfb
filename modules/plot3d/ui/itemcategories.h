#pragma once

#include <QtGlobal>

#include <span>

/** How a kind of item is called in the panel, and its icon. */
struct SItemKindRow
{
    qint64 nKind; ///< SelectableKind_e
    const char* sGroup;
    const char* sName;
    const char* sToolTip;
    const char* sIcon;
};

/** All kinds of the structured viewers, in the order of the panel. */
std::span<const SItemKindRow> ItemKindTable();
/** Null for another kind. */
const SItemKindRow* FindItemKind(qint64 nKind);
