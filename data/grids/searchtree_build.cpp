// CSearchTree: the build.
#include "data/grids/gridslices.h"
#include "data/grids/searchtree.h"
#include "data/kernels/parallel.h"

namespace {

/** Points of a part of the block that is built in one go: its coordinates fill a good part of a core's cache.
 */
constexpr qint64 PIECE_POINTS = 36000;
/** A cluster's box must hold what CCellMap may accept: 1e-6 of a cell's diagonal beside the cell. */
constexpr double CLUSTER_MARGIN = 1.01e-6; // of the cluster's diagonal

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

/** The points of a range of the block, gaps as NaN. */
class CPiecePoints
{
public:
    CPiecePoints(const IGrid& grid, const SIJKRange& range)
        : m_range(range), m_scratch(range.Count()), m_points(m_scratch.First(range.Count()))
    {
        FillRange(grid, range, GapsAreNaN, m_points);
    }

    SBox BoxOf(const SIJKRange& part) const
    {
        SBox box;
        ForEachRow(
            part, [&](qint64, qint64, const SBox& row, const DVector3D&, const DVector3D&) { box.Add(row); });
        return box;
    }

    SRangeBoxes BoxesOf(const SIJKRange& part) const
    {
        SRangeBoxes boxes;
        ForEachRow(
            part, [&](qint64 j, qint64 k, const SBox& row, const DVector3D& first, const DVector3D& last) {
                boxes.all.Add(row);
                boxes.faces[0].Add(first);
                boxes.faces[1].Add(last);
                const bool onFace[] = {j == part.min.j, j == part.max.j, k == part.min.k, k == part.max.k};
                for (int n = 0; n < 4; ++n)
                    if (onFace[n])
                        boxes.faces[2 + n].Add(row);
            });
        return boxes;
    }

private:
    /** Calls visit(j, k, box of the row, first point, last point). */
    template <class Visit> void ForEachRow(const SIJKRange& part, const Visit& visit) const
    {
        const qint64 nRow = part.Extent().i;
        for (qint64 k = part.min.k; k <= part.max.k; ++k) {
            for (qint64 j = part.min.j; j <= part.max.j; ++j) {
                const qint64 nBegin = m_range.IndexOf({part.min.i, j, k});
                SBox row;
                for (qint64 n = nBegin; n < nBegin + nRow; ++n)
                    row.Add(PointAt(m_points, n));
                visit(j, k, row, PointAt(m_points, nBegin), PointAt(m_points, nBegin + nRow - 1));
            }
        }
    }

    SIJKRange m_range;
    CPointScratch m_scratch;
    SPointBuffers m_points;
};

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
        SBox outer;        // coarse, of the parent
        std::vector<SOverhang> overhangs;
    };
    /** What the sweep upwards leaves for the one downwards. */
    struct SSweep
    {
        std::vector<SBox> boxes; // exact, in the order of the nodes
        std::vector<SOverhang> overhangs;
    };

    static bool IsPiece(const CTreeNode& node)
    {
        return node.IsLeaf() || node.Range().Count() <= PIECE_POINTS;
    }
    void CollectPieces(const CTreeNode& node);
    void BuildPiece(SPiece& piece);
    void StoreClusters(const CTreeNode& leaf, const SBox& box, const CPiecePoints& points);

    template <class End> SRangeBoxes SweepUp(const CTreeNode& node, const End& end, SSweep& sweep);
    template <class End>
    void SweepDown(const CTreeNode& node, const SBox& outer, const End& end, const SBox*& pBox);

    CSearchTree& m_tree;
    const IGrid& m_grid;
    std::vector<SPiece> m_pieces;
};

void CSearchTree::CBuilder::CollectPieces(const CTreeNode& node)
{
    if (IsPiece(node)) {
        m_pieces.push_back({node, {}, {}, {}});
        return;
    }
    const CTreeNode lower = node.Lower();
    CollectPieces(lower);
    CollectPieces(node.Upper(lower));
}

/** @param end  end(node, boxes) fills the boxes of a node with nothing below it, and is true for one */
template <class End>
SRangeBoxes CSearchTree::CBuilder::SweepUp(const CTreeNode& node, const End& end, SSweep& sweep)
{
    const size_t nPlace = sweep.boxes.size();
    sweep.boxes.emplace_back();
    SRangeBoxes boxes;
    if (!end(node, boxes)) {
        const CTreeNode lower = node.Lower();
        const SRangeBoxes lowerBoxes = SweepUp(lower, end, sweep);
        boxes = Joined(lowerBoxes, SweepUp(node.Upper(lower), end, sweep), node.SplitAxis());
    }
    sweep.boxes[nPlace] = boxes.Outer();
    if (sweep.boxes[nPlace] != boxes.all)
        sweep.overhangs.push_back({node.Index(), sweep.boxes[nPlace]});
    return boxes;
}

