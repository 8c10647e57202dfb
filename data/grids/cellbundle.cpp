#include "data/grids/cellbundle.h"

#include <cmath>

namespace {

/**
 * How far beside a cell CCellMap may still find a point in it: 1e-6 of the cell's diagonal in each
 * coordinate, here as a share of the bundle's; with it what rounding does to a place.
 */
constexpr double MARGIN = 1.01e-6;

/** The mean edges of a bundle along i, j and k; across it in a direction of one point. */
std::array<DVector3D, 3> MeanEdges(const CGridPiece& points, const SIJKRange& range)
{
    std::array<DVector3D, 3> edges;
    for (int nCorner = 0; nCorner < 8; ++nCorner) {
        IVector3D ijk;
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            ijk[nAxis] = nCorner >> nAxis & 1 ? range.max[nAxis] : range.min[nAxis];
        const DVector3D point = points.Point(ijk);
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            edges[nAxis] = nCorner >> nAxis & 1 ? edges[nAxis] + point : edges[nAxis] - point;
    }
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (range.min[nAxis] == range.max[nAxis])
            edges[nAxis] = Cross(edges[(nAxis + 1) % 3], edges[(nAxis + 2) % 3]);
    return edges;
}

/** The direction in space across the layers of a direction of the block. */
DVector3D AcrossLayers(const std::array<DVector3D, 3>& edges, int nAxis)
{
    const DVector3D normal = Cross(edges[(nAxis + 1) % 3], edges[(nAxis + 2) % 3]);
    const double dLength = Length(normal);
    return dLength > 0.0 ? normal / dLength : DVector3D{};
}

// Rounded outward; NaN excludes nothing.
quint8 LowBound(double dPlace) { return dPlace > 0.0 ? quint8(std::min(dPlace, 255.0)) : 0; }
quint8 HighBound(double dPlace) { return dPlace < 255.0 ? quint8(std::ceil(std::max(dPlace, 0.0))) : 255; }

} // namespace

SBox CGridPiece::BoxOf(const SIJKRange& part) const
{
    SBox box;
    ForEachRow(part, [&](qint64, qint64, const SPointBuffers& row) {
        for (size_t n = 0; n < row.x.size(); ++n)
            box.Add(PointAt(row, n));
    });
    return box;
}

/** Without a usable scale all places are 0, and every layer may hold every point. */
void CCellBundle::SetScale(const DVector3D& normal, const SValueRange& reach, int nAxis)
{
    const double dScale = (253.0 - 2.0) / (reach.dMax - reach.dMin);
    const double dOffset = reach.dMin * dScale - 2.0;
    const double dLargest = std::numeric_limits<float>::max();
    const bool bUsable = dScale > 0.0 && dScale < dLargest && std::abs(dOffset) < dLargest;
    for (int n = 0; n < 3; ++n)
        m_normals[nAxis][n] = bUsable ? float(normal[n] * dScale) : 0.0f;
    m_offsets[nAxis] = bUsable ? float(dOffset) : 0.0f;
}

void CCellBundle::ChooseDirections(const CGridPiece& points, const SIJKRange& range, const DVector3D& origin)
{
    const std::array<DVector3D, 3> edges = MeanEdges(points, range);
    const DVector3D normals[] = {AcrossLayers(edges, 0), AcrossLayers(edges, 1), AcrossLayers(edges, 2)};
    std::array<SValueRange, 3> reaches;
    points.ForEachRow(range, [&](qint64, qint64, const SPointBuffers& row) {
        for (size_t n = 0; n < row.x.size(); ++n)
            for (int nAxis = 0; nAxis < 3; ++nAxis)
                reaches[nAxis].Add(Dot(PointAt(row, n) - origin, normals[nAxis]));
    });
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        SetScale(normals[nAxis], reaches[nAxis], nAxis);
}

CCellBundle::PlaneRanges CCellBundle::PlacesOfPlanes(const CGridPiece& points, const SIJKRange& range,
                                                     const DVector3D& origin) const
{
    PlaneRanges planes;
    points.ForEachRow(range, [&](qint64 j, qint64 k, const SPointBuffers& row) {
        for (size_t n = 0; n < row.x.size(); ++n) {
            const DVector3D fromOrigin = PointAt(row, n) - origin;
            planes[0][n].Add(PlaceOf(fromOrigin, 0));
            planes[1][j - range.min.j].Add(PlaceOf(fromOrigin, 1));
            planes[2][k - range.min.k].Add(PlaceOf(fromOrigin, 2));
        }
    });
    return planes;
}

CCellBundle::CCellBundle(const CGridPiece& points, const SIJKRange& range, const DVector3D& origin,
                         std::span<SLayerBounds> bounds)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        m_nFirst[nAxis] = qint32(range.min[nAxis]);
        m_nExtent[nAxis] = quint8(range.max[nAxis] - range.min[nAxis]);
    }
    ChooseDirections(points, range, origin);
    const PlaneRanges planes = PlacesOfPlanes(points, range, origin);
    const double dReach = MARGIN * Length(points.BoxOf(range).Extent());
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const DVector3D normal = Normal(nAxis);
        const double dMargin = dReach * (std::abs(normal.x) + std::abs(normal.y) + std::abs(normal.z));
        const qint64 nCells = range.Extent()[nAxis] - 1;
        // A layer of cells lies between two planes of points.
        for (qint64 n = 0; n < std::max<qint64>(nCells, 1); ++n) {
            SValueRange layer = planes[nAxis][n];
            layer.Add(planes[nAxis][std::min(n + 1, nCells)]);
            bounds[nAxis * bounds.size() / 3 + n] = {LowBound(layer.dMin - dMargin),
                                                     HighBound(layer.dMax + dMargin)};
        }
    }
}

quint32 CCellBundle::LayersAt(const DVector3D& fromOrigin, int nAxis,
                              std::span<const SLayerBounds> bounds) const
{
    const double dPlace = PlaceOf(fromOrigin, nAxis);
    if (std::isnan(dPlace)) // infinite coordinates: nothing is known
        return ~quint32(0);
    const int nBelow = int(dPlace);
    const int nAbove = nBelow + (nBelow < dPlace ? 1 : 0);
    quint32 bits = 0;
    for (size_t n = 0; n < bounds.size(); ++n)
        bits |= quint32(bounds[n].nLow <= nBelow && nAbove <= bounds[n].nHigh) << n;
    return bits;
}
