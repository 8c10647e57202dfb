#include "data/grids/faceedges.h"

#include "data/grids/gridslices.h"
#include "data/values/box.h"

namespace {

constexpr double TOUCH_TOLERANCE = 1e-9;         // [m]
constexpr double FOUND_DISTANCE_SQUARED = 1e-18; // [m^2]
constexpr double PI = 3.14159265358979323846;

/** The points of an edge, and their neighbours one step into the face (the edge itself if it has none). */
struct SEdgeRanges
{
    SIJKRange edge, inside;
};

SEdgeRanges RangesOf(const SBlockShape& shape, int nFace, int nEdge)
{
    const int nFaceAxis = nFace / 2;
    const int nFixedAxis = (nFaceAxis + (nEdge % 2 == 0 ? 2 : 1)) % 3;
    const bool bFar = nEdge >= 2;
    SEdgeRanges ranges{shape.Range(), {}};
    const auto pin = [&](SIJKRange& range, int nAxis, bool bLast, qint64 nSteps) {
        range.min[nAxis] = bLast ? shape.End()[nAxis] - nSteps : shape.start[nAxis] + nSteps;
        range.max[nAxis] = range.min[nAxis];
    };
    pin(ranges.edge, nFaceAxis, nFace % 2 != 0, 0);
    pin(ranges.edge, nFixedAxis, bFar, 0);
    ranges.inside = ranges.edge;
    pin(ranges.inside, nFixedAxis, bFar, shape.dimensions[nFixedAxis] > 1 ? 1 : 0);
    return ranges;
}

/** Empty if they can't be read. */
QVector<DVector3D> PointsOf(const IGrid& grid, const SIJKRange& range)
{
    CPointScratch scratch(range.Count());
    const SPointBuffers points = scratch.First(range.Count());
    QVector<DVector3D> result;
    if (FillRange(grid, range, GapsAreZeros, points) != LoadOk)
        return result;
    result.reserve(int(range.Count()));
    for (qint64 n = 0; n < range.Count(); ++n)
        result.append(PointAt(points, n));
    return result;
}

struct SFloatVector
{
    float x, y, z;
};

/** The direction of a vector in single precision; zeros for a vector of no length. */
SFloatVector DirectionOf(const DVector3D& vector)
{
    const double dLength = Length(vector);
    if (!(dLength > 0.0))
        return {0.0f, 0.0f, 0.0f};
    return {float(vector.x / dLength), float(vector.y / dLength), float(vector.z / dLength)};
}

/**
 * Unit normal of the quadrilateral a b c d: the cross product of its diagonals, in single precision, which is
 * all that a comparison of angles needs. The diagonals get their length 1 ahead of it, so that the floats
 * hold cells of any size.
 */
DVector3D NormalOf(const DVector3D& a, const DVector3D& b, const DVector3D& c, const DVector3D& d)
{
    const SFloatVector p = DirectionOf(c - a);
    const SFloatVector q = DirectionOf(d - b);
    const float x = p.y * q.z - p.z * q.y;
    const float y = p.z * q.x - p.x * q.z;
    const float z = p.x * q.y - p.y * q.x;
    const float fLength = std::sqrt(x * x + y * y + z * z);
    if (!(fLength > 0.0f))
        return {};
    return {x / fLength, y / fLength, z / fLength};
}

/**
 * Normals of the quadrilaterals that follow each point of an edge; the last point takes the one before it.
 *
 * @param bTurned  the other way round
 */
QVector<DVector3D> NormalsOf(const QVector<DVector3D>& edge, const QVector<DVector3D>& inside, bool bTurned)
{
    QVector<DVector3D> normals;
    normals.reserve(edge.size());
    for (int n = 0; n < edge.size(); ++n) {
        const int nFirst = std::max(std::min(n, edge.size() - 2), 0);
        const int nLast = std::min(nFirst + 1, edge.size() - 1);
        normals.append(bTurned ? NormalOf(edge[nFirst], inside[nFirst], inside[nLast], edge[nLast])
                               : NormalOf(edge[nFirst], edge[nLast], inside[nLast], inside[nFirst]));
    }
    return normals;
}

double SquaredDistance(const DVector3D& a, const DVector3D& b) { return Dot(a - b, a - b); }

/**
 * Whether a point projects into a segment; then its squared distance from the segment's line. The distance
 * is that of the foot of the perpendicular, since a difference of squares would lose it in rounding.
 */
bool ProjectOnSegment(const DVector3D& point, const DVector3D& first, const DVector3D& second,
                      double& dSquaredDistance)
{
    const DVector3D segment = second - first;
    const double dSquaredLength = Dot(segment, segment);
    if (!(dSquaredLength > 0.0))
        return false;
    const DVector3D unit = segment / std::sqrt(dSquaredLength);
    const double dAlong = Dot(point - first, unit);
    if (dAlong + 1e-9 < 0.0 || dAlong * dAlong - 1e-9 > dSquaredLength)
        return false;
    dSquaredDistance = SquaredDistance(point, first + dAlong * unit);
    return true;
}

/** Whether the points nFirst to nLast of one edge lie on the other one, with the faces on opposite sides. */
bool LieAcross(const CFaceEdges::SEdge& edge, int nFirst, int nLast, const CFaceEdges::SEdge& other,
               double dAngleLimit)
{
    for (int n = nFirst; n <= nLast; ++n) {
        const int nOther = FindOnPolyline(edge.points[n], other.points);
        if (nOther < 0 || Dot(edge.inward[n], other.inward[nOther]) > 0.0)
            return false;
        const double dCosine = std::clamp(Dot(edge.normals[n], other.normals[nOther]), -1.0, 1.0);
        const double dAngle = std::acos(dCosine);
        if (!(dAngle <= dAngleLimit || PI - dAngle <= dAngleLimit))
            return false;
    }
    return nFirst <= nLast;
}

/** The points of an edge from one of its ends to a foreign point that lies on it; empty if they coincide. */
std::pair<int, int> PointsBetween(const QVector<DVector3D>& edge, bool bFromLast, const DVector3D& point)
{
    const int nPlace = FindOnPolyline(point, edge);
    const DVector3D& end = bFromLast ? edge.last() : edge.first();
    if (SquaredDistance(point, end) < FOUND_DISTANCE_SQUARED)
        return {0, -1};
    return bFromLast ? std::pair(nPlace + 1, edge.size() - 1) : std::pair(0, nPlace);
}

} // namespace

