#include "scene/selectablemanager.h"

#include "scene/arrange.h"
#include "scene/drawablemanager.h"
#include "scene/iselectable.h"

CSelectableManager& CSelectableManager::Instance()
{
    static CSelectableManager* const pManager = new CSelectableManager; // never destroyed, see CMessageSink
    return *pManager;
}

void CSelectableManager::Add(ISelectable* pSelectable)
{
    const Pair pair(pSelectable->viewId(), pSelectable->simulationId());
    SPairTable& table = m_pairs[pair];
    table.all.append(pSelectable);
    table.byItem[pSelectable->itemId()].append(pSelectable);
    m_pairOf.insert(pSelectable, pair);
    m_itemOf.insert(pSelectable, pSelectable->itemId());
    emit SignalSelectableCreated(pSelectable);
}

void CSelectableManager::Remove(ISelectable* pSelectable)
{
    if (!Exists(pSelectable))
        return;
    emit SignalSelectableDeleted(pSelectable);
    if (!Exists(pSelectable))
        return; // a listener has removed it
    const Pair pair = m_pairOf.take(pSelectable);
    const qint64 nItemId = m_itemOf.take(pSelectable);
    SPairTable& table = m_pairs[pair];
    table.all.remove(table.all.lastIndexOf(pSelectable));
    QVector<ISelectable*>& ofItem = table.byItem[nItemId];
    ofItem.removeOne(pSelectable);
    if (ofItem.isEmpty())
        table.byItem.remove(nItemId);
    if (table.all.isEmpty())
        m_pairs.remove(pair);
    delete pSelectable;
}

void CSelectableManager::RemovePair(qint64 nViewId, qint64 nSimulationId)
{
    for (QVector<ISelectable*> all = GetSelectables(nViewId, nSimulationId); !all.isEmpty();)
        Remove(all.takeLast()); // ignores one that went along with another
    m_kept.remove({nViewId, nSimulationId});
}

void CSelectableManager::RemoveItem(qint64 nSimulationId, qint64 nItemId)
{
    QVector<ISelectable*> found;
    for (auto it = m_pairs.cbegin(); it != m_pairs.cend(); ++it)
        if (it.key().second == nSimulationId)
            found += it->byItem.value(nItemId);
    for (ISelectable* const pSelectable : std::as_const(found))
        Remove(pSelectable);
}

ISelectable* CSelectableManager::Find(qint64 nViewId, qint64 nSimulationId, qint64 nItemId,
                                      qint64 nPartId) const
{
    const auto table = m_pairs.constFind({nViewId, nSimulationId});
    if (table != m_pairs.cend())
        for (ISelectable* const pSelectable : table->byItem.value(nItemId))
            if (pSelectable->partId() == nPartId)
                return pSelectable;
    return nullptr;
}

QVector<ISelectable*> CSelectableManager::GetSelectables(qint64 nViewId, qint64 nSimulationId) const
{
    return m_pairs.value({nViewId, nSimulationId}).all;
}

void CSelectableManager::Arrange(qint64 nViewId, qint64 nSimulationId, const QVector<ISelectable*>& first)
{
    const auto table = m_pairs.find({nViewId, nSimulationId});
    if (table == m_pairs.end())
        return;
    const QVector<ISelectable*> arranged = Arranged(table->all, first);
    if (arranged == table->all)
        return;
    table->all = arranged;
    table->byItem.clear();
    QVector<IDrawable*> drawables;
    for (ISelectable* const pSelectable : arranged) {
        table->byItem[m_itemOf.value(pSelectable)].append(pSelectable);
        drawables += pSelectable->drawables();
    }
    CDrawableManager::Instance().Arrange(nViewId, nSimulationId, drawables);
}

QVector<ISelectable*> CSelectableManager::GetSelectables(qint64 nViewId) const
{
    QVector<ISelectable*> found;
    for (auto it = m_pairs.cbegin(); it != m_pairs.cend(); ++it)
        if (it.key().first == nViewId)
            found += it->all;
    return found;
}

QVector<ISelectable*> CSelectableManager::GetSelected(qint64 nViewId, qint64 nSimulationId) const
{
    QVector<ISelectable*> found = GetSelectables(nViewId, nSimulationId);
    found.erase(std::remove_if(found.begin(), found.end(), [](auto* p) { return !p->isSelected(); }),
                found.end());
    return found;
}

QVector<ISelectable*> CSelectableManager::GetHovered(qint64 nViewId) const
{
    QVector<ISelectable*> found = GetSelectables(nViewId);
    found.erase(std::remove_if(found.begin(), found.end(), [](auto* p) { return !p->isHover(); }),
                found.end());
    return found;
}

bool CSelectableManager::Exists(const ISelectable* pSelectable) const
{
    return m_pairOf.contains(pSelectable);
}

void CSelectableManager::NotifySelectionChanged(qint64 nViewId, qint64 nSimulationId)
{
    emit SignalSelectionChanged(nViewId, nSimulationId);
}

void CSelectableManager::NotifyMaskChanged(ISelectable* pSelectable)
{
    emit SignalSelectableMaskChanged(pSelectable);
}

void CSelectableManager::NotifyUpdated(ISelectable* pSelectable) { emit SignalUpdateSelectable(pSelectable); }

void CSelectableManager::NotifyDisplayOnNodes(ISelectable* pSelectable)
{
    emit SignalSelectableDisplayOnNodes(pSelectable);
}

void CSelectableManager::NotifyDoubleClicked(ISelectable* pSelectable)
{
    emit SignalSelectableDoubleClicked(pSelectable);
}

void CSelectableManager::NotifyDoubleClicked(const QVector<ISelectable*>& selectables)
{
    emit SignalSelectableDoubleClicked(selectables);
}
