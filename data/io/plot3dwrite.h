#pragma once

#include "frame/tasks/iprogress.h"
#include "frame/vector3d.h"

#include <QString>

#include <array>
#include <span>

/** What of a block is written. */
struct SBlockPart
{
    IVector3D size;  ///< points of the whole block in each direction
    IVector3D first; ///< first point that is written, zero-based
    IVector3D count; ///< points that are written

    static SBlockPart Whole(const IVector3D& size) { return {size, {}, size}; }
};

/** x, y and z of a whole block, i fastest, in the precision in which they are stored. */
struct SBlockCoordinates
{
    std::array<std::span<const float>, 3> singles;  ///< empty if the block has doubles
    std::array<std::span<const double>, 3> doubles; ///< empty if the block has singles
};

/** Blocks to be written. The writer has one of them at a time. */
class IGridSource
{
public:
    virtual ~IGridSource() = default;
    virtual qint64 GetBlockCount() const = 0;
    /** Asked for all blocks before anything is written; shouldn't load. */
    virtual SBlockPart GetPart(qint64 nBlock) const = 0;
    /** The block's coordinates, which stay until Release; all empty if they can't be had. */
    virtual SBlockCoordinates Acquire(qint64 nBlock) = 0;
    virtual void Release(qint64 nBlock) = 0;
};

enum SaveStatus_e : int { SaveOk = 0, SaveCancelled = 1, SaveFailed = 3 };

struct SSaveResult
{
    SaveStatus_e eStatus = SaveOk;
    QString sMessage; ///< why it failed, for the user

    bool IsOk() const { return eStatus == SaveOk; }
};

/** The longest record that readers with signed markers take [bytes]. */
inline constexpr qint64 MAX_RECORD = 2147483639;

/**
 * Writes a three-dimensional multi-block grid with integers of 4 bytes in this machine's byte order. The file
 * takes the place of a former one when it is complete; after a failure or a cancel the former stays.
 *
 * @param nCode      decides two things only: precision (values are converted) and Fortran records
 * @param pProgress  asked about once for each MiB; may be null
 * @return SaveFailed, too, for a part that lies outside of its block, and, in Fortran forms, for a block
 *         of more than MAX_RECORD bytes, before anything is written
 */
SSaveResult WritePlot3DGrid(const QString& sFileName, int nCode, IGridSource& source, IProgress* pProgress);
