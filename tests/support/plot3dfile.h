#pragma once

#include "data/io/plot3dfile.h"

#include <QByteArray>
#include <QVector>

#include <functional>

/**
 * Writes Plot3D files of every layout for tests, each value known from its place. It shares no arithmetic
 * with the readers: bytes are appended one item after the other.
 */
namespace Plot3DFixture {

/** One block to be written; nVariables counts for function files only. */
struct SBlock
{
    IVector3D size; ///< k is 1 in two-dimensional files
    int nVariables = 0;
};

/** The value of array nArray (coordinates included) at point nPoint of a block; exact in single precision. */
double Value(qint64 nBlock, int nArray, qint64 nPoint);
/** The integer of a point of a block: -1, 0, 1 or 2. */
int Blank(qint64 nBlock, qint64 nPoint);
/** The n-th real of a Q block's header. */
double HeaderReal(qint64 nBlock, int n);

/** The whole file, in the layout given. */
QByteArray MakeFile(const SFileLayout& layout, FileKind_e eKind, const QVector<SBlock>& blocks);

/** Blocks of the sizes, for kinds without a variable count of their own. */
QVector<SBlock> Blocks(const QVector<IVector3D>& sizes);

/** Writes the bytes to a file; fails the test if that isn't possible. */
void Store(const QString& sFileName, const QByteArray& bytes);

} // namespace Plot3DFixture
