#include "scene/itemdrag.h"

#include "frame/packs/bytestream.h"
#include "scene/selectablemanager.h"

#include <QMimeData>

namespace {
constexpr qint64 MARKER = -1;
}

void WriteItemDrag(QMimeData& data, const SItemDrag& drag)
{
    CByteWriter writer;
    writer.Write(MARKER);
    writer.Write(drag.nViewId);
    writer.Write(drag.nSimulationId);
    writer.Write(drag.itemIds);
    data.setData(ITEM_DRAG_TYPE, writer.Take());
}

std::optional<SItemDrag> ReadItemDrag(const QMimeData* pData)
{
    return pData ? ReadItemDrag(pData->data(ITEM_DRAG_TYPE)) : std::nullopt;
}

std::optional<SItemDrag> ReadItemDrag(const QByteArray& bytes)
{
    CByteReader reader(bytes);
    qint64 nMarker = 0;
    SItemDrag drag;
    reader.Read(nMarker);
    reader.Read(drag.nViewId);
    reader.Read(drag.nSimulationId);
    reader.Read(drag.itemIds);
    if (!reader.IsOk() || nMarker != MARKER || reader.BytesLeft() != 0)
        return {};
    return drag;
}

QVector<ISelectable*> FindDragged(const QMimeData* pData, qint64 nSimulationId)
{
    QVector<ISelectable*> found;
    const std::optional<SItemDrag> drag = ReadItemDrag(pData);
    if (!drag || drag->nSimulationId != nSimulationId)
        return found;
    QSet<qint64> seen;
    for (const qint64 nId : drag->itemIds) {
        ISelectable* const pSelectable =
            CSelectableManager::Instance().Find(drag->nViewId, nSimulationId, nId);
        if (pSelectable && !seen.contains(nId))
            found.append(pSelectable);
        seen.insert(nId);
    }
    return found;
}
