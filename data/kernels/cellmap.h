#pragma once

#include "data/values/box.h"

#include <array>

/**
 * The corners of a cell: bit 0 of the place is a step along i, bit 1 along j, bit 2 along k. Of a cell of a
 * block one point thick in direction nFlatAxis, those with that bit are the same as those without.
 */
struct SCellCorners
{
    std::array<DVector3D, 8> points;
    int nFlatAxis = -1; ///< -1: a hexahedron
};

/** Where a point lies in a cell. */
struct SCellPlace
{
    bool bInside = false;
    DVector3D natural; ///< in [-1, 1] along i, j, k; 0 in a flat direction. Meaningless if it isn't inside
};

/**
 * The trilinear map from natural coordinates in [-1, 1]^3 to a hexahedron (or the bilinear one to a
 * quadrilateral), seen from one point: its inversion by Newton iteration from the middle of the cell. See any
 * finite element textbook on isoparametric maps.
 *
 * Everything is computed relative to the point, in coordinates of the cell's size, so that a small cell far
 * from the origin loses no digits.
 */
class CCellMap
{
public:
    /**
     * @param dTolerance  [m] the mapped point must lie this near in each coordinate; negative: 1e-6 of the
     *                    diagonal of the cell's box
     */
    CCellMap(const SCellCorners& corners, const DVector3D& point, double dTolerance = -1.0);

    /** False if Locate can't succeed; a quick answer that is right for most cells that don't hold the point.
     */
    bool MayHold() const;

    /**
     * At most 15 iterations, until no natural coordinate changes by more than the machine's epsilon. Inside
     * means that all are at most 1 plus 1000 epsilons in absolute value, and that the point they map to lies
     * within the tolerance. A singular system (a cell without volume) is a failure.
     */
    SCellPlace Locate() const;

private:
    /** The mapped point less the point sought, and the derivatives in the natural directions. */
    struct SState
    {
        DVector3D residual;
        std::array<DVector3D, 3> derivatives;
    };
    SState Evaluate(const DVector3D& natural) const;
    bool Solve(const SState& state, DVector3D& step) const;
    bool SolveFlat(const SState& state, DVector3D& step) const;
    bool IsRounding(const DVector3D& residual) const;
    bool IsParted(const DVector3D& direction) const;

    std::array<DVector3D, 8> m_coefficients; // by the bits of the natural coordinates that multiply them
    int m_nFlatAxis;
    int m_nLeftOut; // the coordinate that a quadrilateral isn't solved for; -1 for a hexahedron
    SBox m_box;     // of the corners, the point at the origin
    double m_dTolerance;
    double m_dSlack; // that much outside of the cell's hull a point may still count as inside
};
