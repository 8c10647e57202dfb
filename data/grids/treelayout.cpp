#include "data/grids/treelayout.h"

#include <bit>
#include <cmath>

namespace {

struct SParts
{
    qint64 nLeaves;
    qint64 nClusters;
};

/** Of a leaf of so many cells in one direction. */
constexpr qint64 ClustersOfLeaf(qint64 nCells) { return nCells <= 2 ? 1 : 2; }

/**
 * What halving makes of one direction. Halving n cells d times gives parts of n / 2^d cells, rounded down or
 * up, n % 2^d of them rounded up; so all leaves have 3, 4 or (made of 5) 2 cells, unless n itself is less.
 */
SParts PartsOf(qint64 nCells)
{
    int nHalvings = std::max(int(std::bit_width(quint64(nCells))) - 3, 0);
    if (nCells >> nHalvings > CTreeNode::LEAF_CELLS)
        ++nHalvings;
    const qint64 nParts = qint64(1) << nHalvings;
    const qint64 nSmall = nCells >> nHalvings;
    const qint64 nLarge = nCells & (nParts - 1); // parts of one cell more
    if (nSmall == CTreeNode::LEAF_CELLS)         // these are halved once more, into 2 and 3
        return {nParts + nLarge, (nParts - nLarge) * ClustersOfLeaf(nSmall) +
                                     nLarge * (ClustersOfLeaf(2) + ClustersOfLeaf(3))};
    return {nParts, (nParts - nLarge) * ClustersOfLeaf(nSmall) + nLarge * ClustersOfLeaf(nSmall + 1)};
}

/** How many whole steps fit, from 0 to 255. */
quint8 StepsWithin(double dDistance, double dStep)
{
    const double dSteps = dDistance / dStep;
    return dSteps >= 255.0 ? 255 : dSteps > 0.0 ? quint8(dSteps) : 0; // NaN: 0
}

} // namespace

CTreeNode::CTreeNode(const SBlockShape& shape) : m_min(shape.start), m_extent(shape.End() - shape.start)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        Count(nAxis);
}

void CTreeNode::Count(int nAxis)
{
    const SParts parts = PartsOf(m_extent[nAxis]);
    m_leaves[nAxis] = parts.nLeaves;
    m_clusters[nAxis] = parts.nClusters;
}

CTreeNode CTreeNode::Lower() const
{
    CTreeNode lower = *this;
    const int nAxis = SplitAxis();
    lower.m_extent[nAxis] /= 2;
    lower.Count(nAxis);
    ++lower.m_nIndex;
    return lower;
}

CTreeNode CTreeNode::Upper(const CTreeNode& lower) const
{
    CTreeNode upper = *this;
    const int nAxis = SplitAxis();
    upper.m_min[nAxis] += lower.m_extent[nAxis];
    upper.m_extent[nAxis] -= lower.m_extent[nAxis];
    upper.m_leaves[nAxis] -= lower.m_leaves[nAxis];
    upper.m_clusters[nAxis] -= lower.m_clusters[nAxis];
    upper.m_nIndex += 1 + lower.NodeCount();
    upper.m_nFirstCluster += lower.ClusterCount();
    return upper;
}

SIJKRange CTreeNode::ClusterRange(qint64 nCluster) const
{
    SIJKRange range = Range();
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const qint64 nMiddle = m_min[nAxis] + m_extent[nAxis] / 2;
        const qint64 nPlace = nCluster % m_clusters[nAxis];
        nCluster /= m_clusters[nAxis];
        if (m_clusters[nAxis] > 1)
            (nPlace == 0 ? range.max : range.min)[nAxis] = nMiddle;
    }
    return range;
}

qint64 CTreeNode::ClusterOf(const IVector3D& ijk) const
{
    qint64 nCluster = 0;
    for (int nAxis = 2; nAxis >= 0; --nAxis) {
        const bool bUpper = m_clusters[nAxis] > 1 && ijk[nAxis] - m_min[nAxis] >= m_extent[nAxis] / 2;
        nCluster = nCluster * m_clusters[nAxis] + (bUpper ? 1 : 0);
    }
    return nCluster;
}

// The guess by division is put right by what Unpack makes of it, so that no rounding can cut off a point.
SPackedBox Pack(const SBox& inner, const SBox& outer)
{
    SPackedBox packed;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const double dStep = outer.max[nAxis] * (1.0 / 255.0) - outer.min[nAxis] * (1.0 / 255.0);
        quint8& nLow = packed.low[nAxis];
        quint8& nHigh = packed.high[nAxis];
        nLow = StepsWithin(inner.min[nAxis] - outer.min[nAxis], dStep);
        nHigh = StepsWithin(outer.max[nAxis] - inner.max[nAxis], dStep);
        while (nLow > 0 && !(outer.min[nAxis] + nLow * dStep <= inner.min[nAxis]))
            --nLow;
        while (nHigh > 0 && !(outer.max[nAxis] - nHigh * dStep >= inner.max[nAxis]))
            --nHigh;
    }
    return packed;
}
