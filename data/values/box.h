#pragma once

#include "frame/vector3d.h"

#include <limits>

/** A box along the axes, both ends included. It begins empty, with its ends at the wrong sides. */
struct SBox
{
    static constexpr double HIGH = std::numeric_limits<double>::max();

    DVector3D min{HIGH, HIGH, HIGH};
    DVector3D max{-HIGH, -HIGH, -HIGH};

    constexpr bool IsEmpty() const { return max.x < min.x || max.y < min.y || max.z < min.z; }
    constexpr DVector3D Extent() const { return max - min; }

    /** Grows to hold the point. A coordinate that is no number changes nothing. */
    constexpr void Add(const DVector3D& point)
    {
        for (int nAxis = 0; nAxis < 3; ++nAxis) {
            min[nAxis] = point[nAxis] < min[nAxis] ? point[nAxis] : min[nAxis];
            max[nAxis] = point[nAxis] > max[nAxis] ? point[nAxis] : max[nAxis];
        }
    }
    constexpr void Add(const SBox& other)
    {
        for (int nAxis = 0; nAxis < 3; ++nAxis) {
            min[nAxis] = other.min[nAxis] < min[nAxis] ? other.min[nAxis] : min[nAxis];
            max[nAxis] = other.max[nAxis] > max[nAxis] ? other.max[nAxis] : max[nAxis];
        }
    }
    constexpr bool Contains(const DVector3D& point) const
    {
        // Without a branch for each axis: this is the innermost test of every search.
        return (point.x >= min.x) & (point.x <= max.x) & (point.y >= min.y) & (point.y <= max.y) &
               (point.z >= min.z) & (point.z <= max.z);
    }
    friend constexpr bool operator==(const SBox&, const SBox&) = default;
};
