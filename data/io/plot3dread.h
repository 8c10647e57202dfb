#pragma once

#include "data/io/loadresult.h"
#include "data/io/plot3dfile.h"
#include "data/io/readfile.h"

#include <array>
#include <optional>
#include <span>

// Reading single blocks and variables of a detected Plot3D file. The bytes go from the file straight into
// the caller's arrays, on several threads if there are many, and into this machine's order there. A file that
// has become shorter since it was detected gives LoadFailed. May be called from any thread, for the same file
// too. Block and variable indices are zero-based; points are counted with i fastest.

/** What a grid or solution expects of the file. */
struct SBlockRequest
{
    bool bDouble = false;
    qint64 nBlock = 0;
    IVector3D size; ///< points in each direction
};

/**
 * Whether the grid can be read as it stands: LoadFailed with the message that belongs to it for another
 * precision, a block that isn't there, another size (the block's own is BlockDimensions(file)[nBlock] then),
 * and without one for text, which is only recognised, and for a file that wasn't detected.
 */
SLoadResult CheckGrid(const SPlot3DFile& file, const QString& sFileName, const SBlockRequest& request);

/** The same for a variable of a solution. Which variable is asked for doesn't matter yet. */
SLoadResult CheckSolution(const SPlot3DFile& file, const SBlockRequest& request);

/** Opens a file for the reads below; LoadFailed with "Unable to open file" if it can't be. */
SLoadResult OpenForLoad(const QString& sFileName, CReadFile& file);

/** Points that follow each other in a block, such as a row or a k-plane. */
struct SPointRun
{
    qint64 nFirst = 0;
    qint64 nCount = 0; ///< so many are read into each of the caller's arrays
};

/** The run of k-planes [nFirstK, nFirstK + nCountK), zero-based. */
SPointRun PlaneRun(const SPlot3DBlock& block, qint64 nFirstK, qint64 nCountK);

/** All points of a block. */
SPointRun WholeRun(const SPlot3DBlock& block);

/**
 * Reads coordinates of a grid's block.
 *
 * @param Real  float or double, as file.layout.nRealSize says (asserted)
 * @param xyz   three arrays of run.nCount values; in two-dimensional files the third isn't touched
 * @param run   lies within the block (asserted)
 */
template <class Real>
SLoadResult ReadGridBlock(const CReadFile& device, const SPlot3DFile& file, qint64 nBlock,
                          const std::array<std::span<Real>, 3>& xyz, const SPointRun& run);

/**
 * Reads values of one variable of a solution's block. What a file of fields offers without having it takes no
 * read: "Z" of two-dimensional coordinates is 0, "Hole" of a grid without IBlank 1. "Hole" of a grid with
 * IBlank is 1 where the integer isn't 0.
 *
 * @return LoadFailed with its message for a variable that the block hasn't got, or on a short read
 */
template <class Real>
SLoadResult ReadVariable(const CReadFile& device, const SPlot3DFile& file, qint64 nBlock, int nVariable,
                         std::span<Real> values, const SPointRun& run);

/** Reads IBlank of a block with IBlank (asserted) as 1 where it isn't 0, and 0. Needs run.nCount values. */
SLoadResult ReadHoles(const CReadFile& device, const SPlot3DFile& file, qint64 nBlock,
                      std::span<qint32> values, const SPointRun& run);

/**
 * Mach number, angle of attack, Reynolds number and time of a Q file's block.
 *
 * @return nothing for other kinds, for a block that isn't there, and on a short read
 */
std::optional<std::array<double, Q_HEADER_REALS>> ReadQHeader(const CReadFile& device,
                                                              const SPlot3DFile& file, qint64 nBlock);
