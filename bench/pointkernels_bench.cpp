// The transform and the blend of points, with all threads and with one, over sizes from below a piece
// upwards: both fan out where that pays.
#include "data/kernels/largearray.h"
#include "data/kernels/pointkernels.h"

#include <QThreadPool>

#include <benchmark/benchmark.h>

namespace {

/** Three coordinates of so many points, already touched. */
struct SPoints
{
    explicit SPoints(qint64 nCount) : x(nCount), y(nCount), z(nCount)
    {
        for (CLargeArray<double>* const pAxis : {&x, &y, &z})
            std::fill(pAxis->Span().begin(), pAxis->Span().end(), 1.5);
    }
    CLargeArray<double> x, y, z;
};

void SetThreads(benchmark::State& state)
{
    QThreadPool::globalInstance()->setMaxThreadCount(state.range(1) != 0 ? int(state.range(1))
                                                                         : QThread::idealThreadCount());
}

void Transform(benchmark::State& state)
{
    SetThreads(state);
    SPoints points(state.range(0));
    const DMatrix4x4 matrix = DMatrix4x4::Rotation(2, 0.1);
    for (auto _ : state)
        TransformPoints(matrix, points.x.Span(), points.y.Span(), points.z.Span());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Blend(benchmark::State& state)
{
    SetThreads(state);
    SPoints points(state.range(0));
    for (auto _ : state)
        BlendInto(points.x.Span(), points.y.Span(), 0.25);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(Transform)
    ->ArgNames({"points", "threads"})
    ->ArgsProduct({{1 << 14, 1 << 17, 1 << 20, 10000000}, {1, 0}})
    ->UseRealTime();
BENCHMARK(Blend)
    ->ArgNames({"points", "threads"})
    ->ArgsProduct({{1 << 14, 1 << 17, 1 << 20, 10000000}, {1, 0}})
    ->UseRealTime();
