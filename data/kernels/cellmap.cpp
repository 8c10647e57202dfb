#include "data/kernels/cellmap.h"

#include <limits>

namespace {

constexpr double EPSILON = std::numeric_limits<double>::epsilon();
constexpr double NATURAL_LIMIT = 1.000000000000222; // 1 plus 1000 epsilons
constexpr int MAX_ITERATIONS = 15;
/** Share of the diagonal by which a point inside may miss the hull of the corners; NATURAL_LIMIT needs 1e-12.
 */
constexpr double HULL_SLACK = 1e-11;
/** Sine of the angle below which directions count as parallel; squared. */
constexpr double SINGULAR_SQUARED = 1e-28;

bool AreAllWithin(const DVector3D& a, double dLimit)
{
    return std::abs(a.x) <= dLimit && std::abs(a.y) <= dLimit && std::abs(a.z) <= dLimit;
}

double SquaredLength(const DVector3D& a) { return Dot(a, a); }

int ShortestAxis(const DVector3D& extent)
{
    if (extent.z <= extent.x && extent.z <= extent.y)
        return 2;
    return extent.y <= extent.x ? 1 : 0;
}

} // namespace

CCellMap::CCellMap(const SCellCorners& corners, const DVector3D& point, double dTolerance)
    : m_nFlatAxis(corners.nFlatAxis)
{
    for (int n = 0; n < 8; ++n) {
        m_coefficients[n] = corners.points[n] - point;
        m_box.Add(m_coefficients[n]);
    }
    // Halved sums and differences along one bit after the other turn corners into coefficients.
    for (int nBit = 1; nBit < 8; nBit *= 2) {
        for (int n = 0; n < 8; ++n) {
            if (n & nBit)
                continue;
            const DVector3D sum = m_coefficients[n] + m_coefficients[n + nBit];
            const DVector3D difference = m_coefficients[n + nBit] - m_coefficients[n];
            m_coefficients[n] = 0.5 * sum;
            m_coefficients[n + nBit] = 0.5 * difference;
        }
    }
    m_nLeftOut = m_nFlatAxis < 0 ? -1 : ShortestAxis(m_box.Extent());
    const double dDiagonal = Length(m_box.Extent());
    m_dTolerance = dTolerance < 0.0 ? 1e-6 * dDiagonal : dTolerance;
    m_dSlack = m_dTolerance + HULL_SLACK * dDiagonal;
}

// A point of the cell lies in the hull of the corners. The hull is tried against the axes and, for a
// hexahedron, against the normals of its three middle planes, which is close for a cell that is nearly a
// parallelepiped.
bool CCellMap::MayHold() const
{
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (m_box.min[nAxis] > m_dSlack || m_box.max[nAxis] < -m_dSlack)
            return false;
    if (m_nFlatAxis >= 0)
        return true;
    const DVector3D& u = m_coefficients[1];
    const DVector3D& v = m_coefficients[2];
    const DVector3D& w = m_coefficients[4];
    return !IsParted(Cross(v, w)) && !IsParted(Cross(w, u)) && !IsParted(Cross(u, v));
}

/** Whether all corners lie on one side of the point, seen along the direction. */
bool CCellMap::IsParted(const DVector3D& direction) const
{
    double dReach = (std::abs(direction.x) + std::abs(direction.y) + std::abs(direction.z)) * m_dSlack;
    for (int n = 1; n < 8; ++n)
        dReach += std::abs(Dot(direction, m_coefficients[n]));
    return std::abs(Dot(direction, m_coefficients[0])) > dReach;
}

CCellMap::SState CCellMap::Evaluate(const DVector3D& natural) const
{
    const auto& c = m_coefficients;
    const DVector3D a = c[0] + c[1] * natural.x;
    const DVector3D b = c[2] + c[3] * natural.x;
    const DVector3D d = c[4] + c[5] * natural.x;
    const DVector3D e = c[6] + c[7] * natural.x;
    const DVector3D alongK = d + e * natural.y;
    return {a + b * natural.y + alongK * natural.z,
            {c[1] + c[3] * natural.y + (c[5] + c[7] * natural.y) * natural.z, b + e * natural.z, alongK}};
}

/** By Cramer's rule. False if the system is singular. */
bool CCellMap::Solve(const SState& state, DVector3D& step) const
{
    const auto& [u, v, w] = state.derivatives;
    const DVector3D vw = Cross(v, w);
    const double dDeterminant = Dot(u, vw);
    const double dVolume = SquaredLength(u) * SquaredLength(v) * SquaredLength(w);
    if (!(dDeterminant * dDeterminant > SINGULAR_SQUARED * dVolume))
        return false;
    step = DVector3D{Dot(state.residual, vw), Dot(state.residual, Cross(w, u)),
                     Dot(state.residual, Cross(u, v))} /
           dDeterminant;
    return true;
}

/** The same for a quadrilateral, in the two coordinates in which its box is longest. */
bool CCellMap::SolveFlat(const SState& state, DVector3D& step) const
{
    const int nFirst = (m_nLeftOut + 1) % 3;
    const int nSecond = (m_nLeftOut + 2) % 3;
    const int nU = (m_nFlatAxis + 1) % 3;
    const int nV = (m_nFlatAxis + 2) % 3;
    const double dU[2] = {state.derivatives[nU][nFirst], state.derivatives[nU][nSecond]};
    const double dV[2] = {state.derivatives[nV][nFirst], state.derivatives[nV][nSecond]};
    const double dResidual[2] = {state.residual[nFirst], state.residual[nSecond]};
    const double dDeterminant = dU[0] * dV[1] - dV[0] * dU[1];
    const double dArea = (dU[0] * dU[0] + dU[1] * dU[1]) * (dV[0] * dV[0] + dV[1] * dV[1]);
    if (!(dDeterminant * dDeterminant > SINGULAR_SQUARED * dArea))
        return false;
    step = {};
    step[nU] = (dResidual[0] * dV[1] - dV[0] * dResidual[1]) / dDeterminant;
    step[nV] = (dU[0] * dResidual[1] - dResidual[0] * dU[1]) / dDeterminant;
    return true;
}

/** Whether a residual is what rounding leaves of 0. */
bool CCellMap::IsRounding(const DVector3D& residual) const
{
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (nAxis != m_nLeftOut &&
            !(std::abs(residual[nAxis]) <= EPSILON * std::max(-m_box.min[nAxis], m_box.max[nAxis])))
            return false;
    return true;
}

SCellPlace CCellMap::Locate() const
{
    SCellPlace place;
    for (int n = 0; n < MAX_ITERATIONS; ++n) {
        const SState state = Evaluate(place.natural);
        // A step from here would follow the noise; at a collapsed edge it would divide by it.
        if (n > 0 && IsRounding(state.residual))
            break;
        DVector3D step;
        if (!(m_nFlatAxis < 0 ? Solve(state, step) : SolveFlat(state, step)))
            return place;
        place.natural = place.natural - step;
        if (AreAllWithin(step, EPSILON))
            break;
    }
    place.bInside = AreAllWithin(place.natural, NATURAL_LIMIT) &&
                    AreAllWithin(Evaluate(place.natural).residual, m_dTolerance);
    return place;
}
