#include "data/gridmanager.h"

#include "data/grids/gridpack.h"
#include "data/grids/interpgrid.h"
#include "data/grids/storagegrid.h"
#include "data/io/gridio.h"
#include "frame/memory/memorymanager.h"
#include "frame/messagesink.h"

namespace {

template <class Storage> std::unique_ptr<CGrid> MakeStorageOf(const SPlot3DFile& known)
{
    auto pGrid = std::make_unique<Storage>();
    pGrid->SetKnownFile(known);
    pGrid->SetOwner(&CGridManager::Instance());
    return pGrid;
}

/** The storage grid that a mask's file asks for. */
std::unique_ptr<CGrid> MakeStorage(const CGridMask& mask, const SPlot3DFile& known)
{
    int nCode = CGridIO().DetectGridFormat(mask.CGrid::GetFileName(), mask.IsStructured(),
                                           !mask.IsStructured(), known);
    if (nCode == CODE_UNKNOWN)
        nCode = known.nCode; // the file is gone: a load says so, and may find it again
    if (!mask.IsStructured() || nCode == CODE_UNKNOWN)
        return nullptr;
    return IsDoublePrecisionFormat(nCode) ? MakeStorageOf<CGridDoublePrecision>(known)
                                          : MakeStorageOf<CGridSinglePrecision>(known);
}

} // namespace

CGridManager::SChain::SChain(const SPlot3DFile& known)
    : mask([known](const CGridMask& mask) { return MakeStorage(mask, known); })
{}

CGridManager& CGridManager::Instance()
{
    static CGridManager* const pManager = new CGridManager; // never destroyed, see CMessageSink
    return *pManager;
}

CGridManager::CGridManager() { CMemoryManager::Instance().AddCache(this); }

qint64 CGridManager::AddGrid(qint64 nSimulationId, qint64 nItemId, qint64 nSubId, const SGridFile& file,
                             double dTime)
{
    m_fileCache.Clear();
    const ChainPointer pChain = std::make_shared<SChain>(file.known);
    pChain->mask.SetOwner(this);
    pChain->mask.Init(file.sFileName, file.nBlock, file.dimensions, file.start, true);
    qint64 nReplaced = NO_ID;
    qint64 nId = NO_ID;
    {
        const std::lock_guard lock(m_mutex);
        nId = m_nNextId++;
        pChain->mask.SetGridId(nId);
        pChain->flipped.SetGridId(nId);
        pChain->transformed.SetGridId(nId);
        m_chains.insert(nId, pChain);
        nReplaced =
            m_registry.Add({nSimulationId, nItemId, -1, {file.dimensions, file.start}}, {nId, nSubId, dTime});
    }
    if (nReplaced != NO_ID)
        Drop({nReplaced});
    return nId;
}

QVector<STimeMatch> CGridManager::GetGridIds(qint64 nSimulationId, qint64 nItemId, qint64 nSubId,
                                             double dTime, bool bExact) const
{
    const std::lock_guard lock(m_mutex);
    return m_registry.Find(nSimulationId, nItemId, -1, nSubId, dTime, bExact);
}

CLease<IGrid> CGridManager::GetGrid(qint64 nSimulationId, qint64 nItemId, qint64 nSubId, double dTime)
{
    return Request(nSimulationId, nItemId, nSubId, dTime, false);
}

CLease<IGrid> CGridManager::GetGridAtTime(qint64 nSimulationId, qint64 nItemId, qint64 nSubId, double dTime)
{
    return Request(nSimulationId, nItemId, nSubId, dTime, true);
}

CLease<IGrid> CGridManager::Request(qint64 nSimulationId, qint64 nItemId, qint64 nSubId, double dTime,
                                    bool bExact)
{
    QVector<STimeMatch> matches;
    bool bMoved = false;
    bool bKnown = false;
    qint64 nSimulations = 0;
    {
        const std::lock_guard lock(m_mutex);
        matches = m_registry.Find(nSimulationId, nItemId, -1, nSubId, dTime, bExact);
        bMoved = !HaveOneTransform(matches);
        bKnown = m_registry.HasSimulation(nSimulationId);
        nSimulations = m_registry.SimulationCount();
    }
    if (!bKnown) {
        CMessageSink::Instance().Log(
            QString("getGrid: simulation %1 NOT FOUND in list of %2").arg(nSimulationId).arg(nSimulations));
        return nullptr;
    }
    if (matches.isEmpty() && nSubId == 1)
        CMessageSink::Instance().Log(
            QString("getGrid: gridIdList EMPTY for simId=%1 itemId=%2 subId=%3 time=%4, simListSize=%5")
                .arg(nSimulationId)
                .arg(nItemId)
                .arg(nSubId)
                .arg(dTime)
                .arg(nSimulations));
    QVector<IGrid*> grids;
    for (const STimeMatch& match : std::as_const(matches)) {
        IGrid* const pLow = Hold(match.nLowId, bMoved);
        IGrid* const pHigh = match.nHighId == match.nLowId ? nullptr : Hold(match.nHighId, bMoved);
        if (pLow && pHigh)
            grids.append(new CInterpGrid(pLow, pHigh, match.dWeight));
        else if (pLow)
            grids.append(pLow);
        else if (pHigh)
            pHigh->Dispose();
    }
    if (grids.size() > 1)
        return CLease<IGrid>(new CGridPack(grids));
    return CLease<IGrid>(grids.value(0));
}

