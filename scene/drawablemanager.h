#pragma once

#include <QMap>
#include <QVector>

#include <utility>

class IDrawable;

/** Finds the drawables of a view and a simulation. It owns none of them. Main thread only. */
class CDrawableManager
{
public:
    static CDrawableManager& Instance();

    void Add(qint64 nViewId, qint64 nSimulationId, IDrawable* pDrawable);
    void Remove(IDrawable* pDrawable);
    /** Puts these of a pair first, in their order, the others behind them. */
    void Arrange(qint64 nViewId, qint64 nSimulationId, const QVector<IDrawable*>& first);
    /** The drawable with this serial, in whatever view; null for -1 and one that is gone. */
    IDrawable* Find(qint64 nSerial) const;
    /** In the order of drawing: as they were added or arranged. Good until the next Add, Remove or Arrange.
     */
    const QVector<IDrawable*>& GetDrawables(qint64 nViewId, qint64 nSimulationId) const;

private:
    using Pair = std::pair<qint64, qint64>;

    CDrawableManager() = default;

    QMap<Pair, QVector<IDrawable*>> m_pairs;
    const QVector<IDrawable*> m_none;
};
