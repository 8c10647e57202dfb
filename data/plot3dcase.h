#pragma once

#include "data/variables/builtinvariables.h"
#include "frame/vector3d.h"

#include <QStringList>
#include <QVector>

/** The files of a Plot3D case. */
struct SPlot3DCaseFiles
{
    QString sGridFile;
    QStringList sQFileList;        ///< one, or one for each time level
    QStringList sFunctionFileList; ///< all at the same time
};

/** What became of a registration. */
struct SPlot3DCase
{
    QString sError; ///< empty if all files fit
    QVector<IVector3D> blocks;
    double dFreeStreamMach = 0.0; ///< of the first Q header; 0 if it has none above 0
    double dAngleOfAttack = 0.0;  ///< [degrees]
    SReferenceState reference;    ///< what the built-in variables were made with
};

/**
 * Registers the blocks and variables of a Plot3D case from the headers of its files; no data are read. Block
 * n is item n + 1 of the simulation. Grid coordinates and "Hole", the conservative state ("R", "RU", "RV",
 * "RW", "RE"), function variables ("F1.2": second variable of the first file) and the built-in variables
 * stand in CVariableManager afterwards. With an error nothing is registered.
 */
SPlot3DCase RegisterPlot3DCase(qint64 nSimulationId, const SPlot3DCaseFiles& files);

/** The last number in a file's name, by which a series of files counts; nFallback if there is none. */
double TimeOfFile(const QString& sFileName, double dFallback);
