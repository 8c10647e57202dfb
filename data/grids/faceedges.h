#pragma once

#include "data/grids/igrid.h"

#include <array>

/**
 * The 24 edges of the six faces of a block, each built when it is first asked for. Face f lies on axis f / 2,
 * at index 1 for even f and at the last index for odd f. With a = f / 2, edge e runs along axis (a + 1) % 3
 * for even e and along (a + 2) % 3 for odd e; the other of the two is fixed, at index 1 for e = 0 and 1 and
 * at its last index for e = 2 and 3.
 */
class CFaceEdges
{
public:
    struct SEdge
    {
        bool bBuilt = false;
        QVector<DVector3D> points;
        QVector<DVector3D> normals; ///< unit normal of the face's quadrilateral next to each point
        QVector<DVector3D> inward;  ///< from each point to its neighbour one step into the face
        DVector3D boxMin;
        DVector3D boxMax;
    };

    /** The edge, built from the grid's points if it hasn't been. */
    const SEdge& Get(const IGrid& grid, int nFace, int nEdge);
    void Reset();

private:
    std::array<SEdge, 24> m_edges;
};

/** Both boxes overlap, with a tolerance of 1e-9 on each axis. */
bool BoxesTouch(const CFaceEdges::SEdge& edge, const DVector3D& min, const DVector3D& max);

/** Index of the vertex of the polyline at (or just ahead of) which the point lies on it; -1 if it doesn't. */
int FindOnPolyline(const DVector3D& point, const QVector<DVector3D>& polyline);

/**
 * Whether two block edges are one curve and the faces lie on opposite sides of it.
 *
 * @param dAngleLimit  [radians] largest angle between the normals, either way round
 */
bool EdgesMatch(const CFaceEdges::SEdge& first, const CFaceEdges::SEdge& second, double dAngleLimit);
