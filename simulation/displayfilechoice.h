#pragma once

#include <QStringList>

class ISimulation;

/** The full names of the "*.disp" files in the simulation's directory. */
QStringList ListDisplayFiles(const ISimulation& simulation);

/** Asks for one of the files; empty if the user wants none. */
QString ChooseDisplayFileOf(const QStringList& sFileList);

/** Asks for any display file, from the directory that was used last; empty if the user wants none. */
QString AskDisplayFile();
