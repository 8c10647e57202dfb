#pragma once

#include "modules/plot3d/filerecords.h"

#include <functional>

// How the files of a case stand in the simulation's pack.

/**
 * Writes the keys that name the files and what of them is chosen: those of the data file key.
 *
 * @param sDirectory  "Directory" of the case; empty: that of the grid file
 */
void WriteFileNames(CDataPack& pack, const CCaseRecords& records, const QString& sDirectory = {});

/** The same with the keys of levels, variables and free stream. */
void WriteCaseFiles(CDataPack& pack, const CCaseRecords& records, const SPlot3DCase& examined,
                    const QString& sDirectory = {});

/** Where a file is that isn't at its place any more; empty if that isn't known. Takes and gives full names.
 */
using LocateFile = std::function<QString(const QString& sFormerName)>;

/** The records that the keys stand for; files are detected and series looked for again. */
CCaseRecords ReadCaseFiles(const CDataPack& pack, const LocateFile& locate = {});

/**
 * The same; files that moved along with the case's own are found, and of those that still miss the user is
 * asked the folder.
 *
 * @param sCaseFolder  of the case's own file; empty if there is none
 */
CCaseRecords FindCaseFiles(const CDataPack& pack, const QString& sCaseName, const QString& sCaseFolder);

/** The key that says which files a case is of (ISimulation::GetDataFileKey). */
QByteArray MakeDataFileKey(qint64 nModuleId, const QString& sFilePath, const CDataPack& pack);

/** Writes what the key says into the pack; false for bytes that are no key of the module. */
bool ReadDataFileKey(const QByteArray& key, qint64 nModuleId, CDataPack& pack);

/** Whether both keys are of the same files, wherever the cases' own files are. */
bool AreSameDataFiles(const QByteArray& key, const QByteArray& otherKey);
