#pragma once

#include <QStringList>

// Files of a case that are no longer where they were: its folder was moved or copied, or the data went
// elsewhere.

/**
 * Where a file lies now, going by the place of the case's own file: the longest end of its former path that
 * leads to a file from the folder of the case or from one above it. The bare name counts beside the case
 * alone.
 *
 * @param sFormerName  full
 * @param sCaseFolder  may be empty: nothing is found then
 * @return its full name; empty if there is none
 */
QString FindMovedFile(const QString& sFormerName, const QString& sCaseFolder);

/** The same from one folder alone: the longest end of the path, down to the bare name, that leads to a file.
 */
QString FindFileBelow(const QString& sFormerName, const QString& sFolder);

/**
 * Lists what is missing, once, and lets the user name a folder in which to look.
 *
 * @return the folder; empty if the case is to open without. Without a user that is the answer
 */
QString AskForMissingFiles(const QString& sCaseName, const QStringList& sMissingList);
