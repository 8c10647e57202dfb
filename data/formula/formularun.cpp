#include "data/formula/formularun.h"

namespace {
/** What a run may have of the first cache, in doubles: a quarter; what comes next streams into the rest. */
constexpr qint64 CACHE_DOUBLES = 1024;
/** Shorter runs cost more in calls than they gain, longer ones gain nothing. */
constexpr qint64 MIN_RUN_POINTS = 2 * FORMULA_BLOCK;
constexpr qint64 MAX_RUN_POINTS = 1024;
constexpr qint64 LINE_DOUBLES = FORMULA_LINE_BYTES / sizeof(double);

/** An input counts twice, since what comes next of it comes in meanwhile; one more is the output. */
qint64 RunPoints(const SFormulaLoops& loops)
{
    const qint64 nArrayCount = 2 * qint64(loops.inputs.size()) + loops.nBufferCount + 1;
    const qint64 nPoints = CACHE_DOUBLES / nArrayCount;
    return std::clamp(nPoints - nPoints % FORMULA_BLOCK, MIN_RUN_POINTS, MAX_RUN_POINTS);
}

template <class Real>
void CopyStrided(const Real* pFrom, qint64 nFromStride, double* pTo, qint64 nToStride, qint64 nCount)
{
    for (qint64 n = 0; n < nCount; ++n)
        pTo[n * nToStride] = double(pFrom[n * nFromStride]);
}

/** The same of stored values, as operands. */
template <class Real> void GatherOperands(const Real* pFrom, qint64 nFromStride, double* pTo, qint64 nCount)
{
    for (qint64 n = 0; n < nCount; ++n)
        pTo[n] = AsOperand(double(pFrom[n * nFromStride]));
}

void Fill(double dValue, qint64 nCount, double* pOut, qint64 nStride)
{
    for (qint64 n = 0; n < nCount; ++n)
        pOut[n * nStride] = dValue;
}
} // namespace

/** One thread's way through a range: its scratch, and the calls of the kernels that each run repeats. */
class CFormulaRun::CPass
{
public:
    explicit CPass(const CFormulaRun& run);

    /** Whole blocks: arrays without a stride are read and written where they stand. */
    void EvaluateBlocks(qint64 nBegin, qint64 nEnd, double* pOut, qint64 nStride);
    /** Up to a run, of any length: everything goes through the scratch, and becomes an operand there. */
    void EvaluateInScratch(qint64 nBegin, qint64 nEnd, double* pOut, qint64 nStride);

private:
    /** A call, and by how many bytes its arrays move on from run to run. */
    struct SCall : SFormulaCall
    {
        FormulaLoop pLoop;
        qint64 nMoves[3];
        qint64 nTargetMove;
        qint64 nAheadMove;
        void MoveOn();
    };

    const CFormulaColumn& Column(size_t nInput) const { return m_run.m_columns[m_loops.inputs[nInput]]; }
    double* InputArray(size_t nInput) { return m_pFirst + nInput * m_nDistance; }
    double* Buffer(int nBuffer) { return InputArray(m_loops.inputs.size() + nBuffer); }
    std::vector<SCall> MakeCalls();
    void LendInputs(qint64 nBegin);
    void BringAhead(const char* pAhead, qint64 nSize);
    void Gather(size_t nInput, qint64 nBegin, qint64 nCount);
    bool AreOperands(qint64 nBegin, qint64 nCount) const;
    static void Call(std::vector<SCall>& calls, qint64 nCount);

    const CFormulaRun& m_run;
    const SFormulaLoops& m_loops;
    const qint64
        m_nDistance; // between arrays: a line more than they need, to spread them over the cache's sets
    std::vector<double> m_values;
    double* m_pFirst;                  // in m_values, at the start of a line
    std::vector<SCall> m_calls;        // on arrays where they stand
    std::vector<SCall> m_scratchCalls; // made when needed
    size_t m_nCallsAhead = 0;          // how many bring something in
};

