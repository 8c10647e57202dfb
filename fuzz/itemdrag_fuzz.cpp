// What another program may drop on the window under the type of our own drags.
#include "scene/itemdrag.h"

#include <QMimeData>

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    const QByteArray bytes(reinterpret_cast<const char*>(pData), int(nSize));
    const std::optional<SItemDrag> drag = ReadItemDrag(bytes);
    if (!drag)
        return 0;
    QMimeData data;
    WriteItemDrag(data, *drag);
    if (data.data(ITEM_DRAG_TYPE) != bytes)
        std::abort();
    FindDragged(&data, drag->nSimulationId);
    return 0;
}
