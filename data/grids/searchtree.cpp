// CSearchTree: the search; and the place of a point in a cell.
#include "data/grids/searchtree.h"

#include <algorithm>

namespace {

constexpr IVector3D NOWHERE{-1, -1, -1};
/** The direction of one point; -1 if there is none. */
int FlatAxisOf(const SBlockShape& shape)
{
    return shape.dimensions.i == 1 ? 0 : shape.dimensions.j == 1 ? 1 : shape.dimensions.k == 1 ? 2 : -1;
}

/** @param cell  the points of the cell */
SCellCorners ReadCorners(const IGrid& grid, const SIJKRange& cell, int nFlatAxis)
{
    double values[3][8];
    grid.FillPoints(cell, {values[0], values[1], values[2]});
    SCellCorners corners{{}, nFlatAxis};
    for (int n = 0; n < 8; ++n) {
        // Without the bit of the flat direction, in which there is nothing to skip either.
        const int nPlace =
            nFlatAxis < 0 ? n : (n >> (nFlatAxis + 1) << nFlatAxis) | (n & ((1 << nFlatAxis) - 1));
        corners.points[n] = {values[0][nPlace], values[1][nPlace], values[2][nPlace]};
    }
    return corners;
}

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
        : m_tree(tree),
          m_grid(grid),
          m_point(point),
          m_nFlatAxis(FlatAxisOf(tree.m_shape)),
          m_bGaps(grid.HasGaps())
    {}

    IVector3D Run();

private:
    /** Bits of the layers of a bundle that may hold the point. */
    struct SLayers
    {
        IVector3D first; // cell
        std::array<quint32, 3> bits;

        bool Has(int nAxis, qint64 nCell) const { return bits[nAxis] >> (nCell - first[nAxis]) & 1; }
    };

    bool Visit(const CTreeNode& node, const SBox& box);
    bool SearchBundle(const CTreeNode& node, const SBox& box);
    bool SearchLayers(const CTreeNode& node, const SLayers& layers);
    bool SearchLeaf(const CTreeNode& leaf, const SLayers& layers);
    bool TryCell(const CTreeNode& leaf, const IVector3D& ijk);
    bool MayHold(const SBox& box) const;
    bool IsOutsideOverhang(const CTreeNode& node) const;
    bool IsReached(const CTreeNode& leaf) const;

    const CSearchTree& m_tree;
    const IGrid& m_grid;
    const DVector3D m_point;
    const int m_nFlatAxis;
    const bool m_bGaps;
    IVector3D m_cell = NOWHERE;
};

IVector3D CSearchTree::CQuery::Run()
{
    if (!m_tree.m_nodes.empty() && m_tree.m_box.Contains(m_point))
        Visit(m_tree.Root(), m_tree.m_box);
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
    const std::vector<SOverhang>& overhangs = m_tree.m_overhangs;
    if (overhangs.empty())
        return false;
    const SOverhang wanted{
        m_tree.m_shape.PointIndex(node.Range().min), m_tree.m_shape.PointIndex(node.Range().max), {}};
    const auto it = std::lower_bound(overhangs.begin(), overhangs.end(), wanted, SOverhang::IsAhead);
    return it != overhangs.end() && !SOverhang::IsAhead(wanted, *it) && !it->box.Contains(m_point);
}

/** Searches a node whose coarse box holds the point. True if the cell is found. */
bool CSearchTree::CQuery::Visit(const CTreeNode& node, const SBox& box)
{
    if (node.IsBundle())
        return SearchBundle(node, box);
    if (IsOutsideOverhang(node))
        return false;
    const CTreeNode lower = node.Lower();
    const SBox lowerBox = Unpack(m_tree.m_nodes[lower.Index()], box);
    if (MayHold(lowerBox) && Visit(lower, lowerBox))
        return true;
    const qint64 nUpper = lower.Index() + lower.NodeCount();
    const SBox upperBox = Unpack(m_tree.m_nodes[nUpper], box);
    return MayHold(upperBox) && Visit(node.Upper(lower), upperBox);
}

