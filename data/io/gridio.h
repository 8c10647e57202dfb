#pragma once

#include "data/io/filecache.h"
#include "frame/tasks/taskcreator.h"

#include <QVector>

/**
 * Tells what grid files are. Made on the stack by whoever needs it; what was detected of a file is kept in a
 * cache of the process. May be used from any thread.
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
    static CFileCache& Cache();
    QVector<IVector3D> GetGridBlockDimensions(const QString& sFileName) const;
    /** (0, 0, 0) for a block that isn't there. */
    IVector3D GetGridBlockDimensions(const QString& sFileName, qint64 nBlock) const;
};
