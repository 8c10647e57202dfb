#pragma once

#include <QJsonValue>
#include <QString>

/** What a value in the short table of a display file has to be. */
enum OverrideType_e {
    OverrideNumber,
    OverrideBool,
    OverrideString,
    OverridePoint,     ///< three numbers
    OverrideDirection, ///< 0 to 2: I, J, K
    OverrideIndices,   ///< three integers
    OverridePoints     ///< any number of points
};

bool IsOfType(OverrideType_e eType, const QJsonValue& value);

/** What is wrong with the value of the key, for the user; empty if it is of the type. */
QString TypeError(const QString& sKey, OverrideType_e eType, const QJsonValue& value);
