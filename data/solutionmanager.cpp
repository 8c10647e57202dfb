#include "data/solutionmanager.h"

#include "data/fieldrequest.h"
#include "data/io/solutionio.h"
#include "data/solutions/bytesolution.h"
#include "data/solutions/interpsolution.h"
#include "data/solutions/solutionpack.h"
#include "data/variables/variablemanager.h"
#include "frame/memory/memorymanager.h"

namespace {

template <class Storage> std::unique_ptr<CSolution> MakeStorageOf(const SPlot3DFile& known)
{
    auto pSolution = std::make_unique<Storage>();
    pSolution->SetKnownFile(known);
    pSolution->SetOwner(&CSolutionManager::Instance());
    return pSolution;
}

/** The storage that a mask's file asks for. */
std::unique_ptr<CSolution> MakeStorage(const CSolutionMask& mask, const SPlot3DFile& known)
{
    int nCode = CSolutionIO().DetectSolutionFormat(mask.GetFileName(), known);
    if (nCode == CODE_UNKNOWN)
        nCode = known.nCode; // the file is gone: a load says so, and may find it again
    if (nCode == CODE_UNKNOWN)
        return nullptr;
    if (IsDoublePrecisionFormat(nCode))
        return mask.IsIntegerData() ? MakeStorageOf<CSolutionByteDoublePrecision>(known)
                                    : MakeStorageOf<CSolutionDoublePrecision>(known);
    return mask.IsIntegerData() ? MakeStorageOf<CSolutionByteSinglePrecision>(known)
                                : MakeStorageOf<CSolutionSinglePrecision>(known);
}

} // namespace

CSolutionManager::SEntry::SEntry(const SPlot3DFile& known)
    : mask([known](const CSolutionMask& mask) { return MakeStorage(mask, known); })
{}

CSolutionManager& CSolutionManager::Instance()
{
    static CSolutionManager* const pManager = new CSolutionManager; // never destroyed, see CMessageSink
    return *pManager;
}

CSolutionManager::CSolutionManager() { CMemoryManager::Instance().AddCache(this); }

qint64 CSolutionManager::AddSolution(qint64 nSimulationId, qint64 nItemId, qint64 nVariableId, qint64 nSubId,
                                     const SSolutionFile& file, double dTime)
{
    const std::shared_ptr<const SFieldRecipe> pRecipe = CVariableManager::Instance().GetRecipe(nVariableId);
    if (!pRecipe || !pRecipe->bOfFile)
        return NO_ID;
    m_fileCache.Clear();
    const EntryPointer pEntry = std::make_shared<SEntry>(file.known);
    pEntry->mask.SetOwner(this);
    pEntry->mask.SetIntegerData(file.bIntegerData);
    pEntry->mask.Init(file.sFileName, file.nBlock, file.nVariable, file.dimensions, file.start);
    qint64 nReplaced = NO_ID;
    qint64 nId = NO_ID;
    {
        const std::lock_guard lock(m_mutex);
        nId = m_nNextId++;
        pEntry->mask.SetSolutionId(nId);
        m_entries.insert(nId, pEntry);
        nReplaced = m_registry.Add({nSimulationId, nItemId, nVariableId, {file.dimensions, file.start}},
                                   {nId, nSubId, dTime});
    }
    if (nReplaced != NO_ID)
        Drop({nReplaced});
    return nId;
}

QVector<STimeMatch> CSolutionManager::GetSolutionIds(qint64 nVariableId, qint64 nSimulationId, qint64 nItemId,
                                                     qint64 nSubId, double dTime, bool bExact) const
{
    const std::lock_guard lock(m_mutex);
    return m_registry.Find(nSimulationId, nItemId, nVariableId, nSubId, dTime, bExact);
}

bool CSolutionManager::HasSolutions(qint64 nSimulationId, qint64 nVariableId) const
{
    const std::lock_guard lock(m_mutex);
    return m_registry.HasField(nSimulationId, nVariableId);
}

CLease<ISolution> CSolutionManager::GetSolution(qint64 nVariableId, qint64 nSimulationId, qint64 nItemId,
                                                qint64 nSubId, double dTime)
{
    CFieldRequest request(*this, CVariableManager::Instance().GetRecipes());
    return request.Make(nVariableId, {nSimulationId, nItemId, dTime}, nSubId);
}

