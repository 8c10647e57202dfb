#pragma once

#include "data/managers/levelregistry.h"
#include "data/values/idisposable.h"
#include "frame/memory/memorymanager.h"
#include "frame/novalue.h"

#include <QHash>

#include <atomic>
#include <memory>
#include <mutex>

/**
 * What stands for which item at which time, and who holds it: an entry that makes way stays until the last
 * one has given it back. One lock guards the table, the last to be taken; nothing is prepared or deleted
 * under it. Any thread.
 *
 * An Entry has SetId(nId), Prepare(), GetMemoryId(), and for data that couldn't be read
 * HasFileChangedSinceFailure() and StartAnew().
 */
template <class Entry> class CLeaseTable
{
public:
    /** An earlier entry at the same place and time makes way. @return the id of this one */
    qint64 Add(const CLevelRegistry::SPlace& place, qint64 nSubId, double dTime,
               std::unique_ptr<Entry> pEntry)
    {
        const auto pSlot = std::make_shared<SSlot>(std::move(pEntry));
        qint64 nId = NO_ID, nReplaced = NO_ID;
        {
            const std::lock_guard lock(m_mutex);
            nId = m_nNextId++;
            pSlot->pEntry->SetId(nId);
            m_slots.insert(nId, pSlot);
            nReplaced = m_registry.Add(place, {nId, nSubId, dTime});
        }
        if (nReplaced != NO_ID)
            Drop({nReplaced});
        return nId;
    }

    /** What ask(registry) gives, under the lock. */
    template <class Ask> auto Look(const Ask& ask) const
    {
        const std::lock_guard lock(m_mutex);
        return ask(m_registry);
    }
    /** Calls visit(entry), under the lock, for the entries with these ids. */
    template <class Visit> void ForEach(const QVector<qint64>& ids, const Visit& visit) const
    {
        const std::lock_guard lock(m_mutex);
        for (const qint64 nId : ids)
            if (const Slot pSlot = m_slots.value(nId))
                visit(*pSlot->pEntry);
    }

    /** The entry, ready and its data kept in memory until Release; null for an unknown id. */
    Entry* Hold(qint64 nId)
    {
        Slot pSlot;
        {
            const std::lock_guard lock(m_mutex);
            pSlot = m_slots.value(nId);
            if (!pSlot)
                return nullptr;
            ++pSlot->nHolders;
        }
        Entry& entry = *pSlot->pEntry;
        {
            const std::lock_guard prepare(pSlot->prepareMutex);
            if (entry.HasFileChangedSinceFailure() && IsAlone(*pSlot)) {
                entry.StartAnew();
                ++m_nRestarts;
            }
            entry.Prepare();
        }
        CMemoryManager::Instance().Acquire(entry.GetMemoryId());
        return &entry;
    }
    /** @param nMemoryId  of the data that were held */
    void Release(qint64 nId, qint64 nMemoryId)
    {
        CMemoryManager::Instance().Release(nMemoryId);
        Slot pGone; // deleted outside the lock
        const std::lock_guard lock(m_mutex);
        const auto slot = m_slots.find(nId);
        if (slot == m_slots.end() || (*slot)->nHolders == 0)
            return;
        --(*slot)->nHolders;
        if ((*slot)->nHolders > 0 || (*slot)->bRegistered)
            return;
        pGone = *slot;
        m_slots.erase(slot);
    }

    /** What somebody holds goes at its last Release. */
    void RemoveItem(qint64 nSimulationId, qint64 nItemId)
    {
        QVector<qint64> ids;
        {
            const std::lock_guard lock(m_mutex);
            ids = m_registry.IdsOf(nSimulationId, nItemId);
            m_registry.RemoveItem(nSimulationId, nItemId);
        }
        Drop(ids);
    }
    void RemoveSimulation(qint64 nSimulationId)
    {
        for (const qint64 nItemId :
             Look([&](const CLevelRegistry& registry) { return registry.ItemsOf(nSimulationId); }))
            RemoveItem(nSimulationId, nItemId);
    }

    qint64 Count() const ///< registered or still held
    {
        const std::lock_guard lock(m_mutex);
        return m_slots.size();
    }
    /** How often data that couldn't be read were tried anew: what was derived of data before needn't hold. */
    qint64 CountRestarts() const { return m_nRestarts; }

private:
    struct SSlot
    {
        explicit SSlot(std::unique_ptr<Entry> p) : pEntry(std::move(p)) {}
        const std::unique_ptr<Entry> pEntry;
        std::mutex prepareMutex; // one thread prepares
        qint64 nHolders = 0;     // guarded by the table's lock, as the next
        bool bRegistered = true;
    };
    using Slot = std::shared_ptr<SSlot>;

    /**
     * Nobody but the caller, who holds the entry and its prepareMutex, knows what is in it: whoever wants it
     * as well waits for that mutex.
     */
    bool IsAlone(const SSlot& slot) const
    {
        const std::lock_guard lock(m_mutex);
        return slot.nHolders == 1;
    }
    /** No longer registered: what nobody holds goes now. */
    void Drop(const QVector<qint64>& ids)
    {
        std::vector<Slot> gone; // deleted outside the lock
        const std::lock_guard lock(m_mutex);
        for (const qint64 nId : ids) {
            const auto slot = m_slots.find(nId);
            if (slot == m_slots.end())
                continue;
            (*slot)->bRegistered = false;
            if ((*slot)->nHolders > 0)
                continue;
            gone.push_back(*slot);
            m_slots.erase(slot);
        }
    }

    mutable std::mutex m_mutex; // guards the next three
    CLevelRegistry m_registry;
    QHash<qint64, Slot> m_slots; // by id
    qint64 m_nNextId = 0;
    std::atomic<qint64> m_nRestarts = 0;
};

/**
 * One object for what was found at a place: each match held, between two levels their blend, of several
 * places a union. Null for nothing.
 *
 * @param hold   hold(id) gives an object that is kept until its Dispose, or null
 */
template <class Object, class Blend, class Union, class Hold>
CLease<Object> ComposeMatches(const QVector<STimeMatch>& matches, const Hold& hold)
{
    QVector<Object*> parts;
    for (const STimeMatch& match : matches) {
        Object* const pLow = hold(match.nLowId);
        Object* const pHigh = match.nHighId == match.nLowId ? nullptr : hold(match.nHighId);
        if (pLow && pHigh)
            parts.append(new Blend(pLow, pHigh, match.dWeight));
        else if (pLow)
            parts.append(pLow);
        else if (pHigh)
            pHigh->Dispose();
    }
    return CLease<Object>(parts.size() > 1 ? new Union(parts) : parts.value(0));
}
