#include "cases/display/overridefields.h"

#include "scene/displaystate.h"

#include <QJsonArray>

namespace {

constexpr const char* SEEDS = "seeds";
constexpr const char* SEED_HINTS[] = {"seedZoneIds", "seedIJKs"}; // of the seeds that were

const SOverrideField s_fields[] = {
    {"coordinateSurface", "coordinateSurfaces", "planeNormal", OverridePoint, SOverrideField::InObject,
     "selectable"},
    {"coordinateSurface", "coordinateSurfaces", "planeValue", OverrideNumber, SOverrideField::InObject,
     "selectable"},
    {"isoSurface", "isoSurfaces", "isoVariable", OverrideString, SOverrideField::InList, "drawables"},
    {"isoSurface", "isoSurfaces", "isoValue", OverrideNumber, SOverrideField::InList, "drawables"},
    {"isoSurface", "isoSurfaces", DisplayKeyOf(&SDisplayState::nScalarVariable), OverrideString,
     SOverrideField::InList, "drawables"},
    {"extremePoint", "extremePoints", "extremeVariable", OverrideString},
    {OverrideFields::STREAMLINE, "streamlines", "showSeeds", OverrideBool},
    {OverrideFields::STREAMLINE, "streamlines", SEEDS, OverridePoints, SOverrideField::InObject,
     "seedDrawable", "xyzList"},
};

} // namespace

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
    if (sField == SEEDS)
        for (const char* const sHint : SEED_HINTS)
            entry.remove(sHint);
}

std::span<const SOverrideField> OverrideFields::All() { return s_fields; }

const char* OverrideFields::ListOf(const QString& sHead)
{
    for (const SOverrideField& field : s_fields)
        if (sHead == field.sHead)
            return field.sList;
    return nullptr;
}

const SOverrideField* OverrideFields::Find(const QString& sHead, const QString& sField)
{
    for (const SOverrideField& field : s_fields)
        if (sHead == field.sHead && sField == field.sField)
            return &field;
    return nullptr;
}
