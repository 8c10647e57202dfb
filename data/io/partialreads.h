#pragma once

#include "data/io/plot3dread.h"
#include "data/values/blockshape.h"

#include <atomic>

/**
 * Whether part of a block is read by itself, or all of it is loaded. A view that shows one face of each block
 * of a large case reads that face alone; a loop over a whole block, piece by piece, soon loads it.
 *
 * Read in parts, an array costs what each contiguous run takes, beginning of a read included. A part is
 * allowed while it is far cheaper than the whole, and while all parts so far have cost little beside it.
 * May be used from any thread.
 */
class CPartialReads
{
public:
    /** @param nValueSize  of a value in the file [bytes] */
    bool Allows(const SBlockShape& shape, const SIJKRange& range, qint64 nValueSize) const;
    /** As Allows, and counts the part. */
    bool Take(const SBlockShape& shape, const SIJKRange& range, qint64 nValueSize);
    /** The same of single points. */
    bool TakePoints(const SBlockShape& shape, qint64 nPoints, qint64 nValueSize);

private:
    std::atomic<qint64> m_nSpent = 0; // [bytes]
};

/** The contiguous runs of points, all of one length, that make up a range of a block; i fastest. */
class CRangeRuns
{
public:
    /** @param range  lies within the block and isn't empty */
    CRangeRuns(const SBlockShape& shape, const SIJKRange& range);

    qint64 Count() const { return m_nCount; }
    qint64 Length() const { return m_nLength; } ///< points of each
    SPointRun Run(qint64 nRun) const;

private:
    const SBlockShape m_shape;
    const SIJKRange m_range;
    qint64 m_nCount = 1;
    qint64 m_nLength = 1;
};
