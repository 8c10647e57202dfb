#pragma once

#include <QtGlobal>

/** "No value" of a real setting, field value or log entry. Never stored on purpose: absence means it. */
inline constexpr double NO_VALUE = 999999.0;

/** "No value" of an integer setting; reading with it as default asks whether a key is there. */
inline constexpr qint64 NO_INT = 999999;

/** "None" for every kind of id. */
inline constexpr qint64 NO_ID = -1;

/** Time of a steady request: the only level, or the first one. */
inline constexpr double STEADY_TIME = -1.0;