bool CSearchTree::CQuery::SearchBundle(const CTreeNode& node, const SBox& box)
{
    const CCellBundle& bundle = m_tree.m_bundles[node.FirstBundle()];
    const DVector3D fromOrigin = m_point - box.min;
    const SLayerBounds* pBounds = m_tree.m_layers.data() + node.FirstLayer();
    SLayers layers{node.Range().min, {}};
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const qint64 nCount = node.LayersAlong(nAxis);
        layers.bits[nAxis] = bundle.LayersAt(fromOrigin, nAxis, {pBounds, size_t(nCount)});
        if (layers.bits[nAxis] == 0)
            return false;
        pBounds += nCount;
    }
    return SearchLayers(node, layers);
}

bool CSearchTree::CQuery::SearchLayers(const CTreeNode& node, const SLayers& layers)
{
    if (IsOutsideOverhang(node))
        return false;
    if (node.IsLeaf())
        return SearchLeaf(node, layers);
    const CTreeNode lower = node.Lower();
    return SearchLayers(lower, layers) || SearchLayers(node.Upper(lower), layers);
}

bool CSearchTree::CQuery::SearchLeaf(const CTreeNode& leaf, const SLayers& layers)
{
    const IVector3D first = leaf.Range().min;
    const IVector3D end{first.i + leaf.LayersAlong(0), first.j + leaf.LayersAlong(1),
                        first.k + leaf.LayersAlong(2)};
    for (qint64 i = first.i; i < end.i; ++i)
        for (qint64 j = first.j; j < end.j && layers.Has(0, i); ++j)
            for (qint64 k = first.k; k < end.k && layers.Has(1, j); ++k)
                if (layers.Has(2, k) && TryCell(leaf, {i, j, k}))
                    return true;
    return false;
}

bool CSearchTree::CQuery::TryCell(const CTreeNode& leaf, const IVector3D& ijk)
{
    const SIJKRange cell = Intersection({ijk, ijk + IVector3D{1, 1, 1}}, leaf.Range());
    const SCellCorners corners = ReadCorners(m_grid, cell, m_nFlatAxis);
    const CCellMap map(corners, m_point);
    if (!map.MayHold() || !map.Locate().bInside || (m_bGaps && !HasAllCorners(m_grid, cell)))
        return false;
    // A point beside the box of the corners, by a hair's breadth, may be outside of the exact boxes.
    SBox box;
    for (const DVector3D& corner : corners.points)
        box.Add(corner);
    if (!box.Contains(m_point) && !IsReached(leaf))
        return false;
    m_cell = ijk;
    return true;
}

/** Whether the exact boxes of a leaf and of all above it hold the point; slow, and hardly ever needed. */
bool CSearchTree::CQuery::IsReached(const CTreeNode& leaf) const
{
    const IVector3D first = leaf.Range().min;
    for (CTreeNode node = m_tree.Root();;) {
        const auto [min, max] = m_grid.GetBoundingBox(node.Range(), 0.0);
        if (!SBox{min, max}.Contains(m_point))
            return false;
        if (node.IsLeaf())
            return true;
        const CTreeNode lower = node.Lower();
        const CTreeNode upper = node.Upper(lower);
        node = first[node.SplitAxis()] < upper.Range().min[node.SplitAxis()] ? lower : upper;
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
           m_bundles.capacity() * sizeof m_bundles[0] + m_layers.capacity() * sizeof m_layers[0] +
           m_overhangs.capacity() * sizeof m_overhangs[0];
}

SCellPlace LocateInCell(const IGrid& grid, const IVector3D& ijk, const DVector3D& point, double dTolerance)
{
    const SBlockShape shape = grid.GetShape();
    const SIJKRange cell = CellRange(shape, ijk);
    if (cell.Count() < 4 || (grid.HasGaps() && !HasAllCorners(grid, cell)))
        return {};
    return CCellMap(ReadCorners(grid, cell, FlatAxisOf(shape)), point, dTolerance).Locate();
}
