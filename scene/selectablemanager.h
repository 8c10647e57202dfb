#pragma once

#include <QHash>
#include <QJsonObject>
#include <QMap>
#include <QObject>
#include <QVector>

#include <utility>

class ISelectable;

/** What the files of a pair say that this version doesn't know: kept as it is, to be written back. */
struct SKeptOfPair
{
    QJsonObject members; ///< of the display as JSON
    QByteArray entries;  ///< of its view state
};

/**
 * Owns all selectables, finds them by view, simulation and item, and tells who shows them what has
 * changed. A pointer to a selectable has to be checked with Exists after any event loop. Main thread only.
 */
class CSelectableManager : public QObject
{
    Q_OBJECT

public:
    static CSelectableManager& Instance();

    /** Takes the selectable over and emits SignalSelectableCreated. */
    void Add(ISelectable* pSelectable);
    /** Emits SignalSelectableDeleted, then deletes it; an unknown one is ignored. */
    void Remove(ISelectable* pSelectable);
    /** Removes all of a pair, newest first, so that children go ahead of what they stand under. */
    void RemovePair(qint64 nViewId, qint64 nSimulationId);
    /** Removes all of an item, in every view. */
    void RemoveItem(qint64 nSimulationId, qint64 nItemId);

    /** The first of this item, or of a part of it, in the view; or null. */
    ISelectable* Find(qint64 nViewId, qint64 nSimulationId, qint64 nItemId, qint64 nPartId = -1) const;
    /** In the order in which they were added or arranged. */
    QVector<ISelectable*> GetSelectables(qint64 nViewId, qint64 nSimulationId) const;
    /** Puts these of a pair first, in their order, the others behind them; their drawables go along. */
    void Arrange(qint64 nViewId, qint64 nSimulationId, const QVector<ISelectable*>& first);
    /** Of all simulations of the view, by simulation id. */
    QVector<ISelectable*> GetSelectables(qint64 nViewId) const;
    QVector<ISelectable*> GetSelected(qint64 nViewId, qint64 nSimulationId) const;
    QVector<ISelectable*> GetHovered(qint64 nViewId) const;
    /** What files say of a pair that this version doesn't show; goes with RemovePair. */
    SKeptOfPair& Kept(qint64 nViewId, qint64 nSimulationId) { return m_kept[{nViewId, nSimulationId}]; }
    /** True while the pointer is one of a living selectable. */
    bool Exists(const ISelectable* pSelectable) const;

    void NotifySelectionChanged(qint64 nViewId, qint64 nSimulationId);
    void NotifyMaskChanged(ISelectable* pSelectable);
    /** The item behind it has changed. */
    void NotifyUpdated(ISelectable* pSelectable);
    void NotifyDisplayOnNodes(ISelectable* pSelectable);
    void NotifyDoubleClicked(ISelectable* pSelectable);
    void NotifyDoubleClicked(const QVector<ISelectable*>& selectables);

signals:
    void SignalSelectableCreated(ISelectable* pSelectable);
    void SignalSelectableMaskChanged(ISelectable* pSelectable);
    void SignalSelectableDeleted(ISelectable* pSelectable);
    void SignalSelectableDoubleClicked(ISelectable* pSelectable);
    void SignalSelectableDoubleClicked(QVector<ISelectable*> pSelectableList);
    void SignalUpdateSelectable(ISelectable* pSelectable);
    void SignalSelectableDisplayOnNodes(ISelectable* pSelectable);
    void SignalSelectionChanged(qlonglong nViewId, qlonglong nSimulationId);

private:
    using Pair = std::pair<qint64, qint64>; // view id, simulation id

    /** One pair: its selectables in order, and those of each item. */
    struct SPairTable
    {
        QVector<ISelectable*> all;
        QHash<qint64, QVector<ISelectable*>> byItem;
    };

    CSelectableManager() = default;

    QMap<Pair, SPairTable> m_pairs;
    QMap<Pair, SKeptOfPair> m_kept;
    // What is deleted can't be asked any more where it stands, so that is kept here.
    QHash<const ISelectable*, Pair> m_pairOf;
    QHash<const ISelectable*, qint64> m_itemOf;
};
