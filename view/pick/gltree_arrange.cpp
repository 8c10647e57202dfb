// CGLTree: the order of its items and its nodes.
//
// Which way an item goes at each node depends on the item and the root's box alone. So each item finds its
// route by itself, on any thread; sorted by their routes the items stand in the order of the walk, and a node
// is a run of items whose routes begin alike.
#include "data/kernels/parallel.h"
#include "view/pick/gltree.h"

#include <limits>
#include <numeric>

namespace {

constexpr int MAX_DEPTH = 10;
constexpr int MAX_LEVELS = MAX_DEPTH + 3;  // a straddling child isn't deeper, but has an axis less
constexpr int ALL_AXES = 7;                // a bit for each axis that may still be split
constexpr quint32 LEAF_SIZE = 8;           // items that are tested faster than nodes
constexpr qint64 PIECE_SIZE = 16384;       // items that a thread routes at once
constexpr std::size_t RADIX_SIZE = 1 << 9; // items from which on counting beats comparing
constexpr int RADIX_BITS = 13;             // half of a route
constexpr int ROUTE_SHIFT = 32;

/** The space of a node, and where it is split. */
struct SCell
{
    std::array<double, 3> minimum;
    std::array<double, 3> maximum;
    int nDepth;
    int nAxes;
    int nAxis;
    double dSplit;

    bool CanSplit() const { return nDepth < MAX_DEPTH && nAxes != 0; }

    void Choose()
    {
        nAxis = 0;
        for (int n = 1; n < 3; ++n) {
            const bool bIsLarger = maximum[n] - minimum[n] > maximum[nAxis] - minimum[nAxis];
            if ((nAxes >> n & 1) && (bIsLarger || !(nAxes >> nAxis & 1)))
                nAxis = n;
        }
        dSplit = 0.5 * (minimum[nAxis] + maximum[nAxis]);
    }

    /** @param nSide  -1 lower, 0 straddling, 1 upper */
    void MakeChild(int nSide, SCell& child) const
    {
        child = *this;
        if (nSide == 0) {
            child.nAxes &= ~(1 << nAxis);
        } else {
            ++child.nDepth;
            (nSide < 0 ? child.maximum : child.minimum)[nAxis] = dSplit;
        }
        child.Choose();
    }
};

/** How far an item reaches on each axis. */
struct SReach
{
    std::array<double, 3> least;
    std::array<double, 3> greatest;

    SReach(const CGLItem& item, std::span<const DVector3D> positions)
    {
        // Corners past the count repeat the last one.
        const DVector3D& a = positions[item.nCorners[0]];
        const DVector3D& b = positions[item.nCorners[1]];
        const DVector3D& c = positions[item.nCorners[2]];
        least = {std::min(std::min(a.x, b.x), c.x), std::min(std::min(a.y, b.y), c.y),
                 std::min(std::min(a.z, b.z), c.z)};
        greatest = {std::max(std::max(a.x, b.x), c.x), std::max(std::max(a.y, b.y), c.y),
                    std::max(std::max(a.z, b.z), c.z)};
    }

    /** -1: all below the plane across the axis, 1: all above it, 0: it touches both sides or the plane. */
    int Classify(int nAxis, double dSplit) const
    {
        return int(least[nAxis] > dSplit) - int(greatest[nAxis] < dSplit);
    }
};

/** Two bits a level from the top: 0 lower, 1 straddling, 2 upper; zeros after the end. */
quint32 RouteDigit(quint32 nRoute, int nLevel) { return nRoute >> 2 * (MAX_LEVELS - 1 - nLevel) & 3; }

/** Finds routes; neighbours take mostly the same way, so the cells of the last one are kept. */
class CRouter
{
public:
    CRouter(std::span<const DVector3D> positions, const DVector3D& minimum, const DVector3D& maximum)
        : m_positions(positions)
    {
        m_cells[0] = {
            {minimum.x, minimum.y, minimum.z}, {maximum.x, maximum.y, maximum.z}, 0, ALL_AXES, 0, 0.0};
        m_cells[0].Choose();
    }

    quint32 Route(const CGLItem& item)
    {
        const SReach reach(item, m_positions);
        quint32 nRoute = 0;
        for (int nLevel = 0; m_cells[nLevel].CanSplit(); ++nLevel) {
            const SCell& cell = m_cells[nLevel];
            const int nSide = reach.Classify(cell.nAxis, cell.dSplit);
            nRoute |= quint32(nSide + 1) << 2 * (MAX_LEVELS - 1 - nLevel);
            if (nLevel >= m_nKnown || m_nSides[nLevel] != nSide) {
                m_nSides[nLevel] = nSide;
                cell.MakeChild(nSide, m_cells[nLevel + 1]);
                m_nKnown = nLevel + 1;
            }
        }
        return nRoute;
    }

private:
    const std::span<const DVector3D> m_positions;
    std::array<SCell, MAX_LEVELS + 1> m_cells; // [n + 1] is the child of [n] on side m_nSides[n]
    std::array<int, MAX_LEVELS> m_nSides = {};
    int m_nKnown = 0; // sides that are known
};

/** A route above the place of its item, so that equal routes keep their order. */
using Routes = std::vector<quint64>;

quint32 RouteOf(quint64 nEntry) { return quint32(nEntry >> ROUTE_SHIFT); }

/** Keeps the order of entries that are equal in these bits. */
void SortByBits(const Routes& from, Routes& to, int nShift)
{
    constexpr quint64 MASK = (1 << RADIX_BITS) - 1;
    std::vector<quint32> places((1 << RADIX_BITS) + 1);
    for (const quint64 nEntry : from)
        ++places[(nEntry >> nShift & MASK) + 1];
    std::partial_sum(places.begin(), places.end(), places.begin());
    for (const quint64 nEntry : from)
        to[places[nEntry >> nShift & MASK]++] = nEntry;
}

void Sort(Routes& routes)
{
    if (routes.size() < RADIX_SIZE) {
        std::sort(routes.begin(), routes.end());
        return;
    }
    Routes scratch(routes.size());
    SortByBits(routes, scratch, ROUTE_SHIFT);
    SortByBits(scratch, routes, ROUTE_SHIFT + RADIX_BITS);
}

} // namespace

