// A Plot3D case through the managers: registration of 2,000 blocks, loading grid and solution of 10^7 points
// as fields, and built-in variables over them, each beside a limit of the same run.
#include "data/cases/casedata.h"
#include "data/cases/plot3dcase.h"
#include "data/kernels/largearray.h"
#include "data/kernels/parallel.h"
#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "data/variables/variablemanager.h"
#include "frame/memory/memorymanager.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace {

constexpr qint64 SIMULATION = 1;
constexpr qint64 SIDE = 216; // 216^3 is a little more than 10^7 points
constexpr qint64 POINTS = SIDE * SIDE * SIDE;

/** Files of single precision, raw, multi-block, in this machine's byte order. */
class CCaseFiles
{
public:
    static const CCaseFiles& Instance()
    {
        static const CCaseFiles s_instance;
        return s_instance;
    }
    SPlot3DCaseFiles Large() const { return {Path("large.x"), {Path("large.q")}, {}}; }
    SPlot3DCaseFiles Many() const { return {Path("many.x"), {Path("many.q")}, {}}; }

private:
    CCaseFiles()
    {
        for (const auto& [sName, nBlocks, nSide] : {std::tuple{"large", 1, 216}, {"many", 2000, 17}}) {
            Write(Path(QString("%1.x").arg(sName)), nBlocks, nSide, 3);
            Write(Path(QString("%1.q").arg(sName)), nBlocks, nSide, 5);
        }
    }
    QString Path(const QString& sName) const { return m_folder.filePath(sName); }
    static void Write(const QString& sFileName, int nBlocks, int nSide, int nArrays)
    {
        QFile file(sFileName);
        file.open(QIODevice::WriteOnly);
        std::vector<qint32> header = {nBlocks};
        for (int n = 0; n < nBlocks; ++n)
            header.insert(header.end(), {nSide, nSide, nSide});
        file.write(reinterpret_cast<const char*>(header.data()), header.size() * 4);
        const qint64 nPoints = qint64(nSide) * nSide * nSide;
        std::vector<float> data;
        for (int n = 0; n < nBlocks; ++n) {
            data.assign(nArrays == 5 ? 4 : 0,
                        0.5F); // a Q block begins with Mach number, angle, Reynolds number, time
            for (int nArray = 0; nArray < nArrays; ++nArray)
                for (qint64 nPoint = 0; nPoint < nPoints; ++nPoint)
                    data.push_back(nArray == 4 ? 3.0F : 1.0F + 0.1F * float((nPoint * 7 + nArray) % 11));
            file.write(reinterpret_cast<const char*>(data.data()), qint64(data.size()) * 4);
        }
    }
    QTemporaryDir m_folder;
};

CLease<IStructredSolution> Field(const char* sName)
{
    const qint64 nId = CVariableManager::Instance().FindByName(SIMULATION, sName, LocationNode);
    return AsStructured(CSolutionManager::Instance().GetSolution(nId, SIMULATION, 1, -1, -1.0));
}

void LoadAll()
{
    CGridManager::Instance().GetGrid(SIMULATION, 1, -1, -1.0)->GetPoint(qint64(0));
    for (const char* const sName : {"R", "RU", "RV", "RW", "RE"})
        Field(sName)->GetValue(qint64(0));
}

void RegisterManyBlocks(benchmark::State& state)
{
    const SPlot3DCaseFiles files = CCaseFiles::Instance().Many();
    for (auto _ : state) {
        const SPlot3DCase opened = RegisterPlot3DCase(SIMULATION, files);
        if (!opened.sError.isEmpty())
            state.SkipWithError(qPrintable(opened.sError));
        state.PauseTiming();
        RemoveCaseData(SIMULATION);
        state.ResumeTiming();
    }
}

/** The bytes of grid and solution through the managers; to be held against plot3d_bench's LimitTwoThreads. */
void LoadThroughManagers(benchmark::State& state)
{
    RegisterPlot3DCase(SIMULATION, CCaseFiles::Instance().Large());
    for (auto _ : state) {
        LoadAll();
        state.PauseTiming();
        CMemoryManager::Instance().FreeAll();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * 8 * 4 * POINTS);
    RemoveCaseData(SIMULATION);
}

void Evaluate(benchmark::State& state, const char* sName)
{
    RegisterPlot3DCase(SIMULATION, CCaseFiles::Instance().Large());
    LoadAll();
    CLargeArray<double> out(POINTS);
    const auto pField = Field(sName);
    const SIJKRange all = pField->GetShape().Range();
    if (pField->FillValues(all, out.Span()) != LoadOk)
        state.SkipWithError("no values");
    for (auto _ : state)
        if (pField->FillValues(all, out.Span()) != LoadOk)
            state.SkipWithError("no values");
    state.SetItemsProcessed(state.iterations() * POINTS);
}

/** The Mach number by hand, over the same arrays and threads. */
void LimitMach(benchmark::State& state)
{
    std::array<CLease<IStructredSolution>, 5> fields = {Field("R"), Field("RU"), Field("RV"), Field("RW"),
                                                        Field("RE")};
    std::array<const float*, 5> q;
    for (int n = 0; n < 5; ++n)
        q[n] = fields[n]->GetStoredValues().pSingle;
    CLargeArray<double> out(POINTS);
    const auto run = [&](qint64, qint64 nBegin, qint64 nEnd) {
        for (qint64 n = nBegin; n < nEnd; ++n) {
            const double r = q[0][n], ru = q[1][n], rv = q[2][n], rw = q[3][n], re = q[4][n];
            const double dMomentum = ru * ru + rv * rv + rw * rw;
            const double p = (1.4 - 1) * (re - 0.5 * dMomentum / r);
            const double t = p / (287.22 * r);
            const double dMach = std::sqrt(dMomentum) / r / std::sqrt(1.4 * 287.22 * t);
            out[n] = std::isnan(dMach) ? 999999.0 : dMach;
        }
    };
    RunRanges(POINTS, 1 << 16, run);
    for (auto _ : state)
        RunRanges(POINTS, 1 << 16, run);
    state.SetItemsProcessed(state.iterations() * POINTS);
}

} // namespace

BENCHMARK(RegisterManyBlocks)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LoadThroughManagers)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, P, "P[Q]")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, Vmag, "Vmag[Q]")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, Cp, "Cp[Q]")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Evaluate, M, "M[Q]")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LimitMach)->UseRealTime()->Unit(benchmark::kMillisecond);
