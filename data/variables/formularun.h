#pragma once

#include "data/kernels/formulakernels.h"
#include "data/variables/formulacolumn.h"
#include "data/variables/formulaprogram.h"

/**
 * A program bound to the columns of its inputs. What is the same at all points is computed here, once; the
 * rest goes through the kernels in runs of points that are short enough for the first cache. After
 * construction several threads may evaluate ranges at a time. Program, columns and kernels must outlive it.
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
    /** The value of a place: an array in the scratch, or one value for all points. */
    struct SPlace
    {
        int nPlace = -1; ///< -1: uniform
        double dValue = 0.0;
    };
    struct SStep
    {
        FormulaOperation_e eOperation;
        int nTarget;
        SPlace a;
        SPlace b;
    };
    class CScratch;

    void BindSteps();
    void FindInputs();
    void Gather(qint64 nBegin, qint64 nCount, CScratch& scratch) const;
    void RunSteps(qint64 nCount, double* pResult, const CScratch& scratch) const;

    const SFormulaProgram& m_program;
    const std::span<const CFormulaColumn> m_columns;
    const SFormulaKernels& m_kernels;
    std::vector<SStep> m_steps; // those that differ from point to point
    SPlace m_result;
    std::vector<int> m_inputs; // those that steps read
    qint64 m_nRunPoints = 0;
};
