#include "view/pick/gltree.h"

#include <limits>

namespace {

constexpr int MAX_DEPTH = 10;
constexpr int ALL_AXES = 7;      // a bit for each axis that may still be split
constexpr quint32 LEAF_SIZE = 8; // items that are tested faster than nodes

int KnownKinds(int nKindMask) { return nKindMask < 0 ? PickPoint | PickLine | PickTriangle : nKindMask; }

bool IsEligible(const CGLItem& item, int nKindMask, bool bHoles)
{
    return (item.nKind & nKindMask) && (bHoles || !item.bIsHole);
}

/** The space of a node that is split. */
struct SCell
{
    DVector3D minimum;
    DVector3D maximum;
    int nDepth = 0;
    int nAxes = ALL_AXES;

    bool CanSplit() const { return nDepth < MAX_DEPTH && nAxes != 0; }

    int SplitAxis() const
    {
        int nAxis = 0;
        for (int n = 1; n < 3; ++n) {
            const bool bIsLarger = maximum[n] - minimum[n] > maximum[nAxis] - minimum[nAxis];
            if ((nAxes >> n & 1) && (bIsLarger || !(nAxes >> nAxis & 1)))
                nAxis = n;
        }
        return nAxis;
    }

    /** @param nSide  -1 lower, 0 straddling, 1 upper */
    SCell Child(int nSide, int nAxis, double dSplit) const
    {
        SCell child = *this;
        if (nSide == 0) {
            child.nAxes &= ~(1 << nAxis);
            return child;
        }
        ++child.nDepth;
        (nSide < 0 ? child.maximum : child.minimum)[nAxis] = dSplit;
        return child;
    }
};

} // namespace

/** Brings the items into the order of the walk and makes the nodes. */
class CGLTree::CArranger
{
public:
    explicit CArranger(CGLTree& tree) : m_tree(tree), m_scratch(tree.m_items.size()) {}

    void Run()
    {
        const quint32 nCount = quint32(m_tree.m_items.size());
        AddBranch(0, nCount, {m_tree.m_minimum, m_tree.m_maximum});
    }

private:
    void AddBranch(quint32 nFirst, quint32 nEnd, const SCell& cell)
    {
        const std::size_t nNode = m_tree.m_nodes.size();
        m_tree.m_nodes.push_back(MakeNode(nFirst, nEnd));
        Sort(nFirst, nEnd, cell, nEnd - nFirst > LEAF_SIZE);
        m_tree.m_nodes[nNode].nEndNode = quint32(m_tree.m_nodes.size());
    }

    SNode MakeNode(quint32 nFirst, quint32 nEnd) const
    {
        constexpr double LARGEST = std::numeric_limits<double>::max();
        SNode node{{LARGEST, LARGEST, LARGEST}, {-LARGEST, -LARGEST, -LARGEST}, nFirst, nEnd, 0, 0, 0};
        for (quint32 n = nFirst; n < nEnd; ++n) {
            const CGLItem& item = m_tree.m_items[n];
            node.nKinds |= item.nKind;
            node.nSolids |= item.bIsHole ? 0 : item.nKind;
            for (int nCorner = 0; nCorner < item.CornerCount(); ++nCorner) {
                const DVector3D& p = m_tree.m_positions[item.nCorners[nCorner]];
                node.minimum = {std::min(node.minimum.x, p.x), std::min(node.minimum.y, p.y),
                                std::min(node.minimum.z, p.z)};
                node.maximum = {std::max(node.maximum.x, p.x), std::max(node.maximum.y, p.y),
                                std::max(node.maximum.z, p.z)};
            }
        }
        return node;
    }

    void Sort(quint32 nFirst, quint32 nEnd, const SCell& cell, bool bWithNodes)
    {
        if (!cell.CanSplit() || nEnd - nFirst < 2)
            return;
        const int nAxis = cell.SplitAxis();
        const double dSplit = 0.5 * (cell.minimum[nAxis] + cell.maximum[nAxis]);
        const std::array<quint32, 3> counts = Partition(nFirst, nEnd, nAxis, dSplit);
        quint32 nStart = nFirst;
        for (int nSide = -1; nSide <= 1; ++nSide) {
            const quint32 nCount = counts[nSide + 1];
            const SCell child = cell.Child(nSide, nAxis, dSplit);
            // A child that holds all is no news to a search.
            if (bWithNodes && nCount > 0 && nCount < nEnd - nFirst)
                AddBranch(nStart, nStart + nCount, child);
            else
                Sort(nStart, nStart + nCount, child, bWithNodes);
            nStart += nCount;
        }
    }

    /** Lower ones first, then straddling, then upper, each in the order in which they stood. */
    std::array<quint32, 3> Partition(quint32 nFirst, quint32 nEnd, int nAxis, double dSplit)
    {
        std::array<quint32, 3> counts = {};
        m_sides.resize(nEnd - nFirst);
        for (quint32 n = nFirst; n < nEnd; ++n) {
            const int nSide = m_tree.m_items[n].classify(m_tree.m_positions, nAxis, dSplit) + 1;
            m_sides[n - nFirst] = quint8(nSide);
            ++counts[nSide];
        }
        if (std::find(counts.begin(), counts.end(), nEnd - nFirst) != counts.end())
            return counts;
        std::array<quint32, 3> places = {nFirst, nFirst + counts[0], nFirst + counts[0] + counts[1]};
        for (quint32 n = nFirst; n < nEnd; ++n)
            m_scratch[places[m_sides[n - nFirst]]++] = m_tree.m_items[n];
        std::copy(m_scratch.begin() + nFirst, m_scratch.begin() + nEnd, m_tree.m_items.begin() + nFirst);
        return counts;
    }

    CGLTree& m_tree;
    std::vector<CGLItem> m_scratch;
    std::vector<quint8> m_sides; // of the items of one partition, lower 0
};

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

void CGLTree::Arrange()
{
    if (m_bArranged)
        return;
    // Arranging what stands arranged changes nothing, so that items may still be entered after a search.
    m_nodes.clear();
    CArranger(*this).Run();
    m_nodes.shrink_to_fit();
    m_bArranged = true;
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
