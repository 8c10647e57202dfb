#pragma once

#include <span>

/** Buffers for three components of a range, each with room for all of its points, i fastest. */
struct SPointBuffers
{
    std::span<double> x, y, z;

    std::span<double> Axis(int nAxis) const { return nAxis == 0 ? x : nAxis == 1 ? y : z; }
};
