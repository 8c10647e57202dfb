#include "modules/plot3d/boundaryitem.h"

#include "modules/plot3d/plot3dkeys.h"
#include "view/mesh/surfaceplane.h"

void CBoundaryItem::SetRecord(const SBoundaryRecord& record)
{
    Set(*this, BoundaryKey::TYPE_NAME, record.sTypeName);
    Set(*this, BoundaryKey::TYPE_INDEX, record.nType);
    Set(*this, BoundaryKey::BLOCK_NUMBER, record.nBlock);
    Set(*this, BoundaryKey::FACE, record.nFace);
    Set(*this, BoundaryKey::IJK_MIN, record.min);
    Set(*this, BoundaryKey::IJK_MAX, record.max);
    Set(*this, BoundaryKey::FLIP, record.bFlip);
    Set(*this, BoundaryKey::DIRECTION, record.nDirection);
    // The views show it as a plane of its block.
    Definitions::ToPack(SSurfacePlane{std::max(record.nFace, 0) / 2, record.min, record.min, record.max},
                        *this);
    SetName(QString("Boundary '%1' \u2014 Block %2").arg(record.sTypeName, QString::number(record.nBlock)),
            0);
}

SBoundaryRecord CBoundaryItem::GetRecord() const
{
    SBoundaryRecord record;
    record.sTypeName = Get(*this, BoundaryKey::TYPE_NAME);
    record.nType = Get(*this, BoundaryKey::TYPE_INDEX);
    record.nBlock = Get(*this, BoundaryKey::BLOCK_NUMBER);
    record.nFace = int(Get(*this, BoundaryKey::FACE));
    record.min = Get(*this, BoundaryKey::IJK_MIN);
    record.max = Get(*this, BoundaryKey::IJK_MAX);
    record.bFlip = Get(*this, BoundaryKey::FLIP);
    record.nDirection = int(Get(*this, BoundaryKey::DIRECTION));
    record.bIsFace = true;
    return record;
}
