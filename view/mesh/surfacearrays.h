#pragma once

#include "frame/vector3d.h"

#include <QVector>

#include <span>
#include <vector>

/**
 * The arrays of a surface of nRows x nColumns elements. Element (r, c), counted from 0, stands at
 * r * nColumns + c in every array; r runs along the first, c along the second direction of the surface.
 */
struct SSurfaceSize
{
    qint64 nRows = 0;
    qint64 nColumns = 0;

    constexpr qint64 Count() const { return nRows * nColumns; }
    constexpr bool HasCells() const { return nRows >= 2 && nColumns >= 2; }
    constexpr qint64 Index(qint64 nRow, qint64 nColumn) const { return nRow * nColumns + nColumn; }

    friend constexpr bool operator==(const SSurfaceSize&, const SSurfaceSize&) = default;
};

/** Loops over surfaces, for plain arrays; main thread or any other. */
namespace SurfaceArrays {

/**
 * Normals of the elements: of the two triangles A B C and D C B of the element's cell, with the element at A
 * and, in the last row and column, in the cell before. Each counts as a unit vector, a degenerate one as the
 * other; the result is a unit vector, or zero where both are degenerate.
 *
 * @param normals  three floats an element; all (0, 0, 1) without cells
 */
void BuildNormals(const SSurfaceSize& size, std::span<const DVector3D> positions, std::span<float> normals);

/** 1.0 on the first and last row and column, else 0.0. */
void BuildOutlineFlags(const SSurfaceSize& size, std::span<float> flags);

/** Two triangles a cell, 6 entries; nothing without cells. */
QVector<quint32> TriangleIndices(const SSurfaceSize& size);

/** One line strip over all grid lines, 2 * elements - 1 entries: to and fro along rows, then along columns.
 */
QVector<quint32> WireframeIndices(const SSurfaceSize& size);

/** One line strip round the edge, 2 * (rows + columns) - 3 entries, closed. */
QVector<quint32> OutlineIndices(const SSurfaceSize& size);

/** Line segments of a contour: two vertices each, both with the value of their level. */
struct SContours
{
    std::vector<float> positions; ///< three floats a vertex
    std::vector<float> values;
    std::vector<float> thresholds; ///< three floats a vertex; empty without those of elements
};

/** What contours are made from; one entry an element. */
struct SContourInput
{
    SSurfaceSize size;
    std::span<const DVector3D> positions;
    DVector3D origin;                  ///< what the positions of the result are relative to
    std::span<const float> values;     ///< 1e30 and above, or NaN, where there is none
    std::span<const char> holes;       ///< true where the element is blanked; may be empty
    std::span<const float> thresholds; ///< three an element; may be empty
};

/**
 * Contour lines by marching squares. Cells with a hole or without a value at a corner are left out.
 *
 * @param nCount  n gives n + 1 levels from dMinimum to dMaximum, both included
 */
SContours BuildContours(const SContourInput& input, qint64 nCount, double dMinimum, double dMaximum);

/**
 * What float positions of a box are relative to: the middle of a box so far from 0 for its extent that floats
 * would tell its points apart worse than a view can, else 0.
 */
DVector3D OriginOf(const DVector3D& minimum, const DVector3D& maximum);

/** Three floats a point, relative to the origin. */
std::vector<float> ToFloats(std::span<const DVector3D> points, const DVector3D& origin);

/** The values that go to the GPU: what is no number, or no value, becomes 1e36, which the shaders don't
 * colour.
 */
float ToGpuValue(double dValue);

} // namespace SurfaceArrays
