#pragma once

#include "frame/vector3d.h"

#include <algorithm>

/** A box of one-based IJK addresses, both ends included. Empty if an end lies below its begin. */
struct SIJKRange
{
    IVector3D min{1, 1, 1};
    IVector3D max{0, 0, 0};

    constexpr IVector3D Extent() const
    {
        return {std::max<qint64>(max.i - min.i + 1, 0), std::max<qint64>(max.j - min.j + 1, 0),
                std::max<qint64>(max.k - min.k + 1, 0)};
    }
    constexpr qint64 Count() const { return Extent().i * Extent().j * Extent().k; }
    constexpr bool IsEmpty() const { return Count() == 0; }
    constexpr bool Contains(const IVector3D& ijk) const
    {
        return ijk.i >= min.i && ijk.i <= max.i && ijk.j >= min.j && ijk.j <= max.j && ijk.k >= min.k &&
               ijk.k <= max.k;
    }
    /** Place of an address in a buffer that holds the range, i fastest. */
    constexpr qint64 IndexOf(const IVector3D& ijk) const
    {
        return ((ijk.k - min.k) * Extent().j + (ijk.j - min.j)) * Extent().i + (ijk.i - min.i);
    }
    friend constexpr bool operator==(const SIJKRange&, const SIJKRange&) = default;
};

constexpr SIJKRange Intersection(const SIJKRange& a, const SIJKRange& b)
{
    SIJKRange range;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        range.min[nAxis] = std::max(a.min[nAxis], b.min[nAxis]);
        range.max[nAxis] = std::min(a.max[nAxis], b.max[nAxis]);
    }
    return range;
}

/**
 * The address arithmetic of a structured block: counts of points and the address of its first one. Addresses
 * are one-based, flat indices zero-based with i fastest.
 */
struct SBlockShape
{
    IVector3D dimensions;
    IVector3D start{1, 1, 1};

    constexpr IVector3D End() const { return start + dimensions - IVector3D{1, 1, 1}; }
    constexpr SIJKRange Range() const { return {start, End()}; }
    constexpr qint64 PointCount() const { return dimensions.i * dimensions.j * dimensions.k; }

    /** One less than the points, but 1 in a direction of one point. */
    constexpr IVector3D CellDimensions() const
    {
        return {std::max<qint64>(dimensions.i - 1, 1), std::max<qint64>(dimensions.j - 1, 1),
                std::max<qint64>(dimensions.k - 1, 1)};
    }
    constexpr qint64 CellCount() const
    {
        const IVector3D cells = CellDimensions();
        return cells.i * cells.j * cells.k;
    }
    constexpr qint64 EdgeCount() const
    {
        const auto [a, b, c] = dimensions;
        const auto [d, e, f] = CellDimensions();
        return a * b * f + a * c * e + b * c * d;
    }
    constexpr qint64 FaceCount() const
    {
        const auto [a, b, c] = dimensions;
        const auto [d, e, f] = CellDimensions();
        return a * e * f + b * d * f + c * d * e;
    }
    /** True if a direction has one point. */
    constexpr bool IsPlanar() const { return dimensions.i == 1 || dimensions.j == 1 || dimensions.k == 1; }

    constexpr bool Contains(const IVector3D& ijk) const { return Range().Contains(ijk); }
    constexpr qint64 PointIndex(const IVector3D& ijk) const { return Range().IndexOf(ijk); }
    constexpr qint64 CellIndex(const IVector3D& ijk) const
    {
        const IVector3D cells = CellDimensions();
        return ((ijk.k - start.k) * cells.j + (ijk.j - start.j)) * cells.i + (ijk.i - start.i);
    }
    /** The address of a flat index; (0, 0, 0) for a block without points. */
    constexpr IVector3D Address(qint64 nIndex) const
    {
        if (dimensions.i <= 0 || dimensions.j <= 0)
            return {};
        const qint64 nRow = nIndex / dimensions.i;
        return start + IVector3D{nIndex % dimensions.i, nRow % dimensions.j, nRow / dimensions.j};
    }
    /** The address inside the block that is nearest by each index. */
    constexpr IVector3D Clamped(const IVector3D& ijk) const
    {
        IVector3D result;
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            result[nAxis] = std::max(std::min(ijk[nAxis], End()[nAxis]), start[nAxis]);
        return result;
    }
    /** The index that a direction has when it is counted from its other end. */
    constexpr qint64 Mirrored(int nAxis, qint64 nIndex) const
    {
        return 2 * start[nAxis] + dimensions[nAxis] - 1 - nIndex;
    }
    friend constexpr bool operator==(const SBlockShape&, const SBlockShape&) = default;
};
