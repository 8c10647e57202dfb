#include "view/mesh/vectorarrays.h"

#include "frame/novalue.h"

#include <cmath>

namespace {

constexpr quint32 ARROW_LINES[] = {0, 1, 1, 2, 1, 3, 1, 4, 2, 3, 3, 4, 4, 2};

bool HasArrow(const DVector3D& vector)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (vector[nAxis] == NO_VALUE || !std::isfinite(vector[nAxis]))
            return false;
    return Length(vector) > 0.0;
}

bool IsHole(std::span<const char> holes, qint64 nElement) { return !holes.empty() && holes[nElement]; }

/** Each element's numbers five times. */
std::vector<float> Repeated(std::span<const float> numbers, int nComponents)
{
    std::vector<float> out;
    out.reserve(numbers.size() * VectorArrays::CORNERS);
    for (std::size_t n = 0; n < numbers.size(); n += nComponents)
        for (int nCorner = 0; nCorner < VectorArrays::CORNERS; ++nCorner)
            out.insert(out.end(), &numbers[n], &numbers[n] + nComponents);
    return out;
}

std::vector<float> Repeated(std::span<const DVector3D> points, const DVector3D& origin = {})
{
    std::vector<float> out;
    out.reserve(points.size() * 3 * VectorArrays::CORNERS);
    for (const DVector3D& point : points)
        for (int nCorner = 0; nCorner < VectorArrays::CORNERS; ++nCorner)
            for (int nAxis = 0; nAxis < 3; ++nAxis)
                out.push_back(static_cast<float>(point[nAxis] - origin[nAxis]));
    return out;
}

std::vector<float> Addresses(const SSurfaceSize& size)
{
    std::vector<float> out;
    out.reserve(size.Count() * 3 * VectorArrays::CORNERS);
    for (qint64 nRow = 0; nRow < size.nRows; ++nRow)
        for (qint64 nColumn = 0; nColumn < size.nColumns; ++nColumn)
            for (int nCorner = 0; nCorner < VectorArrays::CORNERS; ++nCorner)
                for (const qint64 n : {nRow + 1, nColumn + 1, qint64(nCorner)})
                    out.push_back(static_cast<float>(n));
    return out;
}

} // namespace

VectorArrays::SArrows VectorArrays::Build(const SInput& input)
{
    SArrows arrows;
    arrows.positions = Repeated(input.positions, input.origin);
    arrows.vectors = Repeated(input.vectors);
    arrows.normals = Repeated(input.normals, 3);
    arrows.values = Repeated(input.values, 1);
    arrows.thresholds = Repeated(input.thresholds, 3);
    arrows.ij = Addresses(input.size);
    for (qint64 n = 0; n < input.size.Count(); ++n) {
        if (!HasArrow(input.vectors[n]) || IsHole(input.holes, n))
            continue;
        for (const quint32 nCorner : ARROW_LINES)
            arrows.indices.append(static_cast<quint32>(n) * CORNERS + nCorner);
    }
    return arrows;
}

double VectorArrays::LongestVector(std::span<const DVector3D> vectors, std::span<const char> holes)
{
    double dLongest = 0.0;
    for (std::size_t n = 0; n < vectors.size(); ++n)
        if (HasArrow(vectors[n]) && !IsHole(holes, qint64(n)))
            dLongest = std::max(dLongest, Length(vectors[n]));
    return dLongest;
}
