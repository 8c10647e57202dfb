#include "view/adjacency.h"

#include "scene/iselectable.h"
#include "view/camera/viewbounds.h"
#include "view/mesh/surface.h"

#include <cmath>
#include <map>
#include <tuple>

namespace {

constexpr double TOLERANCE = 1e-6; // of the diagonal of all: closer points are the same
constexpr int LEAST_COMMON = 2;    // edge points that surfaces have to share: one is only a corner

struct SEdgePoint
{
    DVector3D point;
    DVector3D normal;
};

/** The points round a surface, in order. */
QVector<SEdgePoint> EdgePoints(const CSurface& surface)
{
    const SSurfaceSize size = surface.size();
    std::vector<float> normals(3 * size.Count());
    SurfaceArrays::BuildNormals(size, surface.positions(), normals);
    QVector<SEdgePoint> points;
    for (const quint32 n : SurfaceArrays::OutlineIndices(size))
        points.append({surface.positions()[n], {normals[3 * n], normals[3 * n + 1], normals[3 * n + 2]}});
    return points;
}

QVector<SEdgePoint> EdgePoints(const ISelectable& selectable)
{
    QVector<SEdgePoint> points;
    for (const IDrawable* const pDrawable : selectable.drawables())
        if (const auto* const pSurface = dynamic_cast<const CSurface*>(pDrawable))
            points += EdgePoints(*pSurface);
    return points;
}

/** Edge points by place, to the tolerance. */
class CEdgeMap
{
public:
    explicit CEdgeMap(double dTolerance) : m_dTolerance(dTolerance) {}

    void Add(const SEdgePoint& edge) { m_normals[KeyOf(edge.point, {})].append(edge.normal); }

    /** Whether some point at the same place has a normal within the limit. */
    bool GoesOn(const SEdgePoint& edge, double dLeastCosine) const
    {
        // A point near the border of its cell may have its like in the next one.
        for (int n = 0; n < 27; ++n) {
            const auto found = m_normals.find(KeyOf(edge.point, {n % 3 - 1, n / 3 % 3 - 1, n / 9 - 1}));
            if (found == m_normals.end())
                continue;
            for (const DVector3D& normal : found->second)
                if (std::abs(Dot(normal, edge.normal)) >= dLeastCosine)
                    return true;
        }
        return false;
    }

private:
    using Key = std::tuple<qint64, qint64, qint64>;

    Key KeyOf(const DVector3D& p, const IVector3D& offset) const
    {
        return {std::llround(p.x / m_dTolerance) + offset.i, std::llround(p.y / m_dTolerance) + offset.j,
                std::llround(p.z / m_dTolerance) + offset.k};
    }

    const double m_dTolerance;
    std::map<Key, QVector<DVector3D>> m_normals;
};

/** How many edge points in a row go on. */
int LongestRun(const QVector<SEdgePoint>& points, const CEdgeMap& edges, double dLeastCosine)
{
    int nLongest = 0, nRun = 0;
    for (const SEdgePoint& point : points) {
        nRun = edges.GoesOn(point, dLeastCosine) ? nRun + 1 : 0;
        nLongest = std::max(nLongest, nRun);
    }
    return nLongest;
}

double DiagonalOf(const QVector<ISelectable*>& selectables)
{
    SViewBounds bounds;
    for (const ISelectable* const pSelectable : selectables)
        for (const IDrawable* const pDrawable : pSelectable->drawables())
            bounds.AddBox(pDrawable->boundsMinimum(), pDrawable->boundsMaximum(), DMatrix4x4());
    return bounds.IsEmpty() ? 0.0 : Length(bounds.maximum - bounds.minimum);
}

} // namespace

QVector<ISelectable*> FindAdjacent(const QVector<ISelectable*>& from, const QVector<ISelectable*>& candidates,
                                   double dAngleLimit)
{
    QVector<ISelectable*> adjacent;
    const double dTolerance = DiagonalOf(candidates + from) * TOLERANCE;
    if (!(dTolerance > 0.0))
        return adjacent;
    CEdgeMap edges(dTolerance);
    for (const ISelectable* const pSelectable : from)
        for (const SEdgePoint& edge : EdgePoints(*pSelectable))
            edges.Add(edge);
    const double dLeastCosine = std::cos(dAngleLimit) - 1e-12; // an angle of just the limit counts
    for (ISelectable* const pCandidate : candidates) {
        if (!from.contains(pCandidate) &&
            LongestRun(EdgePoints(*pCandidate), edges, dLeastCosine) >= LEAST_COMMON)
            adjacent.append(pCandidate);
    }
    return adjacent;
}
