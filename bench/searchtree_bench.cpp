// What it costs to find the cell of a random point in a curvilinear block, against one look at the known
// cell.
#include "data/grids/searchtree.h"
#include "tests/support/testgrid.h"

#include <benchmark/benchmark.h>

namespace {

constexpr qint64 SIZE = 129;
constexpr qint64 POINT_COUNT = 100000;

using CSingleGrid = CTestGridOf<float>;

const CSingleGrid& Block()
{
    static const IVector3D dimensions{SIZE, SIZE, SIZE};
    static const CSingleGrid grid({dimensions}, TestBlock::Shell(dimensions));
    return grid;
}

struct SKnownPoint
{
    DVector3D point;
    IVector3D cell;
};

/** Points at random places of random cells. */
std::vector<SKnownPoint> RandomPoints()
{
    std::mt19937 random(1);
    std::uniform_int_distribution<qint64> cells(1, SIZE - 1);
    std::uniform_real_distribution<double> shares(0.01, 0.99);
    std::vector<SKnownPoint> points;
    for (qint64 n = 0; n < POINT_COUNT; ++n) {
        const IVector3D cell{cells(random), cells(random), cells(random)};
        const double share[3] = {shares(random), shares(random), shares(random)};
        DVector3D point;
        for (int nCorner = 0; nCorner < 8; ++nCorner) {
            const int bits[3] = {nCorner & 1, (nCorner >> 1) & 1, nCorner >> 2};
            double dWeight = 1.0;
            for (int nAxis = 0; nAxis < 3; ++nAxis)
                dWeight *= bits[nAxis] ? share[nAxis] : 1.0 - share[nAxis];
            point = point + dWeight * Block().GetPoint(cell + IVector3D{bits[0], bits[1], bits[2]});
        }
        points.push_back({point, cell});
    }
    return points;
}

const std::vector<SKnownPoint>& Points()
{
    static const std::vector<SKnownPoint> points = RandomPoints();
    return points;
}

} // namespace

static void LocateInTheKnownCell(benchmark::State& state)
{
    qint64 nFound = 0;
    for (auto _ : state)
        for (const SKnownPoint& known : Points())
            nFound += LocateInCell(Block(), known.cell, known.point).bInside;
    state.SetItemsProcessed(state.iterations() * POINT_COUNT);
    state.counters["foundShare"] = double(nFound) / double(state.iterations() * POINT_COUNT);
}
BENCHMARK(LocateInTheKnownCell)->Unit(benchmark::kMillisecond);

static void FindCell(benchmark::State& state)
{
    const CSearchTree tree(Block());
    const qint64 nReads = Block().m_nFillCalls;
    qint64 nFound = 0;
    for (auto _ : state)
        for (const SKnownPoint& known : Points())
            nFound += tree.FindCell(Block(), known.point) == known.cell;
    state.SetItemsProcessed(state.iterations() * POINT_COUNT);
    state.counters["foundShare"] = double(nFound) / double(state.iterations() * POINT_COUNT);
    state.counters["cellsRead"] =
        double(Block().m_nFillCalls - nReads) / double(state.iterations() * POINT_COUNT);
    state.counters["treeShareOfGrid"] = double(tree.GetBytes()) / double(12 * Block().GetPointCount());
}
BENCHMARK(FindCell)->Unit(benchmark::kMillisecond);

static void BuildTree(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(CSearchTree(Block()).GetBytes());
    state.SetItemsProcessed(state.iterations() * Block().GetPointCount());
}
BENCHMARK(BuildTree)->Unit(benchmark::kMillisecond)->UseRealTime();
