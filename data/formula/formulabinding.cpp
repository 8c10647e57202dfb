#include "data/formula/formulabinding.h"

#include "data/formula/registerpool.h"

#include <bit>
#include <optional>
#include <unordered_map>

namespace {

/** A value while binding: uniform, an input, or what a step gives. */
struct SValue
{
    enum Source_e : quint8 { Uniform, Input, Step };
    Source_e eSource = Uniform;
    int nIndex = 0;
    double dValue = 0.0; // of a uniform one
    bool IsStep() const { return eSource == Step; }
};

struct SStep
{
    FormulaOperation_e eOperation;
    std::array<SValue, 3> arguments;
    int nArgumentCount;
    std::optional<FormulaPair_e> pair;
    bool bIsJoined = false; // to a later one, which stands for both
};

double Apply(FormulaOperation_e eOperation, double a, double b)
{
    return IsBinary(eOperation) ? ApplyBinary(eOperation, a, b) : ApplyUnary(eOperation, a);
}

bool BeginsPairs(FormulaOperation_e eOperation)
{
    return eOperation == OpAdd || eOperation == OpSubtract || eOperation == OpMultiply ||
           eOperation == OpDivide;
}

/** The pair that ends with this operation, when the value of the first one is its argument nArgument. */
std::optional<FormulaPair_e> PairEndingWith(FormulaOperation_e eOperation, int nArgument)
{
    switch (eOperation) {
    case OpAdd:
        return PairAdd;
    case OpSubtract:
        return nArgument == 0 ? PairSubtract : PairSubtractFrom;
    case OpMultiply:
        return PairMultiply;
    case OpDivide:
        return nArgument == 0 ? PairDivide : PairDivideInto;
    case OpSqrt:
        return PairSqrt;
    case OpAbs:
        return PairAbs;
    case OpNegate:
        return PairNegate;
    case OpMarker:
        return PairMarker;
    case OpValue:
        return PairValue;
    default:
        return {};
    }
}

class CBinder
{
public:
    CBinder(const SFormulaProgram& program, std::span<const CFormulaColumn> columns,
            const SFormulaKernels& kernels)
        : m_columns(columns), m_kernels(kernels)
    {
        AddSteps(program);
        JoinPairs();
        PlaceArguments(program.nInputCount);
    }
    SFormulaLoops Take() { return std::move(m_result); }

private:
    void AddSteps(const SFormulaProgram& program);
    void JoinPairs();
    bool Join(SStep& step, int nArgument);
    void PlaceArguments(int nInputCount);
    std::vector<int> FindLastUses() const;
    SFormulaArgument Place(const SValue& value);
    SFormulaArgument PlaceUniform(double dValue);
    FormulaFloats FloatsOf(const SStep& step) const;
    FormulaLoop FindLoop(const SStep& step, FormulaFloats floats) const;

