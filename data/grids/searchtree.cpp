// CSearchTree: the search; and the place of a point in a cell.
#include "data/grids/searchtree.h"

#include <algorithm>
#include <bit>

namespace {

constexpr IVector3D NOWHERE{-1, -1, -1};
/** What CCellMap may accept beside a cell's box, as a share of the sum of the box's extents. */
constexpr double BOX_SLACK = 1.01e-6;

// Cells of a leaf have bits of their own, in the order in which they are tried: i outermost.
static_assert(CTreeNode::LEAF_CELLS == 4);
constexpr int BitOf(const IVector3D& cell) { return int(cell.i * 16 + cell.j * 4 + cell.k); }
constexpr IVector3D CellOfBit(int nBit) { return {nBit / 16, nBit / 4 % 4, nBit % 4}; }

/** The direction of one point; -1 if there is none. */
int FlatAxisOf(const SBlockShape& shape)
{
    return shape.dimensions.i == 1 ? 0 : shape.dimensions.j == 1 ? 1 : shape.dimensions.k == 1 ? 2 : -1;
}

/** The points of a few neighbouring cells, at most two in each direction. */
class CCellGroup
{
public:
    void Read(const IGrid& grid, const SIJKRange& range)
    {
        m_range = range;
        grid.FillPoints(range, {m_values[0], m_values[1], m_values[2]});
    }
    const SIJKRange& Range() const { return m_range; }

    SCellCorners CornersOf(const IVector3D& ijk, int nFlatAxis) const
    {
        // A step in a flat direction leads nowhere.
        const IVector3D extent = m_range.Extent();
        const qint64 nI = extent.i > 1 ? 1 : 0;
        const qint64 nJ = extent.j > 1 ? extent.i : 0;
        const qint64 nK = extent.k > 1 ? extent.i * extent.j : 0;
        const qint64 nFirst = m_range.IndexOf(ijk);
        SCellCorners corners{{}, nFlatAxis};
        for (int n = 0; n < 8; ++n) {
            const qint64 nPlace = nFirst + (n & 1) * nI + ((n >> 1) & 1) * nJ + (n >> 2) * nK;
            corners.points[n] = {m_values[0][nPlace], m_values[1][nPlace], m_values[2][nPlace]};
        }
        return corners;
    }
    SBox BoxOf(const IVector3D& ijk) const
    {
        SBox box;
        for (const DVector3D& point : CornersOf(ijk, -1).points)
            box.Add(point);
        return box;
    }

private:
    SIJKRange m_range;
    double m_values[3][27];
};

bool HasAllCorners(const IGrid& grid, const SIJKRange& cell)
{
    for (qint64 k = cell.min.k; k <= cell.max.k; ++k)
        for (qint64 j = cell.min.j; j <= cell.max.j; ++j)
            for (qint64 i = cell.min.i; i <= cell.max.i; ++i)
                if (!grid.HasPoint({i, j, k}))
                    return false;
    return true;
}

/** The points of a cell; empty if the block has no such cell. */
SIJKRange CellRange(const SBlockShape& shape, const IVector3D& ijk)
{
    const SIJKRange cells{shape.start, shape.start + shape.CellDimensions() - IVector3D{1, 1, 1}};
    return cells.Contains(ijk) ? Intersection({ijk, ijk + IVector3D{1, 1, 1}}, shape.Range()) : SIJKRange{};
}

} // namespace

/** One search. */
class CSearchTree::CQuery
{
public:
    CQuery(const CSearchTree& tree, const IGrid& grid, const DVector3D& point)
        : m_tree(tree), m_grid(grid), m_point(point), m_nFlatAxis(FlatAxisOf(tree.m_shape))
    {}

    IVector3D Run();

private:
    bool Visit(const CTreeNode& node, const SBox& box);
    bool SearchLeaf(const CTreeNode& leaf, const SBox& box);
    quint64 Candidates(const CTreeNode& leaf, const CCellGroup& group) const;
    bool MayHold(const SBox& box) const;
    bool HoldsPoint(const SCellCorners& corners) const;
    bool IsOutsideOverhang(const CTreeNode& node) const;
    bool IsReached(const CTreeNode& leaf) const;

    const CSearchTree& m_tree;
    const IGrid& m_grid;
    const DVector3D m_point;
    const int m_nFlatAxis;
    IVector3D m_cell = NOWHERE;
};

IVector3D CSearchTree::CQuery::Run()
{
    if (!m_tree.m_nodes.empty() && m_tree.m_box.Contains(m_point))
        Visit(CTreeNode(m_tree.m_shape), m_tree.m_box);
    return m_cell;
}

/** A comparison with NaN, as an infinite coordinate of the block brings it about, excludes nothing. */
bool CSearchTree::CQuery::MayHold(const SBox& box) const
{
    return !((m_point.x < box.min.x) | (m_point.x > box.max.x) | (m_point.y < box.min.y) |
             (m_point.y > box.max.y) | (m_point.z < box.min.z) | (m_point.z > box.max.z));
}

bool CSearchTree::CQuery::IsOutsideOverhang(const CTreeNode& node) const
{
    if (m_tree.m_overhangs.empty())
        return false;
    const auto isAhead = [](const SOverhang& overhang, qint64 nNode) { return overhang.nNode < nNode; };
    const auto it =
        std::lower_bound(m_tree.m_overhangs.begin(), m_tree.m_overhangs.end(), node.Index(), isAhead);
    return it != m_tree.m_overhangs.end() && it->nNode == node.Index() && !it->box.Contains(m_point);
}

