#pragma once

#include "data/kernels/formulaoperations.h"

/** An argument over a run of points: an array, or one value for all points where pValues is null. */
struct SFormulaOperand
{
    const double* pValues = nullptr;
    double dValue = 0.0;
};

/**
 * The loops that runs of points go through. Each set gives the same bits, and the bits of ApplyUnary and
 * ApplyBinary: IEEE double arithmetic, no contraction, libm for all but arithmetic, comparison, square root
 * and rounding. Targets hold nCount values and don't overlap arguments.
 */
struct SFormulaKernels
{
    void (*Unary)(FormulaOperation_e eOperation, const double* pA, double* pTarget, qint64 nCount);
    /** At least one argument is an array. */
    void (*Binary)(FormulaOperation_e eOperation, SFormulaOperand a, SFormulaOperand b, double* pTarget,
                   qint64 nCount);
    /** target[n] = source[n * nStride]. */
    void (*GatherFloats)(const float* pSource, qint64 nStride, double* pTarget, qint64 nCount);
    void (*GatherDoubles)(const double* pSource, qint64 nStride, double* pTarget, qint64 nCount);
};

/** One value at a time. */
double ApplyUnary(FormulaOperation_e eOperation, double a);
double ApplyBinary(FormulaOperation_e eOperation, double a, double b);

/** The set that every processor runs. */
const SFormulaKernels& BaseFormulaKernels();

/** The set for AVX2; null where this processor or this build has none. */
const SFormulaKernels* WideFormulaKernels();

/** The fastest set of this processor. */
const SFormulaKernels& FormulaKernels();
