#pragma once

#include <QString>

/** A restart that the user has chosen, and the display file that was made of it. */
struct SFieldViewChoice
{
    QString sRestartFile;
    QString sDisplayFile; ///< empty: nothing was chosen, or it can't be used, which was told
};

/** Asks for a FieldView restart and converts it. @param sDirectory  as for ImportFieldView */
SFieldViewChoice AskFieldView(const QString& sDirectory);
