#include "data/kernels/formulaloops.h"

double ApplyUnary(FormulaOperation_e eOperation, double a)
{
    double dResult = 0.0;
    VisitUnary(eOperation, [&](auto operation) { dResult = operation(a); });
    return dResult;
}

double ApplyBinary(FormulaOperation_e eOperation, double a, double b)
{
    double dResult = 0.0;
    VisitBinary(eOperation, [&](auto operation) { dResult = operation(a, b); });
    return dResult;
}

const SFormulaKernels& BaseFormulaKernels() { return KERNELS; }

const SFormulaKernels& FormulaKernels()
{
    static const SFormulaKernels* const s_pWide = WideFormulaKernels();
    return s_pWide != nullptr ? *s_pWide : KERNELS;
}
