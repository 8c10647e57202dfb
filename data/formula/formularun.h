#pragma once

#include "data/formula/formulabinding.h"

/**
 * A program bound to the columns of its inputs, that goes through the kernels in runs of points which are
 * short enough for the first cache. Arrays are read where they stand; where a run of one holds something that
 * is no operand, that run goes through the scratch. After construction several threads may evaluate ranges at
 * a time. Columns must outlive it.
 */
class CFormulaRun
{
public:
    CFormulaRun(const SFormulaProgram& program, std::span<const CFormulaColumn> columns,
                const SFormulaKernels& kernels);

    /** Points nBegin up to nEnd, the end left out, on this thread; point n goes to pOut[(n - nBegin) *
     * nStride]. */
    void Evaluate(qint64 nBegin, qint64 nEnd, double* pOut, qint64 nStride) const;

private:
    class CPass;

    const std::span<const CFormulaColumn> m_columns;
    const SFormulaKernels& m_kernels;
    const SFormulaLoops m_loops;
    const qint64 m_nRunPoints;
};
