#include "data/grids/treelayout.h"

namespace {

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
