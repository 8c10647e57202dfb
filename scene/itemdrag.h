#pragma once

#include <QByteArray>
#include <QVector>

#include <optional>

class ISelectable;
class QMimeData;

/** Items that are dragged from one place of the program to another. */
struct SItemDrag
{
    qint64 nViewId = -1;
    qint64 nSimulationId = -1;
    QVector<qint64> itemIds;

    friend bool operator==(const SItemDrag&, const SItemDrag&) = default;
};

/**
 * The type under which dragged items travel. It is that of Qt's item views, so that what they write has to be
 * told apart: ours begins with the 64-bit number -1; then follow view id, simulation id and the ids, each
 * list with its count in 32 bits.
 */
inline constexpr const char* ITEM_DRAG_TYPE = "application/x-qabstractitemmodeldatalist";

void WriteItemDrag(QMimeData& data, const SItemDrag& drag);

/** Nothing for data of another kind and for bytes that aren't whole. */
std::optional<SItemDrag> ReadItemDrag(const QMimeData* pData);
/** The same of the bytes alone. */
std::optional<SItemDrag> ReadItemDrag(const QByteArray& bytes);

/** What of the drag still lives, each once, in order; items of other simulations than this one give nothing.
 */
QVector<ISelectable*> FindDragged(const QMimeData* pData, qint64 nSimulationId);
