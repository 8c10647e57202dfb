#pragma once

#include <QVector>

class QMimeData;
class QPoint;

/** Who puts the items that are dragged into a drag: the item panel. */
class IMimeDataSupplier
{
public:
    virtual ~IMimeDataSupplier() = default;
    /** Adds the items of these ids; scene/itemdrag.h has the form. */
    virtual void WriteMimeData(QMimeData& data, const QVector<qint64>& itemIds) const = 0;
};

/**
 * Who takes what is dropped on it. A dock that takes items implements it beside CDockWidget, which
 * passes the events on.
 */
class IMimeDataHandler
{
public:
    virtual ~IMimeDataHandler() = default;
    /** Whether something of it could be taken. Asked again and again while the pointer moves. */
    virtual bool CanDrop(const QMimeData* pData) const = 0;
    /** @param position  in the coordinates of the widget that takes it */
    virtual void Drop(const QPoint& position, const QMimeData* pData) = 0;
};
