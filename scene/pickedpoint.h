#pragma once

#include "frame/novalue.h"
#include "frame/vector3d.h"

#include <QString>

#include <optional>

/** A grid point that was picked, or that has the least or greatest value of a drawable. */
struct SPickedPoint
{
    bool bHasPoint = false;
    DVector3D xyz;        ///< [m], in the coordinates of the block
    bool bHasIjk = false; ///< false where the item has no indices
    IVector3D ijk;        ///< one-based; between two grid points the nearer one
    /** The other one of the two; nothing where the point is a grid point. */
    std::optional<IVector3D> secondIjk;
    qint64 nBlockId = NO_ID;  ///< item of the grid that it is of
    double dValue = NO_VALUE; ///< of the scalar variable
    QString sVariableName;    ///< empty without a scalar
    QString sValueText;       ///< ": %1" with 6 digits; empty without a value
    QString sItemName;        ///< the item that it belongs to
    bool bIsHole = false;     ///< a blanked point
};
