#include "data/grids/treelayout.h"

#include <bit>

namespace {

/**
 * How many bundles halving makes of one direction. Halving n cells d times gives parts of n / 2^d cells,
 * rounded down or up, n % 2^d of them rounded up. At the first d with small enough parts, those rounded up
 * may still have one cell too many and are halved once more.
 */
qint64 BundlesAlong(qint64 nCells, qint64 nBundleCells)
{
    int nHalvings =
        std::max(int(std::bit_width(quint64(nCells))) - int(std::bit_width(quint64(nBundleCells))), 0);
    if (nCells >> nHalvings > nBundleCells)
        ++nHalvings;
    const qint64 nParts = qint64(1) << nHalvings;
    return nParts + (nCells >> nHalvings == nBundleCells ? nCells & (nParts - 1) : 0);
}

/** How many whole steps fit, from 0 to 255. */
quint8 StepsWithin(double dDistance, double dStep)
{
    const double dSteps = dDistance / dStep;
    return dSteps >= 255.0 ? 255 : dSteps > 0.0 ? quint8(dSteps) : 0; // NaN: 0
}

} // namespace

CTreeNode::CTreeNode(const SBlockShape& shape, qint64 nBundleCells)
    : m_min(shape.start), m_extent(shape.End() - shape.start), m_nBundleCells(nBundleCells)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        m_bundles[nAxis] = BundlesAlong(m_extent[nAxis], nBundleCells);
}

CTreeNode::SSplit CTreeNode::Split() const
{
    const int nAxis = SplitAxis();
    const qint64 nCells = m_extent[nAxis] / 2;
    const qint64 nBundles = BundlesAlong(nCells, m_nBundleCells);
    const qint64 nAcross = m_bundles[(nAxis + 1) % 3] * m_bundles[(nAxis + 2) % 3];
    return {nAxis, nCells, nBundles, m_nIndex + 2 * nAcross * nBundles}; // n bundles are below 2 n - 1 nodes
}

void CTreeNode::GoLower(const SSplit& split)
{
    m_extent[split.nAxis] = split.nCells;
    m_bundles[split.nAxis] = split.nBundles;
    ++m_nIndex;
}

void CTreeNode::GoUpper(const SSplit& split)
{
    CTreeNode lower = *this;
    lower.GoLower(split);
    m_min[split.nAxis] += split.nCells;
    m_extent[split.nAxis] -= split.nCells;
    m_bundles[split.nAxis] -= split.nBundles;
    m_nIndex = split.nUpperIndex;
    m_nFirstBundle += lower.BundleCount();
    m_nFirstLayer += lower.LayerCount();
}

CTreeNode CTreeNode::Lower() const
{
    CTreeNode lower = *this;
    lower.GoLower(Split());
    return lower;
}

CTreeNode CTreeNode::Upper() const
{
    CTreeNode upper = *this;
    upper.GoUpper(Split());
    return upper;
}

// The guess by division is put right by what Unpack makes of it, so that no rounding can cut off a point.
SPackedBox Pack(const SBox& inner, const SBox& outer)
{
    SPackedBox packed;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const double dStep = PackingStep(outer)[nAxis];
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
