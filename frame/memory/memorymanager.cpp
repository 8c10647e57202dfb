#include "frame/memory/memorymanager.h"

#include "frame/memory/imemorycache.h"
#include "frame/messagesink.h"
#include "frame/novalue.h"

#include <QDebug>

#include <algorithm>
#include <new>

namespace {

/** When the next stamp would be this, all items become equally old and counting starts again. */
constexpr qint64 STAMP_LIMIT = 10000000;

void Log(const QString& sText) { CMessageSink::Instance().Log("Memory Manager - " + sText); }

bool IsFinal(int nStatus) { return nStatus == LoadFailed || nStatus == LoadBadContent; }

bool IsIdle(const IMemoryItem& item) { return item.GetUseCount() == 0; }

} // namespace

/** One call of LoadItem: keeps its item from being evicted, and knows which calls this thread is in. */
class CMemoryManager::CLoadScope
{
public:
    CLoadScope(CMemoryManager& manager, IMemoryItem* pItem)
        : m_manager(manager), m_pItem(pItem), m_nId(pItem->GetMemoryId()), m_pOuter(s_pInnermost)
    {
        StateLock lock(m_manager.m_mutex);
        if (SRecord* const pRecord = m_manager.FindUsable(m_nId, lock))
            ++pRecord->nLoads;
        s_pInnermost = this;
    }

    ~CLoadScope()
    {
        s_pInnermost = m_pOuter;
        const std::lock_guard lock(m_manager.m_mutex);
        if (SRecord* const pRecord = m_manager.Find(m_nId))
            --pRecord->nLoads;
        m_manager.m_condition.notify_all();
    }

    IMemoryItem* Item() const { return m_pItem; }

    int CallLoad()
    {
        m_bInLoad = true;
        int nStatus = LoadNoMemory;
        try {
            nStatus = m_pItem->Load();
        } catch (const std::bad_alloc&) {
            // An allocation that the item didn't expect to fail is short of memory all the same.
        }
        m_bInLoad = false;
        return nStatus;
    }

    static bool IsThreadInLoad()
    {
        for (const CLoadScope* pScope = s_pInnermost; pScope; pScope = pScope->m_pOuter)
            if (pScope->m_bInLoad)
                return true;
        return false;
    }

    static int CountOnThread(const IMemoryItem* pItem)
    {
        int nCount = 0;
        for (const CLoadScope* pScope = s_pInnermost; pScope; pScope = pScope->m_pOuter)
            nCount += pScope->m_pItem == pItem;
        return nCount;
    }

private:
    CMemoryManager& m_manager;
    IMemoryItem* const m_pItem;
    const qint64 m_nId; // kept, since the item may end in a slot of MemoryItemLoaded
    CLoadScope* const m_pOuter;
    bool m_bInLoad = false;

    static thread_local CLoadScope* s_pInnermost;
};

thread_local CMemoryManager::CLoadScope* CMemoryManager::CLoadScope::s_pInnermost = nullptr;

CMemoryManager::CMemoryManager() { qRegisterMetaType<IMemoryItem*>("IMemoryItem*"); }

CMemoryManager& CMemoryManager::Instance()
{
    static CMemoryManager* const pManager = new CMemoryManager;
    return *pManager;
}

void CMemoryManager::SetLimit(qint64 nBytes)
{
    const std::lock_guard lock(m_mutex);
    m_nLimit = nBytes;
}

qint64 CMemoryManager::GetLimit() const
{
    const std::lock_guard lock(m_mutex);
    return m_nLimit;
}

qint64 CMemoryManager::GetTotalBytes() const
{
    const std::lock_guard lock(m_mutex);
    return m_nTotalBytes;
}

void CMemoryManager::Register(IMemoryItem* pItem)
{
    const std::lock_guard lock(m_mutex);
    Q_ASSERT(!Find(pItem->GetMemoryId()));
    m_records[m_nNextId].pItem = pItem;
    pItem->SetMemoryId(m_nNextId);
    ++m_nNextId;
}

