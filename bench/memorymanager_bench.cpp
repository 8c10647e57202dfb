// What the memory manager costs when a large case has registered its blocks.
#include "frame/memory/memoryitem.h"
#include "frame/memory/memorymanager.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

constexpr int ITEMS = 20000;

/** Loads and unloads nothing but the count of its bytes, so that only the manager's work is timed. */
class CBenchItem final : public CMemoryItem
{
public:
    CBenchItem() { SetBytesNeeded(100); }
    int Load() override
    {
        SetBytesInUse(100);
        return LoadOk;
    }
    void Unload() override { SetBytesInUse(0); }

private:
    CMemoryRegistration m_registration{this};
};

std::vector<std::unique_ptr<CBenchItem>> LoadedItems()
{
    std::vector<std::unique_ptr<CBenchItem>> items;
    for (int n = 0; n < ITEMS; ++n) {
        items.push_back(std::make_unique<CBenchItem>());
        CMemoryManager::Instance().LoadItem(items.back().get());
    }
    return items;
}

void AcquireAndRelease(benchmark::State& state)
{
    CMemoryManager& manager = CMemoryManager::Instance();
    const auto items = LoadedItems();
    size_t nIndex = 0;
    for (auto _ : state) {
        const qint64 nId = items[nIndex]->GetMemoryId();
        manager.Acquire(nId);
        manager.Release(nId);
        nIndex = (nIndex + 7919) % ITEMS; // a prime: no order that the caches could guess
    }
    state.SetItemsProcessed(state.iterations());
}

/** One load that evicts one item of the same size. */
void EvictAndLoadOne(benchmark::State& state)
{
    CMemoryManager& manager = CMemoryManager::Instance();
    const auto items = LoadedItems();
    size_t nIndex = 0;
    for (auto _ : state) {
        CBenchItem& item = *items[nIndex];
        manager.FreeBytes(100, true);
        manager.Acquire(item.GetMemoryId());
        manager.LoadItem(&item);
        manager.Release(item.GetMemoryId());
        nIndex = (nIndex + 1) % ITEMS;
    }
    state.SetItemsProcessed(state.iterations() * ITEMS);
}

/** The same work without a manager: a look at each item for the oldest. The limit for an eviction. */
void LookAtEachItem(benchmark::State& state)
{
    const auto items = LoadedItems();
    for (auto _ : state) {
        const IMemoryItem* pOldest = nullptr;
        for (const auto& pItem : items)
            if (pItem->GetUseCount() == 0 && pItem->GetBytesInUse() != 0 &&
                (!pOldest || pItem->GetLastAccess() < pOldest->GetLastAccess()))
                pOldest = pItem.get();
        benchmark::DoNotOptimize(pOldest);
    }
    state.SetItemsProcessed(state.iterations() * ITEMS);
}

BENCHMARK(AcquireAndRelease);
BENCHMARK(EvictAndLoadOne);
BENCHMARK(LookAtEachItem);

} // namespace
