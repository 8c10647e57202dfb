// Threads that load, read, release, evict, register and unregister items at the same time while memory is
// short. Meant for the thread sanitizer as much as for the expectations; a dead-lock shows as a time-out.
#include "frame/memory/memoryitem.h"
#include "frame/memory/memorymanager.h"
#include "frame/memory/memorypin.h"
#include "tests/support/logcapture.h"

#include <array>
#include <random>
#include <thread>

namespace {

constexpr int THREADS = 6;
constexpr int ROUNDS = 1500; // of each thread
constexpr int LEAVES = 24, NODES = 8;
constexpr qint64 MEMORY = 12 * 1024; // what all items may hold together, about a third of what they need
constexpr qint64 LIMIT = 9 * 1024;

/** The machine's memory: an allocation fails if it is used up, and now and then without a reason. */
class CMemory
{
public:
    bool Take(qint64 nBytes)
    {
        const bool bUnlucky = m_nTries++ % 13 == 0;
        if ((m_nUsed += nBytes) <= MEMORY && !bUnlucky)
            return true;
        Give(nBytes);
        ++m_nRefused;
        return false;
    }
    void Give(qint64 nBytes) { m_nUsed -= nBytes; }

    std::atomic<qint64> m_nUsed = 0;
    std::atomic<int> m_nTries = 1, m_nRefused = 0;
};

/** An item whose data are its own id many times; a node first reads two leaves. */
class CStressItem final : public CMemoryItem
{
public:
    CStressItem(CMemory& memory, qint64 nBytes, std::vector<qint64> inputs = {})
        : m_memory(memory), m_inputs(std::move(inputs))
    {
        SetBytesNeeded(nBytes);
    }
    ~CStressItem() override { EXPECT_EQ(m_nReaders, 0); }

    int Load() override
    {
        const std::lock_guard lock(m_mutex);
        if (GetBytesInUse() != 0)
            return LoadOk;
        for (const qint64 nInput : m_inputs)
            if (const int nStatus = ReadInput(nInput); nStatus != LoadOk)
                return nStatus;
        if (!m_memory.Take(GetBytesNeeded()))
            return LoadNoMemory;
        m_data.assign(size_t(GetBytesNeeded()) / sizeof(qint64), GetMemoryId());
        SetBytesInUse(GetBytesNeeded());
        return LoadOk;
    }

    void Unload() override
    {
        const std::lock_guard lock(m_mutex);
        EXPECT_EQ(m_nReaders, 0) << "dropped while somebody reads";
        if (GetBytesInUse() != 0) {
            m_memory.Give(GetBytesInUse());
            ++s_nUnloads;
        }
        m_data.clear();
        m_data.shrink_to_fit();
        SetBytesInUse(0);
    }

    /** Reads all data without a lock, as a kernel does; the caller has pinned and loaded the item. */
    void Read()
    {
        ++m_nReaders;
        EXPECT_EQ(std::count(m_data.begin(), m_data.end(), GetMemoryId()), GetBytesNeeded() / 8);
        --m_nReaders;
    }

    static std::atomic<int> s_nUnloads;

private:
    static int ReadInput(qint64 nId)
    {
        const CMemoryPin pin(nId);
        const int nStatus = pin.Load();
        if (nStatus == LoadOk)
            static_cast<CStressItem*>(pin.Item())->Read();
        return nStatus;
    }

    CMemory& m_memory;
    const std::vector<qint64> m_inputs;
    std::mutex m_mutex; // guards m_data while it changes
    std::vector<qint64> m_data;
    std::atomic<int> m_nReaders = 0;
    CMemoryRegistration m_registration{this};
};

std::atomic<int> CStressItem::s_nUnloads = 0;

class MemoryStress : public testing::Test
{
protected:
    MemoryStress()
    {
        std::mt19937 random(1);
        for (int n = 0; n < LEAVES; ++n)
            Add({});
        for (int n = 0; n < NODES; ++n)
            Add({m_ids[random() % LEAVES], m_ids[random() % LEAVES]});
        m_manager.SetLimit(LIMIT);
    }
    ~MemoryStress() override { m_manager.SetLimit(0); }

    void Add(std::vector<qint64> inputs)
    {
        m_items.push_back(std::make_unique<CStressItem>(m_memory, SizeOf(m_items.size()), std::move(inputs)));
        m_ids.push_back(m_items.back()->GetMemoryId());
    }
    static qint64 SizeOf(size_t nIndex) { return 512 + 128 * qint64(nIndex % 13); }

    void ReadPinned(qint64 nId)
    {
        const CMemoryPin pin(nId);
        if (pin && pin.Load() == LoadOk) {
            static_cast<CStressItem*>(pin.Item())->Read();
            ++m_nReads;
        }
    }

    /** A thread's own item, which others find through m_shared, comes or goes. */
    void Exchange(int nThread, std::unique_ptr<CStressItem>& pOwn)
    {
        if (!pOwn) {
            pOwn = std::make_unique<CStressItem>(m_memory, 700);
            m_shared[nThread] = pOwn->GetMemoryId();
        } else if (m_manager.UnregisterIfIdle(pOwn.get())) {
            pOwn->Unload(); // gives the memory back
            pOwn.reset();
        }
    }

    void Run(int nThread)
    {
        std::mt19937 random(nThread + 100);
        std::unique_ptr<CStressItem> pOwn;
        for (int n = 0; n < ROUNDS; ++n) {
            const size_t nIndex = random() % m_items.size();
            switch (random() % 16) {
            case 0:
                m_manager.FreeBytes(1000, true);
                break;
            case 1:
                m_manager.FreeAll();
                break;
            case 2:
                Exchange(nThread, pOwn);
                break;
            case 3:
                m_manager.LoadItem(m_items[nIndex].get());
                break;
            case 4:
                m_manager.UpdateBytes(m_ids[nIndex]);
                break;
            case 5:
            case 6:
                ReadPinned(m_shared[random() % THREADS]);
                break;
            default:
                ReadPinned(m_ids[nIndex]);
            }
        }
        while (pOwn)
            Exchange(nThread, pOwn);
    }

    CMemoryManager& m_manager = CMemoryManager::Instance();
    CLogCapture m_log;
    CMemory m_memory;
    std::vector<std::unique_ptr<CStressItem>> m_items;
    std::vector<qint64> m_ids;
    std::array<std::atomic<qint64>, THREADS> m_shared{};
    std::atomic<int> m_nReads = 0;
};

} // namespace

TEST_F(MemoryStress, TotalsStayRightAndNothingInUseIsDropped)
{
    std::vector<std::thread> threads;
    for (int n = 0; n < THREADS; ++n)
        threads.emplace_back([this, n] { Run(n); });
    for (std::thread& thread : threads)
        thread.join();

    qint64 nInUse = 0;
    for (const auto& pItem : m_items) {
        EXPECT_EQ(pItem->GetUseCount(), 0);
        nInUse += pItem->GetBytesInUse();
    }
    EXPECT_EQ(m_manager.GetTotalBytes(), nInUse);
    EXPECT_EQ(m_memory.m_nUsed, nInUse);
    m_manager.FreeAll();
    EXPECT_EQ(m_manager.GetTotalBytes(), 0);
    EXPECT_GT(m_nReads, THREADS * ROUNDS / 4) << "too few loads succeed for the test to mean anything";
    EXPECT_GT(m_memory.m_nRefused, 100);
    EXPECT_GT(CStressItem::s_nUnloads, 100);
}
