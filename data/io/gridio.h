#pragma once

#include "data/blockshape.h"
#include "data/io/plot3dfile.h"
#include "data/pointbuffers.h"
#include "frame/tasks/taskcreator.h"

#include <QVector>

template <class Real> class CStorageGrid;

/**
 * Reads grid files for grids. Made on the stack by whoever needs a read; what was detected of a file is kept
 * in the cache of CGridManager. Messages go to the message sink. May be used from any thread.
 */
class CGridIO : public CTaskCreator
{
public:
    /** The format code of a file, 0 if it is of no kind that is wanted, or can't be identified. */
    int DetectGridFormat(const QString& sFileName, bool bStructured, bool bUnstructured,
                         const SPlot3DFile& like = {}) const;
    /**
     * The same with the layout and the blocks.
     *
     * @param like  what the file has been known as: its layout goes ahead, then layouts with the same blocks
     */
    SPlot3DFile Detect(const QString& sFileName, const SPlot3DFile& like = {}) const;
    QVector<IVector3D> GetGridBlockDimensions(const QString& sFileName) const;
    /** (0, 0, 0) for a block that isn't there. */
    IVector3D GetGridBlockDimensions(const QString& sFileName, qint64 nBlock) const;

    /**
     * Allocates and fills the grid with its block of its file. Gives a LoadStatus_e; a block of another size
     * than the grid's corrects the grid's and gives LoadNever, so that the next access loads it.
     */
    template <class Real> int LoadGrid(CStorageGrid<Real>& grid) const;

    /**
     * Reads the points of a range (within the grid) and nothing else; the grid stays as it is.
     *
     * @return false, without a message, where the grid can't be read: out is undefined then
     */
    template <class Real>
    bool ReadPoints(const CStorageGrid<Real>& grid, const SIJKRange& range, const SPointBuffers& out) const;
};
