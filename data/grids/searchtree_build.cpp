// CSearchTree: the build.
#include "data/grids/searchtree.h"
#include "data/kernels/parallel.h"

#include <atomic>
#include <cmath>

namespace {

/** Points of a piece: its coordinates fill a good part of a core's cache. */
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

/** What halving makes of one direction. */
struct SHalvings
{
    qint64 nParts;
    qint64 nLargest; ///< cells of the largest part; 1 in a flat direction
};

/**
 * Halving n cells d times gives parts of n / 2^d cells, rounded down or up, n % 2^d of them rounded up. At
 * the first d with small enough parts, those rounded up may still have one cell too many and are halved once
 * more.
 */
SHalvings Halve(qint64 nCells, qint64 nMostCells)
{
    int nHalvings = 0;
    while (nCells >> nHalvings > nMostCells)
        ++nHalvings;
    const qint64 nParts = qint64(1) << nHalvings;
    const qint64 nSmall = nCells >> nHalvings;
    const qint64 nRoundedUp = nCells & (nParts - 1);
    if (nSmall == nMostCells)
        return {nParts + nRoundedUp, nSmall};
    return {nParts, std::max<qint64>(nRoundedUp > 0 ? nSmall + 1 : nSmall, 1)};
}

} // namespace

/**
 * Builds the tree in two sweeps. Upwards the exact boxes: the outer faces of a node are made of those of its
 * halves, so that only the leaves look at points. Downwards the coarse ones, each within that of its branch.
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
    /** A part of the tree: the top, or what is in a piece. */
    struct SPart
    {
        std::vector<SBox> boxes; // exact, of the nodes down to the ends of the sweep, in order
        std::vector<SOverhang> overhangs;
        std::vector<SBranch> branches;
        std::vector<CCellBundle> bundles;
        std::vector<SLayerBounds> layers;
    };
    struct SPiece
    {
        CTreeNode node;
        SRangeBoxes boxes;   // exact
        SCoarseBox box = {}; // of the node
        size_t nBranch = 0;  // above it
        int nPlace = 0;      // there
        Child nRoot = 0;     // in the part
        SPart part = {};
    };
    template <class End> class CDownSweep;

    void ChooseBundleCells();
    bool IsBundle(const CTreeNode& node) const { return node.LongestExtent() <= m_nBundleCells; }
    bool IsPiece(const CTreeNode& node) const
    {
        return IsBundle(node) || node.Points().Count() <= PIECE_POINTS;
    }
    void CollectPieces(const CTreeNode& node);
    void SweepTop();
    void SweepPiece(SPiece& piece);
    void Note(const CGridPiece& points)
    {
        if (points.GetStatus() != LoadOk)
            m_eStatus.store(points.GetStatus());
    }
    void Append(SPiece& piece);
    void SortOverhangs();

    template <class End> SRangeBoxes SweepUp(const CTreeNode& node, const End& end, SPart& part) const;

    CSearchTree& m_tree;
    const IGrid& m_grid;
    qint64 m_nBundleCells = 0;
    std::vector<SPiece> m_pieces;
    std::atomic<LoadStatus_e> m_eStatus = LoadOk; // of the pieces' reads, on all threads
};

/**
 * Small bundles tell cells apart best, but take more memory. The smallest size is taken that keeps the tree
 * below a share of a grid in single precision.
 */
void CSearchTree::CBuilder::ChooseBundleCells()
{
    constexpr qint64 SMALLEST = 6; // makes 4, 5 and 6 of most directions
    const SBlockShape& shape = m_tree.m_shape;
    const double dLimit = 0.18 * double(shape.PointCount()) * 3 * sizeof(float);
    const IVector3D cells = shape.CellDimensions();
    for (m_nBundleCells = SMALLEST; m_nBundleCells < CCellBundle::MAX_CELLS; ++m_nBundleCells) {
        double dBundles = 1.0;
        m_tree.m_nLayers = 1;
        for (int nAxis = 0; nAxis < 3; ++nAxis) {
            const SHalvings halvings = Halve(cells[nAxis], m_nBundleCells);
            dBundles *= double(halvings.nParts);
            m_tree.m_nLayers = std::max(m_tree.m_nLayers, halvings.nLargest);
        }
        const qint64 nLayerBytes = 3 * m_tree.m_nLayers * qint64(sizeof(SLayerBounds));
        if (dBundles * double(sizeof(CCellBundle) + sizeof(SBranch) / 7 + nLayerBytes) < dLimit)
            return;
    }
    m_tree.m_nLayers = m_nBundleCells;
}

void CSearchTree::CBuilder::CollectPieces(const CTreeNode& node)
{
    if (IsPiece(node)) {
        m_pieces.push_back(SPiece{node, {}});
        return;
    }
    CollectPieces(node.Lower());
    CollectPieces(node.Upper());
}

