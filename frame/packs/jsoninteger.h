#pragma once

#include <QJsonValue>

#include <algorithm>

/** An integer of a file that anybody may have edited: a number beyond all that count is brought back. */
inline qint64 ToInteger(const QJsonValue& value, qint64 nDefault = 0,
                        qint64 nMinimum = -1'000'000'000'000'000, qint64 nMaximum = 1'000'000'000'000'000)
{
    return qint64(std::clamp(value.toDouble(double(nDefault)), double(nMinimum), double(nMaximum)));
}
