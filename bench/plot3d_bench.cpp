// Loading, detecting and scanning Plot3D files, each beside the limit that it is held against: the faster of
// fread and two threads' pread of the same bytes into fresh memory with huge pages, one pread of the headers,
// and streaming the array once. Files lie in the temporary folder, that is, in the page cache.
#include "data/io/plot3dprobe.h"
#include "data/io/plot3dread.h"
#include "data/kernels/byteswap.h"
#include "data/kernels/largearray.h"
#include "data/kernels/parallel.h"
#include "data/kernels/range.h"
#include "data/kernels/vectorize.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <benchmark/benchmark.h>

#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <numeric>
#include <thread>
#include <vector>

namespace {

constexpr qint64 SIDE = 216; // 216^3 is a little more than 10^7 points
constexpr qint64 POINTS = SIDE * SIDE * SIDE;
constexpr int MANY_BLOCKS = 2000;
constexpr qint64 SMALL_SIDE = 17;

/** The benchmark's files, made at first use and removed at the end. */
class CBenchFiles
{
public:
    static const CBenchFiles& Instance()
    {
        static const CBenchFiles s_instance;
        return s_instance;
    }

    QString Path(FileKind_e eKind, bool bSwapped) const
    {
        return m_folder.filePath(QString("%1_%2").arg(eKind).arg(bSwapped));
    }
    QString ManyBlocks() const { return m_folder.filePath("many"); }

private:
    CBenchFiles()
    {
        for (const bool bSwapped : {false, true}) {
            Write(Path(KindGrid, bSwapped), {{SIDE, SIDE, SIDE}}, 3, bSwapped);
            Write(Path(KindQ, bSwapped), {{SIDE, SIDE, SIDE}}, 5, bSwapped);
        }
        Write(ManyBlocks(), QVector<IVector3D>(MANY_BLOCKS, {SMALL_SIDE, SMALL_SIDE, SMALL_SIDE}), 3, false);
    }

    /** A raw multi-block file of singles, with the header of a Q file where there are five arrays. */
    static void Write(const QString& sFileName, const QVector<IVector3D>& sizes, int nArrays, bool bSwapped)
    {
        QFile file(sFileName);
        file.open(QIODevice::WriteOnly);
        std::vector<qint32> header = {qint32(sizes.size())};
        for (const IVector3D& size : sizes)
            header.insert(header.end(), {qint32(size.i), qint32(size.j), qint32(size.k)});
        for (const qint32 n : header)
            WriteWord(file, n, bSwapped);
        for (const IVector3D& size : sizes) {
            const std::vector<char> data((size.i * size.j * size.k * nArrays + (nArrays == 5 ? 4 : 0)) * 4,
                                         3);
            file.write(data.data(), qint64(data.size()));
        }
    }
    static void WriteWord(QFile& file, qint32 nWord, bool bSwapped)
    {
        nWord = bSwapped ? qbswap(nWord) : nWord;
        file.write(reinterpret_cast<const char*>(&nWord), sizeof nWord);
    }

