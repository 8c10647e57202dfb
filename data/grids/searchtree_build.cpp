// CSearchTree: the build.
#include "data/grids/searchtree.h"
#include "data/kernels/parallel.h"

#include <cmath>

namespace {

/** Points of a part of the block that is built in one go: its coordinates fill a good part of a core's cache.
 */
constexpr qint64 PIECE_POINTS = 36000;
/** Box of the points on each face of a range of points, and of all of them. */
struct SRangeBoxes
{
    std::array<SBox, 6> faces; // i low, i high, j low ...
    SBox all;

    SBox Outer() const
    {
        SBox box;
        for (const SBox& face : faces)
            box.Add(face);
        return box;
    }
};

SRangeBoxes Joined(const SRangeBoxes& lower, const SRangeBoxes& upper, int nAxis)
{
    SRangeBoxes joined = lower;
    for (int nFace = 0; nFace < 6; ++nFace)
        if (nFace / 2 != nAxis)
            joined.faces[nFace].Add(upper.faces[nFace]);
    joined.faces[2 * nAxis + 1] = upper.faces[2 * nAxis + 1];
    joined.all.Add(upper.all);
    return joined;
}

SRangeBoxes BoxesOf(const CGridPiece& points, const SIJKRange& range)
{
    SRangeBoxes boxes;
    points.ForEachRow(range, [&](qint64 j, qint64 k, const SPointBuffers& row) {
        SBox rowBox;
        const size_t nLast = row.x.size() - 1;
        for (size_t n = 0; n <= nLast; ++n)
            rowBox.Add(PointAt(row, n));
        boxes.all.Add(rowBox);
        boxes.faces[0].Add(PointAt(row, 0));
        boxes.faces[1].Add(PointAt(row, nLast));
        const bool onFace[] = {j == range.min.j, j == range.max.j, k == range.min.k, k == range.max.k};
        for (int n = 0; n < 4; ++n)
            if (onFace[n])
                boxes.faces[2 + n].Add(rowBox);
    });
    return boxes;
}

/**
 * The size of bundles: small ones tell cells apart best, but take more memory. The smallest one is taken that
 * keeps the tree below a share of a grid in single precision.
 */
qint64 ChooseBundleCells(const SBlockShape& shape)
{
    constexpr qint64 SMALLEST = 8; // smaller ones save as much time in the cells as they cost on the way
    const qint64 nBytes = qint64(0.18 * double(shape.PointCount()) * 3 * sizeof(float));
    const auto bytesOf = [&](qint64 nCells) {
        const CTreeNode root(shape, nCells);
        return root.NodeCount() * qint64(sizeof(SPackedBox)) +
               root.BundleCount() * qint64(sizeof(CCellBundle)) +
               root.BundleCount() * 3 * nCells * qint64(sizeof(SLayerBounds));
    };
    qint64 nCells = SMALLEST;
    while (nCells < CCellBundle::MAX_CELLS && bytesOf(nCells) > nBytes)
        ++nCells;
    return nCells;
}

} // namespace

/**
 * Builds the tree in two sweeps. Upwards the exact boxes: the outer faces of a node are made of those of its
 * children, so that only the leaves look at points. Downwards the coarse ones, each within its parent's.
 *
 * The block is cut into pieces, which are nodes of the tree, and the pieces are swept on all threads. They
 * are read twice, once for their own box and once for what is in them, since the boxes of all nodes at double
 * precision would take several times the memory of the tree.
 */
class CSearchTree::CBuilder
{
public:
    CBuilder(CSearchTree& tree, const IGrid& grid) : m_tree(tree), m_grid(grid) {}

    void Build();

private:
    struct SPiece
    {
        CTreeNode node;
        SRangeBoxes boxes; // exact
        SCoarseBox outer;  // of the parent
        std::vector<SOverhang> overhangs;
    };
    /** What the sweep upwards leaves for the one downwards. */
    struct SSweep
    {
        std::vector<SBox> boxes; // exact, of the nodes down to the bundles, in order
        std::vector<SOverhang> overhangs;
    };

    static bool IsPiece(const CTreeNode& node)
    {
        return node.IsBundle() || node.Range().Count() <= PIECE_POINTS;
    }
    void CollectPieces(const CTreeNode& node);
    void SweepTop();
    void SweepPiece(SPiece& piece);
    void StoreBundle(const CTreeNode& node, const SCoarseBox& box, const CGridPiece& points);

    template <class End> SRangeBoxes SweepUp(const CTreeNode& node, const End& end, SSweep& sweep) const;
    template <class End>
    void SweepDown(const CTreeNode& node, const SCoarseBox& outer, const End& end, const SBox*& pBox) const;

    CSearchTree& m_tree;
    const IGrid& m_grid;
    std::vector<SPiece> m_pieces;
};

void CSearchTree::CBuilder::CollectPieces(const CTreeNode& node)
{
    if (IsPiece(node)) {
        m_pieces.push_back(SPiece{node, {}, {}, {}});
        return;
    }
    CollectPieces(node.Lower());
    CollectPieces(node.Upper());
}

/** @param end  end(node, boxes) fills the boxes of a node at which the sweep begins, and is true for one */
template <class End>
SRangeBoxes CSearchTree::CBuilder::SweepUp(const CTreeNode& node, const End& end, SSweep& sweep) const
{
    const size_t nPlace = sweep.boxes.size();
    sweep.boxes.emplace_back();
    SRangeBoxes boxes;
    if (!end(node, boxes)) {
        const SRangeBoxes lowerBoxes = SweepUp(node.Lower(), end, sweep);
        boxes = Joined(lowerBoxes, SweepUp(node.Upper(), end, sweep), node.SplitAxis());
    }
    const SBox outer = boxes.Outer();
    sweep.boxes[nPlace] = outer;
    if (node.IsBundle()) // what lies below one has no coarse box
        sweep.boxes.resize(nPlace + 1);
    if (outer != boxes.all)
        sweep.overhangs.push_back({m_tree.m_shape.PointIndex(node.Range().min),
                                   m_tree.m_shape.PointIndex(node.Range().max), outer});
    return boxes;
}

