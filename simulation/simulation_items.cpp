// ISimulationItems: the sorted list, making, copying and deleting.
#include "data/grids/igrid.h"
#include "frame/widgetmanager.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulationitems.h"
#include "simulation/item.h"
#include "simulation/itemkeys.h"
#include "simulation/simulationmanager.h"

#include <limits>

namespace {

using Address = std::pair<qint64, qint64>;

Address AddressOf(const CItem* pItem) { return {pItem->GetId(), pItem->GetSubId()}; }

bool IsBefore(const CItem* pItem, const Address& address) { return AddressOf(pItem) < address; }

} // namespace

ISimulationItems::~ISimulationItems()
{
    // An item that goes may look for others of its id: it must find none of those already gone.
    const QVector<CItem*> items = std::exchange(m_items, {});
    qDeleteAll(items);
}

void ISimulationItems::SetId(qint64 nId)
{
    ISimulationIdentity::SetId(nId);
    for (CItem* const pItem : std::as_const(m_items))
        pItem->SetSimulationId(nId);
}

qint64 ISimulationItems::GetPointCount() const
{
    qint64 nSum = 0;
    for (const CItem* const pItem : m_items)
        nSum += pItem->GetPointCount();
    return nSum;
}

qint64 ISimulationItems::GetCellCount() const
{
    qint64 nSum = 0;
    for (const CItem* const pItem : m_items)
        nSum += pItem->GetCellCount();
    return nSum;
}

qint64 ISimulationItems::FindItemIndex(qint64 nId, qint64 nSubId) const
{
    const qint64 nLowest = nSubId == -1 ? std::numeric_limits<qint64>::min() : nSubId;
    const auto place = std::lower_bound(m_items.cbegin(), m_items.cend(), Address(nId, nLowest), IsBefore);
    if (place == m_items.cend() || (*place)->GetId() != nId)
        return -1;
    if (nSubId != -1 && (*place)->GetSubId() != nSubId)
        return -1;
    return place - m_items.cbegin();
}

CItem* ISimulationItems::GetItem(qint64 nId, qint64 nSubId) const
{
    const qint64 nIndex = FindItemIndex(nId, nSubId);
    return nIndex < 0 ? nullptr : m_items[nIndex];
}

QVector<CItem*> ISimulationItems::GetItems(qint64 nType) const
{
    if (nType == -1)
        return m_items;
    QVector<CItem*> found;
    for (CItem* const pItem : m_items)
        if (pItem->GetType() == nType)
            found.append(pItem);
    return found;
}

QVector<CItem*> ISimulationItems::GetBlocks() const
{
    QVector<CItem*> blocks = GetItems();
    blocks.erase(std::remove_if(blocks.begin(), blocks.end(),
                                [](const CItem* pItem) {
                                    const qint64 nType = pItem->GetGridType();
                                    return nType != GridKindStructured && nType != GridKindUnstructured;
                                }),
                 blocks.end());
    return blocks;
}

QVector<qint64> ISimulationItems::GetItemIds(qint64 nType) const
{
    QVector<qint64> ids;
    for (const CItem* const pItem : GetItems(nType))
        ids.append(pItem->GetId());
    return ids;
}

QVector<QPoint> ISimulationItems::GetItemKeys(qint64 nType) const
{
    QVector<QPoint> keys;
    for (const CItem* const pItem : GetItems(nType))
        keys.append(QPoint(pItem->GetSubId(), pItem->GetId()));
    return keys;
}

QVector<CItem*> ISimulationItems::GetItemsFromSelection(const QVector<qint64>& ids) const
{
    QVector<CItem*> found;
    for (const qint64 nId : ids)
        if (CItem* const pItem = GetItem(nId))
            found.append(pItem);
    return found;
}

qint64 ISimulationItems::FindItemByData(const QByteArray& identity) const
{
    for (const CItem* const pItem : m_items)
        if (pItem->MatchesIdentity(identity, m_nIdOffset))
            return pItem->GetId();
    return -1;
}

