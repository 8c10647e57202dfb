#pragma once

#include "data/box.h"
#include "data/grids/cellbundle.h"
#include "data/grids/igrid.h"
#include "data/grids/packedbox.h"
#include "data/grids/treenode.h"
#include "data/kernels/cellmap.h"

#include <vector>

/**
 * Finds the cell of a structured block that holds a point: a binary tree over ranges of cells, each with the
 * bounding box of the points on its outer faces. A point is sought in every range whose box and whose
 * parents' boxes hold it, lower half first, and within a leaf cell by cell, i outermost.
 *
 * The tree keeps coarse boxes, eight bytes each, that hold the exact ones, and below them bundles of cells
 * with the bounds of their layers; both only spare tests, and the answers are those of the exact boxes.
 * Immutable after the build; safe to ask from any thread. The grid must be the one it was built of, with the
 * same points.
 */
class CSearchTree
{
public:
    /**
     * Over the whole block. Reads all points twice and uses the threads of the global pool; the result
     * doesn't depend on their number. Throws std::bad_alloc.
     */
    explicit CSearchTree(const IGrid& grid);

    /** The first cell, in tree order, that holds the point; (-1, -1, -1) if none does. */
    IVector3D FindCell(const IGrid& grid, const DVector3D& point) const;
    /** The shape of the block when the tree was built. */
    const SBlockShape& GetShape() const { return m_shape; }
    /** Memory that the tree holds [bytes]. */
    qint64 GetBytes() const;

private:
    class CBuilder;
    class CQuery;

    /** The exact box of a node, where it doesn't hold all points of the node. */
    struct SOverhang
    {
        qint64 nFirst, nLast; // flat indices of the first and the last point, which tell the node
        SBox box;

        static bool IsAhead(const SOverhang& a, const SOverhang& b)
        {
            return a.nFirst != b.nFirst ? a.nFirst < b.nFirst : a.nLast < b.nLast;
        }
    };

    CTreeNode Root() const { return CTreeNode(m_shape, m_nBundleCells); }
    SCoarseBox Coarse(const SBox& box) const { return {m_space.Coarse(box.min), m_space.Coarse(box.max)}; }

    SBlockShape m_shape;
    qint64 m_nBundleCells = 0;
    SBox m_box; // of the root, exact; empty without cells
    CCoarseSpace m_space;
    std::vector<SPackedBox> m_nodes;    // by CTreeNode::Index, each within its parent's
    std::vector<CCellBundle> m_bundles; // by CTreeNode::FirstBundle
    std::vector<SLayerBounds> m_layers; // of each bundle m_nBundleCells along i, as many along j, along k
    // In order. Only where cells are folded over one another, or in the gaps of a union, do points lie
    // outside of the box of the outer faces.
    std::vector<SOverhang> m_overhangs;
};

/**
 * Where a point lies in a cell of a block; not inside for an address without a cell, a cell with a missing
 * corner, or a block of less than two directions.
 *
 * @param dTolerance  [m] the mapped point must lie this near in each coordinate; negative: 1e-6 of the
 *                    diagonal of the cell's box
 */
SCellPlace LocateInCell(const IGrid& grid, const IVector3D& ijk, const DVector3D& point,
                        double dTolerance = -1.0);
