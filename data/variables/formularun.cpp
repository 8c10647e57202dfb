#include "data/variables/formularun.h"

namespace {
/** What the arrays of a run share of the first cache, in doubles: 24 KiB of 32. */
constexpr qint64 CACHE_DOUBLES = 3072;
/** Shorter runs cost more in calls than they gain, longer ones gain nothing. */
constexpr qint64 MIN_RUN_POINTS = 64;
constexpr qint64 MAX_RUN_POINTS = 1024;

qint64 RunPoints(qint64 nArrayCount)
{
    const qint64 nPoints = CACHE_DOUBLES / std::max<qint64>(nArrayCount, 1);
    return std::clamp(nPoints - nPoints % MIN_RUN_POINTS, MIN_RUN_POINTS, MAX_RUN_POINTS);
}

void Scatter(const double* pValues, qint64 nCount, double* pOut, qint64 nStride)
{
    for (qint64 n = 0; n < nCount; ++n)
        pOut[n * nStride] = pValues[n];
}

void Fill(double dValue, qint64 nCount, double* pOut, qint64 nStride)
{
    for (qint64 n = 0; n < nCount; ++n)
        pOut[n * nStride] = dValue;
}
} // namespace

/** The arrays of one thread by place: inputs, and a buffer for each register. */
class CFormulaRun::CScratch
{
public:
    explicit CScratch(const CFormulaRun& run)
        : m_buffers(run.m_program.PlaceCount(), nullptr), m_arrays(m_buffers.size(), nullptr)
    {
        std::vector<int> places;
        for (const int nInput : run.m_inputs)
            if (!run.m_columns[nInput].IsPlain())
                places.push_back(nInput);
        for (int n = run.m_program.FirstRegister(); n < run.m_program.PlaceCount(); ++n)
            places.push_back(n);
        m_values.resize(places.size() * run.m_nRunPoints);
        for (size_t n = 0; n < places.size(); ++n)
            m_arrays[places[n]] = m_buffers[places[n]] = m_values.data() + n * run.m_nRunPoints;
    }

    /** The place reads this array, where it stands. */
    void Lend(int nPlace, const double* pValues) { m_arrays[nPlace] = pValues; }
    double* Buffer(int nPlace) const { return m_buffers[nPlace]; }
    const double* Array(int nPlace) const { return m_arrays[nPlace]; }
    SFormulaOperand Operand(const SPlace& place) const
    {
        return place.nPlace < 0 ? SFormulaOperand{nullptr, place.dValue}
                                : SFormulaOperand{m_arrays[place.nPlace], 0.0};
    }

private:
    std::vector<double> m_values;
    std::vector<double*> m_buffers;      // into m_values; null for what needs none
    std::vector<const double*> m_arrays; // the buffer, or what was lent
};

CFormulaRun::CFormulaRun(const SFormulaProgram& program, std::span<const CFormulaColumn> columns,
                         const SFormulaKernels& kernels)
    : m_program(program), m_columns(columns), m_kernels(kernels)
{
    Q_ASSERT(int(columns.size()) == program.nInputCount);
    BindSteps();
    FindInputs();
    m_nRunPoints = RunPoints(qint64(m_inputs.size()) + program.nRegisterCount);
}

void CFormulaRun::BindSteps()
{
    std::vector<SPlace> places(m_program.PlaceCount());
    for (int n = 0; n < m_program.nInputCount; ++n)
        places[n] = m_columns[n].IsUniform() ? SPlace{-1, m_columns[n].GetUniform()} : SPlace{n, 0.0};
    for (size_t n = 0; n < m_program.constants.size(); ++n)
        places[m_program.nInputCount + n].dValue = m_program.constants[n];
    for (const SFormulaStep& step : m_program.steps) {
        const SPlace a = places[step.nA];
        const SPlace b = places[step.nB];
        if (a.nPlace < 0 && b.nPlace < 0) {
            places[step.nTarget] = {-1, IsBinary(step.eOperation)
                                            ? ApplyBinary(step.eOperation, a.dValue, b.dValue)
                                            : ApplyUnary(step.eOperation, a.dValue)};
            continue;
        }
        m_steps.push_back({step.eOperation, step.nTarget, a, b});
        places[step.nTarget] = {step.nTarget, 0.0};
    }
    m_result = places[m_program.nResult];
}

void CFormulaRun::FindInputs()
{
    std::vector<bool> isRead(m_program.nInputCount, false);
    for (const SStep& step : m_steps)
        for (const int nPlace : {step.a.nPlace, step.b.nPlace})
            if (nPlace >= 0 && nPlace < m_program.nInputCount)
                isRead[nPlace] = true;
    for (int n = 0; n < m_program.nInputCount; ++n)
        if (isRead[n])
            m_inputs.push_back(n);
}

void CFormulaRun::Evaluate(qint64 nBegin, qint64 nEnd, double* pOut, qint64 nStride) const
{
    if (m_result.nPlace < 0)
        return Fill(m_result.dValue, nEnd - nBegin, pOut, nStride);
    CScratch scratch(*this);
    for (qint64 n = nBegin; n < nEnd; n += m_nRunPoints) {
        const qint64 nCount = std::min(m_nRunPoints, nEnd - n);
        double* const pTarget = pOut + (n - nBegin) * nStride;
        double* const pResult = nStride == 1 ? pTarget : scratch.Buffer(m_result.nPlace);
        Gather(n, nCount, scratch);
        RunSteps(nCount, pResult, scratch);
        if (pResult != pTarget)
            Scatter(pResult, nCount, pTarget, nStride);
    }
}

void CFormulaRun::Gather(qint64 nBegin, qint64 nCount, CScratch& scratch) const
{
    for (const int nInput : m_inputs) {
        const CFormulaColumn& column = m_columns[nInput];
        const qint64 nStride = column.GetStride();
        if (column.IsPlain())
            scratch.Lend(nInput, column.GetDoubles() + nBegin);
        else if (column.GetFloats() != nullptr)
            m_kernels.GatherFloats(column.GetFloats() + nBegin * nStride, nStride, scratch.Buffer(nInput),
                                   nCount);
        else
            m_kernels.GatherDoubles(column.GetDoubles() + nBegin * nStride, nStride, scratch.Buffer(nInput),
                                    nCount);
    }
}

/** The last step gives the result, which goes straight to its place. */
void CFormulaRun::RunSteps(qint64 nCount, double* pResult, const CScratch& scratch) const
{
    for (const SStep& step : m_steps) {
        double* const pTarget = &step == &m_steps.back() ? pResult : scratch.Buffer(step.nTarget);
        if (IsBinary(step.eOperation))
            m_kernels.Binary(step.eOperation, scratch.Operand(step.a), scratch.Operand(step.b), pTarget,
                             nCount);
        else
            m_kernels.Unary(step.eOperation, scratch.Array(step.a.nPlace), pTarget, nCount);
    }
}