CLease<ISolution> CSolutionManager::GetStored(qint64 nVariableId, qint64 nSimulationId, qint64 nItemId,
                                              qint64 nSubId, double dTime)
{
    QVector<ISolution*> parts;
    for (const STimeMatch& match :
         GetSolutionIds(nVariableId, nSimulationId, nItemId, nSubId, dTime, false)) {
        ISolution* const pLow = Hold(match.nLowId);
        ISolution* const pHigh = match.nHighId == match.nLowId ? nullptr : Hold(match.nHighId);
        if (pLow && pHigh)
            parts.append(new CInterpSolution(pLow, pHigh, match.dWeight));
        else if (pLow)
            parts.append(pLow);
        else if (pHigh)
            pHigh->Dispose();
    }
    if (parts.size() > 1)
        return CLease<ISolution>(new CSolutionPack(parts));
    return CLease<ISolution>(parts.value(0));
}

/** The solution, ready and kept in memory until Dispose; null for an unknown id. */
ISolution* CSolutionManager::Hold(qint64 nId)
{
    EntryPointer pEntry;
    {
        const std::lock_guard lock(m_mutex);
        pEntry = m_entries.value(nId);
        if (!pEntry)
            return nullptr;
        ++pEntry->nHolders;
    }
    {
        const std::lock_guard prepare(pEntry->prepareMutex);
        if (pEntry->mask.HasFileChangedSinceFailure() && IsAlone(*pEntry)) {
            pEntry->mask.StartAnew();
            ++m_nRestarts;
        }
        pEntry->mask.Prepare();
    }
    CMemoryManager::Instance().Acquire(pEntry->mask.GetBaseSolution()->GetMemoryId());
    return &pEntry->mask;
}

/**
 * Nobody but the caller, who holds the entry and its prepareMutex, knows what is behind the mask: whoever
 * wants it as well waits for that mutex.
 */
bool CSolutionManager::IsAlone(const SEntry& entry) const
{
    const std::lock_guard lock(m_mutex);
    return entry.nHolders == 1;
}

void CSolutionManager::Release(CSolution* pSolution)
{
    CMemoryManager::Instance().Release(pSolution->GetMemoryId());
    EntryPointer pGone; // deleted outside the lock
    const std::lock_guard lock(m_mutex);
    const auto entry = m_entries.find(pSolution->GetSolutionId());
    if (entry == m_entries.end() || (*entry)->nHolders == 0)
        return;
    --(*entry)->nHolders;
    if ((*entry)->nHolders > 0 || (*entry)->bRegistered)
        return;
    pGone = *entry;
    m_entries.erase(entry);
}

/** No longer registered: what nobody holds goes now. */
void CSolutionManager::Drop(const QVector<qint64>& ids)
{
    std::vector<EntryPointer> gone; // deleted outside the lock
    const std::lock_guard lock(m_mutex);
    for (const qint64 nId : ids) {
        const auto entry = m_entries.find(nId);
        if (entry == m_entries.end())
            continue;
        (*entry)->bRegistered = false;
        if ((*entry)->nHolders > 0)
            continue;
        gone.push_back(*entry);
        m_entries.erase(entry);
    }
}

QVector<double> CSolutionManager::GetTimes(qint64 nSimulationId, qint64 nItemId) const
{
    const std::lock_guard lock(m_mutex);
    return m_registry.Times(nSimulationId, nItemId);
}

void CSolutionManager::RemoveItem(qint64 nSimulationId, qint64 nItemId)
{
    QVector<qint64> ids;
    {
        const std::lock_guard lock(m_mutex);
        ids = m_registry.IdsOf(nSimulationId, nItemId);
        m_registry.RemoveItem(nSimulationId, nItemId);
    }
    Drop(ids);
}

void CSolutionManager::RemoveSimulation(qint64 nSimulationId)
{
    QVector<qint64> items;
    {
        const std::lock_guard lock(m_mutex);
        items = m_registry.ItemsOf(nSimulationId);
    }
    for (const qint64 nItemId : items)
        RemoveItem(nSimulationId, nItemId);
}

qint64 CSolutionManager::CountSolutions() const
{
    const std::lock_guard lock(m_mutex);
    return m_entries.size();
}