/** Expects the lock. */
bool CGridManager::HaveOneTransform(const QVector<STimeMatch>& matches) const
{
    QVector<STransform> transforms;
    for (const STimeMatch& match : matches)
        for (const qint64 nId : {match.nLowId, match.nHighId})
            if (const ChainPointer pChain = m_chains.value(nId))
                transforms.append(pChain->transformed.GetTransform());
    return std::all_of(transforms.begin(), transforms.end(),
                       [&](const STransform& t) { return t == transforms[0]; });
}

/** The grid, ready and kept in memory until Dispose; null for an unknown id. */
IGrid* CGridManager::Hold(qint64 nId, bool bMoved)
{
    ChainPointer pChain;
    {
        const std::lock_guard lock(m_mutex);
        pChain = m_chains.value(nId);
        if (!pChain)
            return nullptr;
        ++pChain->nHolders;
    }
    {
        const std::lock_guard prepare(pChain->prepareMutex);
        if (pChain->mask.HasFileChangedSinceFailure() && IsAlone(*pChain)) {
            pChain->mask.StartAnew();
            pChain->flipped.ForgetDerived();
            pChain->transformed.ForgetDerived();
            ++m_nRestarts;
        }
        pChain->mask.Prepare();
    }
    CMemoryManager::Instance().Acquire(pChain->mask.GetBaseGrid()->GetMemoryId());
    return bMoved ? static_cast<IGrid*>(&pChain->transformed) : &pChain->flipped;
}

/**
 * Nobody but the caller, who holds the chain and its prepareMutex, knows what is behind the mask: whoever
 * wants it as well waits for that mutex.
 */
bool CGridManager::IsAlone(const SChain& chain) const
{
    const std::lock_guard lock(m_mutex);
    return chain.nHolders == 1;
}

void CGridManager::Release(CGrid* pGrid)
{
    CMemoryManager::Instance().Release(pGrid->GetMemoryId());
    ChainPointer pGone; // deleted outside the lock
    const std::lock_guard lock(m_mutex);
    const auto chain = m_chains.find(pGrid->GetGridId());
    if (chain == m_chains.end() || (*chain)->nHolders == 0)
        return;
    --(*chain)->nHolders;
    if ((*chain)->nHolders > 0 || (*chain)->bRegistered)
        return;
    pGone = *chain;
    m_chains.erase(chain);
}

/** No longer registered: what nobody holds goes now. */
void CGridManager::Drop(const QVector<qint64>& ids)
{
    std::vector<ChainPointer> gone; // deleted outside the lock
    const std::lock_guard lock(m_mutex);
    for (const qint64 nId : ids) {
        const auto chain = m_chains.find(nId);
        if (chain == m_chains.end())
            continue;
        (*chain)->bRegistered = false;
        if ((*chain)->nHolders > 0)
            continue;
        gone.push_back(*chain);
        m_chains.erase(chain);
    }
}

std::vector<CGridManager::ChainPointer> CGridManager::ChainsOf(const QVector<qint64>& ids) const
{
    std::vector<ChainPointer> chains;
    for (const qint64 nId : ids)
        if (const ChainPointer pChain = m_chains.value(nId))
            chains.push_back(pChain);
    return chains;
}

STransform CGridManager::GetTransform(qint64 nSimulationId, qint64 nItemId, double dTime) const
{
    const std::lock_guard lock(m_mutex);
    const QVector<STimeMatch> matches = m_registry.Find(nSimulationId, nItemId, -1, NO_ID, dTime, false);
    const ChainPointer pChain = matches.isEmpty() ? nullptr : m_chains.value(matches.first().nLowId);
    return pChain ? pChain->transformed.GetTransform() : STransform();
}

void CGridManager::SetTransform(qint64 nSimulationId, qint64 nItemId, const STransform& transform)
{
    const std::lock_guard lock(m_mutex);
    for (const ChainPointer& pChain : ChainsOf(m_registry.IdsOf(nSimulationId, nItemId)))
        pChain->transformed.SetTransform(transform);
}

void CGridManager::FlipAxis(qint64 nSimulationId, qint64 nItemId, int nAxis)
{
    const std::lock_guard lock(m_mutex);
    for (const ChainPointer& pChain : ChainsOf(m_registry.IdsOf(nSimulationId, nItemId))) {
        pChain->flipped.ToggleFlip(nAxis);
        pChain->transformed.ForgetDerived(); // it doesn't notice
    }
}

QVector<double> CGridManager::GetTimes(qint64 nSimulationId, qint64 nItemId) const
{
    const std::lock_guard lock(m_mutex);
    return m_registry.Times(nSimulationId, nItemId);
}

QVector<qint64> CGridManager::GetItemIds(qint64 nSimulationId) const
{
    const std::lock_guard lock(m_mutex);
    return m_registry.ItemsOf(nSimulationId);
}

void CGridManager::RemoveItem(qint64 nSimulationId, qint64 nItemId)
{
    QVector<qint64> ids;
    {
        const std::lock_guard lock(m_mutex);
        ids = m_registry.IdsOf(nSimulationId, nItemId);
        m_registry.RemoveItem(nSimulationId, nItemId);
    }
    Drop(ids);
}

void CGridManager::RemoveSimulation(qint64 nSimulationId)
{
    for (const qint64 nItemId : GetItemIds(nSimulationId))
        RemoveItem(nSimulationId, nItemId);
}

qint64 CGridManager::CountGrids() const
{
    const std::lock_guard lock(m_mutex);
    return m_chains.size();
}