/** @param end  end(node, boxes) fills the boxes of a node at which the sweep begins, and is true for one */
template <class End>
SRangeBoxes CSearchTree::CBuilder::SweepUp(const CTreeNode& node, const End& end, SPart& part) const
{
    const size_t nPlace = part.boxes.size();
    part.boxes.emplace_back();
    SRangeBoxes boxes;
    if (!end(node, boxes)) {
        const SRangeBoxes lower = SweepUp(node.Lower(), end, part);
        boxes = Joined(lower, SweepUp(node.Upper(), end, part), node.LongestAxis());
    }
    const SBox outer = boxes.Outer();
    part.boxes[nPlace] = outer;
    if (IsBundle(node)) // what lies below one has no coarse box
        part.boxes.resize(nPlace + 1);
    if (outer != boxes.all)
        part.overhangs.push_back({m_tree.m_shape.PointIndex(node.Points().min),
                                  m_tree.m_shape.PointIndex(node.Points().max), outer});
    return boxes;
}

/**
 * The sweep downwards.
 *
 * End: IsEnd(node) says where the sweep ends, and Make(node, coarse box, branch, place) makes the child
 * there.
 */
template <class End> class CSearchTree::CBuilder::CDownSweep
{
public:
    /** @param pBox  the exact boxes that SweepUp left, from the node on that comes first */
    CDownSweep(const CSearchTree& tree, SPart& part, const SBox* pBox, End& end)
        : m_tree(tree), m_part(part), m_pBox(pBox), m_end(end)
    {}

    /** The child for a node that has halves, with all below it. */
    Child Grow(const CTreeNode& node, const SCoarseBox& box)
    {
        const size_t nBranch = m_part.branches.size();
        m_part.branches.emplace_back();
        Place(node.Lower(), box, nBranch, 1);
        Place(node.Upper(), box, nBranch, 1);
        return Child(nBranch);
    }

    /**
     * Puts a node, or what comes of it after a few steps, into a branch.
     *
     * @param box    of the branch
     * @param nStep  how far below the branch the node is
     */
    void Place(const CTreeNode& node, const SCoarseBox& box, size_t nBranch, int nStep)
    {
        const SBox& exact = *m_pBox++;
        const bool bEnd = m_end.IsEnd(node);
        if (nStep < SBranch::STEPS && !bEnd) {
            Place(node.Lower(), box, nBranch, nStep + 1);
            Place(node.Upper(), box, nBranch, nStep + 1);
            return;
        }
        const auto& children = m_part.branches[nBranch].children;
        const int nPlace = int(std::find(std::begin(children), std::end(children), SBranch::NONE) - children);
        const SPackedBox packed = Pack(m_tree.Coarse(exact), box);
        const SCoarseBox own = Unpack(packed, box, box.PackingStep());
        const Child nChild = bEnd ? m_end.Make(node, own, nBranch, nPlace) : Grow(node, own);
        m_part.branches[nBranch].boxes[nPlace] = packed;
        m_part.branches[nBranch].children[nPlace] = nChild;
    }

private:
    const CSearchTree& m_tree;
    SPart& m_part;
    const SBox* m_pBox;
    End& m_end;
};

/** What is in a piece: down to the bundles. */
void CSearchTree::CBuilder::SweepPiece(SPiece& piece)
{
    struct SEnd
    {
        const CBuilder& builder;
        const CGridPiece& points;
        SPart& part;

        bool IsEnd(const CTreeNode& node) const { return builder.IsBundle(node); }
        Child Make(const CTreeNode& node, const SCoarseBox& box, size_t, int) const
        {
            const CSearchTree& tree = builder.m_tree;
            const size_t nFirst = part.layers.size();
            part.layers.resize(nFirst + 3 * tree.m_nLayers);
            part.bundles.emplace_back(points, node.Points(), tree.m_space.Exact(box.low),
                                      std::span(part.layers).subspan(nFirst));
            return -Child(part.bundles.size());
        }
    };
    const CGridPiece points(m_grid, piece.node.Points());
    const auto leafBoxes = [&](const CTreeNode& node, SRangeBoxes& boxes) {
        if (node.IsLeaf())
            boxes = BoxesOf(points, node.Points());
        return node.IsLeaf();
    };
    Note(points);
    SweepUp(piece.node, leafBoxes, piece.part);
    SEnd end{*this, points, piece.part};
    CDownSweep sweep(m_tree, piece.part, piece.part.boxes.data() + 1, end);
    piece.nRoot =
        IsBundle(piece.node) ? end.Make(piece.node, piece.box, 0, 0) : sweep.Grow(piece.node, piece.box);
    piece.part.boxes = {};
}

