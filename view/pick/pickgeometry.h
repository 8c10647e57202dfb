#pragma once

#include "frame/transform.h"

#include <array>
#include <optional>

/** A point of the plane of a view [world units]. */
struct SPickPoint
{
    double x = 0.0;
    double y = 0.0;
};

/** An upright rectangle in the plane of a view [world units], y upwards; its border belongs to it. */
struct SPickRect
{
    double dLeft = 0.0;
    double dBottom = 0.0;
    double dRight = 0.0;
    double dTop = 0.0;

    bool IsEmpty() const { return !(dLeft < dRight && dBottom < dTop); }
    SPickPoint Middle() const { return {0.5 * (dLeft + dRight), 0.5 * (dBottom + dTop)}; }
};

/** How a box lies to a rectangle. */
enum PickBox_e { BoxMisses = 0, BoxMeets = 1, BoxInside = 2 };

/** Tests in the plane of a view: what is seen of a shape against a rectangle or a circle. Pure functions. */
namespace PickGeometry {

/** The place of a world point in the view; only the first two rows of the matrix count. */
inline SPickPoint Project(const DMatrix4x4& view, const DVector3D& p)
{
    return {view.d[0] * p.x + view.d[1] * p.y + view.d[2] * p.z + view.d[3],
            view.d[4] * p.x + view.d[5] * p.y + view.d[6] * p.z + view.d[7]};
}

inline bool PointInRect(const SPickPoint& p, const SPickRect& rect)
{
    return p.x >= rect.dLeft && p.x <= rect.dRight && p.y >= rect.dBottom && p.y <= rect.dTop;
}

/** An end lies inside, or the line crosses a side. */
bool LineMeetsRect(const std::array<SPickPoint, 2>& line, const SPickRect& rect);

/**
 * A corner of the rectangle lies inside the triangle (not on its edge), a corner of the triangle inside the
 * rectangle, or an edge crosses a side. A triangle seen edge-on has no inside.
 */
bool TriangleMeetsRect(const std::array<SPickPoint, 3>& triangle, const SPickRect& rect);

/** @param dRadius2  squared radius */
bool PointInCircle(const SPickPoint& p, const SPickPoint& centre, double dRadius2);
bool LineMeetsCircle(const std::array<SPickPoint, 2>& line, const SPickPoint& centre, double dRadius2);
bool TriangleMeetsCircle(const std::array<SPickPoint, 3>& triangle, const SPickPoint& centre,
                         double dRadius2);

/**
 * Depth of a triangle where a line of sight meets it, its border included; nothing where it doesn't, and for
 * a triangle seen edge-on.
 *
 * @param corners  in view coordinates, z towards the user
 */
std::optional<double> DepthAt(const std::array<DVector3D, 3>& corners, const SPickPoint& p);

/** The place of a line, seen by its ends in view coordinates, that is seen nearest to p. */
DVector3D NearestOfLine(const DVector3D& a, const DVector3D& b, const SPickPoint& p);

inline double Distance2(const SPickPoint& p, const SPickPoint& q)
{
    return (p.x - q.x) * (p.x - q.x) + (p.y - q.y) * (p.y - q.y);
}

/** What is seen of a world box, as an upright box in view coordinates; rounding loses nothing inside of it.
 */
struct SSeenBox
{
    SSeenBox(const DMatrix4x4& view, const DVector3D& boxMinimum, const DVector3D& boxMaximum);
    double Distance2(const SPickPoint& p) const;

    DVector3D minimum;
    DVector3D maximum;
};

/**
 * How what is seen of a world box lies to the rectangle. What touches doesn't miss: no shape inside the box
 * that meets the rectangle is lost by rounding. A box whose minimum exceeds its maximum misses.
 */
PickBox_e TestBox(const DMatrix4x4& view, const DVector3D& minimum, const DVector3D& maximum,
                  const SPickRect& rect);

} // namespace PickGeometry