const CFaceEdges::SEdge& CFaceEdges::Get(const IGrid& grid, int nFace, int nEdge)
{
    SEdge& edge = m_edges[4 * nFace + nEdge];
    if (edge.bBuilt)
        return edge;
    edge = {};
    edge.bBuilt = true;
    SBox box;
    if (const SBlockShape shape = grid.GetShape(); !shape.Range().IsEmpty()) {
        const SEdgeRanges ranges = RangesOf(shape, nFace, nEdge);
        const QVector<DVector3D> inside = PointsOf(grid, ranges.inside);
        edge.points = PointsOf(grid, ranges.edge);
        if (inside.size() != edge.points.size() || inside.isEmpty()) // unreadable: nothing now, perhaps later
            return edge = {};
        // All normals of a face point the same way, that of its two directions in cyclic order.
        edge.normals = NormalsOf(edge.points, inside, nEdge == 1 || nEdge == 2);
        for (int n = 0; n < inside.size(); ++n) {
            edge.inward.append(inside[n] - edge.points[n]);
            box.Add(edge.points[n]);
        }
    }
    edge.boxMin = box.min;
    edge.boxMax = box.max;
    return edge;
}

void CFaceEdges::Reset()
{
    for (SEdge& edge : m_edges)
        edge = {};
}

bool BoxesTouch(const CFaceEdges::SEdge& edge, const DVector3D& min, const DVector3D& max)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (edge.boxMin[nAxis] > max[nAxis] + TOUCH_TOLERANCE ||
            min[nAxis] > edge.boxMax[nAxis] + TOUCH_TOLERANCE)
            return false;
    return true;
}

int FindOnPolyline(const DVector3D& point, const QVector<DVector3D>& polyline)
{
    double dBest = std::numeric_limits<double>::max();
    int nFound = -1;
    const auto offer = [&](double dSquared, int nPlace) {
        if (dSquared < dBest) {
            dBest = dSquared;
            nFound = nPlace;
        }
    };
    for (int n = 0; n + 1 < polyline.size(); ++n) {
        offer(SquaredDistance(point, polyline[n]), n);
        double dSquared = 0.0;
        if (ProjectOnSegment(point, polyline[n], polyline[n + 1], dSquared))
            offer(dSquared, n);
    }
    if (!polyline.isEmpty())
        offer(SquaredDistance(point, polyline.last()), std::max(polyline.size() - 2, 0));
    return dBest < FOUND_DISTANCE_SQUARED ? nFound : -1;
}

bool EdgesMatch(const CFaceEdges::SEdge& first, const CFaceEdges::SEdge& second, double dAngleLimit)
{
    if (first.points.isEmpty() || second.points.isEmpty() || !BoxesTouch(first, second.boxMin, second.boxMax))
        return false;
    const bool bFirstBegin = FindOnPolyline(first.points.first(), second.points) >= 0;
    const bool bFirstEnd = FindOnPolyline(first.points.last(), second.points) >= 0;
    const bool bSecondBegin = FindOnPolyline(second.points.first(), first.points) >= 0;
    const bool bSecondEnd = FindOnPolyline(second.points.last(), first.points) >= 0;
    if (bFirstBegin && bFirstEnd)
        return LieAcross(first, 0, first.points.size() - 1, second, dAngleLimit);
    if (bSecondBegin && bSecondEnd)
        return LieAcross(second, 0, second.points.size() - 1, first, dAngleLimit);
    if ((!bFirstBegin && !bFirstEnd) || (!bSecondBegin && !bSecondEnd))
        return false;
    const DVector3D& foreign = bSecondBegin ? second.points.first() : second.points.last();
    const auto [nFirst, nLast] = PointsBetween(first.points, bFirstEnd, foreign);
    return LieAcross(first, nFirst, nLast, second, dAngleLimit);
}
