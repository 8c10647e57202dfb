// Opening a Plot3D case of 2,000 blocks: detection, items, registration of 18,000 fields, built-in variables.
// Only headers are read; the limit beside it is the registration alone. Then the bracket round an edit, and
// saving and opening its case file, with the selectables of the program, each coloured by a formula of
// formulas.
#include "cases/autosave/autosavefolder.h"
#include "cases/display/displayfile.h"
#include "cases/files/casestorage.h"
#include "data/cases/casedata.h"
#include "data/variables/variablemanager.h"
#include "frame/replacefile.h"
#include "modules/plot3d/plot3dsimulation.h"
#include "simulation/simulationmanager.h"
#include "tests/support/testsimulation.h"
#include "view/selectables/selectablefactory.h"

#include <QFile>
#include <QFileInfo>
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

/** The case with its display, and its file. */
class CSavedCase
{
public:
    CSavedCase()
    {
        CCaseRecords records;
        records.AddFile(CManyBlocks::Instance().sGrid);
        records.AddCompanions();
        CSimulationManager::Instance().AddSimulation(m_pSimulation, 1);
        m_pSimulation->Load(records);
        const qint64 nScalar =
            CVariableManager::Instance().FindByName(m_pSimulation->GetId(), "M[Q]", LocationNode);
        for (ISelectable* const p :
             CSelectableManager::Instance().GetSelectables(1, m_pSimulation->GetId())) {
            p->setScalarVariable(nScalar);
            p->setGeometricColor(false);
        }
        SaveCase(*m_pSimulation, "Plot3D", sFile);
    }
    ~CSavedCase() { CSimulationManager::Instance().RemoveAllViews(); }
    CSavedCase(const CSavedCase&) = delete;
    CSavedCase& operator=(const CSavedCase&) = delete;
    CPlot3DSimulation& Simulation() { return *m_pSimulation; }

private:
    CSelectableFactory m_factory;
    QTemporaryDir m_folder;
    CPlot3DSimulation* const m_pSimulation = new CPlot3DSimulation(1); // of the manager

public:
    const QString sFile = m_folder.filePath("many.zento");
};

void SaveCaseFile(benchmark::State& state)
{
    CSavedCase saved;
    for ([[maybe_unused]] auto _ : state)
        if (!SaveCase(saved.Simulation(), "Plot3D", saved.sFile))
            state.SkipWithError("the case wasn't saved");
    state.SetBytesProcessed(state.iterations() * QFileInfo(saved.sFile).size());
}
BENCHMARK(SaveCaseFile)->Unit(benchmark::kMillisecond);

void OpenCaseFile(benchmark::State& state)
{
    const CSavedCase saved;
    for ([[maybe_unused]] auto _ : state) {
        QByteArray bytes;
        SCaseFile file;
        auto* const pSimulation = new CPlot3DSimulation(1);
        pSimulation->SetFilePath(saved.sFile);
        CSimulationManager::Instance().AddSimulation(pSimulation, 2);
        if (!ReadWholeFile(saved.sFile, bytes) || file.FromBytes(bytes) != StoredOk ||
            !FillCase(*pSimulation, file, 2, true))
            state.SkipWithError("the case didn't open");
        state.PauseTiming();
        CSimulationManager::Instance().RemoveSimulationFromView(pSimulation->GetId(), 2);
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * QFileInfo(saved.sFile).size());
}
BENCHMARK(OpenCaseFile)->Unit(benchmark::kMillisecond);

/** What an automatic save costs every two minutes while nothing has changed since the last one. */
void KeepUnchanged(benchmark::State& state)
{
    CSavedCase saved;
    const QTemporaryDir folder;
    CAutosaveFolder kept(folder.path());
    for ([[maybe_unused]] auto _ : state)
        kept.Store(1, SAutosaveFile{"Plot3D", "many", saved.sFile,
                                    TakeCase(saved.Simulation(), "Plot3D", 1, {}).ToBytes()}
                          .ToBytes());
    kept.Clear();
}
BENCHMARK(KeepUnchanged)->Unit(benchmark::kMillisecond);

/** The limit: the same bytes alone. */
void WriteSameBytes(benchmark::State& state)
{
    const CSavedCase saved;
    QByteArray bytes;
    ReadWholeFile(saved.sFile, bytes);
    for ([[maybe_unused]] auto _ : state)
        ReplaceFile(saved.sFile, bytes);
    state.SetBytesProcessed(state.iterations() * bytes.size());
}
BENCHMARK(WriteSameBytes)->Unit(benchmark::kMillisecond);

void MakeDisplayJson(benchmark::State& state)
{
    CSavedCase saved;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(MakeDisplayFile(saved.Simulation(), 1));
}
BENCHMARK(MakeDisplayJson)->Unit(benchmark::kMillisecond);

void LoadDisplayJson(benchmark::State& state)
{
    CSavedCase saved;
    const QJsonObject display = saved.Simulation().SaveViewJson(1);
    for ([[maybe_unused]] auto _ : state)
        saved.Simulation().LoadViewJson(display, 1, 1.0);
}
BENCHMARK(LoadDisplayJson)->Unit(benchmark::kMillisecond);

} // namespace
