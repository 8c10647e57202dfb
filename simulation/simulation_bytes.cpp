// ISimulationItems: the bytes of a case, which files and undo states are made of.
#include "frame/packs/bytestream.h"
#include "simulation/isimulationitems.h"
#include "simulation/item.h"

#include <limits>

namespace {
constexpr qint64 LEAST_ITEM_SIZE = 4 * 8 + 4; // four numbers and the length of the item's bytes
constexpr qint64 LAST_ID = std::numeric_limits<qint64>::max(); // none could follow it
} // namespace

QByteArray ISimulationItems::ToBytes() const
{
    CByteWriter writer;
    writer.Write(CDataPack::ToBytes());
    WriteItems(writer);
    return writer.Take();
}

void ISimulationItems::WriteItems(CByteWriter& writer) const
{
    writer.Write(qint64(m_items.size()));
    for (const CItem* const pItem : m_items) {
        for (const qint64 nValue : {pItem->GetId(), pItem->GetSubId(), pItem->GetType(), pItem->GetKind()})
            writer.Write(nValue);
        writer.Write(pItem->ToBytes());
    }
}

void ISimulationItems::StoreLastItemId()
{
    const bool bTold = m_items.isEmpty() ? m_nLastItemId == 0 : m_items.last()->GetId() == m_nLastItemId;
    Set(*this, SimulationKey::LAST_ITEM_ID, bTold ? 0 : m_nLastItemId);
}

bool ISimulationItems::FromBytes(const QByteArray& bytes, double dVersion)
{
    CByteReader reader(bytes);
    QByteArray pack;
    if (!reader.Read(pack))
        return false;
    if (m_nIdOffset == 0 && !m_bAppending && !CDataPack::FromBytes(pack, dVersion))
        return false;
    if (const qint64 nLast = Get(*this, SimulationKey::LAST_ITEM_ID); nLast < LAST_ID / 2) // or it is damaged
        m_nLastItemId = std::max(m_nLastItemId, nLast);
    return ReadItems(reader, dVersion);
}

bool ISimulationItems::ReadItems(CByteReader& reader, double dVersion)
{
    std::set<ItemAddress> stale;
    for (const CItem* const pItem : std::as_const(m_items))
        if (!m_bAppending && pItem->GetId() > m_nIdOffset)
            stale.insert({pItem->GetId(), pItem->GetSubId()});

    const qint64 nBase = m_items.size();
    qint64 nCount = 0;
    if (!reader.Read(nCount) || !reader.CheckCount(nCount, LEAST_ITEM_SIZE))
        return false;
    std::set<ItemAddress> read;
    for (qint64 n = 0; n < nCount; ++n)
        if (!ReadItem(reader, nBase + n, dVersion, read))
            return false;
    for (const ItemAddress& address : read)
        stale.erase(address);
    // What was read is the truth: no id is dropped from it on the way, or an undo would not be exact.
    qDeleteAll(TakeItems(stale));
    return true;
}

bool ISimulationItems::ReadItem(CByteReader& reader, qint64 nIndex, double dVersion,
                                std::set<ItemAddress>& read)
{
    qint64 nId = -1, nSubId = 0, nType = -1, nKind = -1;
    for (qint64* const pValue : {&nId, &nSubId, &nType, &nKind})
        reader.Read(*pValue);
    QByteArray blob;
    if (!reader.Read(blob) || __builtin_add_overflow(nId, m_nIdOffset, &nId) || nId == LAST_ID)
        return false;
    const ItemAddress address(nId, nSubId);
    read.insert(address);
    const CItem* const pFormer = GetItem(nId, nSubId);
    if (pFormer && m_nIdOffset == 0 && pFormer->ToBytes() == blob)
        return true;
    CItem* const pItem = ItemForStream(nType, nKind, nIndex, address);
    if (!pItem)
        return true; // of a kind that only a later version knows
    const bool bOk = pItem->FromBytes(blob, dVersion);
    if (bOk && m_nIdOffset != 0)
        pItem->ShiftIds(m_nIdOffset);
    // The blob repeats what stands ahead of it; should the two differ, the list must stay sorted.
    pItem->SetId(address.first);
    pItem->SetSubId(address.second);
    pItem->SetType(nType);
    pItem->SetKind(nKind);
    pItem->SetSimulationId(GetId());
    pItem->OnAttached();
    if (pItem == pFormer)
        pItem->RefreshSelectable(-1);
    return bOk;
}

/** The item that stands at the address if it is of that type and kind, otherwise a new one; null: unknown. */
CItem* ISimulationItems::ItemForStream(qint64 nType, qint64 nKind, qint64 nIndex, const ItemAddress& address)
{
    CItem* const pItem = GetItem(address.first, address.second);
    if (pItem && pItem->GetType() == nType && pItem->GetKind() == nKind)
        return pItem;
    if (pItem)
        qDeleteAll(TakeItems({address}));
    CreateItem(nType, nKind, false, nIndex, address.first, address.second);
    return GetItem(address.first, address.second);
}
