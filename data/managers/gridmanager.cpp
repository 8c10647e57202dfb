#include "data/managers/gridmanager.h"

#include "data/managers/fieldranges.h"

#include "data/grids/gridpack.h"
#include "data/grids/interpgrid.h"
#include "data/grids/storagegrid.h"
#include "data/io/gridio.h"
#include "data/io/plot3dreaders.h"
#include "frame/memory/memorymanager.h"
#include "frame/messagesink.h"

namespace {

template <class Storage> std::unique_ptr<CGrid> MakeStorageOf(std::unique_ptr<IBlockReader> pReader)
{
    auto pGrid = std::make_unique<Storage>();
    pGrid->SetReader(std::move(pReader));
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
    const bool bDouble = IsDoublePrecisionFormat(nCode);
    auto pReader = std::make_unique<CPlot3DGridReader>(mask.CGrid::GetFileName(), mask.CGrid::GetFileIndex(),
                                                       bDouble, known);
    return bDouble ? MakeStorageOf<CGridDoublePrecision>(std::move(pReader))
                   : MakeStorageOf<CGridSinglePrecision>(std::move(pReader));
}

} // namespace

void CGridManager::SChain::SetId(qint64 nId)
{
    mask.SetGridId(nId);
    flipped.SetGridId(nId);
    transformed.SetGridId(nId);
}

void CGridManager::SChain::StartAnew()
{
    mask.StartAnew();
    ForgetDerived();
}

/** What the grids around the mask have built; they don't notice that it changes. */
void CGridManager::SChain::ForgetDerived()
{
    flipped.ForgetDerived();
    transformed.ForgetDerived();
}

CGridManager& CGridManager::Instance()
{
    static CGridManager* const pManager = new CGridManager; // never destroyed, see CMessageSink
    return *pManager;
}

void CGridManager::EmptyCache() { CGridIO::Cache().Clear(); }

CGridManager::CGridManager()
{
    CMemoryManager::Instance().AddCache(this);
    InstallFieldRanges();
}

qint64 CGridManager::AddGrid(qint64 nSimulationId, qint64 nItemId, qint64 nSubId, const SGridFile& file,
                             double dTime)
{
    EmptyCache();
    auto pChain = std::make_unique<SChain>(
        [known = file.known](const CGridMask& mask) { return MakeStorage(mask, known); });
    pChain->mask.SetOwner(this);
    pChain->mask.Init(file.sFileName, file.nBlock, file.dimensions, file.start, true);
    return m_table.Add({nSimulationId, nItemId, -1, {file.dimensions, file.start}}, nSubId, dTime,
                       std::move(pChain));
}

qint64 CGridManager::AddGrid(qint64 nSimulationId, qint64 nItemId, qint64 nSubId, const SBlockShape& shape,
                             const std::function<std::unique_ptr<CGrid>()>& factory, double dTime)
{
    auto pChain = std::make_unique<SChain>([this, factory](const CGridMask&) {
        std::unique_ptr<CGrid> pGrid = factory();
        if (pGrid)
            pGrid->SetOwner(this);
        return pGrid;
    });
    pChain->mask.SetOwner(this);
    pChain->mask.Init({}, 0, shape.dimensions, shape.start, false);
    return m_table.Add({nSimulationId, nItemId, -1, shape}, nSubId, dTime, std::move(pChain));
}

QVector<STimeMatch> CGridManager::GetGridIds(qint64 nSimulationId, qint64 nItemId, qint64 nSubId,
                                             double dTime, bool bExact) const
{
    return m_table.Look([&](const CLevelRegistry& registry) {
        return registry.Find(nSimulationId, nItemId, -1, nSubId, dTime, bExact);
    });
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
    const QVector<STimeMatch> matches = GetGridIds(nSimulationId, nItemId, nSubId, dTime, bExact);
    const auto [bKnown, nSimulations] = m_table.Look([&](const CLevelRegistry& registry) {
        return std::pair(registry.HasSimulation(nSimulationId), registry.SimulationCount());
    });
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
    const bool bMoved = !HaveOneTransform(matches);
    return ComposeMatches<IGrid, CInterpGrid, CGridPack>(matches, [&](qint64 nId) -> IGrid* {
        SChain* const pChain = m_table.Hold(nId);
        if (!pChain)
            return nullptr;
        return bMoved ? static_cast<IGrid*>(&pChain->transformed) : &pChain->flipped;
    });
}

bool CGridManager::HaveOneTransform(const QVector<STimeMatch>& matches) const
{
    QVector<qint64> ids;
    for (const STimeMatch& match : matches)
        ids << match.nLowId << match.nHighId;
    QVector<STransform> transforms;
    m_table.ForEach(ids, [&](const SChain& chain) { transforms.append(chain.transformed.GetTransform()); });
    return std::all_of(transforms.begin(), transforms.end(),
                       [&](const STransform& t) { return t == transforms[0]; });
}

void CGridManager::Release(CGrid* pGrid) { m_table.Release(pGrid->GetGridId(), pGrid->GetMemoryId()); }

template <class Visit>
void CGridManager::ForEachOf(qint64 nSimulationId, qint64 nItemId, const Visit& visit) const
{
    const QVector<qint64> ids =
        m_table.Look([&](const CLevelRegistry& registry) { return registry.IdsOf(nSimulationId, nItemId); });
    m_table.ForEach(ids, visit);
}

STransform CGridManager::GetTransform(qint64 nSimulationId, qint64 nItemId, double dTime) const
{
    STransform transform;
    const QVector<STimeMatch> matches = GetGridIds(nSimulationId, nItemId, NO_ID, dTime, false);
    if (!matches.isEmpty())
        m_table.ForEach({matches.first().nLowId},
                        [&](const SChain& chain) { transform = chain.transformed.GetTransform(); });
    return transform;
}

void CGridManager::SetTransform(qint64 nSimulationId, qint64 nItemId, const STransform& transform)
{
    ForEachOf(nSimulationId, nItemId, [&](SChain& chain) { chain.transformed.SetTransform(transform); });
}

void CGridManager::FlipAxis(qint64 nSimulationId, qint64 nItemId, int nAxis)
{
    ForEachOf(nSimulationId, nItemId, [&](SChain& chain) {
        chain.flipped.ToggleFlip(nAxis);
        chain.transformed.ForgetDerived();
    });
}

QVector<double> CGridManager::GetTimes(qint64 nSimulationId, qint64 nItemId) const
{
    return m_table.Look(
        [&](const CLevelRegistry& registry) { return registry.Times(nSimulationId, nItemId); });
}

QVector<qint64> CGridManager::GetItemIds(qint64 nSimulationId) const
{
    return m_table.Look([&](const CLevelRegistry& registry) { return registry.ItemsOf(nSimulationId); });
}
