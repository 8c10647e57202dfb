#pragma once

#include "data/values/box.h"

#include <bit>
#include <cstring>
#include <limits>

// The coarse boxes of CSearchTree. Four floats at a time, x, y, z and an unused one, by the vector types that
// both of our compilers have; this is the innermost loop of every search.

using Float4 = float __attribute__((vector_size(16)));

/** Coordinates in single precision, seen from an origin near the block. */
class CCoarseSpace
{
public:
    CCoarseSpace() = default;
    explicit CCoarseSpace(const DVector3D& origin) : m_origin(origin) {}

    /**
     * Rounds to the nearest floats, which keeps the order of coordinates: what holds a point before holds it
     * after. Beyond the range of floats it gives their largest; never a negative zero, nor NaN for a number.
     */
    Float4 Coarse(const DVector3D& point) const
    {
        const Float4 coarse = {Rounded(point.x - m_origin.x), Rounded(point.y - m_origin.y),
                               Rounded(point.z - m_origin.z), 0.0f};
        return coarse;
    }
    DVector3D Exact(const Float4& coarse) const
    {
        return m_origin + DVector3D{double(coarse[0]), double(coarse[1]), double(coarse[2])};
    }

private:
    static float Rounded(double dValue)
    {
        constexpr double LARGEST = std::numeric_limits<float>::max();
        return float(dValue < -LARGEST ? -LARGEST : dValue > LARGEST ? LARGEST : dValue) + 0.0f;
    }

    DVector3D m_origin;
};

struct SCoarseBox
{
    Float4 low = {};
    Float4 high = {};

    /** No difference is negative. By the signs alone, which is cheaper than six comparisons. */
    bool Holds(const Float4& point) const
    {
        using Long2 = long long __attribute__((vector_size(16)));
        const Long2 bits = (Long2)(point - low) | (Long2)(high - point);
        return ((bits[0] | bits[1]) & 0x8000000080000000LL) == 0;
    }
    /** The 255th part of the extent. Each end by itself, since the extent may overflow. */
    Float4 PackingStep() const { return high * (1.0f / 255.0f) - low * (1.0f / 255.0f); }
};

/** A box within another one: how far it stands back from each side, in packing steps of the other one. */
struct SPackedBox
{
    quint8 low[4] = {};
    quint8 high[4] = {};
};

/** The box that holds at least what of the inner box lies in the outer one. */
SPackedBox Pack(const SCoarseBox& inner, const SCoarseBox& outer);

/** @param step  PackingStep of the outer box */
inline SCoarseBox Unpack(const SPackedBox& packed, const SCoarseBox& outer, const Float4& step)
{
    using Int4 = int __attribute__((vector_size(16)));
    using Short8 = short __attribute__((vector_size(16)));
    using Byte16 = signed char __attribute__((vector_size(16)));
    using Long2 = long long __attribute__((vector_size(16)));
    // Bytes become integers by zeros that are put behind each.
    static_assert(std::endian::native == std::endian::little);
    long long nBytes;
    std::memcpy(&nBytes, &packed, sizeof nBytes);
    const Byte16 bytes = (Byte16)Long2{nBytes, 0};
    const Short8 shorts = (Short8)__builtin_shufflevector(bytes, Byte16{}, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20,
                                                          5, 21, 6, 22, 7, 23);
    const Int4 low = (Int4)__builtin_shufflevector(shorts, Short8{}, 0, 8, 1, 9, 2, 10, 3, 11);
    const Int4 high = (Int4)__builtin_shufflevector(shorts, Short8{}, 4, 12, 5, 13, 6, 14, 7, 15);
    return {outer.low + __builtin_convertvector(low, Float4) * step,
            outer.high - __builtin_convertvector(high, Float4) * step};
}
