#pragma once

#include <QStringList>

#include <optional>

/** What the arguments of the process ask for. */
struct SCommandLine
{
    enum Mode_e { Interactive, OpenFile, RunModule, PrintAndExit };

    Mode_e eMode = Interactive;
    QString sFileName; ///< OpenFile: the file
    QString sModule;   ///< RunModule: the module's name
    QString sText;     ///< PrintAndExit: what to print on standard output
};

/** @param sArgumentList  with the program's name first */
SCommandLine ParseCommandLine(const QStringList& sArgumentList);