/** The nodes above the pieces, whose boxes are known. */
void CSearchTree::CBuilder::SweepTop()
{
    struct SEnd
    {
        const CBuilder& builder;
        std::vector<SPiece>::iterator next;

        bool IsEnd(const CTreeNode& node) const { return builder.IsPiece(node); }
        Child Make(const CTreeNode&, const SCoarseBox& box, size_t nBranch, int nPlace)
        {
            next->box = box;
            next->nBranch = nBranch;
            next->nPlace = nPlace;
            ++next;
            return 0; // known when the pieces are appended
        }
    };
    SPart top;
    auto next = m_pieces.begin();
    const auto pieceBoxes = [&](const CTreeNode& node, SRangeBoxes& boxes) {
        if (IsPiece(node))
            boxes = (next++)->boxes;
        return IsPiece(node);
    };
    SweepUp(m_tree.Root(), pieceBoxes, top);
    m_tree.m_box = top.boxes.front();
    const DVector3D& origin = m_tree.m_box.min;
    if (std::isfinite(origin.x) && std::isfinite(origin.y) && std::isfinite(origin.z))
        m_tree.m_space = CCoarseSpace(origin);

    SEnd end{*this, m_pieces.begin()};
    top.branches.emplace_back();
    CDownSweep(m_tree, top, top.boxes.data(), end).Place(m_tree.Root(), m_tree.Coarse(m_tree.m_box), 0, 0);
    m_tree.m_branches = std::move(top.branches);
    m_tree.m_overhangs = std::move(top.overhangs);
}

/** Joins what is in a piece to the tree. */
void CSearchTree::CBuilder::Append(SPiece& piece)
{
    const Child nBranches = Child(m_tree.m_branches.size());
    const Child nBundles = Child(m_tree.m_bundles.size());
    const auto moved = [&](Child nChild) {
        return nChild == SBranch::NONE ? nChild : nChild < 0 ? nChild - nBundles : nChild + nBranches;
    };
    for (SBranch& branch : piece.part.branches)
        std::transform(std::begin(branch.children), std::end(branch.children), branch.children, moved);
    m_tree.m_branches[piece.nBranch].children[piece.nPlace] = moved(piece.nRoot);
    const auto append = [](auto& all, const auto& part) { all.insert(all.end(), part.begin(), part.end()); };
    append(m_tree.m_branches, piece.part.branches);
    append(m_tree.m_bundles, piece.part.bundles);
    append(m_tree.m_layers, piece.part.layers);
    append(m_tree.m_overhangs, piece.part.overhangs);
    piece.part = {};
}

/** The roots of the pieces come from both sweeps, with the same boxes. */
void CSearchTree::CBuilder::SortOverhangs()
{
    std::vector<SOverhang>& overhangs = m_tree.m_overhangs;
    std::sort(overhangs.begin(), overhangs.end(), SOverhang::IsAhead);
    const auto isSame = [](const SOverhang& a, const SOverhang& b) { return !SOverhang::IsAhead(a, b); };
    overhangs.erase(std::unique(overhangs.begin(), overhangs.end(), isSame), overhangs.end());
}

void CSearchTree::CBuilder::Build()
{
    ChooseBundleCells();
    CollectPieces(m_tree.Root());
    const qint64 nPieces = qint64(m_pieces.size());
    RunPieces(nPieces, [&](qint64 n) {
        const SIJKRange range = m_pieces[n].node.Points();
        const CGridPiece points(m_grid, range);
        m_pieces[n].boxes = BoxesOf(points, range);
        Note(points);
    });
    SweepTop();
    RunPieces(nPieces, [&](qint64 n) { SweepPiece(m_pieces[n]); });
    for (SPiece& piece : m_pieces)
        Append(piece);
    SortOverhangs();
    m_tree.m_branches.shrink_to_fit();
    m_tree.m_bundles.shrink_to_fit();
    m_tree.m_layers.shrink_to_fit();
    m_tree.m_overhangs.shrink_to_fit();
    m_tree.m_eStatus = m_eStatus;
}

// The first point is read ahead of all: that loads the grid, on this thread, and a load may correct the
// dimensions.
CSearchTree::CSearchTree(const IGrid& grid)
{
    if (const SIJKRange range = grid.GetShape().Range(); !range.IsEmpty())
        m_eStatus = CGridPiece(grid, {range.min, range.min}).GetStatus();
    if (m_eStatus != LoadOk)
        return;
    m_shape = grid.GetShape();
    const IVector3D& counts = m_shape.dimensions;
    const int nFlat = (counts.i == 1) + (counts.j == 1) + (counts.k == 1);
    constexpr qint64 MOST = std::numeric_limits<qint32>::max();
    constexpr SIJKRange STORABLE{{-MOST, -MOST, -MOST}, {MOST, MOST, MOST}};
    const bool bStorable = STORABLE.Contains(m_shape.start) && STORABLE.Contains(m_shape.End());
    if (!m_shape.Range().IsEmpty() && nFlat < 2 && bStorable)
        CBuilder(*this, grid).Build();
}
