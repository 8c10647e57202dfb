#include "view/pick/glitem.h"

namespace {

template <std::size_t N>
std::array<SPickPoint, N> Seen(const CGLItem& item, std::span<const DVector3D> positions,
                               const DMatrix4x4& view)
{
    std::array<SPickPoint, N> corners;
    for (std::size_t n = 0; n < N; ++n)
        corners[n] = PickGeometry::Project(view, positions[item.nCorners[n]]);
    return corners;
}

} // namespace

bool CGLItem::intersectsRect(std::span<const DVector3D> positions, const DMatrix4x4& view,
                             const SPickRect& rect) const
{
    switch (nKind) {
    case PickPoint:
        return PickGeometry::PointInRect(Seen<1>(*this, positions, view)[0], rect);
    case PickLine:
        return PickGeometry::LineMeetsRect(Seen<2>(*this, positions, view), rect);
    default:
        return PickGeometry::TriangleMeetsRect(Seen<3>(*this, positions, view), rect);
    }
}

bool CGLItem::intersectsCircle(std::span<const DVector3D> positions, const DMatrix4x4& view,
                               const SPickPoint& centre, double dRadius2) const
{
    switch (nKind) {
    case PickPoint:
        return PickGeometry::PointInCircle(Seen<1>(*this, positions, view)[0], centre, dRadius2);
    case PickLine:
        return PickGeometry::LineMeetsCircle(Seen<2>(*this, positions, view), centre, dRadius2);
    default:
        return PickGeometry::TriangleMeetsCircle(Seen<3>(*this, positions, view), centre, dRadius2);
    }
}
