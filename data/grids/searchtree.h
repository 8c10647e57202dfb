#pragma once

#include "data/grids/cellbundle.h"
#include "data/grids/igrid.h"
#include "data/grids/packedbox.h"
#include "data/grids/treenode.h"
#include "data/kernels/cellmap.h"
#include "data/values/box.h"

#include <algorithm>
#include <limits>
#include <vector>

/**
 * Finds the cell of a structured block that holds a point: a binary tree over ranges of cells, each with the
 * bounding box of the points on its outer faces. A point is sought in every range whose box and whose
 * parents' boxes hold it, lower half first, and within a leaf cell by cell, i outermost.
 *
 * That is the definition, and the answers are those of its exact boxes. What is kept only spares tests:
 * coarse boxes of eight bytes for every third step down, which hold the exact ones, and below them bundles of
 * cells with the bounds of their layers. Immutable after the build; safe to ask from any thread. The grid
 * must be the one it was built of, with the same points. A block with addresses of 2^31 or more isn't
 * searched.
 */
class CSearchTree
{
public:
    /**
     * Over the whole block. Reads all points twice and uses the threads of the global pool; the result
     * doesn't depend on their number. Throws std::bad_alloc.
     */
    explicit CSearchTree(const IGrid& grid);

    /** The first cell, in tree order, that holds the point; (-1, -1, -1) if none does, or the shape differs.
     */
    IVector3D FindCell(const IGrid& grid, const DVector3D& point) const;
    /** How the build's reads ended; a tree whose points couldn't be read finds nothing. */
    LoadStatus_e GetStatus() const { return m_eStatus; }
    /** The shape of the block when the tree was built. */
    const SBlockShape& GetShape() const { return m_shape; }
    /** Memory that the tree holds [bytes]. */
    qint64 GetBytes() const;

private:
    class CBuilder;
    class CQuery;

    /** What stands in a branch for a child: its place among the branches, or -1 - that among the bundles. */
    using Child = qint32;

    /** A node with those three steps below it, or fewer at the ends of the tree, in their order. */
    struct SBranch
    {
        static constexpr int STEPS = 3;
        static constexpr Child NONE = std::numeric_limits<Child>::min();

        SPackedBox boxes[1 << STEPS]; // within that of the branch
        Child children[1 << STEPS];   // NONE from the last on

        SBranch() { std::fill_n(children, 1 << STEPS, NONE); }
    };
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

    CTreeNode Root() const { return CTreeNode(m_shape.Range()); }
    SCoarseBox Coarse(const SBox& box) const { return {m_space.Coarse(box.min), m_space.Coarse(box.max)}; }

    LoadStatus_e m_eStatus = LoadOk;
    SBlockShape m_shape;
    SBox m_box; // of the root, exact; empty without cells
    CCoarseSpace m_space;
    std::vector<SBranch> m_branches; // the root first
    std::vector<CCellBundle> m_bundles;
    std::vector<SLayerBounds> m_layers; // of each bundle m_nLayers along i, as many along j, along k
    qint64 m_nLayers = 0;
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