bool CSearchTree::CQuery::Visit(const CTreeNode& node, const SBox& box)
{
    if (IsOutsideOverhang(node))
        return false;
    if (node.IsLeaf())
        return SearchLeaf(node, box);
    const CTreeNode lower = node.Lower();
    const SBox lowerBox = Unpack(m_tree.m_nodes[lower.Index()], box);
    if (MayHold(lowerBox) && Visit(lower, lowerBox))
        return true;
    const CTreeNode upper = node.Upper(lower);
    const SBox upperBox = Unpack(m_tree.m_nodes[upper.Index()], box);
    return MayHold(upperBox) && Visit(upper, upperBox);
}

/** The cells of a group whose boxes hold the point, as bits in the order in which the leaf's are tried. */
quint64 CSearchTree::CQuery::Candidates(const CTreeNode& leaf, const CCellGroup& group) const
{
    const SIJKRange& range = group.Range();
    const IVector3D first = range.min - leaf.Range().min;
    const IVector3D cells = SBlockShape{range.Extent(), {}}.CellDimensions();
    quint64 bits = 0;
    for (qint64 i = 0; i < cells.i; ++i) {
        for (qint64 j = 0; j < cells.j; ++j) {
            for (qint64 k = 0; k < cells.k; ++k) {
                const SBox box = group.BoxOf(range.min + IVector3D{i, j, k});
                const DVector3D extent = box.Extent();
                const double dSlack = BOX_SLACK * (extent.x + extent.y + extent.z);
                const bool bHolds = box.min.x - m_point.x <= dSlack && m_point.x - box.max.x <= dSlack &&
                                    box.min.y - m_point.y <= dSlack && m_point.y - box.max.y <= dSlack &&
                                    box.min.z - m_point.z <= dSlack && m_point.z - box.max.z <= dSlack;
                bits |= quint64(bHolds) << BitOf(first + IVector3D{i, j, k});
            }
        }
    }
    return bits;
}

bool CSearchTree::CQuery::SearchLeaf(const CTreeNode& leaf, const SBox& box)
{
    std::array<CCellGroup, 8> groups;
    quint64 candidates = 0;
    for (qint64 n = 0; n < leaf.ClusterCount(); ++n) {
        if (!MayHold(Unpack(m_tree.m_clusters[leaf.FirstCluster() + n], box)))
            continue;
        groups[n].Read(m_grid, leaf.ClusterRange(n));
        candidates |= Candidates(leaf, groups[n]);
    }
    for (; candidates != 0; candidates &= candidates - 1) {
        const IVector3D cell = leaf.Range().min + CellOfBit(std::countr_zero(candidates));
        const CCellGroup& group = groups[leaf.ClusterOf(cell)];
        if (!HoldsPoint(group.CornersOf(cell, m_nFlatAxis)) ||
            (m_grid.HasGaps() && !HasAllCorners(m_grid, CellRange(m_tree.m_shape, cell))))
            continue;
        // What holds the point but not in the box of its corners holds it by a hair's breadth outside.
        if (!group.BoxOf(cell).Contains(m_point) && !IsReached(leaf))
            return false;
        m_cell = cell;
        return true;
    }
    return false;
}

bool CSearchTree::CQuery::HoldsPoint(const SCellCorners& corners) const
{
    const CCellMap map(corners, m_point);
    return map.MayHold() && map.Locate().bInside;
}

/** Whether the exact boxes of a leaf and of all above it hold the point; slow, and hardly ever needed. */
bool CSearchTree::CQuery::IsReached(const CTreeNode& leaf) const
{
    for (CTreeNode node(m_tree.m_shape);;) {
        const auto [min, max] = m_grid.GetBoundingBox(node.Range(), 0.0);
        if (!SBox{min, max}.Contains(m_point))
            return false;
        if (node.IsLeaf())
            return true;
        const CTreeNode lower = node.Lower();
        const CTreeNode upper = node.Upper(lower);
        node = leaf.Index() < upper.Index() ? lower : upper;
    }
}

IVector3D CSearchTree::FindCell(const IGrid& grid, const DVector3D& point) const
{
    Q_ASSERT(grid.GetShape() == m_shape);
    return CQuery(*this, grid, point).Run();
}

qint64 CSearchTree::GetBytes() const
{
    return sizeof *this + m_nodes.capacity() * sizeof m_nodes[0] +
           m_clusters.capacity() * sizeof m_clusters[0] + m_overhangs.capacity() * sizeof m_overhangs[0];
}

SCellPlace LocateInCell(const IGrid& grid, const IVector3D& ijk, const DVector3D& point, double dTolerance)
{
    const SBlockShape shape = grid.GetShape();
    const SIJKRange cell = CellRange(shape, ijk);
    if (cell.Count() < 4 || (grid.HasGaps() && !HasAllCorners(grid, cell)))
        return {};
    CCellGroup group;
    group.Read(grid, cell);
    return CCellMap(group.CornersOf(ijk, FlatAxisOf(shape)), point, dTolerance).Locate();
}
