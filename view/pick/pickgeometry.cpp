#include "view/pick/pickgeometry.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double SEPARATION_TOLERANCE = 1e-12; // of the sizes involved; boxes nearer than that meet

/** Where the line reaches the abscissa; false where it doesn't, or runs along it. */
bool OrdinateAt(double dX, double x0, double y0, double x1, double y1, double& y)
{
    if (x0 == x1)
        return false;
    const double t = (dX - x0) / (x1 - x0);
    y = y0 + t * (y1 - y0);
    return t >= 0.0 && t <= 1.0;
}

bool CrossesSides(const SPickPoint& a, const SPickPoint& b, const SPickRect& rect)
{
    double d;
    for (const double dX : {rect.dLeft, rect.dRight})
        if (OrdinateAt(dX, a.x, a.y, b.x, b.y, d) && d >= rect.dBottom && d <= rect.dTop)
            return true;
    for (const double dY : {rect.dBottom, rect.dTop})
        if (OrdinateAt(dY, a.y, a.x, b.y, b.x, d) && d >= rect.dLeft && d <= rect.dRight)
            return true;
    return false;
}

/** All corners lie beyond one side, which spares the tests that cost more. */
template <std::size_t N> bool LiesBeyondASide(const std::array<SPickPoint, N>& corners, const SPickRect& rect)
{
    const auto all = [&](const auto& beyond) { return std::all_of(corners.begin(), corners.end(), beyond); };
    return all([&](const SPickPoint& p) { return p.x < rect.dLeft; }) ||
           all([&](const SPickPoint& p) { return p.x > rect.dRight; }) ||
           all([&](const SPickPoint& p) { return p.y < rect.dBottom; }) ||
           all([&](const SPickPoint& p) { return p.y > rect.dTop; });
}

double Side(const SPickPoint& a, const SPickPoint& b, const SPickPoint& p)
{
    return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
}

bool IsInside(const std::array<SPickPoint, 3>& triangle, const SPickPoint& p)
{
    const double d0 = Side(triangle[0], triangle[1], p);
    const double d1 = Side(triangle[1], triangle[2], p);
    const double d2 = Side(triangle[2], triangle[0], p);
    return (d0 > 0.0 && d1 > 0.0 && d2 > 0.0) || (d0 < 0.0 && d1 < 0.0 && d2 < 0.0);
}

std::array<SPickPoint, 4> Corners(const SPickRect& rect)
{
    return {{{rect.dLeft, rect.dBottom},
             {rect.dRight, rect.dBottom},
             {rect.dRight, rect.dTop},
             {rect.dLeft, rect.dTop}}};
}

/**
 * Bounds of the box on one row of the matrix. The terms are summed in the order of Project, so that rounding
 * never moves a point inside the box out of them.
 */
struct SExtent
{
    double dLeast, dGreatest;

    SExtent(const double* pRow, const DVector3D& minimum, const DVector3D& maximum)
    {
        const auto [x0, x1] = std::minmax({pRow[0] * minimum.x, pRow[0] * maximum.x});
        const auto [y0, y1] = std::minmax({pRow[1] * minimum.y, pRow[1] * maximum.y});
        const auto [z0, z1] = std::minmax({pRow[2] * minimum.z, pRow[2] * maximum.z});
        dLeast = x0 + y0 + z0 + pRow[3];
        dGreatest = x1 + y1 + z1 + pRow[3];
    }
};

/** Whether a line along the projected axis keeps the seen box and the rectangle apart; both are convex. */
bool IsApartAcross(int nAxis, const DMatrix4x4& view, const DVector3D& middle, const DVector3D& half,
                   const SPickRect& rect)
{
    const double nx = -view.d[4 + nAxis];
    const double ny = view.d[nAxis];
    double dReach =
        std::abs(nx) * 0.5 * (rect.dRight - rect.dLeft) + std::abs(ny) * 0.5 * (rect.dTop - rect.dBottom);
    for (int n = 0; n < 3; ++n)
        dReach += std::abs(nx * view.d[n] + ny * view.d[4 + n]) * half[n];
    const SPickPoint p = PickGeometry::Project(view, middle);
    const double dx = p.x - 0.5 * (rect.dLeft + rect.dRight);
    const double dy = p.y - 0.5 * (rect.dBottom + rect.dTop);
    // Rounding grows with the coordinates, which may be large against what is looked at.
    const double dSize = std::abs(p.x) + std::abs(p.y) + std::abs(view.d[3]) + std::abs(view.d[7]) +
                         std::abs(middle.x) + std::abs(middle.y) + std::abs(middle.z);
    return std::abs(nx * dx + ny * dy) >
           dReach + SEPARATION_TOLERANCE * (std::abs(nx) + std::abs(ny)) * dSize;
}