/** Makes the nodes over items that stand in the order of their routes. */
class CGLTree::CBranches
{
public:
    CBranches(CGLTree& tree, const Routes& routes) : m_tree(tree), m_routes(routes) {}

    /** The branch of a run of items that go the same way above the level; returns its node's number. */
    std::size_t Add(quint32 nFirst, quint32 nEnd, int nLevel)
    {
        const std::size_t nNode = m_tree.m_nodes.size();
        constexpr double LARGEST = std::numeric_limits<double>::max();
        m_tree.m_nodes.push_back(
            {{LARGEST, LARGEST, LARGEST}, {-LARGEST, -LARGEST, -LARGEST}, nFirst, nEnd, 0, 0, 0});
        // A child that holds all is no news to a search.
        while (nLevel < MAX_LEVELS && Digit(nFirst, nLevel) == Digit(nEnd - 1, nLevel))
            ++nLevel;
        if (nEnd - nFirst <= LEAF_SIZE || nLevel == MAX_LEVELS)
            AddItems(m_tree.m_nodes[nNode]);
        else
            AddChildren(nNode, nLevel);
        m_tree.m_nodes[nNode].nEndNode = quint32(m_tree.m_nodes.size());
        return nNode;
    }

private:
    quint32 Digit(quint32 nItem, int nLevel) const { return RouteDigit(RouteOf(m_routes[nItem]), nLevel); }

    void AddChildren(std::size_t nNode, int nLevel)
    {
        const quint32 nEnd = m_tree.m_nodes[nNode].nEndItem;
        for (quint32 nFirst = m_tree.m_nodes[nNode].nFirstItem; nFirst < nEnd;) {
            const quint32 nDigit = Digit(nFirst, nLevel);
            const auto past =
                std::partition_point(m_routes.begin() + nFirst, m_routes.begin() + nEnd,
                                     [=](quint64 n) { return RouteDigit(RouteOf(n), nLevel) == nDigit; });
            const quint32 nNext = quint32(past - m_routes.begin());
            const SNode child = m_tree.m_nodes[Add(nFirst, nNext, nLevel + 1)];
            SNode& node = m_tree.m_nodes[nNode];
            node.nKinds |= child.nKinds;
            node.nSolids |= child.nSolids;
            Widen(node, child.minimum);
            Widen(node, child.maximum);
            nFirst = nNext;
        }
    }

    void AddItems(SNode& node) const
    {
        for (quint32 n = node.nFirstItem; n < node.nEndItem; ++n) {
            const CGLItem& item = m_tree.m_items[n];
            node.nKinds |= item.nKind;
            node.nSolids |= item.bIsHole ? 0 : item.nKind;
            for (int nCorner = 0; nCorner < item.CornerCount(); ++nCorner)
                Widen(node, m_tree.m_positions[item.nCorners[nCorner]]);
        }
    }

    static void Widen(SNode& node, const DVector3D& p)
    {
        node.minimum = {std::min(node.minimum.x, p.x), std::min(node.minimum.y, p.y),
                        std::min(node.minimum.z, p.z)};
        node.maximum = {std::max(node.maximum.x, p.x), std::max(node.maximum.y, p.y),
                        std::max(node.maximum.z, p.z)};
    }

    CGLTree& m_tree;
    const Routes& m_routes;
};

void CGLTree::Arrange()
{
    if (m_bArranged)
        return;
    // Items that stand arranged keep their order, so that more may be entered after a search.
    Routes routes(m_items.size());
    RunRanges(qint64(m_items.size()), PIECE_SIZE, [&](qint64, qint64 nBegin, qint64 nEnd) {
        CRouter router(m_positions, m_minimum, m_maximum);
        for (qint64 n = nBegin; n < nEnd; ++n)
            routes[n] = quint64(router.Route(m_items[n])) << ROUTE_SHIFT | quint64(n);
    });
    Sort(routes);
    std::vector<CGLItem> sorted(m_items.size());
    for (std::size_t n = 0; n < routes.size(); ++n)
        sorted[n] = m_items[quint32(routes[n])];
    m_items.swap(sorted);
    m_nodes.clear();
    CBranches(*this, routes).Add(0, quint32(m_items.size()), 0);
    m_nodes.shrink_to_fit();
    m_bArranged = true;
}
