#pragma once

#include "view/mesh/surfacearrays.h"

/** The arrows of a surface as vertices: five for each element, which the vector shader moves into place. */
namespace VectorArrays {

inline constexpr int CORNERS = 5;

struct SInput
{
    SSurfaceSize size;
    std::span<const DVector3D> positions;
    DVector3D origin;                  ///< what the positions of the result are relative to
    std::span<const float> normals;    ///< three an element, or empty
    std::span<const float> values;     ///< or empty
    std::span<const float> thresholds; ///< three an element, or empty
    std::span<const DVector3D> vectors;
    std::span<const char> holes; ///< elements that get no arrow; may be empty
};

struct SArrows
{
    std::vector<float> positions;
    std::vector<float> normals;
    std::vector<float> values;
    std::vector<float> thresholds;
    std::vector<float> vectors;
    std::vector<float> ij;    ///< row and column from 1, then the corner 0 to 4
    QVector<quint32> indices; ///< lines, 14 an arrow
};

/** A hole, and a vector of no length or without a value, gets vertices but no indices. */
SArrows Build(const SInput& input);

/** Length of the longest vector that gets an arrow; 0 without any. @param holes  as of SInput */
double LongestVector(std::span<const DVector3D> vectors, std::span<const char> holes);

} // namespace VectorArrays
