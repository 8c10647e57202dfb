#pragma once

#include "data/io/loadresult.h"
#include "data/io/plot3dfile.h"

/**
 * Tells the user which data files of an open case can't be read any more and why, in the status bar and the
 * log: each file once, until it changes or data are registered anew. May be used from any thread.
 */
namespace FileFaults {

/**
 * @param file    what the file is now; not detected if it is nothing that fits the case
 * @param result  of the load; nothing is told of one that only lacks memory
 */
void Report(const QString& sFileName, const SPlot3DFile& file, const SLoadResult& result);

/** What was told last; empty if nothing was since Forget. */
QString Last();
void Forget();

} // namespace FileFaults
