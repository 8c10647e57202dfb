#pragma once

#include "view/pick/pickgeometry.h"

#include <algorithm>
#include <span>

/** What a pick item is; each is a bit of a mask of kinds. */
enum PickKind_e : int { PickPoint = 1, PickLine = 2, PickTriangle = 4 };

/** The mask that takes everything; so does any other negative one. */
inline constexpr int ANY_PICK_KIND = -1;

/**
 * A point, line or triangle that can be picked. It knows its corners by their places in the array of
 * positions of its drawable, so that it is small and what belongs to a corner (index, value) can be looked up
 * there.
 */
struct CGLItem
{
    std::array<quint32, 3> nCorners = {}; ///< from 0; the first CornerCount of them count
    quint8 nKind = PickPoint;             ///< a PickKind_e
    bool bIsHole = false; ///< of a blanked cell: can't be picked while its drawable shows holes

    int CornerCount() const { return nKind == PickPoint ? 1 : nKind == PickLine ? 2 : 3; }

    bool intersectsRect(std::span<const DVector3D> positions, const DMatrix4x4& view,
                        const SPickRect& rect) const;
    /** @param dRadius2  squared radius [world units^2] */
    bool intersectsCircle(std::span<const DVector3D> positions, const DMatrix4x4& view,
                          const SPickPoint& centre, double dRadius2) const;

    friend bool operator==(const CGLItem&, const CGLItem&) = default;
};

struct CGLPoint : CGLItem
{
    CGLPoint(quint32 n, bool bHole) : CGLItem{{n, n, n}, PickPoint, bHole} {}
};

struct CGLLine : CGLItem
{
    CGLLine(quint32 a, quint32 b, bool bHole) : CGLItem{{a, b, b}, PickLine, bHole} {}
};

struct CGLTriangle : CGLItem
{
    CGLTriangle(quint32 a, quint32 b, quint32 c, bool bHole) : CGLItem{{a, b, c}, PickTriangle, bHole} {}
};
