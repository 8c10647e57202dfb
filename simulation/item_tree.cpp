// CItem: parents, children and dependants, all by id.
#include "frame/userprompt.h"
#include "simulation/isimulationitems.h"
#include "simulation/item.h"
#include "simulation/itemkeys.h"

namespace {

void Append(CDataPack& pack, const SKey<QVector<qint64>>& key, qint64 nId)
{
    QVector<qint64> ids = Get(pack, key);
    if (!ids.contains(nId))
        Set(pack, key, ids << nId);
}

/** True if one of the ids was there. */
bool Remove(CDataPack& pack, const SKey<QVector<qint64>>& key, const QSet<qint64>& gone)
{
    QVector<qint64> ids = Get(pack, key);
    const auto end = std::remove_if(ids.begin(), ids.end(), [&](qint64 nId) { return gone.contains(nId); });
    if (end == ids.end())
        return false;
    ids.erase(end, ids.end());
    Set(pack, key, ids);
    return true;
}

/** An id out of a damaged file that can't be shifted stays: it names no item anyway. */
qint64 Shifted(qint64 nId, qint64 nDelta)
{
    qint64 nShifted = nId;
    return __builtin_add_overflow(nId, nDelta, &nShifted) ? nId : nShifted;
}

/** True if one of the ids has become another. */
bool Map(CDataPack& pack, const SKey<QVector<qint64>>& key, const std::function<qint64(qint64)>& map)
{
    const QVector<qint64> former = Get(pack, key);
    QVector<qint64> ids;
    for (const qint64 nId : former)
        if (const qint64 nMapped = map(nId); nMapped != -1)
            ids.append(nMapped);
    if (ids == former)
        return false;
    Set(pack, key, ids);
    return true;
}

} // namespace

CItem* CItem::FindItem(qint64 nId) const { return m_pSimulation ? m_pSimulation->GetItem(nId) : nullptr; }

bool CItem::TellIfOutside() const
{
    if (!m_pSimulation)
        UserPrompt::Tell(PromptCritical, "Item Error", "Item is not inside any simulation");
    return !m_pSimulation;
}

qint64 CItem::GetParentId() const { return Get(*this, ItemKey::PARENT_ID); }

void CItem::SetParentId(qint64 nParentId, bool bUpdateParent)
{
    const qint64 nOldId = GetParentId();
    if (TellIfOutside() || nParentId == nOldId)
        return;
    CItem* const pOld = FindItem(nOldId);
    if (bUpdateParent && pOld)
        pOld->RemoveChild(m_nId);
    Set(*this, ItemKey::PARENT_ID, nParentId);
    if (CItem* const pNew = FindItem(nParentId); bUpdateParent && pNew)
        pNew->AddChild(m_nId, true);
    OnParentChanged(pOld);
}

void CItem::RemoveFromParent() { SetParentId(-1, true); }

QVector<qint64> CItem::GetChildIds(qint64 nType, bool bRecursive) const
{
    QVector<qint64> ids;
    if (bRecursive) {
        QSet<qint64> visited;
        CollectIds(nType, ids, visited);
        return ids;
    }
    for (const qint64 nId : Get(*this, ItemKey::CHILD_IDS)) {
        const CItem* const pChild = FindItem(nId);
        if (nType == -1 || (pChild && pChild->GetType() == nType))
            ids.append(nId);
    }
    return ids;
}

// A damaged file may name a child in two places or make a ring: each item counts once.
void CItem::CollectIds(qint64 nType, QVector<qint64>& ids, QSet<qint64>& visited) const
{
    if (visited.contains(m_nId))
        return;
    visited.insert(m_nId);
    if (nType == -1 || m_nType == nType)
        ids.append(m_nId);
    for (const qint64 nId : Get(*this, ItemKey::CHILD_IDS))
        if (const CItem* const pChild = FindItem(nId))
            pChild->CollectIds(nType, ids, visited);
}

void CItem::AddChild(qint64 nChildId, bool bSilent)
{
    if (TellIfOutside())
        return;
    Append(*this, ItemKey::CHILD_IDS, nChildId);
    ClearKeys();
    if (!bSilent)
        RefreshSelectable(-1);
}

void CItem::RemoveChild(qint64 nChildId)
{
    if (TellIfOutside() || !Remove(*this, ItemKey::CHILD_IDS, {nChildId}))
        return;
    ClearKeys();
    RefreshSelectable(-1);
}

void CItem::ClearChildren(bool bSilent)
{
    Set(*this, ItemKey::CHILD_IDS, {});
    ClearKeys();
    if (!bSilent)
        RefreshSelectable(-1);
}

QVector<qint64> CItem::GetDependedItems() const { return Get(*this, ItemKey::DEPENDED_IDS); }
void CItem::AddDependedItem(qint64 nId) { Append(*this, ItemKey::DEPENDED_IDS, nId); }
void CItem::RemoveDependedItem(qint64 nId) { Remove(*this, ItemKey::DEPENDED_IDS, {nId}); }

void CItem::DeleteDependents(qint64 nType)
{
    for (const qint64 nId : GetDependedItems()) {
        const CItem* const pItem = FindItem(nId);
        if (pItem && (nType == -1 || pItem->GetType() == nType))
            m_pSimulation->DeleteItem(nId);
    }
}

void CItem::MapIds(const std::function<qint64(qint64)>& map)
{
    if (Map(*this, ItemKey::CHILD_IDS, map))
        ClearKeys();
    Map(*this, ItemKey::DEPENDED_IDS, map);
    const qint64 nParentId = GetParentId(), nMapped = nParentId == -1 ? -1 : map(nParentId);
    if (nMapped != nParentId)
        Set(*this, ItemKey::PARENT_ID, nMapped);
}

void CItem::ForgetItems(const QSet<qint64>& ids)
{
    MapIds([&](qint64 nId) { return ids.contains(nId) ? -1 : nId; });
}

void CItem::ShiftIds(qint64 nDelta)
{
    m_nId = Shifted(m_nId, nDelta);
    MapIds([=](qint64 nId) { return Shifted(nId, nDelta); });
}
