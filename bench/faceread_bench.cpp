// The data of one shown face of each block: read alone, or by loading the blocks. Cold: the file isn't in the
// page cache. "Rule" is what the storage classes do by CPartialReads; the two beside it are its alternatives.
#include "data/io/partialreads.h"
#include "data/io/plot3dprobe.h"
#include "data/io/plot3dread.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

namespace {

enum Way_e { Whole, Face, Rule };

/** Raw coordinates of equal blocks, single precision. */
class CGridFile
{
public:
    CGridFile(int nBlocks, qint64 nSide) : m_nSide(nSide)
    {
        QFile file(Name());
        file.open(QIODevice::WriteOnly);
        std::vector<qint32> header(1 + 3 * nBlocks, qint32(nSide));
        header[0] = nBlocks;
        file.write(reinterpret_cast<const char*>(header.data()), qint64(header.size()) * 4);
        std::vector<float> block(3 * nSide * nSide * nSide);
        for (size_t n = 0; n < block.size(); ++n)
            block[n] = float(n % 1000);
        for (int n = 0; n < nBlocks; ++n)
            file.write(reinterpret_cast<const char*>(block.data()), qint64(block.size()) * 4);
        file.close();
        m_detected = DetectPlot3DGrid(Name());
    }
    QString Name() const { return m_folder.filePath("case.x"); }
    const SPlot3DFile& Detected() const { return m_detected; }
    qint64 Side() const { return m_nSide; }
    void DropFromCache() const
    {
        const int nHandle = open(qPrintable(Name()), O_RDONLY);
        fdatasync(nHandle);
        posix_fadvise(nHandle, 0, 0, POSIX_FADV_DONTNEED);
        close(nHandle);
    }

private:
    QTemporaryDir m_folder;
    const qint64 m_nSide;
    SPlot3DFile m_detected;
};

void ReadBlocks(const CGridFile& grid, Way_e eWay)
{
    const qint64 nSide = grid.Side();
    const SIJKRange face{{1, 1, 1}, {nSide, nSide, 1}};
    for (qint64 nBlock = 0; nBlock < grid.Detected().blocks.size(); ++nBlock) {
        const SPlot3DBlock& block = grid.Detected().blocks[int(nBlock)];
        const bool bFace = eWay == Face || (eWay == Rule && CPartialReads().Allows({block.size}, face, 4));
        const SPointRun run = bFace ? PlaneRun(block, 0, 1) : WholeRun(block);
        CReadFile device;
        device.Open(grid.Name());
        std::vector<float> x(run.nCount), y(run.nCount), z(run.nCount);
        ReadGridBlock<float>(device, grid.Detected(), nBlock, {x, y, z}, run);
        benchmark::DoNotOptimize(x.data());
    }
}

void ShownFaces(benchmark::State& state)
{
    const CGridFile grid(int(state.range(0)), state.range(1));
    const auto eWay = Way_e(state.range(2));
    const bool bCold = state.range(3) != 0;
    ReadBlocks(grid, Whole);
    for ([[maybe_unused]] auto _ : state) {
        if (bCold) {
            state.PauseTiming();
            grid.DropFromCache();
            state.ResumeTiming();
        }
        ReadBlocks(grid, eWay);
    }
}
BENCHMARK(ShownFaces)
    ->ArgNames({"blocks", "side", "way", "cold"})
    ->ArgsProduct({{2000}, {17}, {Whole, Face, Rule}, {0, 1}})
    ->ArgsProduct({{250}, {49}, {Whole, Face, Rule}, {0, 1}})
    ->ArgsProduct({{8}, {129}, {Whole, Face, Rule}, {0, 1}})
    ->Iterations(5)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
