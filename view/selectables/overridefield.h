#pragma once

#include "view/selectables/overridetypes.h"

#include <QJsonObject>

#include <span>

/** A field, in the short table of a display file, of the entries of a kind's list. */
struct SOverrideField
{
    /** Where the field stands in an entry. */
    enum Place_e {
        InEntry,
        InObject, ///< in an object of the entry
        InList    ///< in each object of a list of the entry
    };

    const char* sField; ///< behind the index
    OverrideType_e eType;
    Place_e ePlace = InEntry;
    const char* sPlace = "";                   ///< the member of the entry that is the object or list
    const char* sMember = sField;              ///< the member that holds the value
    std::span<const char* const> dropped = {}; ///< members of the entry that a change makes untrue

    /** The value that the entry has; of a list that of its first object. Undefined if there is none. */
    QJsonValue ValueIn(const QJsonObject& entry) const;
    /** Changes it, in a list in all objects. */
    void SetIn(QJsonObject& entry, const QJsonValue& value) const;
};