CItem* ISimulationItems::InsertItem(CItem* pItem)
{
    pItem->SetSimulationId(GetId());
    pItem->SetSimulation(this);
    m_nLastItemId = std::max(m_nLastItemId, pItem->GetId());
    const Address address = AddressOf(pItem);
    if (m_items.isEmpty() || AddressOf(m_items.last()) < address)
        m_items.append(pItem); // a case that is read comes in order
    else
        m_items.insert(std::lower_bound(m_items.begin(), m_items.end(), address, IsBefore), pItem);
    return pItem;
}

qint64 ISimulationItems::DuplicateItem(qint64 nId, bool bKeepParent)
{
    const CItem* const pOriginal = GetItem(nId);
    if (!pOriginal)
        return -1;
    CItem* const pCopy = CreateItem(pOriginal->GetType(), pOriginal->GetKind(), true, GetItemCount(), -1, 0);
    if (!pCopy)
        return -1;
    const qint64 nParentId = pOriginal->GetParentId();
    pCopy->Assign(*pOriginal);
    for (qint64 n = 0; n < pOriginal->GetNameCount() || !pOriginal->GetName(n).isEmpty(); ++n)
        pCopy->SetName(pOriginal->GetName(n), n);
    pCopy->SetNameCount(pOriginal->GetNameCount());
    pCopy->SetDisplayFlag(pOriginal->GetDisplayFlag());
    pCopy->SetSize(pOriginal->GetSize());
    pCopy->SetSimulationClosing(false);
    pCopy->ClearChildren(true);
    Set(*pCopy, ItemKey::DEPENDED_IDS, {});
    Set(*pCopy, ItemKey::PARENT_ID, -1);
    if (bKeepParent)
        pCopy->SetParentId(nParentId, true);
    for (const qint64 nChildId : pOriginal->GetChildIds())
        if (CItem* const pChild = GetItem(DuplicateItem(nChildId, false)))
            pChild->SetParentId(pCopy->GetId(), true);
    return pCopy->GetId();
}

void ISimulationItems::DeleteItems(qint64 nType)
{
    std::set<ItemAddress> keys;
    for (const CItem* const pItem : GetItems(nType))
        keys.insert(AddressOf(pItem));
    if (keys.empty())
        return;
    RemoveItems(keys);
    RefreshViews();
}

void ISimulationItems::DeleteItem(qint64 nId, qint64 nSubId)
{
    const CItem* const pItem = GetItem(nId, nSubId);
    if (!pItem)
        return;
    RemoveItems({AddressOf(pItem)});
    if (!GetItem(nId))
        RefreshViews();
}

/** Out of the list, for the caller to delete. */
QVector<CItem*> ISimulationItems::TakeItems(const std::set<ItemAddress>& keys)
{
    const auto isKept = [&](const CItem* pItem) { return keys.count(AddressOf(pItem)) == 0; };
    const auto firstGone = std::stable_partition(m_items.begin(), m_items.end(), isKept);
    const QVector<CItem*> gone(firstGone, m_items.end());
    m_items.erase(firstGone, m_items.end());
    return gone;
}

void ISimulationItems::RemoveItems(const std::set<ItemAddress>& keys)
{
    const QVector<CItem*> gone = TakeItems(keys);
    QSet<qint64> freeIds;
    QVector<qint64> dependantIds;
    for (const CItem* const pGone : gone) {
        if (!GetItem(pGone->GetId()))
            freeIds.insert(pGone->GetId());
        dependantIds += pGone->GetDependedItems();
    }
    qDeleteAll(gone);
    for (CItem* const pItem : std::as_const(m_items))
        pItem->ForgetItems(freeIds);
    for (CItem* const pItem : GetItemsFromSelection(dependantIds))
        pItem->OnDependedDeleted();
}

QVector<qint64> ISimulationItems::GetViewIds() const
{
    return CSimulationManager::Instance().GetViewIds(GetId());
}

void ISimulationItems::RefreshViews()
{
    for (const qint64 nViewId : GetViewIds())
        CWidgetManager::Instance().RefreshDocks(nViewId);
}

void ISimulationItems::UpdateChildSelectables(qint64 nId, qint64 nViewId)
{
    CItem* const pItem = GetItem(nId);
    if (!pItem)
        return;
    for (CItem* const pChild : GetItemsFromSelection(pItem->GetChildIds())) {
        pChild->DeleteSelectable(nViewId);
        pChild->CreateSelectable(nViewId);
    }
}
