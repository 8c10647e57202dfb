// ISimulationItems: items of equal grid content that share their settings.
#include "simulation/isimulationitems.h"
#include "simulation/item.h"

QVector<qint64> ISimulationItems::GetItemsByLinkKey(qint64 nType, const QByteArray& key) const
{
    QVector<qint64> ids;
    for (const CItem* const pItem : GetItems(nType))
        if (pItem->GetLinkKey() == key)
            ids.append(pItem->GetId());
    return ids;
}

QVector<qint64> ISimulationItems::GetItemsBySimilarKey(qint64 nType, const QByteArray& key,
                                                       bool bLinkedOnly) const
{
    QVector<qint64> ids;
    for (const CItem* const pItem : GetItems(nType))
        if ((!bLinkedOnly || pItem->IsLinked()) && pItem->GetSimilarKey() == key)
            ids.append(pItem->GetId());
    return ids;
}

QVector<qint64> ISimulationItems::GetLinkedItems(qint64 nId) const
{
    const CItem* const pItem = GetItem(nId);
    if (!pItem || pItem->GetLinkKey().isEmpty())
        return {nId};
    return GetItemsByLinkKey(pItem->GetType(), pItem->GetLinkKey());
}

QVector<qint64> ISimulationItems::GetSimilarItems(qint64 nId, bool bLinkedOnly) const
{
    const CItem* const pItem = GetItem(nId);
    if (!pItem || pItem->GetSimilarKey().isEmpty())
        return {nId};
    return GetItemsBySimilarKey(pItem->GetType(), pItem->GetSimilarKey(), bLinkedOnly);
}

void ISimulationItems::MakeLinks(const QVector<qint64>& ids, bool bUnify)
{
    const QVector<CItem*> items = GetItemsFromSelection(ids);
    for (CItem* const pItem : items)
        pItem->SetLinked(true);
    if (bUnify && !items.isEmpty())
        CopyLinkedData(items.first()->GetId());
}

void ISimulationItems::BreakLinks(const QVector<qint64>& ids)
{
    for (CItem* const pItem : GetItemsFromSelection(ids))
        pItem->SetLinked(false);
}

void ISimulationItems::UnifyLinks()
{
    QVector<qint64> done;
    for (const CItem* const pItem : GetItems()) {
        if (!pItem->IsLinked() || done.contains(pItem->GetId()))
            continue;
        CopyLinkedData(pItem->GetId());
        done += GetLinkedItems(pItem->GetId());
    }
}

void ISimulationItems::CopyLinkedData(qint64 nId)
{
    const CItem* const pSource = GetItem(nId);
    if (!pSource || !pSource->IsLinked())
        return;
    for (CItem* const pItem : GetItemsFromSelection(GetLinkedItems(nId)))
        if (pItem != pSource && pItem->IsLinked())
            pItem->CopyDataFrom(*pSource);
}
