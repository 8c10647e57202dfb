#include "data/managers/solutionmanager.h"

#include "data/managers/fieldranges.h"

#include "data/io/plot3dreaders.h"
#include "data/io/solutionio.h"
#include "data/managers/fieldrequest.h"
#include "data/solutions/bytesolution.h"
#include "data/solutions/interpsolution.h"
#include "data/solutions/solutionpack.h"
#include "data/variables/variablemanager.h"
#include "frame/memory/memorymanager.h"

namespace {

template <class Storage> std::unique_ptr<CSolution> MakeStorageOf(std::unique_ptr<IBlockReader> pReader)
{
    auto pSolution = std::make_unique<Storage>();
    pSolution->SetReader(std::move(pReader));
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
    const bool bDouble = IsDoublePrecisionFormat(nCode);
    const bool bIntegers = mask.IsIntegerData();
    auto pReader = std::make_unique<CPlot3DSolutionReader>(
        mask.GetFileName(), mask.GetFileIndex(), mask.GetVariableIndex(), bDouble, bIntegers, known);
    if (bDouble)
        return bIntegers ? MakeStorageOf<CSolutionByteDoublePrecision>(std::move(pReader))
                         : MakeStorageOf<CSolutionDoublePrecision>(std::move(pReader));
    return bIntegers ? MakeStorageOf<CSolutionByteSinglePrecision>(std::move(pReader))
                     : MakeStorageOf<CSolutionSinglePrecision>(std::move(pReader));
}

} // namespace

CSolutionManager& CSolutionManager::Instance()
{
    static CSolutionManager* const pManager = new CSolutionManager; // never destroyed, see CMessageSink
    return *pManager;
}

void CSolutionManager::EmptyCache() { CSolutionIO::Cache().Clear(); }

CSolutionManager::CSolutionManager()
{
    CMemoryManager::Instance().AddCache(this);
    InstallFieldRanges();
}

qint64 CSolutionManager::AddSolution(qint64 nSimulationId, qint64 nItemId, qint64 nVariableId, qint64 nSubId,
                                     const SSolutionFile& file, double dTime)
{
    const std::shared_ptr<const SFieldRecipe> pRecipe = CVariableManager::Instance().GetRecipe(nVariableId);
    if (!pRecipe || !pRecipe->bOfFile)
        return NO_ID;
    EmptyCache();
    auto pEntry = std::make_unique<SEntry>(
        [known = file.known](const CSolutionMask& mask) { return MakeStorage(mask, known); });
    pEntry->mask.SetOwner(this);
    pEntry->mask.SetIntegerData(file.bIntegerData);
    pEntry->mask.Init(file.sFileName, file.nBlock, file.nVariable, file.dimensions, file.start);
    return m_table.Add({nSimulationId, nItemId, nVariableId, {file.dimensions, file.start}}, nSubId, dTime,
                       std::move(pEntry));
}

qint64 CSolutionManager::AddSolution(qint64 nSimulationId, qint64 nItemId, qint64 nVariableId, qint64 nSubId,
                                     const SBlockShape& shape,
                                     const std::function<std::unique_ptr<CSolution>()>& factory, double dTime)
{
    auto pEntry = std::make_unique<SEntry>([this, factory](const CSolutionMask&) {
        std::unique_ptr<CSolution> pSolution = factory();
        if (pSolution)
            pSolution->SetOwner(this);
        return pSolution;
    });
    pEntry->mask.SetOwner(this);
    pEntry->mask.Init({}, 0, 0, shape.dimensions, shape.start);
    return m_table.Add({nSimulationId, nItemId, nVariableId, shape}, nSubId, dTime, std::move(pEntry));
}

QVector<STimeMatch> CSolutionManager::GetSolutionIds(qint64 nVariableId, qint64 nSimulationId, qint64 nItemId,
                                                     qint64 nSubId, double dTime, bool bExact) const
{
    return m_table.Look([&](const CLevelRegistry& registry) {
        return registry.Find(nSimulationId, nItemId, nVariableId, nSubId, dTime, bExact);
    });
}

bool CSolutionManager::HasSolutions(qint64 nSimulationId, qint64 nVariableId) const
{
    return m_table.Look(
        [&](const CLevelRegistry& registry) { return registry.HasField(nSimulationId, nVariableId); });
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
    return ComposeMatches<ISolution, CInterpSolution, CSolutionPack>(
        GetSolutionIds(nVariableId, nSimulationId, nItemId, nSubId, dTime, false),
        [&](qint64 nId) -> ISolution* {
            SEntry* const pEntry = m_table.Hold(nId);
            return pEntry ? &pEntry->mask : nullptr;
        });
}

void CSolutionManager::Release(CSolution* pSolution)
{
    m_table.Release(pSolution->GetSolutionId(), pSolution->GetMemoryId());
}

QVector<double> CSolutionManager::GetTimes(qint64 nSimulationId, qint64 nItemId) const
{
    return m_table.Look(
        [&](const CLevelRegistry& registry) { return registry.Times(nSimulationId, nItemId); });
}
