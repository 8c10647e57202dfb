#include "data/formula/formulabuilder.h"

#include "data/formula/registerpool.h"
#include "data/kernels/formulakernels.h"

#include <bit>

namespace {
constexpr int UNUSED = -1;

bool IsCommutative(FormulaOperation_e eOperation) { return eOperation == OpAdd || eOperation == OpMultiply; }
} // namespace

bool CFormulaBuilder::SValue::operator==(const SValue& other) const
{
    return eOperation == other.eOperation && nA == other.nA && nB == other.nB &&
           std::bit_cast<quint64>(dConstant) == std::bit_cast<quint64>(other.dConstant);
}

size_t CFormulaBuilder::SValueHash::operator()(const SValue& value) const
{
    constexpr quint64 MIXER = 0x9e3779b97f4a7c15ull; // 2^64 over the golden ratio
    quint64 nHash = std::bit_cast<quint64>(value.dConstant);
    for (const quint64 nPart : {quint64(value.eOperation), quint64(value.nA), quint64(value.nB)})
        nHash = (std::rotl(nHash, 23) ^ nPart) * MIXER;
    return nHash ^ (nHash >> 32);
}

CFormulaBuilder::CFormulaBuilder(int nInputCount)
    : m_nInputCount(nInputCount), m_values(nInputCount, SValue{OpMarker, -1, -1, 0.0})
{}

int CFormulaBuilder::Add(const SValue& value)
{
    const auto [it, bIsNew] = m_numbers.try_emplace(value, int(m_values.size()));
    if (bIsNew)
        m_values.push_back(value);
    return it->second;
}

int CFormulaBuilder::Constant(double dValue) { return Add({OpMarker, -1, -1, dValue}); }

int CFormulaBuilder::Unary(FormulaOperation_e eOperation, int nA)
{
    if (IsConstant(nA))
        return Constant(ApplyUnary(eOperation, m_values[nA].dConstant));
    if (eOperation == OpValue && (IsInput(nA) || m_values[nA].eOperation == OpValue))
        return nA;
    if (eOperation == OpMarker && IsStep(nA) && m_values[nA].eOperation == OpValue)
        nA = m_values[nA].nA; // what becomes NaN there becomes NO_VALUE here
    return Add({eOperation, nA, nA, 0.0});
}

int CFormulaBuilder::Binary(FormulaOperation_e eOperation, int nA, int nB)
{
    if (IsConstant(nA) && IsConstant(nB))
        return Constant(ApplyBinary(eOperation, m_values[nA].dConstant, m_values[nB].dConstant));
    if (IsCommutative(eOperation) && nB < nA)
        std::swap(nA, nB);
    return Add({eOperation, nA, nB, 0.0});
}

int CFormulaBuilder::Import(const SFormulaProgram& program, std::span<const int> inputs)
{
    Q_ASSERT(int(inputs.size()) == program.nInputCount);
    std::vector<int> values(inputs.begin(), inputs.end()); // by place
    values.reserve(program.PlaceCount());
    for (const double dConstant : program.constants)
        values.push_back(Constant(dConstant));
    values.resize(program.PlaceCount());
    for (const SFormulaStep& step : program.steps) {
        const int nA = values[step.nA];
        if (step.eOperation == OpMarker) // stands last, and what is stored becomes an operand at once
            values[step.nTarget] = nA;
        else
            values[step.nTarget] = IsBinary(step.eOperation) ? Binary(step.eOperation, nA, values[step.nB])
                                                             : Unary(step.eOperation, nA);
    }
    return Unary(OpValue, values[program.nResult]);
}

SFormulaProgram CFormulaBuilder::Finish(int nValue)
{
    const int nResult = Unary(OpMarker, nValue);
    const std::vector<int> lastUses = FindLastUses(nResult);
    SFormulaProgram program;
    program.nInputCount = m_nInputCount;
    std::vector<int> places(m_values.size());
    for (int n = 0; n < m_nInputCount; ++n)
        places[n] = n;
    PlaceConstants(program, lastUses, places);
    PlaceSteps(program, lastUses, places);
    program.nResult = places[nResult];
    return program;
}

/** The last value that each value is an argument of, UNUSED where the result doesn't rest on it. */
std::vector<int> CFormulaBuilder::FindLastUses(int nResult) const
{
    std::vector<int> lastUses(m_values.size(), UNUSED);
    lastUses[nResult] = nResult;
    for (int n = nResult; n >= 0; --n) {
        if (lastUses[n] == UNUSED || !IsStep(n))
            continue;
        for (const int nArgument : {m_values[n].nA, m_values[n].nB})
            lastUses[nArgument] = std::max(lastUses[nArgument], n);
    }
    return lastUses;
}

void CFormulaBuilder::PlaceConstants(SFormulaProgram& program, std::span<const int> lastUses,
                                     std::vector<int>& places) const
{
    for (int n = m_nInputCount; n < int(m_values.size()); ++n) {
        if (!IsConstant(n) || lastUses[n] == UNUSED)
            continue;
        places[n] = program.FirstRegister();
        program.constants.push_back(m_values[n].dConstant);
    }
}

void CFormulaBuilder::PlaceSteps(SFormulaProgram& program, std::span<const int> lastUses,
                                 std::vector<int>& places) const
{
    CRegisterPool registers;
    const auto giveBackAfter = [&](int nUse, int nValue) {
        if (IsStep(nValue) && lastUses[nValue] == nUse)
            registers.GiveBack(places[nValue] - program.FirstRegister());
    };
    for (int n = m_nInputCount; n < int(m_values.size()); ++n) {
        const SValue& value = m_values[n];
        if (!IsStep(n) || lastUses[n] == UNUSED)
            continue;
        places[n] = program.FirstRegister() + registers.Take();
        program.steps.push_back({value.eOperation, places[n], places[value.nA], places[value.nB]});
        giveBackAfter(n, value.nA);
        if (value.nB != value.nA)
            giveBackAfter(n, value.nB);
    }
    program.nRegisterCount = registers.Count();
}
