#pragma once

#include "data/io/plot3dfile.h"

#include <QVector>

struct SPlot3DCaseFiles;

/** The files of a case as they were detected together. */
struct SMatchedFiles
{
    SPlot3DFile grid;
    SPlot3DFile q; ///< not detected without a Q file
    QVector<SPlot3DFile> functions;
};

/**
 * Detects grid, Q and function files. A size alone may fit several layouts; which one is meant, the other
 * files of the case tell: a solution is what goes with the blocks of the grid, and a grid what all its
 * solutions go with. Among those the order of the codes decides, as it does where nothing fits.
 */
SMatchedFiles DetectCaseFiles(const SPlot3DCaseFiles& files);

/**
 * Where a file of fields has the chosen blocks of a grid: at the same places if it has as many blocks as the
 * grid, one after the other if it has as many as are chosen.
 *
 * @return for each of the chosen its index in the file; empty if the file doesn't fit
 */
QVector<qint64> PlacesOfBlocks(const QVector<IVector3D>& fieldBlocks, const QVector<IVector3D>& gridBlocks,
                               const QVector<qint64>& chosen);