    QTemporaryDir m_folder;
};

std::vector<CLargeArray<float>> FreshArrays(int nCount)
{
    std::vector<CLargeArray<float>> arrays;
    for (int n = 0; n < nCount; ++n)
        arrays.emplace_back(POINTS);
    return arrays;
}

void LoadGridAndQ(bool bSwapped)
{
    const QString sGrid = CBenchFiles::Instance().Path(KindGrid, bSwapped);
    const QString sQ = CBenchFiles::Instance().Path(KindQ, bSwapped);
    const SPlot3DFile grid = DetectPlot3DGrid(sGrid);
    const SPlot3DFile q = DetectPlot3DSolution(sQ);
    std::vector<CLargeArray<float>> arrays = FreshArrays(8);
    CReadFile device;
    bool bOk = OpenForLoad(sGrid, device).IsOk();
    bOk = bOk && ReadGridBlock<float>(device, grid, 0, {arrays[0].Span(), arrays[1].Span(), arrays[2].Span()},
                                      WholeRun(grid.blocks[0]))
                     .IsOk();
    bOk = bOk && OpenForLoad(sQ, device).IsOk();
    for (int n = 0; n < 5; ++n)
        bOk = bOk && ReadVariable<float>(device, q, 0, n, arrays[3 + n].Span(), WholeRun(q.blocks[0])).IsOk();
    if (!bOk)
        std::abort();
}

/** The limit: arrays of the same size from the same files, without looking at what they are. */
template <class Read> void ReadBoth(const Read& read)
{
    std::vector<CLargeArray<float>> arrays = FreshArrays(8);
    for (const auto& [eKind, nFirst, nCount] : {std::tuple(KindGrid, 0, 3), std::tuple(KindQ, 3, 5)})
        for (int n = 0; n < nCount; ++n)
            read(CBenchFiles::Instance().Path(eKind, false), 16 + n * POINTS * 4, arrays[nFirst + n].Span());
}

void ByFread(const QString& sFileName, qint64 nOffset, std::span<float> values)
{
    std::FILE* const pFile = std::fopen(QFile::encodeName(sFileName).constData(), "rb");
    std::fseek(pFile, nOffset, SEEK_SET);
    if (std::fread(values.data(), sizeof(float), values.size(), pFile) != values.size())
        std::abort();
    std::fclose(pFile);
}

void ByTwoThreads(const QString& sFileName, qint64 nOffset, std::span<float> values)
{
    CReadFile device;
    device.Open(sFileName);
    const qint64 nHalf = qint64(values.size()) / 2;
    std::thread other([&] { device.Read(nOffset, std::as_writable_bytes(values.first(nHalf))); });
    device.Read(nOffset + nHalf * 4, std::as_writable_bytes(values.subspan(nHalf)));
    other.join();
}

void SetBytes(benchmark::State& state, qint64 nBytes)
{
    state.SetBytesProcessed(state.iterations() * nBytes);
}

void Load(benchmark::State& state)
{
    CBenchFiles::Instance();
    for (auto _ : state)
        LoadGridAndQ(state.range(0) != 0);
    SetBytes(state, 8 * POINTS * 4);
}

void LimitFread(benchmark::State& state)
{
    CBenchFiles::Instance();
    for (auto _ : state)
        ReadBoth(ByFread);
    SetBytes(state, 8 * POINTS * 4);
}

void LimitTwoThreads(benchmark::State& state)
{
    CBenchFiles::Instance();
    for (auto _ : state)
        ReadBoth(ByTwoThreads);
    SetBytes(state, 8 * POINTS * 4);
}

/** Bytes that this process has asked the system for. */
qint64 BytesRead()
{
    QFile file("/proc/self/io");
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readLine().mid(6).trimmed().toLongLong();
}

void DetectManyBlocks(benchmark::State& state)
{
    const QString sFileName = CBenchFiles::Instance().ManyBlocks();
    const qint64 nOwn = -BytesRead() + BytesRead(); // what asking reads
    const qint64 nBefore = BytesRead();
    if (BlockDimensions(DetectPlot3DGrid(sFileName)).size() != MANY_BLOCKS)
        std::abort();
    state.counters["bytesRead"] = double(BytesRead() - nBefore - nOwn);
    for (auto _ : state)
        benchmark::DoNotOptimize(BlockDimensions(DetectPlot3DGrid(sFileName)));
}

void LimitOnePread(benchmark::State& state)
{
    const QString sFileName = CBenchFiles::Instance().ManyBlocks();
    for (auto _ : state) {
        CReadFile device;
        device.Open(sFileName);
        std::vector<std::byte> bytes(4 + MANY_BLOCKS * 12);
        benchmark::DoNotOptimize(device.Read(0, bytes));
    }
}

constexpr size_t CACHED = size_t(1) << 18; // [bytes] what a load reads and swaps at a time

template <class Word> void SwapInCache(benchmark::State& state)
{
    std::vector<Word> words(CACHED / sizeof(Word));
    for (auto _ : state) {
        SwapBytes(std::span(words));
        benchmark::ClobberMemory();
    }
    SetBytes(state, CACHED);
}

void LimitCopyInCache(benchmark::State& state)
{
    std::vector<char> from(CACHED);
    std::vector<char> to(CACHED);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), CACHED);
        benchmark::ClobberMemory();
    }
    SetBytes(state, CACHED);
}

/** Values that rise and fall, so that extremes turn up all along the array. */
template <class Real> CLargeArray<Real> MakeField()
{
    CLargeArray<Real> field(POINTS);
    for (qint64 n = 0; n < POINTS; ++n)
        field[n] = Real(std::sin(double(n) * 1e-3) * double(n));
    return field;
}

template <class Real> void Range(benchmark::State& state)
{
    const CLargeArray<Real> field = MakeField<Real>();
    for (auto _ : state)
        benchmark::DoNotOptimize(FindRange(field.Span()));
    SetBytes(state, field.Bytes());
}

/** With every tenth point without a value, as in a case with holes. */
template <class Real> void RangeWithNoValues(benchmark::State& state)
{
    CLargeArray<Real> field = MakeField<Real>();
    for (qint64 n = 0; n < POINTS; n += 10)
        field[n] = Real(999999.0);
    for (auto _ : state)
        benchmark::DoNotOptimize(FindRange(std::as_const(field).Span()));
    SetBytes(state, field.Bytes());
}

/** Streaming once: the bits of all words joined, which costs nothing beside the memory. */
ZENTO_VECTORIZE quint64 JoinBits(std::span<const std::byte> bytes)
{
    constexpr size_t LANES = 16;
    quint64 joined[LANES] = {};
    for (size_t n = 0; n + sizeof joined <= bytes.size(); n += sizeof joined)
        for (size_t nLane = 0; nLane < LANES; ++nLane)
            joined[nLane] ^= reinterpret_cast<const quint64*>(bytes.data() + n)[nLane];
    return std::accumulate(joined, joined + LANES, quint64(0), std::bit_xor());
}

template <class Real> void LimitStream(benchmark::State& state)
{
    const CLargeArray<Real> field = MakeField<Real>();
    const auto bytes = std::as_bytes(field.Span());
    for (auto _ : state) {
        std::atomic<quint64> nAll = 0;
        RunRanges(qint64(bytes.size()), 1 << 20, [&](qint64, qint64 nBegin, qint64 nEnd) {
            nAll ^= JoinBits(bytes.subspan(nBegin, nEnd - nBegin));
        });
        benchmark::DoNotOptimize(nAll.load());
    }
    SetBytes(state, field.Bytes());
}

} // namespace

BENCHMARK(Load)->ArgName("swapped")->Arg(0)->Arg(1)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LimitFread)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LimitTwoThreads)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(DetectManyBlocks)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(LimitOnePread)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(SwapInCache<quint32>)->Unit(benchmark::kMicrosecond);
BENCHMARK(SwapInCache<quint64>)->Unit(benchmark::kMicrosecond);
BENCHMARK(LimitCopyInCache)->Unit(benchmark::kMicrosecond);
BENCHMARK(Range<float>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(RangeWithNoValues<float>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LimitStream<float>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Range<double>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(RangeWithNoValues<double>)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(LimitStream<double>)->UseRealTime()->Unit(benchmark::kMillisecond);
