#pragma once

#include "frame/memory/memorymanager.h"
#include "frame/novalue.h"

#include <utility>

/**
 * Keeps a memory item in use: what it holds can't be evicted while the pin lives, so a kernel may read its
 * arrays. One thread a pin; several pins of one item are fine.
 *
 *     CMemoryPin pin(grid.GetMemoryId());
 *     if (pin.Load() != LoadOk)
 *         return {};
 *     SumUp(grid.Coordinates());
 */
class CMemoryPin
{
public:
    /** Pins nothing. */
    CMemoryPin() = default;
    /** Pins the item, whether it is in memory or not; nothing if the manager doesn't know the id. */
    explicit CMemoryPin(qint64 nId) : m_pItem(CMemoryManager::Instance().GetItem(nId, true)), m_nId(nId) {}
    ~CMemoryPin() { Reset(); }

    CMemoryPin(CMemoryPin&& other) noexcept
        : m_pItem(std::exchange(other.m_pItem, nullptr)), m_nId(std::exchange(other.m_nId, NO_ID))
    {}
    CMemoryPin& operator=(CMemoryPin&& other) noexcept
    {
        CMemoryPin former(std::move(other));
        std::swap(m_pItem, former.m_pItem);
        std::swap(m_nId, former.m_nId);
        return *this;
    }
    CMemoryPin(const CMemoryPin&) = delete;
    CMemoryPin& operator=(const CMemoryPin&) = delete;

    /**
     * Loads the item if it isn't in memory. After LoadOk its data are there until the pin ends (if there are
     * any: an item may need 0 bytes). Gives the LoadStatus_e of CMemoryManager::LoadItem; LoadFailed for a
     * pin of nothing.
     */
    int Load() const
    {
        CMemoryManager& manager = CMemoryManager::Instance();
        return m_pItem && manager.IsInMemory(m_nId) ? int(LoadOk) : manager.LoadItem(m_pItem);
    }

    /** Null if nothing is pinned. The item's owner must not end it while it is pinned. */
    IMemoryItem* Item() const { return m_pItem; }
    explicit operator bool() const { return m_pItem != nullptr; }

    /** Gives the item back early. */
    void Reset()
    {
        if (m_pItem)
            CMemoryManager::Instance().Release(m_nId);
        m_pItem = nullptr;
    }

private:
    IMemoryItem* m_pItem = nullptr;
    qint64 m_nId = NO_ID;
};
