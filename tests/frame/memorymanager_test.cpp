#include "frame/memory/memorymanager.h"

#include "frame/memory/imemorycache.h"
#include "frame/memory/memoryitem.h"
#include "frame/memory/memorypin.h"
#include "tests/support/logcapture.h"

#include <deque>
#include <latch>
#include <new>
#include <thread>

namespace {

/** An item of a given size; loads end as planned, LoadOk when the plan is empty. */
class CTestItem final : public CMemoryItem
{
public:
    explicit CTestItem(qint64 nBytes) { SetBytesNeeded(nBytes); }

    int Load() override
    {
        const std::lock_guard lock(m_mutex);
        ++m_nLoads;
        if (m_fnInLoad)
            m_fnInLoad();
        int nStatus = LoadOk;
        if (!m_plan.empty()) {
            nStatus = m_plan.front();
            m_plan.pop_front();
        }
        if (nStatus == LoadOk)
            SetBytesInUse(GetBytesNeeded());
        return nStatus;
    }

    void Unload() override
    {
        const std::lock_guard lock(m_mutex);
        if (m_fnInUnload)
            m_fnInUnload();
        if (!m_bKeepsData)
            SetBytesInUse(0);
    }

    using CMemoryItem::SetBytesInUse;
    using CMemoryItem::SetBytesNeeded;

    std::deque<int> m_plan;
    std::atomic<int> m_nLoads = 0;
    bool m_bKeepsData = false;
    std::function<void()> m_fnInLoad, m_fnInUnload;

private:
    std::mutex m_mutex;
    CMemoryRegistration m_registration{this};
};

/** Names a case of a table by its sName. */
struct CaseName
{
    template <class Info> std::string operator()(const Info& info) const
    {
        return QString(info.param.sName).replace(QRegularExpression("\\W+"), "_").toStdString();
    }
};

class MemoryManager : public testing::Test
{
protected:
    MemoryManager()
    {
        // The first stamp of the process is 0, as that of an item never accessed; no test wants to meet it.
        CTestItem item(1);
        m_manager.Acquire(item.GetMemoryId());
    }
    ~MemoryManager() override { m_manager.SetLimit(0); }

    /** A further item; once unloaded it stands in m_unloaded with its index. */
    CTestItem& Add(qint64 nBytes)
    {
        const int nIndex = int(m_items.size());
        m_items.push_back(std::make_unique<CTestItem>(nBytes));
        m_items.back()->m_fnInUnload = [this, nIndex] { m_unloaded.push_back(nIndex); };
        return *m_items.back();
    }
    CTestItem& AddLoaded(qint64 nBytes)
    {
        CTestItem& item = Add(nBytes);
        EXPECT_EQ(m_manager.LoadItem(&item), LoadOk);
        return item;
    }
    void Access(int nIndex)
    {
        m_manager.Acquire(m_items[nIndex]->GetMemoryId());
        m_manager.Release(m_items[nIndex]->GetMemoryId());
    }

    CMemoryManager& m_manager = CMemoryManager::Instance();
    std::vector<int> m_unloaded;
    std::vector<std::unique_ptr<CTestItem>> m_items;
};

} // namespace

struct SFreeCase
{
    const char* sName;
    std::vector<qint64> sizes;    // loaded in this order; 0: not loaded
    std::vector<int> accessOrder; // then accessed in this order
    std::vector<int> inUse;
    qint64 nBytes;
    std::vector<int> unloaded;
    bool bResult;
    friend void PrintTo(const SFreeCase& given, std::ostream* pOut) { *pOut << given.sName; }
};
class MemoryManagerFree : public MemoryManager, public testing::WithParamInterface<SFreeCase>
{};

