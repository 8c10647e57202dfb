#pragma once

#include "modules/plot3d/filerecords.h"

class QJsonObject;

// The files of a case as a display file names them: keys that begin with "dataFiles.".

/** The keys of a case, with full names. Lists of levels only where there are several, others if not empty. */
QJsonObject TakeDataFileKeys(const CDataPack& pack);

/**
 * The records that the keys stand for. What they don't name is as in the current records; a file that isn't
 * at its place is looked for by its name in the folders, in their order.
 */
CCaseRecords ReadDataFileKeys(const QJsonObject& keys, const CCaseRecords& current,
                              const QStringList& sFolderList);

/** Whether both are of the same files, levels and blocks. */
bool AreSameFiles(const CCaseRecords& records, const CCaseRecords& others);

/**
 * The records of the data that a display file names.
 *
 * @param bFormatAlone  they aren't wanted: only the file is looked at
 * @return what is wrong, for the user; empty if nothing is
 */
QString ReadDataOfDisplay(const QString& sDisplayFile, bool bFormatAlone, CCaseRecords& records);
