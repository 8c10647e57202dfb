// What an undo step costs on a case of 2,000 items, against a plain copy of the state's bytes.
#include "tests/support/testsimulation.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int ITEM_COUNT = 2000;

/** A case as a module leaves it: settings, three boundary conditions and a parent for each item. */
CTestSimulation* MakeCase()
{
    auto* const pSimulation = new CTestSimulation;
    CSimulationManager::Instance().AddSimulation(pSimulation, 1);
    for (int n = 0; n < ITEM_COUNT; ++n) {
        CItem* const pItem = pSimulation->Make(n % 4);
        pItem->SetName(QString("Zone %1").arg(n), 0);
        pItem->SetString("Grid.AbsoluteFileName", "/cases/wing/grid.x", "");
        pItem->SetInt("Grid.FileIndex", n, -1);
        pItem->SetDouble("1D.CFLFactor", 0.5 + n, 1.0);
        for (int k = 0; k < 3; ++k) {
            pItem->SetInt(QString("BC.%1.FaceIndex").arg(k), k + 1, 0);
            pItem->SetInt(QString("BC.%1.IEnd").arg(k), 33, 0);
            pItem->SetInt(QString("BC.%1.JEnd").arg(k), 65, 0);
        }
    }
    return pSimulation;
}

class Undo : public benchmark::Fixture
{
public:
    void SetUp(benchmark::State&) override { m_pSimulation = MakeCase(); }
    void TearDown(benchmark::State&) override { CSimulationManager::Instance().RemoveAllViews(); }

protected:
    void Edit()
    {
        m_pSimulation->BeginUndoStep();
        CItem* const pItem = m_pSimulation->GetItem(1 + m_nEdit * 37 % ITEM_COUNT);
        pItem->SetDouble("1D.Tolerance", ++m_nEdit, 0.0);
        m_pSimulation->EndUndoStep();
    }
    CTestSimulation* m_pSimulation = nullptr;
    int m_nEdit = 0;
};

} // namespace

BENCHMARK_F(Undo, CopyOfTheBytes)(benchmark::State& state)
{
    const QByteArray bytes = m_pSimulation->CaptureState();
    for (auto _ : state) {
        QByteArray copy(bytes.constData(), bytes.size());
        benchmark::DoNotOptimize(copy.data());
    }
    state.counters["stateBytes"] = bytes.size();
}

BENCHMARK_F(Undo, Capture)(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(m_pSimulation->CaptureState());
}

BENCHMARK_F(Undo, EditInABracket)(benchmark::State& state)
{
    for (auto _ : state)
        Edit();
    state.counters["bytesPerStep"] = m_pSimulation->GetUndoBytes() / double(m_pSimulation->GetUndoCount());
}

BENCHMARK_F(Undo, UndoAndRedo)(benchmark::State& state)
{
    for (int n = 0; n < 10; ++n)
        Edit();
    for (auto _ : state) {
        m_pSimulation->Undo();
        m_pSimulation->Redo();
    }
}
