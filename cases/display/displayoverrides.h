#pragma once

#include <QJsonObject>
#include <QStringList>

/** What the short table of a display file speaks of: the display of the view, and mirror and sectors of the
 * pair. */
struct SOverridable
{
    QJsonObject display; ///< SaveViewJson
    QJsonObject mirror;  ///< "mirrorX" ... "offsetZ"
    QJsonObject sectors; ///< "periodicX" ... "sectorZ"
};

/**
 * The short table "userCustomSettings" of a display file: flat keys, parts joined by ".", for what users want
 * to change by hand (docs/formats/displayfiles.md). Keys that begin with "dataFiles" are the simulation's own
 * and are passed over here.
 */
namespace DisplayOverrides {

/** The table with the values as they are. */
QJsonObject Build(const SOverridable& values);

/**
 * Puts the values of the table in their places. A key that can't be applied changes nothing and doesn't keep
 * the others from it.
 *
 * @return what is wrong, a line for each such key, in the order of the keys
 */
QStringList Apply(const QJsonObject& overrides, SOverridable& values);

} // namespace DisplayOverrides
