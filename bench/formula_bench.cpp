// Built-in variables and a user's formula over 10^7 points, against a loop written by hand over the same
// arrays, on the same threads. Each row runs the two in turn, so that both see the same machine; the counters
// are the fastest of each and their ratio, by the wall and by the time of the processors. Both write to
// memory that was touched before.
#include "data/formula/formula.h"
#include "data/kernels/parallel.h"
#include "frame/novalue.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <ctime>

namespace {

constexpr qint64 POINT_COUNT = 10'000'000;
constexpr qint64 PIECE_POINTS = 1 << 16;
constexpr double GAMMA = 1.4;
constexpr double R_GAS = 287.22;
constexpr double P_INF = 1.0 / GAMMA;
constexpr double RHO_INF = 1.0;
constexpr double V_INF = 0.8;
enum Q_e { R, RU, RV, RW, RE };
const QStringList Q_NAMES = {"r", "ru", "rv", "rw", "re"};

/** Conservative variables of a smooth flow. */
template <class Real> struct SFlow
{
    std::vector<Real> q[5];
    SFlow()
    {
        for (int c = 0; c < 5; ++c) {
            q[c].resize(POINT_COUNT);
            for (qint64 n = 0; n < POINT_COUNT; ++n)
                q[c][n] = Real((c == RE  ? 3.0
                                : c == R ? 1.0
                                         : 0.1 * c) +
                               0.05 * double((n * (c + 3)) % 1000) * 1e-3);
        }
    }
    static const SFlow& Get()
    {
        static const SFlow s_flow;
        return s_flow;
    }
};

std::vector<double>& Output()
{
    static std::vector<double> s_out(POINT_COUNT);
    return s_out;
}

// What a programmer would write for each row: one point's value from the five variables.
struct SPressure
{
    static double At(double r, double ru, double rv, double rw, double re)
    {
        return (GAMMA - 1) * (re - 0.5 * (ru * ru + rv * rv + rw * rw) / r);
    }
};
struct SMach
{
    static double At(double r, double ru, double rv, double rw, double re)
    {
        const double p = SPressure::At(r, ru, rv, rw, re);
        const double c = std::sqrt(GAMMA * R_GAS * (p / (R_GAS * r)));
        return std::sqrt(ru * ru + rv * rv + rw * rw) / r / c;
    }
};
struct SPressureCoefficient
{
    static double At(double r, double ru, double rv, double rw, double re)
    {
        return (SPressure::At(r, ru, rv, rw, re) - P_INF) / (0.5 * RHO_INF * V_INF * V_INF);
    }
};
struct SSpeed
{
    static double At(double r, double ru, double rv, double rw, double)
    {
        return std::sqrt(ru * ru + rv * rv + rw * rw) / r;
    }
};
struct STenOperations
{
    static double At(double r, double ru, double rv, double, double re)
    {
        return std::sqrt(ru * ru + rv * rv) / r * 2 - std::abs(re - r) / 3;
    }
};

// Vectorised for the same processors as the formulas.
#define HAND_LOOP(Name, Real)                                                                                \
    __attribute__((target_clones("avx2", "default"))) void HandLoop(                                         \
        Name, const Real* r, const Real* ru, const Real* rv, const Real* rw, const Real* re,                 \
        double* __restrict pOut, qint64 nCount)                                                              \
    {                                                                                                        \
        for (qint64 n = 0; n < nCount; ++n) {                                                                \
            const double d = Name::At(r[n], ru[n], rv[n], rw[n], re[n]);                                     \
            pOut[n] = d == d ? d : NO_VALUE;                                                                 \
        }                                                                                                    \
    }
#define HAND_LOOPS(Name) HAND_LOOP(Name, float) HAND_LOOP(Name, double)
HAND_LOOPS(SPressure)
HAND_LOOPS(SMach)
HAND_LOOPS(SPressureCoefficient)
HAND_LOOPS(SSpeed)
HAND_LOOPS(STenOperations)

template <class Hand, class Real> void RunHand(const SFlow<Real>& flow)
{
    RunRanges(POINT_COUNT, PIECE_POINTS, [&](qint64, qint64 nBegin, qint64 nEnd) {
        HandLoop(Hand(), flow.q[R].data() + nBegin, flow.q[RU].data() + nBegin, flow.q[RV].data() + nBegin,
                 flow.q[RW].data() + nBegin, flow.q[RE].data() + nBegin, Output().data() + nBegin,
                 nEnd - nBegin);
    });
}

/** A formula over the five variables that may also name variables computed from them. */
using Variables = std::vector<std::pair<QString, std::shared_ptr<const CFormula>>>;
std::shared_ptr<const CFormula> Compose(const QString& sText, const Variables& variables)
{
    QStringList names = Q_NAMES;
    std::vector<SFormulaBinding> bindings = {
        {nullptr, {R}}, {nullptr, {RU}}, {nullptr, {RV}}, {nullptr, {RW}}, {nullptr, {RE}}};
    for (const auto& [sName, pFormula] : variables) {
        names.append(sName);
        bindings.push_back(
            {pFormula, pFormula->GetInputCount() == 0 ? std::vector<int>() : std::vector{0, 1, 2, 3, 4}});
    }
    return CFormula::Compose(*CFormula::Compile(sText, names).pFormula, bindings, 5);
}

/** The built-in variables, each written over the ones before. */
Variables BuiltIn()
{
    Variables variables = {{"gamma", CFormula::Constant(GAMMA)},
                           {"rgas", CFormula::Constant(R_GAS)},
                           {"pinf", CFormula::Constant(P_INF)},
                           {"rhoinf", CFormula::Constant(RHO_INF)},
                           {"vinf", CFormula::Constant(V_INF)}};
    const std::pair<const char*, const char*> rows[] = {
        {"vmag", "sqrt(ru * ru + rv * rv + rw * rw) / r"},
        {"p", "(gamma - 1) * (re - 0.5 * (ru * ru + rv * rv + rw * rw) / r)"},
        {"t", "p / (rgas * r)"},
        {"c", "sqrt(gamma * rgas * t)"},
        {"m", "vmag / c"},
        {"cp", "(p - pinf) / (0.5 * rhoinf * vinf * vinf)"},
        {"ten", "sqrt(ru * ru + rv * rv) / r * 2 - abs(re - r) / 3"},
    };
    for (const auto& [sName, sText] : rows)
        variables.emplace_back(sName, Compose(sText, variables));
    return variables;
}

/** Fastest times of one side. Others on the machine disturb the processor time of all threads least. */
struct STimes
{
    double dWall = 1e9;
    double dProcessor = 1e9;

