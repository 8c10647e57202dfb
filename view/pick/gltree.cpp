#include "view/pick/gltree.h"

namespace {

int KnownKinds(int nKindMask) { return nKindMask < 0 ? PickPoint | PickLine | PickTriangle : nKindMask; }

bool IsEligible(const CGLItem& item, int nKindMask, bool bHoles)
{
    return (item.nKind & nKindMask) && (bHoles || !item.bIsHole);
}

} // namespace

void CGLTree::Reset(std::span<const DVector3D> positions, const DVector3D& minimum, const DVector3D& maximum)
{
    m_positions = positions;
    m_minimum = minimum;
    m_maximum = maximum;
    m_items.clear();
    m_nodes.clear();
    m_bArranged = true;
}

void CGLTree::Enter(const CGLItem& item)
{
    Q_ASSERT(*std::max_element(item.nCorners.begin(), item.nCorners.end()) < m_positions.size());
    m_items.push_back(item);
    m_bArranged = false;
}

/**
 * Visits the nodes that can hold a hit. leaf(item) is called for the eligible items of a leaf that meets the
 * rectangle, inside(node) for a branch that lies in it and holds an eligible item; either ends the walk by
 * returning true.
 */
template <class Leaf, class Inside>
void CGLTree::Walk(const DMatrix4x4& view, const SPickRect& rect, int nKindMask, bool bHoles,
                   const Leaf& leaf, const Inside& inside) const
{
    for (quint32 nNode = 0; nNode < m_nodes.size();) {
        const SNode& node = m_nodes[nNode];
        const PickBox_e eBox = (bHoles ? node.nKinds : node.nSolids) & nKindMask
                                   ? PickGeometry::TestBox(view, node.minimum, node.maximum, rect)
                                   : BoxMisses;
        if (eBox == BoxInside && inside(node))
            return;
        if (eBox == BoxMeets && node.nEndNode == nNode + 1)
            for (quint32 n = node.nFirstItem; n < node.nEndItem; ++n)
                if (IsEligible(m_items[n], nKindMask, bHoles) && leaf(m_items[n]))
                    return;
        nNode = eBox == BoxMeets ? nNode + 1 : node.nEndNode;
    }
}

const CGLItem* CGLTree::pickFirst(const DMatrix4x4& view, const SPickRect& rect, int nKindMask, bool bHoles)
{
    Arrange();
    nKindMask = KnownKinds(nKindMask);
    const CGLItem* pFound = nullptr;
    const auto leaf = [&](const CGLItem& item) {
        pFound = item.intersectsRect(m_positions, view, rect) ? &item : nullptr;
        return pFound != nullptr;
    };
    const auto inside = [&](const SNode& node) {
        const auto end = m_items.begin() + node.nEndItem;
        const auto found = std::find_if(m_items.begin() + node.nFirstItem, end,
                                        [&](const CGLItem& i) { return IsEligible(i, nKindMask, bHoles); });
        pFound = found == end ? nullptr : &*found;
        return pFound != nullptr;
    };
    Walk(view, rect, nKindMask, bHoles, leaf, inside);
    return pFound;
}

bool CGLTree::anyHit(const DMatrix4x4& view, const SPickRect& rect, int nKindMask, bool bHoles)
{
    Arrange();
    nKindMask = KnownKinds(nKindMask);
    bool bHit = false;
    const auto leaf = [&](const CGLItem& item) {
        return bHit = item.intersectsRect(m_positions, view, rect);
    };
    Walk(view, rect, nKindMask, bHoles, leaf, [&](const SNode&) { return bHit = true; });
    return bHit;
}

std::vector<CGLItem> CGLTree::itemsAtPoint(const DVector3D& point)
{
    Arrange();
    const auto holds = [&point](const DVector3D& minimum, const DVector3D& maximum) {
        return point.x >= minimum.x && point.x <= maximum.x && point.y >= minimum.y && point.y <= maximum.y &&
               point.z >= minimum.z && point.z <= maximum.z;
    };
    std::vector<CGLItem> found;
    for (quint32 nNode = 0; nNode < m_nodes.size();) {
        const SNode& node = m_nodes[nNode];
        const bool bHolds = holds(node.minimum, node.maximum);
        if (bHolds && node.nEndNode == nNode + 1)
            std::copy_if(
                m_items.begin() + node.nFirstItem, m_items.begin() + node.nEndItem, std::back_inserter(found),
                [&](const CGLItem& item) {
                    const DVector3D& a = m_positions[item.nCorners[0]];
                    const DVector3D& b = m_positions[item.nCorners[1]];
                    const DVector3D& c = m_positions[item.nCorners[2]];
                    return holds(
                        {std::min({a.x, b.x, c.x}), std::min({a.y, b.y, c.y}), std::min({a.z, b.z, c.z})},
                        {std::max({a.x, b.x, c.x}), std::max({a.y, b.y, c.y}), std::max({a.z, b.z, c.z})});
                });
        nNode = bHolds ? nNode + 1 : node.nEndNode;
    }
    return found;
}

std::span<const CGLItem> CGLTree::Items()
{
    Arrange();
    return m_items;
}

qint64 CGLTree::NodeCount()
{
    Arrange();
    return qint64(m_nodes.size());
}

qint64 CGLTree::GetBytes()
{
    Arrange();
    return qint64(m_items.capacity() * sizeof(CGLItem) + m_nodes.capacity() * sizeof(SNode));
}
