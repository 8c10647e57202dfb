// CSearchTree: the search; and the place of a point in a cell.
#include "data/grids/searchtree.h"

#include <algorithm>
#include <bit>

namespace {

constexpr IVector3D NOWHERE{-1, -1, -1};

/** The direction of one point; -1 if there is none. */
int FlatAxisOf(const SBlockShape& shape)
{
    return shape.dimensions.i == 1 ? 0 : shape.dimensions.j == 1 ? 1 : shape.dimensions.k == 1 ? 2 : -1;
}

/** The points of neighbouring cells of a leaf, read in one go. */
class CCellPoints
{
public:
    /** @param range  of points, at most LEAF_CELLS + 1 in each direction */
    CCellPoints(const IGrid& grid, const SIJKRange& range) : m_range(range)
    {
        if (FillRange(grid, range, GapsAreZeros, {m_values[0], m_values[1], m_values[2]}) != LoadOk)
            for (auto& axis : m_values) // which no cell holds
                std::fill(std::begin(axis), std::end(axis), std::numeric_limits<double>::quiet_NaN());
        // A step in a flat direction leads nowhere.
        const IVector3D extent = range.Extent();
        m_nSteps[0] = extent.i > 1 ? 1 : 0;
        m_nSteps[1] = extent.j > 1 ? extent.i : 0;
        m_nSteps[2] = extent.k > 1 ? extent.i * extent.j : 0;
    }

    SCellCorners CornersOf(const IVector3D& ijk, int nFlatAxis) const
    {
        const qint64 nFirst = m_range.IndexOf(ijk);
        SCellCorners corners{{}, nFlatAxis};
        for (int n = 0; n < 8; ++n) {
            const qint64 nPlace =
                nFirst + (n & 1) * m_nSteps[0] + ((n >> 1) & 1) * m_nSteps[1] + (n >> 2) * m_nSteps[2];
            corners.points[n] = {m_values[0][nPlace], m_values[1][nPlace], m_values[2][nPlace]};
        }
        return corners;
    }

private:
    static constexpr qint64 MOST = CTreeNode::LEAF_CELLS + 1;

    SIJKRange m_range;
    qint64 m_nSteps[3];
    double m_values[3][MOST * MOST * MOST];
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

/** The points of a range of cells. */
SIJKRange PointsOf(const SBlockShape& shape, const SIJKRange& cells)
{
    return Intersection({cells.min, cells.max + IVector3D{1, 1, 1}}, shape.Range());
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
          m_coarsePoint(tree.m_space.Coarse(point)),
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

        /** Those of a leaf in the bundle. */
        SLayers Of(const CTreeNode& leaf) const
        {
            SLayers layers{leaf.Points().min, {}};
            for (int nAxis = 0; nAxis < 3; ++nAxis) {
                const quint32 nAll = (1u << leaf.LayersAlong(nAxis)) - 1;
                layers.bits[nAxis] = bits[nAxis] >> (layers.first[nAxis] - first[nAxis]) & nAll;
            }
            return layers;
        }
        /** The cells from the first to the last in each direction; empty if there is none in one of them. */
        SIJKRange Cells() const
        {
            SIJKRange range;
            for (int nAxis = 0; nAxis < 3; ++nAxis) {
                range.min[nAxis] = first[nAxis] + std::countr_zero(bits[nAxis]);
                range.max[nAxis] = first[nAxis] + std::bit_width(bits[nAxis]) - 1;
            }
            return range;
        }
        bool Has(const IVector3D& ijk) const
        {
            return bits[0] >> (ijk.i - first.i) & bits[1] >> (ijk.j - first.j) &
                   bits[2] >> (ijk.k - first.k) & 1;
        }
    };

