#include "view/selectables/overridefield.h"

#include <QJsonArray>

QJsonValue SOverrideField::ValueIn(const QJsonObject& entry) const
{
    if (ePlace == InEntry)
        return entry[sMember];
    const QJsonValue place = entry[sPlace];
    return (ePlace == InList ? place.toArray().first() : place).toObject()[sMember];
}

void SOverrideField::SetIn(QJsonObject& entry, const QJsonValue& value) const
{
    const auto changed = [&](QJsonObject object) {
        object[sMember] = value;
        return object;
    };
    if (ePlace == InEntry)
        entry = changed(entry);
    if (ePlace == InObject)
        entry[sPlace] = changed(entry[sPlace].toObject());
    if (ePlace == InList) {
        QJsonArray list;
        for (const QJsonValue& object : entry[sPlace].toArray())
            list.append(changed(object.toObject()));
        entry[sPlace] = list;
    }
    for (const char* const sDropped : dropped)
        entry.remove(sDropped);
}
