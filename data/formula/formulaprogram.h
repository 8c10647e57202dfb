#pragma once

#include "data/kernels/formulaoperations.h"

#include <vector>

/**
 * One operation. Places count through inputs, constants and registers in this order.
 */
struct SFormulaStep
{
    FormulaOperation_e eOperation;
    int nTarget;
    int nA;
    int nB; ///< equal to nA where the operation has one argument
};

/** A formula in flat form: steps in order, none of which is without use. */
struct SFormulaProgram
{
    int nInputCount = 0;
    int nRegisterCount = 0;
    int nResult = 0; ///< the target of the last step, or a constant; never an input
    std::vector<double> constants;
    std::vector<SFormulaStep> steps;

    int FirstRegister() const { return nInputCount + int(constants.size()); }
    int PlaceCount() const { return FirstRegister() + nRegisterCount; }
};
