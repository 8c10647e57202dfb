#pragma once

#include "data/values/blockshape.h"

/**
 * A node of CSearchTree: a range of cells that is halved along its longest direction, the lower one of
 * equals, until no direction has more than LEAF_CELLS.
 */
class CTreeNode
{
public:
    static constexpr qint64 LEAF_CELLS = 4;

    /** @param points  from the first to the last point of the cells */
    explicit CTreeNode(const SIJKRange& points) : m_points(points) {}

    const SIJKRange& Points() const { return m_points; }
    /** 0 in a direction of one point. */
    qint64 Extent(int nAxis) const { return m_points.max[nAxis] - m_points.min[nAxis]; }
    /** Layers of cells in one direction; 1 where there is one point. */
    qint64 LayersAlong(int nAxis) const { return std::max<qint64>(Extent(nAxis), 1); }
    qint64 LongestExtent() const { return Extent(LongestAxis()); }
    bool IsLeaf() const { return LongestExtent() <= LEAF_CELLS; }

    int LongestAxis() const
    {
        const int nAxis = Extent(1) > Extent(0) ? 1 : 0;
        return Extent(2) > Extent(nAxis) ? 2 : nAxis;
    }
    /** The halves share the plane in the middle. */
    CTreeNode Lower() const
    {
        CTreeNode lower = *this;
        lower.m_points.max[LongestAxis()] = Middle();
        return lower;
    }
    CTreeNode Upper() const
    {
        CTreeNode upper = *this;
        upper.m_points.min[LongestAxis()] = Middle();
        return upper;
    }

private:
    qint64 Middle() const { return m_points.min[LongestAxis()] + LongestExtent() / 2; }

    SIJKRange m_points;
};
