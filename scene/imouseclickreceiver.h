#pragma once

#include "frame/vector3d.h"

class ISelectable;

/** Who takes over the clicks of the views while it waits for points to be picked. */
class IMouseClickReceiver
{
public:
    virtual ~IMouseClickReceiver() = default;
    /** @param ijk  one-based address of the nearest grid point */
    virtual void PointPicked(DVector3D point, IVector3D ijk, ISelectable* pSelectable) = 0;
    virtual void PickEnded() = 0;
};
