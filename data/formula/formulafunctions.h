#pragma once

#include "data/kernels/formulaoperations.h"

#include <string_view>

/** A name that every formula knows. */
struct SFormulaFunction
{
    std::string_view sName;
    int nArgumentCount;            ///< 0 to 2
    FormulaOperation_e eOperation; ///< with arguments
    double dConstant;              ///< without
};

/** By exact name; null if there is no such function. */
const SFormulaFunction* FindFormulaFunction(std::string_view sName);
