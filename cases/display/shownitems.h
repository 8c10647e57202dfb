#pragma once

#include "cases/display/viewstate.h"

#include <QHash>

class CItem;
class ISelectable;

/** By what names an item, or a part of one, is found again in a case whose items have other ids. */
struct SItemNames
{
    /** Empty for what isn't there. A part stands under its item. */
    SItemNames(const ISimulation& simulation, qint64 nItemId, qint64 nPartId = -1);

    QString sName;
    QString sParentName;
};

/** What a selectable stands for: an item, or a part of it (-1: the whole). */
struct SShownPlace
{
    qint64 nItemId = -1;
    qint64 nPartId = -1;

    friend bool operator==(const SShownPlace&, const SShownPlace&) = default;
    friend uint qHash(const SShownPlace& place, uint nSeed = 0)
    {
        return qHash(qMakePair(place.nItemId, place.nPartId), nSeed);
    }
};

/**
 * Finds the items that a state speaks of, and their selectables in a view. One object serves one state, since
 * no item and no selectable is given twice.
 */
class CShownItems
{
public:
    CShownItems(ISimulation& simulation, qint64 nViewId);

    /** For each entry its place; no item where there is none. */
    QVector<SShownPlace> FindById(const QVector<SViewState::SShown>& shown) const;
    /** The same for a state that may be of another session. What users make is made where it isn't there. */
    QVector<SShownPlace> FindStored(const QVector<SViewState::SShown>& shown);
    /** The next selectable of the place and kind; made if it is of that kind itself. Null if there is none.
     */
    ISelectable* Take(const SShownPlace& place, qint64 nKind);

private:
    bool IsThere(const SShownPlace& place) const;
    bool IsSame(const SShownPlace& place, const SViewState::SShown& shown) const;
    void AddByName(const CItem& item, qint64 nKind, qint64 nPartId);
    SShownPlace FindByName(const SViewState::SShown& shown);
    SShownPlace Make(const SViewState::SShown& shown);

    ISimulation& m_simulation;
    const qint64 m_nViewId;
    QHash<QPair<SShownPlace, qint64>, QVector<ISelectable*>> m_selectables; // by place and kind
    QSet<SShownPlace> m_taken;                                              // what an entry has
    QHash<QString, QVector<SShownPlace>> m_byName;                          // filled when an id doesn't fit
};
