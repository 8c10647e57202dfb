#pragma once

#include "data/blockshape.h"
#include "data/box.h"

#include <array>

// How the boxes of CSearchTree lie in its arrays: nothing but a few bytes a box is stored, since the cuts of
// a block, and with them the places of all nodes, follow from its dimensions.

/**
 * A node of the tree: a range of cells, halved along its longest direction until no direction has more than
 * LEAF_CELLS.
 *
 * Boxes are kept down to the bundles, the first nodes on the way down that have no more than nBundleCells in
 * any direction, which is at least LEAF_CELLS. The nodes down to there are counted in the order of a descent,
 * each ahead of its lower child, which is ahead of its upper one; the bundles alone in the same order, and so
 * are their layers of cells, along i, j and k.
 */
class CTreeNode
{
public:
    static constexpr qint64 LEAF_CELLS = 4;

    CTreeNode() = default; ///< of no block; for containers
    /** The root. */
    CTreeNode(const SBlockShape& shape, qint64 nBundleCells);

    SIJKRange Range() const { return {m_min, m_min + m_extent}; }
    qint64 Index() const { return m_nIndex; }
    qint64 FirstBundle() const { return m_nFirstBundle; }
    qint64 FirstLayer() const { return m_nFirstLayer; }
    qint64 BundleCount() const { return m_bundles[0] * m_bundles[1] * m_bundles[2]; }
    /** Of all its bundles. A direction of one point has one layer. */
    qint64 LayerCount() const
    {
        const auto [i, j, k] = m_bundles;
        return LayersAlong(0) * j * k + i * LayersAlong(1) * k + i * j * LayersAlong(2);
    }
    /** Of this one and all below, down to the bundles. */
    qint64 NodeCount() const { return 2 * BundleCount() - 1; }

    bool IsLeaf() const { return m_extent[SplitAxis()] <= LEAF_CELLS; }
    bool IsBundle() const { return m_extent[SplitAxis()] <= m_nBundleCells; }
    /** The longest direction; the lower one of equals. */
    int SplitAxis() const
    {
        const int nAxis = m_extent.j > m_extent.i ? 1 : 0;
        return m_extent.k > m_extent[nAxis] ? 2 : nAxis;
    }

    /** How a node is halved. */
    struct SSplit
    {
        int nAxis;
        qint64 nCells;      ///< of the lower half, along the axis
        qint64 nBundles;    ///< of the lower half, along the axis
        qint64 nUpperIndex; ///< Index of the upper half
    };
    SSplit Split() const;
    /** Turns into one of its own halves. */
    void GoLower(const SSplit& split);
    void GoUpper(const SSplit& split);
    CTreeNode Lower() const;
    CTreeNode Upper() const;

    /** Layers of cells in one direction of this node alone. */
    qint64 LayersAlong(int nAxis) const { return std::max<qint64>(m_extent[nAxis], 1); }

private:
    IVector3D m_min;    // the first point
    IVector3D m_extent; // cells; 0 in a direction of one point
    qint64 m_nBundleCells = 0;
    qint64 m_nIndex = 0;
    qint64 m_nFirstBundle = 0;
    qint64 m_nFirstLayer = 0;
    std::array<qint64, 3> m_bundles = {}; // along each direction; the product counts those of the node
};

/** A box within another one: how far it stands back from each side, in 255ths of the other one's extent. */
struct SPackedBox
{
    quint8 low[3];
    quint8 high[3];
};

/** The 255th part of a box's extent. Each end by itself, since the extent of a very large box may overflow.
 */
inline DVector3D PackingStep(const SBox& outer)
{
    return outer.max * (1.0 / 255.0) - outer.min * (1.0 / 255.0);
}

/** The box that holds at least what of the inner box lies in the outer one. */
SPackedBox Pack(const SBox& inner, const SBox& outer);

/** @param step  PackingStep of the outer box */
inline SBox Unpack(const SPackedBox& packed, const SBox& outer, const DVector3D& step)
{
    return {{outer.min.x + packed.low[0] * step.x, outer.min.y + packed.low[1] * step.y,
             outer.min.z + packed.low[2] * step.z},
            {outer.max.x - packed.high[0] * step.x, outer.max.y - packed.high[1] * step.y,
             outer.max.z - packed.high[2] * step.z}};
}