    /** @return the time on the wall of this call [s] */
    template <class Run> double Take(const Run& run)
    {
        const auto start = std::chrono::steady_clock::now();
        const std::clock_t nTicks = std::clock();
        run();
        dProcessor = std::min(dProcessor, double(std::clock() - nTicks) / CLOCKS_PER_SEC);
        const double dSeconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        dWall = std::min(dWall, dSeconds);
        return dSeconds;
    }
};

template <class Hand, class Real> void Against(benchmark::State& state, const char* sName)
{
    const SFlow<Real>& flow = SFlow<Real>::Get();
    const std::vector<CFormulaColumn> columns(std::begin(flow.q), std::end(flow.q));
    const auto pFormula = Compose(sName, BuiltIn());
    STimes hand, formula;
    for (auto _ : state) {
        hand.Take([&] { RunHand<Hand>(flow); });
        state.SetIterationTime(formula.Take([&] { pFormula->EvaluateRange(columns, Output()); }));
    }
    state.counters["handMs"] = hand.dWall * 1e3;
    state.counters["formulaMs"] = formula.dWall * 1e3;
    state.counters["points/s"] = double(POINT_COUNT) / formula.dWall;
    state.counters["ratio"] = formula.dWall / hand.dWall;
    state.counters["cpuRatio"] = formula.dProcessor / hand.dProcessor;
}

template <class Hand> void Register(const char* sVariable, const char* sLimit)
{
    const auto add = [&](const char* sArrays, void (*pRun)(benchmark::State&, const char*)) {
        const std::string sName = std::string("Formula/") + sVariable + "/" + sArrays + "/limit:" + sLimit;
        benchmark::RegisterBenchmark(sName.c_str(), [=](benchmark::State& state) { pRun(state, sVariable); })
            ->UseManualTime()
            ->Iterations(30)
            ->Unit(benchmark::kMillisecond);
    };
    add("floats", Against<Hand, float>);
    add("doubles", Against<Hand, double>);
}

const bool IS_REGISTERED = [] {
    Register<SSpeed>("vmag", "2");
    Register<SPressure>("p", "2");
    Register<SMach>("m", "2");
    Register<SPressureCoefficient>("cp", "2");
    Register<STenOperations>("ten", "3");
    return true;
}();
} // namespace
