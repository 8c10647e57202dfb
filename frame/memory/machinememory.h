#pragma once

#include <QtGlobal>

/** The memory of the machine [bytes]. */
struct SMachineMemory
{
    qint64 nTotal = 0;
    qint64 nFree = 0; ///< what programs can have without others being swapped out
};

/** Asks the system; 0 where it doesn't tell. */
SMachineMemory GetMachineMemory();
