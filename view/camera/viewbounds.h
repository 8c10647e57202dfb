#pragma once

#include "frame/transform.h"

#include <limits>

/** A box round points in some coordinates; empty (minimum above maximum) until one was added. */
struct SViewBounds
{
    DVector3D minimum{std::numeric_limits<double>::max(), std::numeric_limits<double>::max(),
                      std::numeric_limits<double>::max()};
    DVector3D maximum{-std::numeric_limits<double>::max(), -std::numeric_limits<double>::max(),
                      -std::numeric_limits<double>::max()};

    bool IsEmpty() const
    {
        return !(minimum.x <= maximum.x && minimum.y <= maximum.y && minimum.z <= maximum.z);
    }
    DVector3D Centre() const { return 0.5 * minimum + 0.5 * maximum; }
    void Add(const DVector3D& point);
    /** The eight corners of a box through the matrix; an empty box adds nothing. */
    void AddBox(const DVector3D& boxMinimum, const DVector3D& boxMaximum, const DMatrix4x4& matrix);

    friend bool operator==(const SViewBounds&, const SViewBounds&) = default;
};

/** Bounds of what a view shows, through every display transform. Main thread only. */
namespace ViewBounds {

/**
 * Of all visible drawables of the view.
 *
 * @param view  world to the coordinates of the bounds: the view matrix for zooming, the identity for places
 */
SViewBounds OfVisible(qint64 nViewId, const DMatrix4x4& view);

/** Of the visible drawables of the items that are selected in a simulation. */
SViewBounds OfSelected(qint64 nViewId, qint64 nSimulationId, const DMatrix4x4& view);

} // namespace ViewBounds
