#pragma once

#include "data/blockshape.h"
#include "data/box.h"

#include <array>

// How the boxes of CSearchTree lie in its arrays: nothing but a few bytes a box is stored, since the cuts of
// a block, and with them the places of all nodes, follow from its dimensions.

/**
 * A node of the tree: a range of cells, halved along its longest direction until no direction has more than
 * LEAF_CELLS. The nodes lie in the order of a descent, each ahead of its lower child, which is ahead of its
 * upper one. The cells of a leaf are grouped in clusters of at most two in each direction.
 */
class CTreeNode
{
public:
    static constexpr qint64 LEAF_CELLS = 4;

    /** The root. */
    explicit CTreeNode(const SBlockShape& shape);

    SIJKRange Range() const { return {m_min, m_min + m_extent}; }
    qint64 Index() const { return m_nIndex; }
    qint64 FirstCluster() const { return m_nFirstCluster; }
    /** Of this one and all below. */
    qint64 NodeCount() const { return 2 * m_leaves[0] * m_leaves[1] * m_leaves[2] - 1; }
    qint64 ClusterCount() const { return m_clusters[0] * m_clusters[1] * m_clusters[2]; }

    bool IsLeaf() const { return m_extent[SplitAxis()] <= LEAF_CELLS; }
    /** The longest direction; the lower one of equals. */
    int SplitAxis() const
    {
        const int nAxis = m_extent.j > m_extent.i ? 1 : 0;
        return m_extent.k > m_extent[nAxis] ? 2 : nAxis;
    }
    CTreeNode Lower() const;
    /** @param lower  the sibling, which knows how much lies ahead */
    CTreeNode Upper(const CTreeNode& lower) const;

    /** Points of a cluster of a leaf, counted from 0 to ClusterCount() - 1. */
    SIJKRange ClusterRange(qint64 nCluster) const;
    /** The cluster of a cell of a leaf. */
    qint64 ClusterOf(const IVector3D& ijk) const;

private:
    void Count(int nAxis);

    IVector3D m_min;    // the first point
    IVector3D m_extent; // cells; 0 in a direction of one point
    qint64 m_nIndex = 0;
    qint64 m_nFirstCluster = 0;
    std::array<qint64, 3> m_leaves;   // along each direction; the product counts those of the node
    std::array<qint64, 3> m_clusters; // the same
};

/** A box within another one: how far it stands back from each side, in 255ths of the other one's extent. */
struct SPackedBox
{
    quint8 low[3];
    quint8 high[3];
};

/** The box that holds at least what of the inner box lies in the outer one. */
SPackedBox Pack(const SBox& inner, const SBox& outer);

inline SBox Unpack(const SPackedBox& packed, const SBox& outer)
{
    SBox box;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const double dStep = outer.max[nAxis] * (1.0 / 255.0) - outer.min[nAxis] * (1.0 / 255.0);
        box.min[nAxis] = outer.min[nAxis] + packed.low[nAxis] * dStep;
        box.max[nAxis] = outer.max[nAxis] - packed.high[nAxis] * dStep;
    }
    return box;
}
