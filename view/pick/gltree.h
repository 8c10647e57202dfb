#pragma once

#include "view/pick/glitem.h"

#include <limits>
#include <vector>

/**
 * The tree of all that can be picked of a drawable, over its array of positions.
 *
 * A node with room to split (less than 10 levels deep, an axis left) hands each item to one of three
 * children by the middle of its box: below it, across it, above it. A child across keeps box and depth and
 * doesn't split on that axis again. The axis is that of the largest extent among those left, the first of
 * equal ones. Every item so lies in one node, and the order of all searches is that of a walk through lower,
 * straddling and upper children, within a node that of entering.
 *
 * Stored are the items in that order and, of the nodes, only those that hold enough items to pay: one array
 * in the order of the walk, each with the bounds of its own items and the place where its branch ends. The
 * arrangement is made at the first search after the last Enter (gltree_arrange.cpp). Main thread only.
 */
class CGLTree
{
public:
    CGLTree() = default;

    /**
     * Forgets all items.
     *
     * @param positions  where corners are found; it must outlive the tree or the next Reset, and not change
     * @param minimum, maximum  the box that is split: that of the drawable
     */
    void Reset(std::span<const DVector3D> positions, const DVector3D& minimum, const DVector3D& maximum);
    /** Without items nothing is ever hit. */
    void Clear() { Reset({}, {}, {}); }
    void Reserve(qint64 nItems) { m_items.reserve(nItems); }
    /** Its corners must be places in the array (asserted). */
    void Enter(const CGLItem& item);

    /**
     * The first item, in the order of the walk, that the rectangle meets; null without any.
     *
     * @param view       world to view; with a display transform, view * transform
     * @param nKindMask  kinds to take, as bits of PickKind_e; negative: all
     * @param bHoles     whether items of blanked cells are taken
     * @return good until the next Enter or Reset
     */
    const CGLItem* pickFirst(const DMatrix4x4& view, const SPickRect& rect, int nKindMask, bool bHoles);
    /** Whether there is one. */
    bool anyHit(const DMatrix4x4& view, const SPickRect& rect, int nKindMask, bool bHoles);
    /**
     * Greatest z, in view coordinates, of the triangles where the line of sight at a place meets them.
     *
     * @param dBehind  only what lies in front of this counts
     * @param dEnough  anything in front of this is found soon enough: the search ends there
     * @return NOT_MET if none is met
     */
    double frontTriangle(const DMatrix4x4& view, const SPickPoint& place, bool bHoles,
                         double dBehind = NOT_MET, double dEnough = std::numeric_limits<double>::max());
    /** The same of lines and points that come into a rectangle, where they come nearest to its middle. */
    double frontLine(const DMatrix4x4& view, const SPickRect& rect, int nKindMask, bool bHoles,
                     double dBehind = NOT_MET);
    /**
     * The point that is seen nearest to a place, of equal ones the one in front.
     *
     * @param dRadius  so far at most [view coordinates]
     * @param bFilled  triangles hide what lies behind them
     */
    const CGLItem* nearestPoint(const DMatrix4x4& view, const SPickPoint& place, double dRadius, bool bHoles,
                                bool bFilled);
    static constexpr double NOT_MET = std::numeric_limits<double>::lowest();

    /** The items whose own box holds the world point, border included. */
    std::vector<CGLItem> itemsAtPoint(const DVector3D& point);

    /** All items in the order of the walk. */
    std::span<const CGLItem> Items();
    qint64 NodeCount();
    /** Memory that items and nodes take [bytes]. */
    qint64 GetBytes();

private:
    struct SNode
    {
        DVector3D minimum; // of the items, not of the space that was split
        DVector3D maximum;
        quint32 nFirstItem;
        quint32 nEndItem;
        quint32 nEndNode; // first node past the branch; the next one if this is a leaf
        quint8 nKinds;    // kinds of all items below
        quint8 nSolids;   // of those that are no holes
    };
    class CBranches;

    void Arrange();
    template <class Leaf, class Inside>
    void Walk(const DMatrix4x4& view, const SPickRect& rect, int nKindMask, bool bHoles, const Leaf& leaf,
              const Inside& inside) const;

    template <class Skip, class Visit>
    void Search(int nKindMask, bool bHoles, const Skip& skip, const Visit& visit) const;
    DVector3D Seen(const DMatrix4x4& view, const CGLItem& item, int nCorner) const
    {
        return view.MapPoint(m_positions[item.nCorners[nCorner]]);
    }

    std::span<const DVector3D> m_positions;
    DVector3D m_minimum;
    DVector3D m_maximum;
    std::vector<CGLItem> m_items;
    std::vector<SNode> m_nodes;
    bool m_bArranged = true;
};
