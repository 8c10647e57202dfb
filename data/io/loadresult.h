#pragma once

#include "frame/memory/imemoryitem.h"

#include <QString>

/** How a load from a file ended. */
struct SLoadResult
{
    LoadStatus_e eStatus = LoadOk;
    QString sMessage;        ///< for the log; empty if there is nothing to say
    int nLevel = 0;          ///< log level of the message; 0 reaches the user
    bool bRecognised = true; ///< false: the file is nothing that fits the case

    bool IsOk() const { return eStatus == LoadOk; }

    static SLoadResult NoMemory() { return {LoadNoMemory, {}, 0}; }
    static SLoadResult Failed(const QString& sMessage = {}) { return {LoadFailed, sMessage, 0}; }
};
