#pragma once

#include "modules/base/displaydocument.h"
#include "modules/plot3d/fieldview/fieldviewrestart.h"

/** What the restart shows, as a display file; its data files are named in the table
 * (docs/formats/fieldview.md). */
SDisplayDocument ToDisplayDocument(const SFieldViewRestart& restart);

/** A display file made of a restart, or what is to be told to the user. */
struct SFieldViewImport
{
    QString sDisplayFile; ///< empty if there is none
    QString sTitle;
    QString sProblem;
};

/**
 * Writes "fieldview-import~analyze.disp" into the directory, in place of a former one; an empty directory is
 * that of the restart.
 */
SFieldViewImport ImportFieldView(const QString& sRestartFile, const QString& sDirectory);