void CMemoryManager::Unregister(IMemoryItem* pItem)
{
    StateLock lock(m_mutex);
    SRecord* const pRecord = Find(pItem->GetMemoryId());
    if (!pRecord)
        return;
    pRecord->bLeaving = true;
    // A slot of MemoryItemLoaded may delete the item: the thread doesn't wait for itself.
    const int nOwnLoads = CLoadScope::CountOnThread(pItem);
    m_condition.wait(lock, [&] { return !pRecord->bUnloading && pRecord->nLoads == nOwnLoads; });
    Erase(*pRecord);
}

bool CMemoryManager::UnregisterIfIdle(IMemoryItem* pItem)
{
    StateLock lock(m_mutex);
    SRecord* const pRecord = FindUsable(pItem->GetMemoryId(), lock);
    if (!pRecord || !IsIdle(*pItem) || pRecord->nLoads != 0)
        return false;
    Erase(*pRecord);
    return true;
}

void CMemoryManager::Acquire(qint64 nId)
{
    StateLock lock(m_mutex);
    if (SRecord* const pRecord = FindUsable(nId, lock))
        Touch(*pRecord);
}

void CMemoryManager::Release(qint64 nId)
{
    const std::lock_guard lock(m_mutex);
    const SRecord* const pRecord = Find(nId);
    if (!pRecord)
        return;
    Q_ASSERT(pRecord->pItem->GetUseCount() > 0);
    pRecord->pItem->SetUseCount(pRecord->pItem->GetUseCount() - 1);
}

IMemoryItem* CMemoryManager::GetItem(qint64 nId, bool bAcquire)
{
    StateLock lock(m_mutex);
    SRecord* const pRecord = bAcquire ? FindUsable(nId, lock) : Find(nId);
    if (!pRecord || pRecord->bLeaving)
        return nullptr;
    if (bAcquire)
        Touch(*pRecord);
    return pRecord->pItem;
}

qint64 CMemoryManager::GetUseCount(qint64 nId) const
{
    const std::lock_guard lock(m_mutex);
    const SRecord* const pRecord = Find(nId);
    return pRecord ? pRecord->pItem->GetUseCount() : 0;
}

bool CMemoryManager::IsInMemory(qint64 nId) const
{
    const std::lock_guard lock(m_mutex);
    const SRecord* const pRecord = Find(nId);
    return pRecord && pRecord->nLoads == 0 && !pRecord->bUnloading && pRecord->pItem->GetBytesInUse() != 0;
}

int CMemoryManager::LoadItem(IMemoryItem* pItem)
{
    if (!pItem)
        return LoadFailed;
    if (const int nStatus = pItem->GetStatus(); IsFinal(nStatus))
        return nStatus;
    if (pItem->GetBytesNeeded() == 0)
        return LoadOk;
    CLoadScope scope(*this, pItem);
    KeepLimit();
    int nStatus = scope.CallLoad();
    if (nStatus == LoadNoMemory)
        nStatus = LoadOnceMore(scope);
    const bool bFirst = Conclude(pItem, nStatus);
    if (nStatus == LoadNever)
        return LoadFailed;
    if (bFirst)
        emit MemoryItemLoaded(pItem, nStatus);
    return nStatus;
}

void CMemoryManager::KeepLimit()
{
    StateLock lock(m_mutex);
    const qint64 nExcess = m_nTotalBytes - m_nLimit;
    if (m_nLimit == 0 || nExcess <= 0)
        return;
    lock.unlock();
    Log("Memory exceeded capacity");
    FreeBytes(nExcess, true);
}

