#pragma once

#include "cases/files/casefile.h"

class ISimulation;

// From a simulation to the record of its file, and back. The simulation stands in CSimulationManager.

/**
 * The whole content of a file.
 *
 * @return false if it can't be read, is no regular file, or is larger than any stored file can be
 */
bool ReadWholeFile(const QString& sFileName, QByteArray& bytes);

/** Says in the log and in the status bar, where it disturbs nobody, that a later version wrote the file. */
void TellNewer(const QString& sFileName);

/**
 * What a file of the case holds now.
 *
 * @param nViewId  whose display is stored; -1: the one that the case was opened with
 * @param camera   none: that one too
 */
SCaseFile TakeCase(const ISimulation& simulation, const QString& sModule, qint64 nViewId,
                   const std::optional<SCamera>& camera);

/**
 * Writes the case with what ViewToStore shows; what was written is what it is compared with from now on. The
 * old file stays whole until the new one is.
 *
 * @return false if it can't be written; nothing has changed then
 */
bool SaveCase(ISimulation& simulation, const QString& sModule, const QString& sFileName);

/**
 * Fills an empty simulation, which knows the path of its file, from the record.
 *
 * @param nViewId      the view that it stands in
 * @param bWithDisplay  shows there what the record says; without it only the items are there
 * @return false for content that can't be read; the simulation is of no use then
 */
bool FillCase(ISimulation& simulation, const SCaseFile& file, qint64 nViewId, bool bWithDisplay);
