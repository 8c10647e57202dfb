#pragma once

#include "data/values/blockshape.h"
#include "frame/transform.h"

#include <span>

/**
 * Moves points in place: x' = m00 x + m01 y + m02 z + m03 and so on. The fourth row isn't used.
 *
 * @note x, y and z have the same size. Each point is computed as DMatrix4x4::MapPoint does it, bit for bit.
 */
void TransformPoints(const DMatrix4x4& matrix, std::span<double> x, std::span<double> y, std::span<double> z);

/** a[n] = dWeight * a[n] + (1 - dWeight) * b[n]; both of the same size. */
void BlendInto(std::span<double> a, std::span<const double> b, double dWeight);

/** Turns the order of a buffer round in one direction of its extent (i fastest). */
void ReverseAxis(std::span<double> values, const IVector3D& extent, int nAxis);

/** Copies part of a block's array into a buffer that holds the part alone, i fastest, as double. */
template <class Real>
void CopyRange(const Real* pBlock, const SBlockShape& shape, const SIJKRange& part, std::span<double> out)
{
    const IVector3D extent = part.Extent();
    const qint64 nPlane = shape.dimensions.i * shape.dimensions.j;
    const Real* pPlane = pBlock + shape.PointIndex(part.min);
    double* pOut = out.data();
    for (qint64 k = 0; k < extent.k; ++k, pPlane += nPlane) {
        const Real* pRow = pPlane;
        for (qint64 j = 0; j < extent.j; ++j, pRow += shape.dimensions.i)
            pOut = std::copy(pRow, pRow + extent.i, pOut);
    }
}