/**
 * @param outer  coarse box of the parent
 * @param end    end(node, coarse box, outer) does the rest for a node with nothing below it, and is true for
 * one
 * @param pBox   the exact boxes that SweepUp left
 */
template <class End>
void CSearchTree::CBuilder::SweepDown(const CTreeNode& node, const SBox& outer, const End& end,
                                      const SBox*& pBox)
{
    SPackedBox& packed = m_tree.m_nodes[node.Index()];
    packed = Pack(*pBox++, outer);
    const SBox box = Unpack(packed, outer);
    if (end(node, box, outer))
        return;
    const CTreeNode lower = node.Lower();
    SweepDown(lower, box, end, pBox);
    SweepDown(node.Upper(lower), box, end, pBox);
}

void CSearchTree::CBuilder::StoreClusters(const CTreeNode& leaf, const SBox& box, const CPiecePoints& points)
{
    for (qint64 n = 0; n < leaf.ClusterCount(); ++n) {
        SBox cluster = points.BoxOf(leaf.ClusterRange(n));
        const double dMargin = CLUSTER_MARGIN * Length(cluster.Extent());
        cluster.min = cluster.min - DVector3D{dMargin, dMargin, dMargin};
        cluster.max = cluster.max + DVector3D{dMargin, dMargin, dMargin};
        m_tree.m_clusters[leaf.FirstCluster() + n] = Pack(cluster, box);
    }
}

void CSearchTree::CBuilder::BuildPiece(SPiece& piece)
{
    const CPiecePoints points(m_grid, piece.node.Range());
    SSweep sweep;
    const auto leafBoxes = [&](const CTreeNode& node, SRangeBoxes& boxes) {
        if (node.IsLeaf())
            boxes = points.BoxesOf(node.Range());
        return node.IsLeaf();
    };
    SweepUp(piece.node, leafBoxes, sweep);
    const auto storeLeaf = [&](const CTreeNode& node, const SBox& box, const SBox&) {
        if (node.IsLeaf())
            StoreClusters(node, box, points);
        return node.IsLeaf();
    };
    const SBox* pBox = sweep.boxes.data();
    SweepDown(piece.node, piece.outer, storeLeaf, pBox);
    piece.overhangs = std::move(sweep.overhangs);
}

void CSearchTree::CBuilder::Build()
{
    const CTreeNode root(m_tree.m_shape);
    m_tree.m_nodes.resize(root.NodeCount());
    m_tree.m_clusters.resize(root.ClusterCount());
    CollectPieces(root);
    RunPieces(qint64(m_pieces.size()), [&](qint64 n) {
        const SIJKRange range = m_pieces[n].node.Range();
        m_pieces[n].boxes = CPiecePoints(m_grid, range).BoxesOf(range);
    });

    SSweep sweep;
    auto next = m_pieces.begin();
    const auto pieceBoxes = [&](const CTreeNode& node, SRangeBoxes& boxes) {
        if (IsPiece(node))
            boxes = (next++)->boxes;
        return IsPiece(node);
    };
    SweepUp(root, pieceBoxes, sweep);
    m_tree.m_box = sweep.boxes.front();

    next = m_pieces.begin();
    const auto keepOuter = [&](const CTreeNode& node, const SBox&, const SBox& outer) {
        if (IsPiece(node))
            (next++)->outer = outer;
        return IsPiece(node);
    };
    const SBox* pBox = sweep.boxes.data();
    SweepDown(root, m_tree.m_box, keepOuter, pBox);
    RunPieces(qint64(m_pieces.size()), [&](qint64 n) { BuildPiece(m_pieces[n]); });

    // The roots of the pieces come from both sweeps, with the same boxes.
    std::vector<SOverhang>& overhangs = m_tree.m_overhangs;
    overhangs = std::move(sweep.overhangs);
    for (const SPiece& piece : m_pieces)
        overhangs.insert(overhangs.end(), piece.overhangs.begin(), piece.overhangs.end());
    const auto isAhead = [](const SOverhang& a, const SOverhang& b) { return a.nNode < b.nNode; };
    const auto isSame = [](const SOverhang& a, const SOverhang& b) { return a.nNode == b.nNode; };
    std::sort(overhangs.begin(), overhangs.end(), isAhead);
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
