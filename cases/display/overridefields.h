#pragma once

#include "cases/display/overridetypes.h"

#include <QJsonObject>

#include <span>

/** A field, in the short table of a display file, of the entries of one of the lists in the display. */
struct SOverrideField
{
    /** Where the field stands in an entry. */
    enum Place_e {
        InEntry,
        InObject, ///< in an object of the entry
        InList    ///< in each object of a list of the entry
    };

    const char* sHead;  ///< ahead of the index in the key
    const char* sList;  ///< the member of the display
    const char* sField; ///< behind the index
    OverrideType_e eType;
    Place_e ePlace = InEntry;
    const char* sPlace = "";      ///< the member of the entry that is the object or list
    const char* sMember = sField; ///< the member that holds the value

    /** The value that the entry has; of a list that of its first object. Undefined if there is none. */
    QJsonValue ValueIn(const QJsonObject& entry) const;
    /** Changes it, in a list in all objects. */
    void SetIn(QJsonObject& entry, const QJsonValue& value) const;
};

namespace OverrideFields {

inline constexpr const char* STREAMLINE = "streamline"; ///< the head whose entries may be no objects

std::span<const SOverrideField> All();
/** The list that keys with this head speak of; null if there is none. */
const char* ListOf(const QString& sHead);
/** Null if there is none. */
const SOverrideField* Find(const QString& sHead, const QString& sField);

} // namespace OverrideFields