CFormulaRun::CPass::CPass(const CFormulaRun& run)
    : m_run(run),
      m_loops(run.m_loops),
      m_nDistance(run.m_nRunPoints + LINE_DOUBLES),
      m_values((m_loops.inputs.size() + m_loops.nBufferCount) * m_nDistance + LINE_DOUBLES)
{
    const size_t nMisfit = reinterpret_cast<size_t>(m_values.data()) % FORMULA_LINE_BYTES / sizeof(double);
    m_pFirst = m_values.data() + (LINE_DOUBLES - nMisfit) % LINE_DOUBLES;
}

void CFormulaRun::CPass::SCall::MoveOn()
{
    for (int k = 0; k < 3; ++k)
        arguments[k].pValues = static_cast<const char*>(arguments[k].pValues) + nMoves[k];
    pTarget += nTargetMove / qint64(sizeof(double));
    pAhead += nAheadMove;
}

/** The calls when all arrays are the scratch's. */
std::vector<CFormulaRun::CPass::SCall> CFormulaRun::CPass::MakeCalls()
{
    std::vector<SCall> calls;
    for (const SFormulaLoop& loop : m_loops.loops) {
        SCall call{};
        call.pLoop = loop.pRestLoop;
        call.pTarget = Buffer(loop.nBuffer);
        call.pAhead = reinterpret_cast<const char*>(call.pTarget); // is there already
        for (int k = 0; k < 3; ++k) {
            const auto [eSource, nIndex] = loop.arguments[k];
            if (eSource == SFormulaArgument::Uniform)
                call.arguments[k] = {m_loops.uniforms[nIndex].values.data(), 0};
            else
                call.arguments[k] = {eSource == SFormulaArgument::Input ? InputArray(nIndex) : Buffer(nIndex),
                                     FORMULA_BLOCK};
        }
        calls.push_back(call);
    }
    return calls;
}

/** Lets the calls read arrays without a stride where they stand, and bring in what comes next of them. */
void CFormulaRun::CPass::LendInputs(qint64 nBegin)
{
    std::vector<bool> isAhead(m_loops.inputs.size(), false);
    for (size_t n = 0; n < m_calls.size(); ++n) {
        m_calls[n].pLoop = m_loops.loops[n].pLoop;
        for (int k = 0; k < 3; ++k) {
            const auto [eSource, nIndex] = m_loops.loops[n].arguments[k];
            if (eSource != SFormulaArgument::Input || !Column(nIndex).IsPlain())
                continue;
            const CFormulaColumn& column = Column(nIndex);
            const qint64 nSize = column.IsOfFloats() ? sizeof(float) : sizeof(double);
            const char* const pValues = column.GetBytes() + nBegin * nSize;
            m_calls[n].arguments[k].pValues = pValues;
            m_calls[n].nMoves[k] = m_run.m_nRunPoints * nSize;
            if (!isAhead[nIndex])
                BringAhead(pValues + FORMULA_AHEAD * nSize, nSize);
            isAhead[nIndex] = true;
        }
    }
}

/** Gives an array to a call that brings in nothing yet; where all do, the processor has to see to it. */
void CFormulaRun::CPass::BringAhead(const char* pAhead, qint64 nSize)
{
    if (m_nCallsAhead == m_calls.size())
        return;
    SCall& call = m_calls[m_nCallsAhead++];
    call.pAhead = pAhead;
    call.nAheadBytes = FORMULA_BLOCK * nSize;
    call.nAheadMove = m_run.m_nRunPoints * nSize;
}

