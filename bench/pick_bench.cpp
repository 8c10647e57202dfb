// What it costs to find what lies under the pointer among many surfaces, against a test of all their items.
#include "scene/drawablemanager.h"
#include "tests/support/testsimulation.h"
#include "tests/support/testsurface.h"
#include "view/pick/viewpicker.h"

#include <benchmark/benchmark.h>

#include <random>

namespace {

constexpr qint64 VIEW = 1;
constexpr int SURFACE_COUNT = 2000;
constexpr qint64 SIZE = 17;
constexpr double LENGTH = 1.0; // of a surface, in a cube of 10
constexpr double REACH = 0.05; // of the pointer: 4 pixels where the cube fills 800

/** How the surfaces stand. */
enum Scene_e { SceneScattered, SceneStacked };

/** Curved patches: anywhere in the cube, or all behind each other. */
class CScene
{
public:
    explicit CScene(int eScene)
    {
        auto* const pSimulation = new CTestSimulation;
        CSimulationManager::Instance().AddSimulation(pSimulation, VIEW);
        m_nSimulation = pSimulation->GetId();
        std::mt19937 random(1);
        std::uniform_real_distribution<double> place(0.0, 9.0), slope(-0.5, 0.5);
        for (int n = 0; n < SURFACE_COUNT; ++n) {
            const DVector3D corner = eScene == SceneStacked
                                         ? DVector3D{4.5, 4.5, 0.005 * n}
                                         : DVector3D{place(random), place(random), place(random)};
            const double dSlope = slope(random);
            m_surfaces.push_back(std::make_unique<CTestSurface>(
                m_nSimulation, VIEW, SSurfaceSize{SIZE, SIZE}, [&](qint64 r, qint64 c) {
                    const double x = LENGTH * double(r) / (SIZE - 1), y = LENGTH * double(c) / (SIZE - 1);
                    return corner + DVector3D{x, y, dSlope * x + 0.2 * y * y};
                }));
            m_surfaces.back()->setDisplayTypeQuick(DisplayShaded);
            m_surfaces.back()->addOwner(&m_selectables.emplace_back(VIEW, m_nSimulation, n));
        }
    }
    ~CScene()
    {
        m_surfaces.clear();
        CSimulationManager::Instance().RemoveAllViews();
    }
    Q_DISABLE_COPY_MOVE(CScene)

    void ForgetTrees()
    {
        for (const auto& pSurface : m_surfaces) {
            pSurface->invalidateAll();
            pSurface->build();
        }
    }

    const std::vector<std::unique_ptr<CTestSurface>>& Surfaces() const { return m_surfaces; }

private:
    qint64 m_nSimulation;
    std::deque<CTestSelectable> m_selectables;
    std::vector<std::unique_ptr<CTestSurface>> m_surfaces;
};

/** Pointers at random places where something is likely; the view is turned, so that boxes aren't upright. */
class CPointers
{
public:
    SPickArea Next()
    {
        const SPickPoint p =
            PickGeometry::Project(m_view, {m_place(m_random), m_place(m_random), m_place(m_random)});
        return {VIEW, m_view, {p.x - REACH, p.y - REACH, p.x + REACH, p.y + REACH}};
    }

private:
    std::mt19937 m_random{2};
    std::uniform_real_distribution<double> m_place{4.5, 5.5};
    const DMatrix4x4 m_view = DMatrix4x4::Rotation(0, 0.3) * DMatrix4x4::Rotation(1, 0.2);
};

} // namespace

static void FirstHover(benchmark::State& state)
{
    CScene scene(int(state.range(0)));
    CPointers pointers;
    for (auto _ : state) {
        state.PauseTiming();
        scene.ForgetTrees();
        state.ResumeTiming();
        benchmark::DoNotOptimize(ViewPicker::HitsFromFront(pointers.Next()));
    }
}
BENCHMARK(FirstHover)->Arg(SceneScattered)->Arg(SceneStacked)->Unit(benchmark::kMillisecond)->Iterations(20);

/** The trees stand where the pointer has been, and are built where it comes. */
static void Hover(benchmark::State& state)
{
    CScene scene(int(state.range(0)));
    CPointers pointers;
    ViewPicker::Hits(pointers.Next());
    qint64 nHits = 0;
    for (auto _ : state)
        nHits += ViewPicker::HitsFromFront(pointers.Next()).size();
    state.counters["hits"] = double(nHits) / double(state.iterations());
}
BENCHMARK(Hover)->Arg(SceneScattered)->Arg(SceneStacked)->Unit(benchmark::kMillisecond)->Iterations(500);

static void PickPointUnderThePointer(benchmark::State& state)
{
    CScene scene(int(state.range(0)));
    CPointers pointers;
    ViewPicker::Hits(pointers.Next());
    for (auto _ : state)
        benchmark::DoNotOptimize(ViewPicker::PointAt(pointers.Next()).pDrawable);
}
BENCHMARK(PickPointUnderThePointer)
    ->Arg(SceneScattered)
    ->Arg(SceneStacked)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(500);

/** Every item of every surface until its first hit, without boxes and trees. */
static void HoverByBruteForce(benchmark::State& state)
{
    CScene scene(int(state.range(0)));
    CPointers pointers;
    std::vector<std::vector<CGLItem>> items;
    for (const auto& pSurface : scene.Surfaces()) {
        const std::span<const CGLItem> all = pSurface->pickTree().Items();
        items.emplace_back(all.begin(), all.end());
    }
    qint64 nHits = 0;
    for (auto _ : state) {
        const SPickArea area = pointers.Next();
        for (std::size_t n = 0; n < items.size(); ++n)
            nHits += std::any_of(items[n].begin(), items[n].end(), [&](const CGLItem& item) {
                return item.intersectsRect(scene.Surfaces()[n]->positions(), area.view, area.rect);
            });
    }
    state.counters["hits"] = double(nHits) / double(state.iterations());
}
BENCHMARK(HoverByBruteForce)
    ->Arg(SceneScattered)
    ->Arg(SceneStacked)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20);

/** A tree for one surface, and what it takes beside the positions. */
static void BuildTree(benchmark::State& state)
{
    CTestSurface surface(1, VIEW, {state.range(0), state.range(0)}, [](qint64 r, qint64 c) {
        return DVector3D{double(r), double(c), 0.3 * double(r * c % 7)};
    });
    qint64 nBytes = 0, nItems = 0;
    for (auto _ : state) {
        state.PauseTiming();
        surface.invalidateAll();
        surface.build();
        state.ResumeTiming();
        nItems = qint64(surface.pickTree().Items().size());
        nBytes = surface.pickTree().GetBytes();
    }
    state.SetItemsProcessed(state.iterations() * nItems);
    state.counters["bytesAnElement"] = double(nBytes) / double(surface.size().Count());
}
BENCHMARK(BuildTree)->Arg(17)->Arg(129)->Arg(1025)->Unit(benchmark::kMillisecond);