TEST_P(MemoryManagerFree, TheOldestIdleItemsGoUntilEnoughIsFree)
{
    const SFreeCase& given = GetParam();
    qint64 nTotal = 0;
    for (const qint64 nSize : given.sizes) {
        nSize ? AddLoaded(nSize) : Add(100);
        nTotal += nSize;
    }
    for (const int nIndex : given.accessOrder)
        Access(nIndex);
    std::vector<CMemoryPin> pins;
    for (const int nIndex : given.inUse) {
        const qint64 nStamp = m_items[nIndex]->GetLastAccess();
        pins.emplace_back(m_items[nIndex]->GetMemoryId());
        m_items[nIndex]->SetLastAccess(nStamp); // as old as before
    }
    EXPECT_EQ(m_manager.FreeBytes(given.nBytes, true), given.bResult);
    EXPECT_EQ(m_unloaded, given.unloaded);
    for (const int nIndex : given.unloaded)
        nTotal -= given.sizes[nIndex];
    EXPECT_EQ(m_manager.GetTotalBytes(), nTotal);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, MemoryManagerFree,
    testing::Values(SFreeCase{"two of three suffice", {60, 60, 60}, {}, {}, 100, {0, 1}, true},
                    SFreeCase{"exactly one", {60, 60, 60}, {}, {}, 60, {0}, true},
                    SFreeCase{"oldest access first", {60, 60, 60}, {2, 0, 1}, {}, 100, {2, 0}, true},
                    SFreeCase{"never accessed is oldest", {60, 60, 60}, {0, 1}, {}, 60, {2}, true},
                    SFreeCase{
                        "in use stays, even the oldest", {60, 60, 60}, {0, 1, 2}, {0}, 500, {1, 2}, true},
                    SFreeCase{"not in memory is no candidate", {0, 60}, {0, 1}, {}, 10, {1}, true},
                    SFreeCase{"no bytes asked for, one goes", {60, 60}, {}, {}, 0, {0}, true},
                    SFreeCase{"nothing to free", {0, 60}, {}, {1}, 10, {}, false}),
    CaseName{});

TEST_F(MemoryManager, AnItemThatKeepsItsDataFreesNothingAndEndsTheRetries)
{
    AddLoaded(60).m_bKeepsData = true;
    EXPECT_FALSE(m_manager.FreeBytes(10, true));
    EXPECT_EQ(m_manager.GetTotalBytes(), 60);
    CTestItem& item = Add(50);
    item.m_plan = {LoadNoMemory};
    EXPECT_EQ(m_manager.LoadItem(&item), LoadNoMemory);
}

struct SLimitCase
{
    qint64 nLimit;
    std::vector<int> unloaded; // of three items with 500 bytes each
    friend void PrintTo(const SLimitCase& given, std::ostream* pOut) { *pOut << "limit " << given.nLimit; }
};
class MemoryManagerLimit : public MemoryManager, public testing::WithParamInterface<SLimitCase>
{};

TEST_P(MemoryManagerLimit, OnlyWhatExceedsTheLimitIsFreedBeforeALoad)
{
    for (int n = 0; n < 3; ++n)
        AddLoaded(500);
    CTestItem& item = Add(200);
    m_manager.SetLimit(GetParam().nLimit);
    const CLogCapture log;
    EXPECT_EQ(m_manager.LoadItem(&item), LoadOk);
    EXPECT_EQ(m_unloaded, GetParam().unloaded);
    const QString sExceeded = "Memory Manager - Memory exceeded capacity";
    EXPECT_EQ(log.Lines(), GetParam().unloaded.empty() ? QStringList() : QStringList(sExceeded));
}

INSTANTIATE_TEST_SUITE_P(Cases, MemoryManagerLimit,
                         testing::Values(SLimitCase{0, {}}, SLimitCase{1500, {}}, SLimitCase{1499, {0}},
                                         SLimitCase{1000, {0}}, SLimitCase{999, {0, 1}},
                                         SLimitCase{1, {0, 1, 2}}));

struct SLoadCase
{
    const char* sName;
    qint64 nNeeded;
    int nStatusBefore;
    std::deque<int> plan;
    int nResult;
    int nLoads;
    int nStatusAfter;
    std::vector<int> signalled; // status of MemoryItemLoaded
    std::vector<int> unloaded;  // of four items with 60 bytes each
    bool bRetry;
    friend void PrintTo(const SLoadCase& given, std::ostream* pOut) { *pOut << given.sName; }
};
class MemoryManagerLoad : public MemoryManager, public testing::WithParamInterface<SLoadCase>
{};