void CFormulaRun::CPass::EvaluateBlocks(qint64 nBegin, qint64 nEnd, double* pOut, qint64 nStride)
{
    m_calls = MakeCalls();
    const bool bInPlace = nStride == 1;
    const double* const pBuffer = m_calls.back().pTarget;
    if (bInPlace) {
        m_calls.back().pTarget = pOut;
        m_calls.back().nTargetMove = m_run.m_nRunPoints * sizeof(double);
        BringAhead(reinterpret_cast<const char*>(pOut), sizeof(double));
    }
    LendInputs(nBegin);
    for (qint64 n = nBegin; n < nEnd; n += m_run.m_nRunPoints) {
        const qint64 nCount = std::min(m_run.m_nRunPoints, nEnd - n);
        double* const pRunOut = pOut + (n - nBegin) * nStride;
        if (!AreOperands(n, nCount)) {
            EvaluateInScratch(n, n + nCount, pRunOut, nStride);
        } else {
            for (size_t k = 0; k < m_loops.inputs.size(); ++k)
                if (!Column(k).IsPlain())
                    Gather(k, n, nCount);
            Call(m_calls, nCount);
            if (!bInPlace)
                CopyStrided(pBuffer, 1, pRunOut, nStride, nCount);
        }
        for (SCall& call : m_calls)
            call.MoveOn();
    }
}

void CFormulaRun::CPass::EvaluateInScratch(qint64 nBegin, qint64 nEnd, double* pOut, qint64 nStride)
{
    if (m_scratchCalls.empty())
        m_scratchCalls = MakeCalls();
    for (size_t k = 0; k < m_loops.inputs.size(); ++k)
        Gather(k, nBegin, nEnd - nBegin);
    Call(m_scratchCalls, nEnd - nBegin);
    CopyStrided(m_scratchCalls.back().pTarget, 1, pOut, nStride, nEnd - nBegin);
}

/** Whether loops may read the plain arrays where they stand. */
bool CFormulaRun::CPass::AreOperands(qint64 nBegin, qint64 nCount) const
{
    const SFormulaKernels& kernels = m_run.m_kernels;
    for (size_t k = 0; k < m_loops.inputs.size(); ++k) {
        const CFormulaColumn& column = Column(k);
        if (!column.IsPlain())
            continue;
        if (column.IsOfFloats() ? !kernels.AreFloatOperands(column.GetFloats() + nBegin, nCount)
                                : !kernels.AreDoubleOperands(column.GetDoubles() + nBegin, nCount))
            return false;
    }
    return true;
}

void CFormulaRun::CPass::Gather(size_t nInput, qint64 nBegin, qint64 nCount)
{
    const CFormulaColumn& column = Column(nInput);
    const qint64 nStride = column.GetStride();
    if (column.IsOfFloats())
        GatherOperands(column.GetFloats() + nBegin * nStride, nStride, InputArray(nInput), nCount);
    else
        GatherOperands(column.GetDoubles() + nBegin * nStride, nStride, InputArray(nInput), nCount);
}

/** All calls for a run, the last block filled up. */
void CFormulaRun::CPass::Call(std::vector<SCall>& calls, qint64 nCount)
{
    const qint64 nBlocks = (nCount + FORMULA_BLOCK - 1) / FORMULA_BLOCK;
    for (SCall& call : calls)
        call.pLoop(call, nBlocks);
}

CFormulaRun::CFormulaRun(const SFormulaProgram& program, std::span<const CFormulaColumn> columns,
                         const SFormulaKernels& kernels)
    : m_columns(columns),
      m_kernels(kernels),
      m_loops(BindFormula(program, columns, kernels)),
      m_nRunPoints(RunPoints(m_loops))
{}

void CFormulaRun::Evaluate(qint64 nBegin, qint64 nEnd, double* pOut, qint64 nStride) const
{
    if (m_loops.loops.empty())
        return Fill(m_loops.dResult, nEnd - nBegin, pOut, nStride);
    CPass pass(*this);
    const qint64 nRest = (nEnd - nBegin) % FORMULA_BLOCK;
    if (nBegin < nEnd - nRest)
        pass.EvaluateBlocks(nBegin, nEnd - nRest, pOut, nStride);
    if (nRest > 0)
        pass.EvaluateInScratch(nEnd - nRest, nEnd, pOut + (nEnd - nRest - nBegin) * nStride, nStride);
}