/** Where between a (0) and b (1) the line comes nearest to p. */
double NearestPlace(const SPickPoint& a, const SPickPoint& b, const SPickPoint& p)
{
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double dLength2 = dx * dx + dy * dy;
    return dLength2 > 0.0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / dLength2, 0.0, 1.0) : 0.0;
}

double DistanceToLine2(const SPickPoint& a, const SPickPoint& b, const SPickPoint& p)
{
    const double t = NearestPlace(a, b, p);
    return PickGeometry::Distance2({a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}, p);
}

} // namespace

bool PickGeometry::LineMeetsRect(const std::array<SPickPoint, 2>& line, const SPickRect& rect)
{
    return PointInRect(line[0], rect) || PointInRect(line[1], rect) || CrossesSides(line[0], line[1], rect);
}

bool PickGeometry::TriangleMeetsRect(const std::array<SPickPoint, 3>& triangle, const SPickRect& rect)
{
    if (LiesBeyondASide(triangle, rect))
        return false;
    for (const SPickPoint& corner : Corners(rect))
        if (IsInside(triangle, corner))
            return true;
    for (const SPickPoint& corner : triangle)
        if (PointInRect(corner, rect))
            return true;
    return CrossesSides(triangle[0], triangle[1], rect) || CrossesSides(triangle[1], triangle[2], rect) ||
           CrossesSides(triangle[2], triangle[0], rect);
}

bool PickGeometry::PointInCircle(const SPickPoint& p, const SPickPoint& centre, double dRadius2)
{
    return DistanceToLine2(p, p, centre) <= dRadius2;
}

bool PickGeometry::LineMeetsCircle(const std::array<SPickPoint, 2>& line, const SPickPoint& centre,
                                   double dRadius2)
{
    return DistanceToLine2(line[0], line[1], centre) <= dRadius2;
}

bool PickGeometry::TriangleMeetsCircle(const std::array<SPickPoint, 3>& triangle, const SPickPoint& centre,
                                       double dRadius2)
{
    return IsInside(triangle, centre) || LineMeetsCircle({triangle[0], triangle[1]}, centre, dRadius2) ||
           LineMeetsCircle({triangle[1], triangle[2]}, centre, dRadius2) ||
           LineMeetsCircle({triangle[2], triangle[0]}, centre, dRadius2);
}

std::optional<double> PickGeometry::DepthAt(const std::array<DVector3D, 3>& corners, const SPickPoint& p)
{
    const auto& [a, b, c] = corners;
    const SPickPoint seen[] = {{a.x, a.y}, {b.x, b.y}, {c.x, c.y}};
    const double dA = Side(seen[1], seen[2], p), dB = Side(seen[2], seen[0], p),
                 dC = Side(seen[0], seen[1], p);
    const double dArea = dA + dB + dC;
    if (dArea == 0.0 || dA * dArea < 0.0 || dB * dArea < 0.0 || dC * dArea < 0.0)
        return {};
    return (dA * a.z + dB * b.z + dC * c.z) / dArea;
}

DVector3D PickGeometry::NearestOfLine(const DVector3D& a, const DVector3D& b, const SPickPoint& p)
{
    return a + NearestPlace({a.x, a.y}, {b.x, b.y}, p) * (b - a);
}

PickGeometry::SSeenBox::SSeenBox(const DMatrix4x4& view, const DVector3D& boxMinimum,
                                 const DVector3D& boxMaximum)
{
    for (int nRow = 0; nRow < 3; ++nRow) {
        const SExtent extent(view.d.data() + 4 * nRow, boxMinimum, boxMaximum);
        minimum[nRow] = extent.dLeast;
        maximum[nRow] = extent.dGreatest;
    }
}

double PickGeometry::SSeenBox::Distance2(const SPickPoint& p) const
{
    return PickGeometry::Distance2(
        p, {std::clamp(p.x, minimum.x, maximum.x), std::clamp(p.y, minimum.y, maximum.y)});
}

PickBox_e PickGeometry::TestBox(const DMatrix4x4& view, const DVector3D& minimum, const DVector3D& maximum,
                                const SPickRect& rect)
{
    if (!(minimum.x <= maximum.x && minimum.y <= maximum.y && minimum.z <= maximum.z))
        return BoxMisses;
    const SExtent x(view.d.data(), minimum, maximum);
    const SExtent y(view.d.data() + 4, minimum, maximum);
    if (x.dGreatest < rect.dLeft || x.dLeast > rect.dRight || y.dGreatest < rect.dBottom ||
        y.dLeast > rect.dTop)
        return BoxMisses;
    if (x.dLeast >= rect.dLeft && x.dGreatest <= rect.dRight && y.dLeast >= rect.dBottom &&
        y.dGreatest <= rect.dTop)
        return BoxInside;
    const DVector3D middle = 0.5 * (minimum + maximum);
    const DVector3D half = 0.5 * (maximum - minimum);
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (IsApartAcross(nAxis, view, middle, half, rect))
            return BoxMisses;
    return BoxMeets;
}
