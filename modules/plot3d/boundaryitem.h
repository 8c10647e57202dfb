#pragma once

#include "modules/plot3d/fvbnd.h"
#include "simulation/item.h"

/** A boundary surface: a face of its parent block or a part of one, as a boundary file names it. */
class CBoundaryItem : public CItem
{
public:
    /** Takes over a resolved record with a face; the name follows from it. */
    void SetRecord(const SBoundaryRecord& record);
    SBoundaryRecord GetRecord() const;

    QString GetTypeName() const override { return "Boundary Surface"; }
};
