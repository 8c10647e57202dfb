#include "data/grids/treenode.h"

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
