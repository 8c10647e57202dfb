#pragma once

#include <QString>

/** By what a file is known to be the same as before. May be taken from any thread. */
struct SFileStamp
{
    qint64 nSize = -1;    ///< [bytes]; -1: there is no such file
    qint64 nModified = 0; ///< time of the last change, in ticks of the file system's clock

    static SFileStamp Of(const QString& sFileName);

    friend bool operator==(const SFileStamp&, const SFileStamp&) = default;
};
