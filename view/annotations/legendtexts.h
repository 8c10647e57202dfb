#pragma once

#include "frame/vector3d.h"

#include <QString>

class IDrawable;

/** A selectable that shows a plane cut, so that its legend can name the plane. */
class IPlaneSource
{
public:
    virtual ~IPlaneSource() = default;
    virtual DVector3D planeNormal() const = 0;
    /** Where the plane crosses its normal. */
    virtual double planeOffset() const = 0;
};

/** The name of the variable that colours the drawable; empty without one. */
QString AutomaticTitle(const IDrawable& drawable);

/** Nothing that its view shows of the drawable's scalar has a value. */
bool ShowsNoValues(const IDrawable& drawable);

/** What the drawable's item is: the surface with its place, the block, or the kind with its number. */
QString AutomaticSubtitle(const IDrawable& drawable);
