// Packs to bytes and back, in bytes/s of the stream. The limit is a memcpy of the same bytes; the way not
// taken, a QDataStream for each value, is timed on the same mix of counts, strings and numbers.
#include "frame/packs/bytestream.h"
#include "frame/packs/datapack.h"

#include <QDataStream>

#include <benchmark/benchmark.h>

#include <cstring>

namespace {
constexpr int ITEM_KEYS = 10;
constexpr int CHILDREN = 5;
constexpr int CHILD_KEYS = 8;
constexpr int COUNTS = 25; // in the stream of every pack

void SetOne(CDataPack& pack, const QString& sPath, int n)
{
    switch (n % 4) {
    case 0:
        return pack.SetInt(sPath, 1000 + n, 0);
    case 1:
        return pack.SetDouble(sPath, 0.1 * n, 0.0);
    case 2:
        return pack.SetString(sPath, QString("Subject %1").arg(n), "");
    default:
        return pack.SetBool(sPath, true, false);
    }
}

/** An item of a simulation as undo stores it by the thousand: 10 keys, and 5 boundaries of 8 keys. */
CDataPack MakeItem()
{
    CDataPack pack;
    for (int n = 0; n < ITEM_KEYS; ++n)
        SetOne(pack, QString("Setting%1").arg(n), n);
    for (int nChild = 0; nChild < CHILDREN; ++nChild)
        for (int n = 0; n < CHILD_KEYS; ++n)
            SetOne(pack, QString("BC%1.Boundary%2").arg(nChild).arg(n), n);
    return pack;
}

void SetRate(benchmark::State& state, qint64 nSize) { state.SetBytesProcessed(state.iterations() * nSize); }

void ItemToBytes(benchmark::State& state)
{
    const CDataPack pack = MakeItem();
    for (auto _ : state)
        benchmark::DoNotOptimize(pack.ToBytes());
    SetRate(state, pack.ToBytes().size());
}

void ItemFromBytes(benchmark::State& state)
{
    const QByteArray bytes = MakeItem().ToBytes();
    CDataPack pack;
    for (auto _ : state)
        benchmark::DoNotOptimize(pack.FromBytes(bytes, -1.0));
    SetRate(state, bytes.size());
}

void ItemCopy(benchmark::State& state)
{
    const CDataPack pack = MakeItem();
    for (auto _ : state)
        benchmark::DoNotOptimize(CDataPack(pack));
    SetRate(state, pack.ToBytes().size());
}

void LimitMemcpy(benchmark::State& state)
{
    const QByteArray bytes = MakeItem().ToBytes();
    QByteArray target(bytes.size(), '\0');
    for (auto _ : state) {
        std::memcpy(target.data(), bytes.constData(), bytes.size());
        benchmark::ClobberMemory();
    }
    SetRate(state, bytes.size());
}

/** What one pack of the item is made of, through put(value). */
template <class Put> void PutMix(const Put& put)
{
    static const QString s_sKey = "Boundary1";
    for (int n = 0; n < COUNTS; ++n)
        put(qint32(n));
    for (int n = 0; n < ITEM_KEYS; ++n)
        put(s_sKey);
    for (int n = 0; n < ITEM_KEYS; ++n)
        put(qint64(n));
}

QByteArray MixByWriter()
{
    CByteWriter writer;
    PutMix([&writer](const auto& value) { writer.Write(value); });
    return writer.Take();
}

QByteArray MixByStream()
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    PrepareStream(stream);
    PutMix([&stream](const auto& value) { stream << value; });
    return bytes;
}

void MixWithWriter(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(MixByWriter());
    SetRate(state, MixByWriter().size());
}

void MixWithDataStream(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(MixByStream());
    SetRate(state, MixByStream().size());
}
} // namespace

BENCHMARK(ItemToBytes);
BENCHMARK(ItemFromBytes);
BENCHMARK(ItemCopy);
BENCHMARK(LimitMemcpy);
BENCHMARK(MixWithWriter);
BENCHMARK(MixWithDataStream);
