#pragma once

#include "data/formula/formulacolumn.h"
#include "data/formula/formulaprogram.h"
#include "data/kernels/formulakernels.h"

#include <array>

/** What a loop reads. */
struct SFormulaArgument
{
    enum Source_e : quint8 { Uniform, Input, Buffer };
    Source_e eSource = Uniform;
    int nIndex = 0; ///< into uniforms or inputs of SFormulaLoops, or of the buffer
};

/** One loop over a run of points. */
struct SFormulaLoop
{
    FormulaLoop pLoop;     ///< reads arrays without a stride as they stand
    FormulaLoop pRestLoop; ///< reads doubles only
    int nBuffer = 0;       ///< that takes the result; never among the arguments
    std::array<SFormulaArgument, 3> arguments;
};

/** A value that is the same at all points, as loops read it. */
struct alignas(FORMULA_LINE_BYTES) SFormulaUniform
{
    std::array<double, FORMULA_BLOCK> values;
};

/** What is left to do for each point once a program's columns are known. */
struct SFormulaLoops
{
    std::vector<SFormulaLoop> loops; ///< in order; the last gives the result
    double dResult = 0.0;            ///< the result if there are no loops: all points have it
    std::vector<SFormulaUniform> uniforms;
    std::vector<int> inputs; ///< the inputs that loops read
    int nBufferCount = 0;
};

/**
 * Binds a program to columns: what is the same at all points is computed now, and an operation whose value
 * nothing but the next one reads is joined with that into one loop.
 */
SFormulaLoops BindFormula(const SFormulaProgram& program, std::span<const CFormulaColumn> columns,
                          const SFormulaKernels& kernels);
