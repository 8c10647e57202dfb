#pragma once

#include "data/blockshape.h"

#include <array>
#include <bit>

/**
 * A node of CSearchTree. Nothing of it is stored, since the cuts of a block, and with them the places of all
 * nodes in the tree's arrays, follow from its dimensions.
 *
 * A node is a range of cells, halved along its longest direction until no direction has more than
 * LEAF_CELLS.
 *
 * Boxes are kept down to the bundles, the first nodes on the way down that have no more than nBundleCells in
 * any direction, which is at least LEAF_CELLS. The nodes down to there are counted in the order of a descent,
 * each ahead of its lower child, which is ahead of its upper one; the bundles alone in the same order.
 */
class CTreeNode
{
public:
    static constexpr qint64 LEAF_CELLS = 4;

    /** The root. */
    CTreeNode(const SBlockShape& shape, qint64 nBundleCells);

    SIJKRange Range() const { return {m_min, m_min + m_extent}; }
    /** Layers of cells in one direction; 1 where there is one point. */
    qint64 LayersAlong(int nAxis) const { return std::max<qint64>(m_extent[nAxis], 1); }
    qint64 Index() const { return m_nIndex; }
    qint64 FirstBundle() const { return m_nFirstBundle; }
    qint64 BundleCount() const { return m_bundles[0] * m_bundles[1] * m_bundles[2]; }
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
        qint64 nLowerCells;   ///< along the axis
        qint64 nLowerBundles; ///< along the axis
        qint64 nLowerBundlesInAll;
    };
    SSplit Split() const;
    qint64 LowerIndex() const { return m_nIndex + 1; }
    qint64 UpperIndex(const SSplit& split) const { return m_nIndex + 2 * split.nLowerBundlesInAll; }
    /** Turns into one of its own halves. */
    void GoLower(const SSplit& split);
    void GoUpper(const SSplit& split);
    CTreeNode Lower() const;
    CTreeNode Upper() const;

private:
    static qint64 BundlesAlong(qint64 nCells, qint64 nBundleCells);

    IVector3D m_min;    // the first point
    IVector3D m_extent; // cells; 0 in a direction of one point
    qint64 m_nBundleCells;
    qint64 m_nIndex = 0;
    qint64 m_nFirstBundle = 0;
    std::array<qint64, 3> m_bundles; // along each direction; the product counts those of the node
};

/**
 * How many bundles halving makes of one direction. Halving n cells d times gives parts of n / 2^d cells,
 * rounded down or up, n % 2^d of them rounded up. At the first d with small enough parts, those rounded up
 * may still have one cell too many and are halved once more.
 */
inline qint64 CTreeNode::BundlesAlong(qint64 nCells, qint64 nBundleCells)
{
    const int nExcess = int(std::bit_width(quint64(nCells))) - int(std::bit_width(quint64(nBundleCells)));
    int nHalvings = std::max(nExcess, 0);
    nHalvings += nCells >> nHalvings > nBundleCells ? 1 : 0;
    const qint64 nParts = qint64(1) << nHalvings;
    return nParts + (nCells >> nHalvings == nBundleCells ? nCells & (nParts - 1) : 0);
}

inline CTreeNode::SSplit CTreeNode::Split() const
{
    const int nAxis = SplitAxis();
    const qint64 nCells = m_extent[nAxis] / 2;
    const qint64 nBundles = BundlesAlong(nCells, m_nBundleCells);
    return {nAxis, nCells, nBundles, m_bundles[(nAxis + 1) % 3] * m_bundles[(nAxis + 2) % 3] * nBundles};
}

inline void CTreeNode::GoLower(const SSplit& split)
{
    m_extent[split.nAxis] = split.nLowerCells;
    m_bundles[split.nAxis] = split.nLowerBundles;
    m_nIndex = LowerIndex();
}

inline void CTreeNode::GoUpper(const SSplit& split)
{
    m_min[split.nAxis] += split.nLowerCells;
    m_extent[split.nAxis] -= split.nLowerCells;
    m_bundles[split.nAxis] -= split.nLowerBundles;
    m_nIndex = UpperIndex(split);
    m_nFirstBundle += split.nLowerBundlesInAll;
}