/** Frees and loads again until that succeeds, fails otherwise, or nothing is left to be freed. */
int CMemoryManager::LoadOnceMore(CLoadScope& scope)
{
    Log("Try to free memory0");
    const TurnLock turn = TakeTurn();
    const qint64 nNeeded = scope.Item()->GetBytesNeeded(); // the first attempt may have found out more
    Log(QString("Try to free memory1 %1").arg(nNeeded));
    // An item that was evicted before in this loop has been brought back by the load, which needs it; to
    // evict it once more gains nothing, and would go on for ever where the two don't fit into memory
    // together.
    std::set<qint64> gone;
    int nStatus = LoadNoMemory;
    while (nStatus == LoadNoMemory && EvictOldest(nNeeded, gone))
        nStatus = scope.CallLoad();
    Log("Try to free memory2");
    if (nStatus == LoadOk)
        FreeBytes(nNeeded, false); // room for the next item, most likely of the same size
    Log("Try to free memory3");
    return nStatus;
}

/** Writes down how a load ended. True if it was the item's first. */
bool CMemoryManager::Conclude(IMemoryItem* pItem, int nStatus)
{
    const std::lock_guard lock(m_mutex);
    // Set rather than added to: two threads may have loaded the item at the same time.
    if (SRecord* const pRecord = Find(pItem->GetMemoryId()))
        Count(*pRecord, pItem->GetBytesInUse());
    if (IsFinal(nStatus))
        pItem->SetStatus(nStatus);
    if (nStatus == LoadNever || pItem->IsLoaded())
        return false;
    pItem->SetLoaded(true);
    return true;
}

void CMemoryManager::UpdateBytes(qint64 nId)
{
    const std::lock_guard lock(m_mutex);
    if (SRecord* const pRecord = Find(nId))
        Count(*pRecord, pRecord->pItem->GetBytesInUse());
}

bool CMemoryManager::FreeBytes(qint64 nBytes, bool bLock)
{
    const TurnLock turn = bLock ? TakeTurn() : TurnLock();
    std::set<qint64> gone;
    return EvictOldest(nBytes, gone);
}

/** Evicts as FreeBytes does and adds the ids to gone. True if one is among them that wasn't there before. */
bool CMemoryManager::EvictOldest(qint64 nBytes, std::set<qint64>& gone)
{
    StateLock lock(m_mutex);
    std::vector<SCandidate> heap = CandidateHeap();
    const size_t nGoneBefore = gone.size();
    qint64 nFreed = 0;
    while (!heap.empty()) {
        std::pop_heap(heap.begin(), heap.end(), IsYounger);
        if (const qint64 nItemBytes = UnloadIfIdle(heap.back().nId, lock); nItemBytes > 0) {
            nFreed += nItemBytes;
            gone.insert(heap.back().nId);
        }
        heap.pop_back();
        if (nFreed >= nBytes)
            break;
    }
    return gone.size() > nGoneBefore;
}

void CMemoryManager::FreeAll()
{
    QStringList sInUseList;
    StateLock lock(m_mutex);
    for (const qint64 nId : SortedIds()) {
        const SRecord* const pRecord = Find(nId); // may have gone during the Unload of another
        if (pRecord && !IsIdle(*pRecord->pItem))
            sInUseList += QString("memory item %1: use count %2").arg(nId).arg(pRecord->pItem->GetUseCount());
        else
            UnloadIfIdle(nId, lock);
    }
    const std::vector<IMemoryCache*> caches = m_caches;
    lock.unlock();
    for (const QString& sInUse : sInUseList)
        qDebug("%s", qUtf8Printable(sInUse));
    for (IMemoryCache* const pCache : caches)
        pCache->EmptyCache();
}

void CMemoryManager::AddCache(IMemoryCache* pCache)
{
    const std::lock_guard lock(m_mutex);
    m_caches.push_back(pCache);
}

void CMemoryManager::RemoveCache(IMemoryCache* pCache)
{
    const std::lock_guard lock(m_mutex);
    std::erase(m_caches, pCache);
}

CMemoryManager::SRecord* CMemoryManager::Find(qint64 nId)
{
    const auto it = m_records.find(nId);
    return it == m_records.end() ? nullptr : &it->second;
}