    bool SearchBranch(const SBranch& branch, const SCoarseBox& box);
    bool SearchBundle(qint64 nBundle, const SCoarseBox& box);
    bool SearchLayers(const CTreeNode& node, const SLayers& layers);
    bool SearchLeaf(const CTreeNode& leaf, const SLayers& layers);
    bool Accept(const CTreeNode& leaf, const CCellPoints& points, const IVector3D& ijk);
    bool HoldsPoint(const CCellPoints& points, const IVector3D& ijk) const;
    template <class Holds> bool IsReached(const CTreeNode& leaf, const Holds& holds) const;
    bool HoldsByOverhang(const CTreeNode& node) const;
    bool HoldsExactly(const CTreeNode& node) const;

    const CSearchTree& m_tree;
    const IGrid& m_grid;
    const DVector3D m_point;
    const Float4 m_coarsePoint;
    const int m_nFlatAxis;
    const bool m_bGaps;
    IVector3D m_cell = NOWHERE;
};

IVector3D CSearchTree::CQuery::Run()
{
    if (!m_tree.m_branches.empty() && m_tree.m_box.Contains(m_point))
        SearchBranch(m_tree.m_branches.front(), m_tree.Coarse(m_tree.m_box));
    return m_cell;
}

/** True if the cell is found. */
bool CSearchTree::CQuery::SearchBranch(const SBranch& branch, const SCoarseBox& box)
{
    const Float4 step = box.PackingStep();
    SCoarseBox boxes[1 << SBranch::STEPS];
    quint32 nHolding = 0; // a bit for each child, since a branch taken at each would be foretold wrongly
    for (int n = 0; n < (1 << SBranch::STEPS); ++n) {
        boxes[n] = Unpack(branch.boxes[n], box, step);
        nHolding |= quint32(boxes[n].Holds(m_coarsePoint) & (branch.children[n] != SBranch::NONE)) << n;
    }
    for (; nHolding != 0; nHolding &= nHolding - 1) {
        const int n = std::countr_zero(nHolding);
        const Child nChild = branch.children[n];
        if (nChild < 0 ? SearchBundle(-1 - nChild, boxes[n])
                       : SearchBranch(m_tree.m_branches[nChild], boxes[n]))
            return true;
    }
    return false;
}

bool CSearchTree::CQuery::SearchBundle(qint64 nBundle, const SCoarseBox& box)
{
    const CCellBundle& bundle = m_tree.m_bundles[nBundle];
    const CTreeNode node(bundle.Points());
    const DVector3D fromOrigin = m_point - m_tree.m_space.Exact(box.low);
    const SLayerBounds* pBounds = m_tree.m_layers.data() + nBundle * 3 * m_tree.m_nLayers;
    SLayers layers{node.Points().min, {}};
    for (int nAxis = 0; nAxis < 3; ++nAxis, pBounds += m_tree.m_nLayers) {
        layers.bits[nAxis] = bundle.LayersAt(fromOrigin, nAxis, {pBounds, size_t(node.LayersAlong(nAxis))});
        if (layers.bits[nAxis] == 0)
            return false;
    }
    return SearchLayers(node, layers);
}

bool CSearchTree::CQuery::SearchLayers(const CTreeNode& node, const SLayers& layers)
{
    if (node.IsLeaf())
        return SearchLeaf(node, layers.Of(node));
    return SearchLayers(node.Lower(), layers) || SearchLayers(node.Upper(), layers);
}

bool CSearchTree::CQuery::SearchLeaf(const CTreeNode& leaf, const SLayers& layers)
{
    const SIJKRange cells = layers.Cells();
    if (cells.IsEmpty())
        return false;
    const CCellPoints points(m_grid, PointsOf(m_tree.m_shape, cells));
    for (qint64 i = cells.min.i; i <= cells.max.i; ++i)
        for (qint64 j = cells.min.j; j <= cells.max.j; ++j)
            for (qint64 k = cells.min.k; k <= cells.max.k; ++k)
                if (layers.Has({i, j, k}) && HoldsPoint(points, {i, j, k}))
                    return Accept(leaf, points, {i, j, k});
    return false;
}

bool CSearchTree::CQuery::HoldsPoint(const CCellPoints& points, const IVector3D& ijk) const
{
    const CCellMap map(points.CornersOf(ijk, m_nFlatAxis), m_point);
    return map.MayHold() && map.Locate().bInside &&
           (!m_bGaps || HasAllCorners(m_grid, PointsOf(m_tree.m_shape, {ijk, ijk})));
}

/**
 * Whether the exact boxes of the leaf and of all above it hold the point, which is in a cell of the leaf.
 * They do if the box of the cell's corners does, except where points overhang; and a point beside that box,
 * by a hair's breadth, has to be looked at more closely.
 */
bool CSearchTree::CQuery::Accept(const CTreeNode& leaf, const CCellPoints& points, const IVector3D& ijk)
{
    SBox box;
    for (const DVector3D& corner : points.CornersOf(ijk, m_nFlatAxis).points)
        box.Add(corner);
    const auto holdsByOverhang = [&](const CTreeNode& node) { return HoldsByOverhang(node); };
    const auto holdsExactly = [&](const CTreeNode& node) { return HoldsExactly(node); };
    if (!box.Contains(m_point) ? !IsReached(leaf, holdsExactly)
                               : !m_tree.m_overhangs.empty() && !IsReached(leaf, holdsByOverhang))
        return false;
    m_cell = ijk;
    return true;
}

/** Whether holds(node) is true for a leaf and all nodes above it. */
template <class Holds> bool CSearchTree::CQuery::IsReached(const CTreeNode& leaf, const Holds& holds) const
{
    for (CTreeNode node = m_tree.Root();;) {
        if (!holds(node))
            return false;
        if (node.IsLeaf())
            return true;
        const int nAxis = node.LongestAxis();
        const CTreeNode upper = node.Upper();
        node = leaf.Points().min[nAxis] < upper.Points().min[nAxis] ? node.Lower() : upper;
    }
}

bool CSearchTree::CQuery::HoldsByOverhang(const CTreeNode& node) const
{
    const std::vector<SOverhang>& overhangs = m_tree.m_overhangs;
    const SOverhang wanted{
        m_tree.m_shape.PointIndex(node.Points().min), m_tree.m_shape.PointIndex(node.Points().max), {}};
    const auto it = std::lower_bound(overhangs.begin(), overhangs.end(), wanted, SOverhang::IsAhead);
    return it == overhangs.end() || SOverhang::IsAhead(wanted, *it) || it->box.Contains(m_point);
}

/** Reads the outer faces: slow, and hardly ever needed. */
bool CSearchTree::CQuery::HoldsExactly(const CTreeNode& node) const
{
    const auto [min, max] = m_grid.GetBoundingBox(node.Points(), 0.0);
    return SBox{min, max}.Contains(m_point);
}

IVector3D CSearchTree::FindCell(const IGrid& grid, const DVector3D& point) const
{
    return grid.GetShape() == m_shape ? CQuery(*this, grid, point).Run() : NOWHERE;
}

qint64 CSearchTree::GetBytes() const
{
    return sizeof *this + m_branches.capacity() * sizeof m_branches[0] +
           m_bundles.capacity() * sizeof m_bundles[0] + m_layers.capacity() * sizeof m_layers[0] +
           m_overhangs.capacity() * sizeof m_overhangs[0];
}

SCellPlace LocateInCell(const IGrid& grid, const IVector3D& ijk, const DVector3D& point, double dTolerance)
{
    const SBlockShape shape = grid.GetShape();
    const SIJKRange cells{shape.start, shape.start + shape.CellDimensions() - IVector3D{1, 1, 1}};
    const SIJKRange range = PointsOf(shape, {ijk, ijk});
    if (!cells.Contains(ijk) || range.Count() < 4 || (grid.HasGaps() && !HasAllCorners(grid, range)))
        return {};
    const CCellPoints points(grid, range);
    return CCellMap(points.CornersOf(ijk, FlatAxisOf(shape)), point, dTolerance).Locate();
}