    const std::span<const CFormulaColumn> m_columns;
    const SFormulaKernels& m_kernels;
    std::vector<SStep> m_steps;
    std::vector<int> m_useCounts;                     // by step
    std::vector<int> m_buffers;                       // by step
    std::vector<int> m_inputPlaces;                   // by input, -1 if not met yet
    std::unordered_map<quint64, int> m_uniformPlaces; // by the bits
    SFormulaLoops m_result;
};

void CBinder::AddSteps(const SFormulaProgram& program)
{
    std::vector<SValue> values(program.PlaceCount());
    for (int n = 0; n < program.nInputCount; ++n)
        values[n] = m_columns[n].IsUniform()
                        ? SValue{SValue::Uniform, 0, AsOperand(m_columns[n].GetUniform())}
                        : SValue{SValue::Input, n, 0.0};
    for (size_t n = 0; n < program.constants.size(); ++n)
        values[program.nInputCount + n].dValue = program.constants[n];
    for (const SFormulaStep& step : program.steps) {
        const SValue a = values[step.nA];
        const SValue b = values[step.nB];
        if (a.eSource == SValue::Uniform && b.eSource == SValue::Uniform) {
            values[step.nTarget] = {SValue::Uniform, 0, Apply(step.eOperation, a.dValue, b.dValue)};
            continue;
        }
        values[step.nTarget] = {SValue::Step, int(m_steps.size()), 0.0};
        if (step.eOperation == OpPow && b.eSource == SValue::Uniform && b.dValue == 2.0)
            m_steps.push_back({OpMultiply, {a, a, a}, 2, {}}); // the same bits, and it vectorises
        else
            m_steps.push_back({step.eOperation, {a, b, b}, IsBinary(step.eOperation) ? 2 : 1, {}});
    }
    m_result.dResult = values[program.nResult].dValue;
}

/** From the end, so that a step goes to what reads it, and what it reads may still go to another one. */
void CBinder::JoinPairs()
{
    m_useCounts.assign(m_steps.size(), 0);
    for (const SStep& step : m_steps)
        for (int k = 0; k < step.nArgumentCount; ++k)
            if (step.arguments[k].IsStep())
                ++m_useCounts[step.arguments[k].nIndex];
    for (auto it = m_steps.rbegin(); it != m_steps.rend(); ++it)
        for (int k = 0; k < it->nArgumentCount && !it->bIsJoined; ++k)
            if (Join(*it, k))
                break;
}

bool CBinder::Join(SStep& step, int nArgument)
{
    const SValue value = step.arguments[nArgument];
    const auto pair = PairEndingWith(step.eOperation, nArgument);
    if (!pair || !value.IsStep() || m_useCounts[value.nIndex] != 1)
        return false;
    SStep& first = m_steps[value.nIndex];
    if (!BeginsPairs(first.eOperation))
        return false;
    const SValue last = step.nArgumentCount == 2 ? step.arguments[1 - nArgument] : first.arguments[1];
    step = {first.eOperation, {first.arguments[0], first.arguments[1], last}, 3, pair};
    first.bIsJoined = true;
    return true;
}

std::vector<int> CBinder::FindLastUses() const
{
    std::vector<int> lastUses(m_steps.size(), -1);
    for (size_t n = 0; n < m_steps.size(); ++n)
        for (const SValue& value : m_steps[n].arguments)
            if (value.IsStep() && !m_steps[n].bIsJoined)
                lastUses[value.nIndex] = int(n);
    return lastUses;
}

void CBinder::PlaceArguments(int nInputCount)
{
    std::vector<int> lastUses = FindLastUses();
    CRegisterPool pool;
    m_buffers.resize(m_steps.size());
    m_inputPlaces.assign(nInputCount, -1);
    for (int n = 0; n < int(m_steps.size()); ++n) {
        const SStep& step = m_steps[n];
        if (step.bIsJoined)
            continue;
        m_buffers[n] = pool.Take(); // ahead of giving back: loops don't work in place
        SFormulaLoop loop{FindLoop(step, FloatsOf(step)), FindLoop(step, 0), m_buffers[n], {}};
        for (int k = 0; k < 3; ++k) {
            const SValue& value = step.arguments[k];
            loop.arguments[k] = Place(value);
            if (value.IsStep() && lastUses[value.nIndex] == n) {
                pool.GiveBack(m_buffers[value.nIndex]);
                lastUses[value.nIndex] = -1; // it may be an argument twice
            }
        }
        m_result.loops.push_back(loop);
    }
    m_result.nBufferCount = pool.Count();
}

FormulaFloats CBinder::FloatsOf(const SStep& step) const
{
    FormulaFloats floats = 0;
    for (int k = 0; k < 3; ++k) {
        const SValue& value = step.arguments[k];
        if (value.eSource == SValue::Input && m_columns[value.nIndex].IsOfFloats() &&
            m_columns[value.nIndex].IsPlain())
            floats |= 1u << k;
    }
    return floats;
}

FormulaLoop CBinder::FindLoop(const SStep& step, FormulaFloats floats) const
{
    return step.pair ? m_kernels.Pair(step.eOperation, *step.pair, floats)
                     : m_kernels.Single(step.eOperation, floats);
}

SFormulaArgument CBinder::Place(const SValue& value)
{
    if (value.IsStep())
        return {SFormulaArgument::Buffer, m_buffers[value.nIndex]};
    if (value.eSource == SValue::Uniform)
        return PlaceUniform(value.dValue);
    int& nPlace = m_inputPlaces[value.nIndex];
    if (nPlace < 0) {
        nPlace = int(m_result.inputs.size());
        m_result.inputs.push_back(value.nIndex);
    }
    return {SFormulaArgument::Input, nPlace};
}

SFormulaArgument CBinder::PlaceUniform(double dValue)
{
    const int nNext = int(m_result.uniforms.size());
    const auto [it, bIsNew] = m_uniformPlaces.try_emplace(std::bit_cast<quint64>(dValue), nNext);
    if (bIsNew)
        m_result.uniforms.emplace_back().values.fill(dValue);
    return {SFormulaArgument::Uniform, it->second};
}
} // namespace

SFormulaLoops BindFormula(const SFormulaProgram& program, std::span<const CFormulaColumn> columns,
                          const SFormulaKernels& kernels)
{
    Q_ASSERT(int(columns.size()) == program.nInputCount);
    return CBinder(program, columns, kernels).Take();
}
