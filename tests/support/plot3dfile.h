#pragma once

#include "data/io/plot3dfile.h"
#include "tests/support/files.h"

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

/** Writes such a file in the layout of the code. @return its name */
QString Write(const QString& sFileName, int nCode, FileKind_e eKind, const QVector<SBlock>& blocks);

/** The value of an array at a point of a block; all from 0. */
using Values = std::function<double(int nBlock, int nArray, const IVector3D& ijk)>;

/**
 * Writes a raw multi-block file in single precision with the values given; the reals of a Q block's header
 * are 0.5. @return its name
 */
QString WriteValues(const QString& sFileName, FileKind_e eKind, const QVector<IVector3D>& sizes, int nArrays,
                    const Values& value);

} // namespace Plot3DFixture
