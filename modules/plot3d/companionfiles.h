#pragma once

#include <QStringList>

class CFileRecord;

/** Endings of the names of grid files, in lower case. */
QStringList GridSuffixes();

/**
 * The file beside this one that goes with it by name: of the same stem with one of the endings, or, if there
 * is none, the only file of the folder with such an ending (a series of numbered files counts as one).
 *
 * @return its full name; empty if there is none, or more than one
 */
QString FindCompanion(const QString& sFileName, const QStringList& sSuffixList);

/** The grid that goes with a Q or function file by name and by its blocks; an empty record if there is none.
 */
CFileRecord FindGridFor(const CFileRecord& solution);
