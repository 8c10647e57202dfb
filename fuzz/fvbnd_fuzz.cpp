// A boundary file of any bytes: it ends, what it gives is whole, and resolved limits lie in the block.
#include "modules/plot3d/fvbnd.h"

#include <QBuffer>

#include <cstdlib>

namespace {

void Require(bool bHolds)
{
    if (!bHolds)
        std::abort();
}

void CheckResolved(SBoundaryRecord record)
{
    const IVector3D dimensions{9, 5, 1};
    if (!ResolveBoundary(record, dimensions))
        return;
    Require(record.bIsFace == (record.nFace >= 0 && record.nFace < 6));
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        Require(1 <= record.min[nAxis] && record.min[nAxis] <= record.max[nAxis] &&
                record.max[nAxis] <= dimensions[nAxis]);
    const SBoundaryRecord once = record;
    Require(ResolveBoundary(record, dimensions) && record.min == once.min && record.max == once.max &&
            record.nFace == once.nFace);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    QByteArray bytes(reinterpret_cast<const char*>(pData), int(nSize));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const SFvbndFile file = ReadFvbnd(buffer);
    Require(file.sError.isEmpty() || file.records.isEmpty());
    for (const SBoundaryRecord& record : file.records) {
        Require(record.nType >= 1 && record.nType <= file.sTypeNameList.size());
        Require(record.nDirection == 1 || record.nDirection == -1);
        CheckResolved(record);
    }
    return 0;
}
