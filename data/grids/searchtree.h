#pragma once

#include "data/grids/igrid.h"

#include <vector>

/**
 * Finds the cell of a structured block that holds a point: a binary tree over boxes of IJK addresses, each
 * with the bounding box of its points. Immutable after the build; safe to ask from any thread.
 */
class CSearchTree
{
public:
    /** Over the whole block. */
    explicit CSearchTree(const IGrid& grid);

    /** The first cell, in tree order, that holds the point; (-1, -1, -1) if none does. */
    IVector3D FindCell(const IGrid& grid, const DVector3D& point) const;
    /** Memory that the tree holds [bytes]. */
    qint64 GetBytes() const;
};

/**
 * Natural coordinates in [-1, 1]^3 of a point in the hexahedron (or, of a block one point thick, the bilinear
 * quadrilateral) of a cell, by Newton iteration from its middle; see any finite element textbook on the
 * inversion of the isoparametric map.
 */
struct SCellPlace
{
    bool bInside = false;
    DVector3D natural;
};

/**
 * @param dTolerance  [m] the mapped point must lie this near in each coordinate; negative: 1e-6 of the
 *                    cell's diagonal
 */
SCellPlace LocateInCell(const IGrid& grid, const IVector3D& ijk, const DVector3D& point,
                        double dTolerance = -1.0);
