#pragma once

#include "frame/memory/imemoryitem.h"

#include <QMetaType>
#include <QObject>

#include <condition_variable>
#include <mutex>
#include <set>
#include <unordered_map>
#include <vector>

class IMemoryCache;

Q_DECLARE_METATYPE(IMemoryItem*)

/**
 * Knows what of the large data is in memory, what is in use, and what may be dropped: among the items out of
 * use the one with the oldest access goes first. All operations may be called from any thread.
 *
 * Locks, in the order in which they are taken:
 *  1. the turn (m_turnMutex, recursive): held by the one thread that frees memory and tries a load again;
 *  2. the items' own mutexes, those of an item before those of the items that its Load asks for;
 *  3. the state (m_mutex): the last to be taken. No Load, Unload, EmptyCache, signal or log line runs under
 * it, only the getters and setters of items, which therefore take no lock and call nobody. A thread inside an
 * item's Load holds that item's mutex, perhaps the very one that the owner of the turn waits for. So it takes
 * the turn when it is free and goes on without it when it isn't; only a thread outside every Load waits for
 * its turn.
 *
 * What an item is being used for shows in its record: while it is loaded or in use it isn't chosen for
 * eviction, and whoever wants to use, load or unregister an item whose Unload has begun waits for the end of
 * that Unload. Hence the duties of an item and its callers:
 *  - Unload takes the item's own mutex at most, and doesn't acquire, load or unregister items;
 *  - Acquire, GetItem, LoadItem and Unregister are called without the own mutex of the item in question;
 *  - a Load may ask for other items, but not in a circle, and not from helper threads that it waits for.
 */
class CMemoryManager : public QObject
{
    Q_OBJECT

public:
    /** Made at first use, never destroyed: items may end after main. */
    static CMemoryManager& Instance();

    /** Bytes above which a load first evicts; 0: no limit. The preference "Data.MemoryLimitByte" sets it. */
    void SetLimit(qint64 nBytes);
    qint64 GetLimit() const;
    /** Bytes of all items that were loaded here and are still in memory, each item counted once. */
    qint64 GetTotalBytes() const;

    /** Gives the item the next id. It isn't owned and must be unregistered before it ends. */
    void Register(IMemoryItem* pItem);
    /**
     * Forgets the item and sets its id to -1, after waiting for loads and an unload of it in other threads;
     * from the start of the call it is neither found nor evicted. Without effect if it isn't registered.
     */
    void Unregister(IMemoryItem* pItem);
    /**
     * Unregisters the item unless somebody uses or loads it: a true result means that nobody can get hold of
     * it any more, so an owner that shares its items by id can delete it.
     */
    bool UnregisterIfIdle(IMemoryItem* pItem);

    /** One user more: the item stays in memory, if it is there, until as many calls of Release. */
    void Acquire(qint64 nId);
    void Release(qint64 nId);
    /** Null for an unknown id. With bAcquire as Acquire, with nothing in between. */
    IMemoryItem* GetItem(qint64 nId, bool bAcquire);
    /** 0 for an unknown id. */
    qint64 GetUseCount(qint64 nId) const;
    /** True if the item holds data that no thread is about to change. Lasts only while the item is in use. */
    bool IsInMemory(qint64 nId) const;

    /**
     * Loads the item on this thread if it isn't in memory, evicting others first if the limit is exceeded,
     * and as long as memory is short. Gives a LoadStatus_e:
     *  - LoadOk, also if there is nothing to load (0 bytes needed);
     *  - LoadNoMemory if nothing was left that could be freed (what the load itself brings back doesn't
     * count); a later call tries again;
     *  - LoadFailed or LoadBadContent, which are kept in the item: it isn't tried again. A null item:
     * LoadFailed. An item whose Load gives LoadNever (it has found out that it is another size, say) stays as
     * it was and is tried at the next call; this one gives LoadFailed.
     */
    int LoadItem(IMemoryItem* pItem);
    /** Counts the item's bytes anew, for one that has changed them on its own. */
    void UpdateBytes(qint64 nId);

    /**
     * Unloads items out of use, oldest access first (equally old ones by id), until nBytes are free or none
     * is left; at least one if there is one.
     *
     * @param bLock  waits for the turn; false: the caller has it
     * @return true if anything was freed
     */
    bool FreeBytes(qint64 nBytes, bool bLock);
    /** Unloads all items out of use and empties the caches. Items in use are listed on the debug output. */
    void FreeAll();

    /** The cache isn't owned. Add and remove on the thread that calls FreeAll. */
    void AddCache(IMemoryCache* pCache);
    void RemoveCache(IMemoryCache* pCache);

signals:
    /** The item was loaded for the first time, or that failed (LoadStatus_e). Comes from the loading thread.
     */
    void MemoryItemLoaded(IMemoryItem* pMemoryItem, qlonglong eStatus);

private:
    struct SRecord
    {
        IMemoryItem* pItem = nullptr;
        qint64 nCounted = 0;     // its share of m_nTotalBytes
        int nLoads = 0;          // calls of LoadItem in progress
        bool bUnloading = false; // its Unload runs
        bool bLeaving = false;   // Unregister waits for the two above
    };
    struct SCandidate
    {
        qint64 nLastAccess;
        qint64 nId;
    };
    class CLoadScope;
    using StateLock = std::unique_lock<std::mutex>;
    using TurnLock = std::unique_lock<std::recursive_mutex>;

    CMemoryManager();

    // The following expect m_mutex to be held.
    SRecord* Find(qint64 nId);
    const SRecord* Find(qint64 nId) const;
    SRecord* FindUsable(qint64 nId, StateLock& lock);
    void Touch(SRecord& record);
    void Count(SRecord& record, qint64 nBytes);
    void Erase(SRecord& record);
    static bool IsYounger(const SCandidate& a, const SCandidate& b);
    std::vector<SCandidate> CandidateHeap() const;
    qint64 UnloadIfIdle(qint64 nId, StateLock& lock);
    std::vector<qint64> SortedIds() const;

    TurnLock TakeTurn();
    void KeepLimit();
    bool EvictOldest(qint64 nBytes, std::set<qint64>& gone);
    int LoadOnceMore(CLoadScope& scope);
    bool Conclude(IMemoryItem* pItem, int nStatus);

    // Standard mutexes, not Qt's: the thread sanitizer can't look into Qt's library.
    std::recursive_mutex m_turnMutex;
    mutable std::mutex m_mutex;          // guards all below, and use counts and stamps of the items
    std::condition_variable m_condition; // a load or an unload has ended
    std::unordered_map<qint64, SRecord> m_records;
    std::vector<IMemoryCache*> m_caches;
    qint64 m_nNextId = 0;
    qint64 m_nNextAccess = 0;
    qint64 m_nTotalBytes = 0;
    qint64 m_nLimit = 0;
};
