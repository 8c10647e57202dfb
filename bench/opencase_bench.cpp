// Opening a Plot3D case of 2,000 blocks: detection, items, registration of 18,000 fields, built-in variables.
// Only headers are read; the limit beside it is the registration alone. Then the bracket round an edit.
#include "data/casedata.h"
#include "modules/plot3d/plot3dsimulation.h"
#include "simulation/simulationmanager.h"
#include "tests/support/testsimulation.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

constexpr int BLOCKS = 2000;
constexpr int SIDE = 5;

/** A grid and a Q file, single precision, raw, multi-block. */
class CManyBlocks
{
    QTemporaryDir m_folder; // ahead of the names in it

public:
    static const CManyBlocks& Instance()
    {
        static const CManyBlocks s_instance;
        return s_instance;
    }
    const QString sGrid = m_folder.filePath("many.x");
    const QString sQ = m_folder.filePath("many.q");

private:
    CManyBlocks()
    {
        Write(sGrid, 3 * SIDE * SIDE * SIDE);
        Write(sQ, 4 + 5 * SIDE * SIDE * SIDE);
    }
    static void Write(const QString& sFileName, int nReals)
    {
        QFile file(sFileName);
        file.open(QIODevice::WriteOnly);
        std::vector<qint32> header = {BLOCKS};
        header.resize(1 + 3 * BLOCKS, SIDE);
        file.write(reinterpret_cast<const char*>(header.data()), qint64(header.size()) * 4);
        const std::vector<float> block(nReals, 0.5F);
        for (int n = 0; n < BLOCKS; ++n)
            file.write(reinterpret_cast<const char*>(block.data()), qint64(block.size()) * 4);
    }
};

void OpenCase(benchmark::State& state)
{
    const CTestSelectableFactory selectables;
    const CManyBlocks& files = CManyBlocks::Instance();
    CSimulationManager& manager = CSimulationManager::Instance();
    for ([[maybe_unused]] auto _ : state) {
        ForgetDetectedFiles();
        CCaseRecords records;
        records.AddFile(files.sGrid);
        records.AddCompanions();
        auto* const pSimulation = new CPlot3DSimulation(1);
        manager.AddSimulation(pSimulation, 1);
        if (!pSimulation->Load(records).isEmpty() || pSimulation->GetItemCount() != BLOCKS)
            state.SkipWithError("the case didn't open");
        state.PauseTiming();
        manager.RemoveAllViews();
        state.ResumeTiming();
    }
}
BENCHMARK(OpenCase)->Unit(benchmark::kMillisecond);

void RegistrationAlone(benchmark::State& state)
{
    const CManyBlocks& files = CManyBlocks::Instance();
    for ([[maybe_unused]] auto _ : state) {
        if (!RegisterPlot3DCase(1, {files.sGrid, {files.sQ}, {}}).sError.isEmpty())
            state.SkipWithError("the case didn't open");
        state.PauseTiming();
        RemoveCaseData(1);
        state.ResumeTiming();
    }
}
BENCHMARK(RegistrationAlone)->Unit(benchmark::kMillisecond);

void UndoBracket(benchmark::State& state)
{
    const CTestSelectableFactory selectables;
    CCaseRecords records;
    records.AddFile(CManyBlocks::Instance().sGrid);
    auto* const pSimulation = new CPlot3DSimulation(1);
    CSimulationManager::Instance().AddSimulation(pSimulation, 1);
    pSimulation->Load(records);
    ISelectable* const pShown = pSimulation->GetItem(1)->GetSelectable(1);
    for ([[maybe_unused]] auto _ : state) {
        pSimulation->BeginUndoStep();
        pShown->setVisible(!pShown->isVisible());
        pSimulation->EndUndoStep();
    }
    CSimulationManager::Instance().RemoveAllViews();
}
BENCHMARK(UndoBracket)->Unit(benchmark::kMillisecond);

} // namespace
