// CGLTree: what of it is seen in front.
#include "view/pick/gltree.h"

namespace {

using PickGeometry::SSeenBox;

constexpr double SAME_DEPTH = 1e-6; // of the depth of all: what lies so near is not behind

SPickPoint PlaceOf(const DVector3D& seen) { return {seen.x, seen.y}; }

} // namespace

/**
 * Visits items as the walk does: skip(minimum, maximum) leaves out what lies in a box of the world,
 * visit(item) ends the search by returning true.
 */
template <class Skip, class Visit>
void CGLTree::Search(int nKindMask, bool bHoles, const Skip& skip, const Visit& visit) const
{
    for (quint32 nNode = 0; nNode < m_nodes.size();) {
        const SNode& node = m_nodes[nNode];
        if (!((bHoles ? node.nKinds : node.nSolids) & nKindMask) || skip(node.minimum, node.maximum)) {
            nNode = node.nEndNode;
            continue;
        }
        if (node.nEndNode == nNode + 1)
            for (quint32 n = node.nFirstItem; n < node.nEndItem; ++n)
                if ((m_items[n].nKind & nKindMask) && (bHoles || !m_items[n].bIsHole) && visit(m_items[n]))
                    return;
        ++nNode;
    }
}

double CGLTree::frontTriangle(const DMatrix4x4& view, const SPickPoint& place, bool bHoles, double dBehind,
                              double dEnough)
{
    Arrange();
    double dFront = dBehind;
    const auto skip = [&](const DVector3D& minimum, const DVector3D& maximum) {
        const SSeenBox box(view, minimum, maximum);
        return place.x < box.minimum.x || place.x > box.maximum.x || place.y < box.minimum.y ||
               place.y > box.maximum.y || box.maximum.z <= dFront;
    };
    Search(PickTriangle, bHoles, skip, [&](const CGLItem& item) {
        const auto depth =
            PickGeometry::DepthAt({Seen(view, item, 0), Seen(view, item, 1), Seen(view, item, 2)}, place);
        dFront = std::max(dFront, depth.value_or(NOT_MET));
        return dFront > dEnough;
    });
    return dFront > dBehind ? dFront : NOT_MET;
}

double CGLTree::frontLine(const DMatrix4x4& view, const SPickRect& rect, int nKindMask, bool bHoles,
                          double dBehind)
{
    Arrange();
    double dFront = dBehind;
    const auto skip = [&](const DVector3D& minimum, const DVector3D& maximum) {
        return SSeenBox(view, minimum, maximum).maximum.z <= dFront ||
               PickGeometry::TestBox(view, minimum, maximum, rect) == BoxMisses;
    };
    Search(nKindMask & (PickPoint | PickLine), bHoles, skip, [&](const CGLItem& item) {
        const DVector3D a = Seen(view, item, 0), b = Seen(view, item, 1);
        const double dDepth = PickGeometry::NearestOfLine(a, b, rect.Middle()).z;
        if (dDepth > dFront && PickGeometry::LineMeetsRect({PlaceOf(a), PlaceOf(b)}, rect))
            dFront = dDepth;
        return false;
    });
    return dFront > dBehind ? dFront : NOT_MET;
}

const CGLItem* CGLTree::nearestPoint(const DMatrix4x4& view, const SPickPoint& place, double dRadius,
                                     bool bHoles, bool bFilled)
{
    Arrange();
    const CGLItem* pNearest = nullptr;
    double dNearest2 = dRadius * dRadius, dDepth = NOT_MET;
    const SSeenBox all(view, m_minimum, m_maximum);
    const double dSame = SAME_DEPTH * (all.maximum.z - all.minimum.z);
    const auto isHidden = [&](const DVector3D& seen) {
        const double dFront = seen.z + dSame;
        return bFilled && frontTriangle(view, PlaceOf(seen), bHoles, dFront, dFront) != NOT_MET;
    };
    const auto skip = [&](const DVector3D& minimum, const DVector3D& maximum) {
        return SSeenBox(view, minimum, maximum).Distance2(place) > dNearest2;
    };
    Search(PickPoint, bHoles, skip, [&](const CGLItem& item) {
        const DVector3D seen = Seen(view, item, 0);
        const double dDistance2 = PickGeometry::Distance2(PlaceOf(seen), place);
        const bool bNearer = dDistance2 < dNearest2 || (dDistance2 == dNearest2 && seen.z > dDepth);
        if (bNearer && !isHidden(seen)) {
            pNearest = &item;
            dNearest2 = dDistance2;
            dDepth = seen.z;
        }
        return false;
    });
    return pNearest;
}