TEST_P(MemoryManagerLoad, EndsAsTheItemSays)
{
    const SLoadCase& given = GetParam();
    for (int n = 0; n < 4; ++n)
        AddLoaded(60);
    CTestItem& item = Add(given.nNeeded);
    item.SetStatus(given.nStatusBefore);
    item.m_plan = given.plan;
    const CLogCapture log;
    std::vector<int> signalled;
    const auto connection = QObject::connect(&m_manager, &CMemoryManager::MemoryItemLoaded,
                                             [&](IMemoryItem* pItem, qlonglong eStatus) {
                                                 EXPECT_EQ(pItem, &item);
                                                 signalled.push_back(int(eStatus));
                                             });
    EXPECT_EQ(m_manager.LoadItem(&item), given.nResult);
    QObject::disconnect(connection);
    EXPECT_EQ(item.m_nLoads, given.nLoads);
    EXPECT_EQ(item.GetStatus(), given.nStatusAfter);
    EXPECT_EQ(signalled, given.signalled);
    EXPECT_EQ(m_unloaded, given.unloaded);
    EXPECT_EQ(m_manager.GetTotalBytes(), 240 - 60 * qint64(m_unloaded.size()) + item.GetBytesInUse());
    QStringList sExpectedList;
    if (given.bRetry)
        sExpectedList =
            QStringList{"Memory Manager - Try to free memory0",
                        QString("Memory Manager - Try to free memory1 %1").arg(given.nNeeded),
                        "Memory Manager - Try to free memory2", "Memory Manager - Try to free memory3"};
    EXPECT_EQ(log.Lines(), sExpectedList);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, MemoryManagerLoad,
    testing::Values(
        SLoadCase{"loads", 50, 6, {}, 0, 1, 6, {0}, {}, false},
        SLoadCase{"nothing needed", 0, 6, {}, 0, 0, 6, {}, {}, false},
        SLoadCase{"failed before", 50, 3, {}, 3, 0, 3, {}, {}, false},
        SLoadCase{"bad content before", 50, 5, {}, 5, 0, 5, {}, {}, false},
        SLoadCase{"fails for good", 50, 6, {3}, 3, 1, 3, {3}, {}, false},
        SLoadCase{"bad content is as final", 50, 6, {5}, 5, 1, 5, {5}, {}, false},
        SLoadCase{"corrects itself and waits for the next access", 50, 6, {6}, 3, 1, 6, {}, {}, false},
        SLoadCase{"short once, then room for the next", 50, 6, {2}, 0, 2, 6, {0}, {0, 1}, true},
        SLoadCase{"frees what is needed each time", 100, 6, {2}, 0, 2, 6, {0}, {0, 1, 2, 3}, true},
        SLoadCase{"short until nothing is left", 50, 6, {2, 2, 2, 2, 2}, 2, 5, 6, {2}, {0, 1, 2, 3}, true},
        SLoadCase{"fails on the second attempt", 50, 6, {2, 3}, 3, 2, 3, {3}, {0}, true}),
    CaseName{});

TEST_F(MemoryManager, AnItemShortOfMemoryIsTriedAgainLater)
{
    CTestItem& item = Add(50);
    item.m_plan = {LoadNoMemory};
    EXPECT_EQ(m_manager.LoadItem(&item), LoadNoMemory);
    EXPECT_EQ(m_manager.LoadItem(&item), LoadOk);
}

TEST_F(MemoryManager, AnItemThatNeverFitsBesideItsInputGivesUp)
{
    CTestItem& input = Add(60);
    CTestItem& item = Add(50);
    item.m_plan.assign(100, LoadNoMemory);
    item.m_fnInLoad = [&] { EXPECT_EQ(m_manager.LoadItem(&input), LoadOk); };
    EXPECT_EQ(m_manager.LoadItem(&item), LoadNoMemory);
    EXPECT_EQ(item.m_nLoads, 2);
}

TEST_F(MemoryManager, AnAllocationThatThrowsIsShortageOfMemory)
{
    AddLoaded(60);
    CTestItem& item = Add(50);
    bool bThrow = true;
    item.m_fnInLoad = [&] {
        if (std::exchange(bThrow, false))
            throw std::bad_alloc();
    };
    EXPECT_EQ(m_manager.LoadItem(&item), LoadOk);
    EXPECT_EQ(m_unloaded, std::vector{0});
}

