#pragma once

#include "modules/plot3d/fvbnd.h"

/** The boundaries that the files beside a grid give it. */
struct SGridBoundaries
{
    QVector<SBoundaryRecord> records; ///< faces, resolved; of all blocks of the grid file
    QStringList sMessageList;         ///< what to tell the user of the files, one line each
};

/**
 * Files "*.fvbnd" beside a grid that may be meant for it: those with its stem; without one the only one of
 * the folder, if no other grid lies there. The levels of a series of grids count as one.
 */
QStringList FindFvbndFiles(const QString& sGridFile);

/**
 * Reads these files. One that names a block or a range that the grid doesn't have is of another grid: nothing
 * of it is taken, and the message says why.
 *
 * @param blocks  sizes of all blocks of the grid file
 */
SGridBoundaries ReadBoundariesOf(const QString& sGridFile, const QVector<IVector3D>& blocks);