const CMemoryManager::SRecord* CMemoryManager::Find(qint64 nId) const
{
    return const_cast<CMemoryManager*>(this)->Find(nId);
}

/** As Find, but waits until the item's Unload, if it runs, has ended. */
CMemoryManager::SRecord* CMemoryManager::FindUsable(qint64 nId, StateLock& lock)
{
    SRecord* pRecord = Find(nId);
    while (pRecord && pRecord->bUnloading) {
        m_condition.wait(lock);
        pRecord = Find(nId); // it may have been unregistered meanwhile
    }
    return pRecord;
}

/** One user more, and the newest access. */
void CMemoryManager::Touch(SRecord& record)
{
    record.pItem->SetUseCount(record.pItem->GetUseCount() + 1);
    record.pItem->SetLastAccess(m_nNextAccess++);
    if (m_nNextAccess < STAMP_LIMIT)
        return;
    for (const auto& [nId, other] : m_records)
        other.pItem->SetLastAccess(1);
    m_nNextAccess = 2;
}

void CMemoryManager::Count(SRecord& record, qint64 nBytes)
{
    m_nTotalBytes += nBytes - record.nCounted;
    record.nCounted = nBytes;
}

void CMemoryManager::Erase(SRecord& record)
{
    IMemoryItem* const pItem = record.pItem;
    Count(record, 0);
    m_records.erase(pItem->GetMemoryId());
    pItem->SetMemoryId(NO_ID);
}

bool CMemoryManager::IsYounger(const SCandidate& a, const SCandidate& b)
{
    return std::pair(a.nLastAccess, a.nId) > std::pair(b.nLastAccess, b.nId);
}

/** What could be evicted now. A heap: most often only the first few of many thousands are wanted. */
std::vector<CMemoryManager::SCandidate> CMemoryManager::CandidateHeap() const
{
    std::vector<SCandidate> heap;
    heap.reserve(m_records.size());
    for (const auto& [nId, record] : m_records)
        if (IsIdle(*record.pItem) && record.pItem->GetBytesInUse() != 0)
            heap.push_back({record.pItem->GetLastAccess(), nId});
    std::make_heap(heap.begin(), heap.end(), IsYounger);
    return heap;
}

/**
 * Unloads the item if nobody uses or loads it now, with the lock open meanwhile. Gives the bytes that it
 * holds less than before: an item that keeps its data mustn't let a caller go on for ever.
 */
qint64 CMemoryManager::UnloadIfIdle(qint64 nId, StateLock& lock)
{
    SRecord* const pRecord = Find(nId);
    if (!pRecord || !IsIdle(*pRecord->pItem) || pRecord->nLoads != 0 || pRecord->bUnloading ||
        pRecord->bLeaving)
        return 0;
    const qint64 nBefore = pRecord->pItem->GetBytesInUse();
    const qint64 nCounted = pRecord->nCounted;
    Count(*pRecord, 0);         // now, so that other threads don't free the same bytes once more
    pRecord->bUnloading = true; // and nobody removes the record
    lock.unlock();
    pRecord->pItem->Unload();
    lock.lock();
    pRecord->bUnloading = false;
    const qint64 nAfter = pRecord->pItem->GetBytesInUse();
    Count(*pRecord, std::min(nCounted, nAfter));
    m_condition.notify_all();
    return std::max<qint64>(nBefore - nAfter, 0);
}

std::vector<qint64> CMemoryManager::SortedIds() const
{
    std::vector<qint64> ids;
    ids.reserve(m_records.size());
    for (const auto& [nId, record] : m_records)
        ids.push_back(nId);
    std::sort(ids.begin(), ids.end());
    return ids;
}

/** The turn if it can be had; a thread inside a Load doesn't wait for it (see the order of locks). */
CMemoryManager::TurnLock CMemoryManager::TakeTurn()
{
    if (CLoadScope::IsThreadInLoad())
        return TurnLock(m_turnMutex, std::try_to_lock);
    return TurnLock(m_turnMutex);
}
