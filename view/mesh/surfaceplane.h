#pragma once

#include "data/values/blockshape.h"
#include "frame/packs/definition.h"
#include "view/mesh/surfacearrays.h"

/** Which index plane of a block a surface shows. Addresses are one-based, both ends included. */
struct SSurfacePlane
{
    int nDirection = 2;              ///< constant direction: 0 I, 1 J, 2 K
    IVector3D constants = {1, 1, 1}; ///< of each direction; only that of nDirection counts
    IVector3D start = {1, 1, 1};
    IVector3D end = {1, 1, 1};

    int RowAxis() const { return (nDirection + 1) % 3; }
    int ColumnAxis() const { return (nDirection + 2) % 3; }
    SSurfaceSize Size() const;
    /** The plane as a box of the block. */
    SIJKRange Range() const;
    IVector3D AddressOf(qint64 nElement) const;

    friend bool operator==(const SSurfacePlane&, const SSurfacePlane&) = default;
};

template <> struct SDefinitionTable<SSurfacePlane>
{
    static constexpr auto FIELDS = std::tuple{
        SDefinitionField{"constantDirection", "Surface.ConstantDirection", &SSurfacePlane::nDirection, true},
        SDefinitionField{"constantValue", "Surface.ConstantValue", &SSurfacePlane::constants, true},
        SDefinitionField{"ijkMin", "Surface.IjkMin", &SSurfacePlane::start},
        SDefinitionField{"ijkMax", "Surface.IjkMax", &SSurfacePlane::end}};
    /** A direction that isn't one is K. */
    static SSurfacePlane Repaired(SSurfacePlane plane)
    {
        if (plane.nDirection < 0 || plane.nDirection > 2)
            plane.nDirection = SSurfacePlane().nDirection;
        return plane;
    }
};

/** The whole of a face: 0 I min, 1 I max, 2 J min, 3 J max, 4 K min, 5 K max. */
SSurfacePlane FacePlane(const IVector3D& dimensions, int nFace);
