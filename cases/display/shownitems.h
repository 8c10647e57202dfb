#pragma once

#include "cases/display/viewstate.h"

#include <QHash>

class CItem;
class ISelectable;

/** By what names an item is found again in a case whose items have other ids. */
struct SItemNames
{
    SItemNames(const ISimulation& simulation, qint64 nItemId); ///< empty for an unknown item

    QString sName;
    QString sParentName;
};

/**
 * Finds the items that a state speaks of, and their selectables in a view. One object serves one state, since
 * no item and no selectable is given twice.
 */
class CShownItems
{
public:
    CShownItems(ISimulation& simulation, qint64 nViewId);

    /** For each entry the id of its item; -1 where there is none. */
    QVector<qint64> FindById(const QVector<SViewState::SShown>& shown) const;
    /** The same for a state that may be of another session. Surfaces that aren't there are made. */
    QVector<qint64> FindStored(const QVector<SViewState::SShown>& shown);
    /** The next selectable of the item and kind; made if it is of the item's own kind. Null if there is none.
     */
    ISelectable* Take(qint64 nItemId, qint64 nKind);

private:
    using Place = std::pair<qint64, qint64>; // item id, kind

    bool IsSame(const CItem& item, const SViewState::SShown& shown) const;
    qint64 FindByName(const SViewState::SShown& shown);
    qint64 MakeSurface(const SViewState::SShown& shown);
    QString NameKey(qint64 nKind, const QString& sName, const QString& sParentName) const;

    ISimulation& m_simulation;
    const qint64 m_nViewId;
    QHash<Place, QVector<ISelectable*>> m_selectables;
    QSet<qint64> m_taken;                        // items that an entry has
    QHash<QString, QVector<qint64>> m_idsByName; // filled when an id doesn't fit
};
