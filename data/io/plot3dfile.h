#pragma once

#include "data/io/plot3dformat.h"
#include "frame/vector3d.h"

#include <QVector>

// What is known of a Plot3D file once it has been detected, and where in it everything stands.

inline constexpr qint64 MAX_BLOCKS = 10000;
inline constexpr qint64 MAX_DIMENSION = 32000; ///< points in one direction of a block
inline constexpr qint64 MAX_VARIABLES = 100;   ///< of a function file
inline constexpr int Q_HEADER_REALS = 4;       ///< Mach number, angle of attack, Reynolds number, time

/** One block of a file. */
struct SPlot3DBlock
{
    IVector3D size;     ///< points in each direction; k is 1 in two-dimensional files
    int nVariables = 0; ///< arrays of reals that the block holds in the file, coordinates included
    qint64 nOffset = 0; ///< of the block's first byte: its first marker, Q header, coordinate, or text

    qint64 PointCount() const { return size.i * size.j * size.k; }

    friend bool operator==(const SPlot3DBlock&, const SPlot3DBlock&) = default;
};
Q_DECLARE_TYPEINFO(SPlot3DBlock, Q_PRIMITIVE_TYPE);

/** A detected file: all that a cache holds and a read needs. Copies share the blocks. */
struct SPlot3DFile
{
    int nCode = CODE_UNKNOWN;
    FileKind_e eKind = KindNone;
    SFileLayout layout; ///< bIsValid is false while nothing was detected
    QVector<SPlot3DBlock> blocks;

    bool IsDetected() const { return nCode != CODE_UNKNOWN; }
};

/**
 * A grid file as a file of fields, in the layout that the grid has: "X", "Y", "Z", and "Hole" of its IBlank.
 * Not detected for text.
 */
SPlot3DFile AsFields(const SPlot3DFile& grid);

/** The size of each block. */
QVector<IVector3D> BlockDimensions(const SPlot3DFile& file);

/**
 * Number of variables that a solution file offers: Q 5, in 2-D 4; xyzb 4 and xyz 3, with "Z" and "Hole" also
 * where the file has none; function files what their first block has. 0 for grids.
 */
int VariableCount(const SPlot3DFile& file);

/** As VariableCount, for one block: those of function files may differ. 0 outside of the blocks. */
int VariableCount(const SPlot3DFile& file, qint64 nBlock);

/** True for the variable "Hole" of an xyzb file, which stands in the file as integers. */
bool IsIntegerVariable(const SPlot3DFile& file, int nVariable);

/** Integers in the file for each block: its dimensions, and the variable count in function files. */
int IntegersPerBlock(const SFileLayout& layout, FileKind_e eKind);

/** Arrays of reals of a block; nStated is what a function file says. */
int RealArrayCount(const SFileLayout& layout, FileKind_e eKind, int nStated);

/** Bytes ahead of the first block: number of blocks and dimensions, with their markers. */
qint64 HeaderSize(const SFileLayout& layout, FileKind_e eKind, qint64 nBlocks);

/** Bytes of the dimensions of all blocks, without markers. */
qint64 DimensionsSize(const SFileLayout& layout, FileKind_e eKind, qint64 nBlocks);

/** Bytes of a Q block ahead of its data record: four reals, with markers. 0 in other kinds. */
qint64 QHeaderSize(const SFileLayout& layout, FileKind_e eKind);

/** Bytes of the reals and integers of a block, without markers and Q header. */
qint64 DataSize(const SFileLayout& layout, const SPlot3DBlock& block);

/** Bytes from a block's beginning to that of the next. */
qint64 BlockSize(const SFileLayout& layout, FileKind_e eKind, const SPlot3DBlock& block);

/** Where the first of the four reals of a Q block stands. */
qint64 QHeaderOffset(const SFileLayout& layout, const SPlot3DBlock& block);

/** Where the first value of a block's array stands; nArray == nVariables is the array of integers. */
qint64 ArrayOffset(const SPlot3DFile& file, const SPlot3DBlock& block, int nArray);
