#pragma once

#include "data/io/loadresult.h"
#include "data/io/plot3dread.h"

#include <span>

/**
 * Arrays of one block of one file: what stored grids and fields read through, whatever the format. Nothing
 * stays open. Any thread.
 */
class IBlockReader
{
public:
    virtual ~IBlockReader() = default;
    /**
     * Whether the block can be read as it is expected.
     *
     * @param found  takes the size that the block has, where only that is another one
     */
    virtual SLoadResult Check(const IVector3D& expected, IVector3D& found) const = 0;
    /**
     * Reads runs of points; each array takes all of them, one behind the other. Only in the precision of the
     * block, and behind a good Check.
     */
    virtual SLoadResult Read(std::span<const SPointRun> runs,
                             std::span<const std::span<float>> arrays) const = 0;
    virtual SLoadResult Read(std::span<const SPointRun> runs,
                             std::span<const std::span<double>> arrays) const = 0;
};
