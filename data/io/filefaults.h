#pragma once

#include "data/io/loadresult.h"

/**
 * Tells the user which data files of an open case can't be read any more and why, in the status bar and the
 * log: each file once, until it changes or data are registered anew. May be used from any thread.
 */
namespace FileFaults {

/** @param result  of the load; nothing is told of one that only lacks memory */
void Report(const QString& sFileName, const SLoadResult& result);

/** What was told last; empty if nothing was since Forget. */
QString Last();
void Forget();

} // namespace FileFaults