TEST_F(MemoryManager, OnlyTheFirstLoadIsSignalled)
{
    CTestItem& item = Add(50);
    QSignalSpy spy(&m_manager, &CMemoryManager::MemoryItemLoaded);
    m_manager.LoadItem(&item);
    m_manager.FreeAll();
    m_manager.LoadItem(&item);
    EXPECT_EQ(item.m_nLoads, 2);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(MemoryManager, AListenerMayDeleteTheItemThatWasLoaded)
{
    CTestItem& item = Add(50);
    const auto connection =
        QObject::connect(&m_manager, &CMemoryManager::MemoryItemLoaded, [this] { m_items.clear(); });
    EXPECT_EQ(m_manager.LoadItem(&item), LoadOk);
    QObject::disconnect(connection);
    EXPECT_EQ(m_manager.GetTotalBytes(), 0);
}

TEST_F(MemoryManager, TheTotalFollowsReloadsUpdatesAndTheEndOfItems)
{
    CTestItem& item = AddLoaded(50);
    m_manager.LoadItem(&item);
    EXPECT_EQ(m_manager.GetTotalBytes(), 50) << "loaded twice";
    item.SetBytesInUse(80);
    m_manager.UpdateBytes(item.GetMemoryId());
    EXPECT_EQ(m_manager.GetTotalBytes(), 80);
    item.SetBytesInUse(30); // on its own; what was counted is what goes
    m_items.clear();
    EXPECT_EQ(m_manager.GetTotalBytes(), 0);
}

TEST_F(MemoryManager, AnItemLoadedByTwoThreadsAtOnceCountsOnce)
{
    CTestItem& item = Add(50);
    std::latch both(2);
    const auto Load = [&] {
        both.arrive_and_wait();
        EXPECT_EQ(m_manager.LoadItem(&item), LoadOk);
    };
    std::thread thread(Load);
    Load();
    thread.join();
    EXPECT_EQ(m_manager.GetTotalBytes(), 50);
}

TEST_F(MemoryManager, AnUnknownIdHasNoItemAndNoUsers)
{
    EXPECT_EQ(m_manager.LoadItem(nullptr), LoadFailed);
    for (const qint64 nId : {qint64(-1), qint64(1) << 60}) {
        m_manager.Acquire(nId);
        EXPECT_EQ(m_manager.GetUseCount(nId), 0);
        EXPECT_EQ(m_manager.GetItem(nId, true), nullptr);
        m_manager.Release(nId);
    }
}

TEST_F(MemoryManager, FreeAllSparesWhatIsInUseAndHoldsNoLockWhileCachesAreEmptied)
{
    struct SCache : IMemoryCache
    {
        void EmptyCache() override { nTotal = CMemoryManager::Instance().GetTotalBytes(); }
        qint64 nTotal = -1;
    } cache;
    m_manager.AddCache(&cache);
    for (int n = 0; n < 3; ++n)
        AddLoaded(50);
    const CMemoryPin pin(m_items[1]->GetMemoryId());
    m_manager.FreeAll();
    m_manager.RemoveCache(&cache);
    EXPECT_EQ(m_unloaded, (std::vector{0, 2}));
    EXPECT_EQ(cache.nTotal, 50);
}

TEST_F(MemoryManager, AnItemBeingLoadedIsNotFreed)
{
    CTestItem& item = Add(50);
    item.m_fnInLoad = [&] {
        item.SetBytesInUse(20); // half of it is there
        EXPECT_FALSE(m_manager.FreeBytes(10, true));
        m_manager.FreeAll();
        EXPECT_FALSE(m_manager.UnregisterIfIdle(&item));
    };
    EXPECT_EQ(m_manager.LoadItem(&item), LoadOk);
    EXPECT_TRUE(m_unloaded.empty());
}

TEST_F(MemoryManager, AcquireWaitsForAnUnloadThatHasBegun)
{
    CTestItem& item = AddLoaded(50);
    std::latch begun(1);
    std::atomic<bool> bAcquired = false;
    item.m_fnInUnload = [&] {
        begun.count_down();
        QTest::qSleep(50);
        EXPECT_FALSE(bAcquired);
    };
    std::thread thread([&] { m_manager.FreeBytes(1, true); });
    begun.wait();
    CMemoryPin pin(item.GetMemoryId());
    bAcquired = true;
    EXPECT_EQ(pin.Load(), LoadOk);
    thread.join();
    EXPECT_EQ(item.GetBytesInUse(), 50);
    EXPECT_EQ(m_manager.GetTotalBytes(), 50);
}

TEST_F(MemoryManager, AnItemAcquiredWhileOthersAreUnloadedBeforeItIsSpared)
{
    CTestItem& first = AddLoaded(50);
    CTestItem& second = AddLoaded(50);
    CMemoryPin pin;
    first.m_fnInUnload = [&] { std::thread([&] { pin = CMemoryPin(second.GetMemoryId()); }).join(); };
    m_manager.FreeBytes(100, true);
    EXPECT_EQ(second.GetBytesInUse(), 50);
}

TEST_F(MemoryManager, UnregisterWaitsForALoadInAnotherThread)
{
    CTestItem& item = Add(50);
    const qint64 nId = item.GetMemoryId();
    std::latch begun(1);
    std::atomic<bool> bLoaded = false;
    item.m_fnInLoad = [&] {
        begun.count_down();
        while (m_manager.GetItem(nId, false)) // no longer found as soon as it is to go
            std::this_thread::yield();
        bLoaded = true;
    };
    std::thread thread([&] { EXPECT_EQ(m_manager.LoadItem(&item), LoadOk); });
    begun.wait();
    m_items.clear();
    EXPECT_TRUE(bLoaded);
    thread.join();
    EXPECT_EQ(m_manager.GetTotalBytes(), 0);
}

TEST_F(MemoryManager, OnlyAnIdleItemCanBeTakenAway)
{
    CTestItem& item = AddLoaded(50);
    CMemoryPin pin(item.GetMemoryId());
    EXPECT_FALSE(m_manager.UnregisterIfIdle(&item));
    pin.Reset();
    EXPECT_TRUE(m_manager.UnregisterIfIdle(&item));
    EXPECT_EQ(item.GetMemoryId(), -1);
    EXPECT_EQ(m_manager.GetTotalBytes(), 0);
}

// Thread 1 has the turn and waits for the mutex of item "shared"; thread 2 holds that mutex, in the item's
// Load, and falls short of memory there. It must go on without the turn.
TEST_F(MemoryManager, ALoadWithinALoadDoesNotWaitForTheThreadThatRetries)
{
    AddLoaded(60);
    AddLoaded(60);
    CTestItem& shared = Add(50);
    CTestItem& nested = Add(50);
    CTestItem& outer = Add(50);
    nested.m_plan = {LoadNoMemory};
    outer.m_plan = {LoadNoMemory};
    std::latch sharedLoads(1), turnTaken(1);
    shared.m_fnInLoad = [&, bFirst = true]() mutable {
        if (!std::exchange(bFirst, false))
            return;
        sharedLoads.count_down();
        turnTaken.wait();
        EXPECT_EQ(m_manager.LoadItem(&nested), LoadOk);
    };
    outer.m_fnInLoad = [&] {
        if (outer.m_nLoads < 2)
            return;
        turnTaken.count_down();
        EXPECT_EQ(m_manager.LoadItem(&shared), LoadOk);
    };
    std::thread thread([&] { EXPECT_EQ(m_manager.LoadItem(&shared), LoadOk); });
    sharedLoads.wait();
    EXPECT_EQ(m_manager.LoadItem(&outer), LoadOk);
    thread.join();
}

TEST_F(MemoryManager, WhenTheStampsRunOutAllItemsAreEquallyOld)
{
    for (int n = 0; n < 3; ++n)
        AddLoaded(50);
    Access(1);
    Access(0);
    const qint64 nId = m_items[2]->GetMemoryId();
    m_manager.Acquire(nId);
    while (m_items[2]->GetLastAccess() != 1)
        m_manager.Acquire(nId);
    m_items[2]->SetUseCount(0);
    Access(0);
    EXPECT_EQ(m_items[0]->GetLastAccess(), 2);
    m_manager.FreeBytes(100, true);
    EXPECT_EQ(m_unloaded, (std::vector{1, 2})) << "1 was accessed before 2, but so long ago that ids decide";
}

TEST_F(MemoryManager, APinKeepsItsItemUntilItEndsOrIsMovedOn)
{
    CTestItem& item = Add(50);
    const qint64 nId = item.GetMemoryId();
    CMemoryPin pin(nId);
    EXPECT_EQ(pin.Load(), LoadOk);
    EXPECT_EQ(pin.Load(), LoadOk);
    EXPECT_EQ(item.m_nLoads, 1) << "it was in memory the second time";
    CMemoryPin second(std::move(pin));
    EXPECT_FALSE(pin);
    EXPECT_EQ(pin.Load(), LoadFailed);
    EXPECT_FALSE(m_manager.FreeBytes(1, true));
    CMemoryPin other(Add(50).GetMemoryId());
    other = std::move(second);
    EXPECT_EQ(m_manager.GetUseCount(nId), 1);
    EXPECT_EQ(m_manager.GetUseCount(m_items[1]->GetMemoryId()), 0);
    other = CMemoryPin();
    EXPECT_EQ(m_manager.GetUseCount(nId), 0);
    EXPECT_TRUE(m_manager.FreeBytes(1, true));
}