/**
 * @param outer  coarse box of the parent
 * @param end    end(node, coarse box, outer) does the rest at the end of the sweep, and is true for a node
 * there
 * @param pBox   the exact boxes that SweepUp left
 */
template <class End>
void CSearchTree::CBuilder::SweepDown(const CTreeNode& node, const SCoarseBox& outer, const End& end,
                                      const SBox*& pBox) const
{
    SPackedBox& packed = m_tree.m_nodes[node.Index()];
    packed = Pack(m_tree.Coarse(*pBox++), outer);
    const SCoarseBox box = Unpack(packed, outer, outer.PackingStep());
    if (end(node, box, outer))
        return;
    SweepDown(node.Lower(), box, end, pBox);
    SweepDown(node.Upper(), box, end, pBox);
}

void CSearchTree::CBuilder::StoreBundle(const CTreeNode& node, const SCoarseBox& box,
                                        const CGridPiece& points)
{
    const std::span<SLayerBounds> layers(m_tree.m_layers);
    const qint64 nStride = m_tree.m_nBundleCells;
    m_tree.m_bundles[node.FirstBundle()] =
        CCellBundle(points, node.Range(), m_tree.m_space.Exact(box.low),
                    layers.subspan(node.FirstBundle() * 3 * nStride, 3 * nStride));
}

/** The nodes within a piece. */
void CSearchTree::CBuilder::SweepPiece(SPiece& piece)
{
    const CGridPiece points(m_grid, piece.node.Range());
    SSweep sweep;
    const auto leafBoxes = [&](const CTreeNode& node, SRangeBoxes& boxes) {
        if (node.IsLeaf())
            boxes = BoxesOf(points, node.Range());
        return node.IsLeaf();
    };
    SweepUp(piece.node, leafBoxes, sweep);
    const auto storeBundle = [&](const CTreeNode& node, const SCoarseBox& box, const SCoarseBox&) {
        if (node.IsBundle())
            StoreBundle(node, box, points);
        return node.IsBundle();
    };
    const SBox* pBox = sweep.boxes.data();
    SweepDown(piece.node, piece.outer, storeBundle, pBox);
    piece.overhangs = std::move(sweep.overhangs);
}

/** The nodes above the pieces, whose boxes are known. */
void CSearchTree::CBuilder::SweepTop()
{
    SSweep sweep;
    auto next = m_pieces.begin();
    const auto pieceBoxes = [&](const CTreeNode& node, SRangeBoxes& boxes) {
        if (IsPiece(node))
            boxes = (next++)->boxes;
        return IsPiece(node);
    };
    SweepUp(m_tree.Root(), pieceBoxes, sweep);
    m_tree.m_box = sweep.boxes.front();
    const DVector3D& origin = m_tree.m_box.min;
    if (std::isfinite(origin.x) && std::isfinite(origin.y) && std::isfinite(origin.z))
        m_tree.m_space = CCoarseSpace(origin);

    next = m_pieces.begin();
    const auto keepOuter = [&](const CTreeNode& node, const SCoarseBox&, const SCoarseBox& outer) {
        if (IsPiece(node))
            (next++)->outer = outer;
        return IsPiece(node);
    };
    const SBox* pBox = sweep.boxes.data();
    SweepDown(m_tree.Root(), m_tree.Coarse(m_tree.m_box), keepOuter, pBox);
    m_tree.m_overhangs = std::move(sweep.overhangs);
}

void CSearchTree::CBuilder::Build()
{
    m_tree.m_nBundleCells = ChooseBundleCells(m_tree.m_shape);
    const CTreeNode root = m_tree.Root();
    m_tree.m_nodes.resize(root.NodeCount());
    m_tree.m_bundles.resize(root.BundleCount());
    m_tree.m_layers.resize(root.BundleCount() * 3 * m_tree.m_nBundleCells);
    CollectPieces(root);
    const qint64 nPieces = qint64(m_pieces.size());
    RunPieces(nPieces, [&](qint64 n) {
        const SIJKRange range = m_pieces[n].node.Range();
        m_pieces[n].boxes = BoxesOf(CGridPiece(m_grid, range), range);
    });
    SweepTop();
    RunPieces(nPieces, [&](qint64 n) { SweepPiece(m_pieces[n]); });

    std::vector<SOverhang>& overhangs = m_tree.m_overhangs;
    for (const SPiece& piece : m_pieces)
        overhangs.insert(overhangs.end(), piece.overhangs.begin(), piece.overhangs.end());
    std::sort(overhangs.begin(), overhangs.end(), SOverhang::IsAhead);
    // The roots of the pieces come from both sweeps, with the same boxes.
    const auto isSame = [](const SOverhang& a, const SOverhang& b) { return !SOverhang::IsAhead(a, b); };
    overhangs.erase(std::unique(overhangs.begin(), overhangs.end(), isSame), overhangs.end());
    overhangs.shrink_to_fit();
}

CSearchTree::CSearchTree(const IGrid& grid) : m_shape(grid.GetShape())
{
    const IVector3D& counts = m_shape.dimensions;
    const int nFlat = (counts.i == 1) + (counts.j == 1) + (counts.k == 1);
    if (!m_shape.Range().IsEmpty() && nFlat < 2)
        CBuilder(*this, grid).Build();
}
