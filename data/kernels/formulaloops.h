#pragma once

// The loops of SFormulaKernels. Two files include this, each compiled for another instruction set: so all
// of it is local to the file, and it uses no inline code of headers, which the linker might merge. The flags
// of both files (data/CMakeLists.txt) forbid contraction and let comparisons vectorise.
#include "data/kernels/formulakernels.h"
#include "frame/novalue.h"

#include <math.h>

namespace {

/** Calls run with the operation as a function of one double. */
template <class Run> void VisitUnary(FormulaOperation_e eOperation, const Run& run)
{
    // clang-format off
    switch (eOperation) {
    case OpMarker: return run([](double a) { return a == a ? a : NO_VALUE; });
    case OpNegate: return run([](double a) { return -a; });
    case OpAbs:    return run([](double a) { return ::fabs(a); });
    case OpAcos:   return run([](double a) { return ::acos(a); });
    case OpAsin:   return run([](double a) { return ::asin(a); });
    case OpAtan:   return run([](double a) { return ::atan(a); });
    case OpCeil:   return run([](double a) { return ::ceil(a); });
    case OpCos:    return run([](double a) { return ::cos(a); });
    case OpCosh:   return run([](double a) { return ::cosh(a); });
    case OpExp:    return run([](double a) { return ::exp(a); });
    case OpFac:    return run([](double a) { return Factorial(a); });
    case OpFloor:  return run([](double a) { return ::floor(a); });
    case OpLn:     return run([](double a) { return ::log(a); });
    case OpLog10:  return run([](double a) { return ::log10(a); });
    case OpRound:  return run([](double a) { return ::round(a); });
    case OpSin:    return run([](double a) { return ::sin(a); });
    case OpSinh:   return run([](double a) { return ::sinh(a); });
    case OpSqrt:   return run([](double a) { return ::sqrt(a); });
    case OpTan:    return run([](double a) { return ::tan(a); });
    case OpTanh:   return run([](double a) { return ::tanh(a); });
    default:       Q_ASSERT(false);
    }
    // clang-format on
}

/** Calls run with the operation as a function of two doubles. */
template <class Run> void VisitBinary(FormulaOperation_e eOperation, const Run& run)
{
    // clang-format off
    switch (eOperation) {
    case OpAdd:      return run([](double a, double b) { return a + b; });
    case OpSubtract: return run([](double a, double b) { return a - b; });
    case OpMultiply: return run([](double a, double b) { return a * b; });
    case OpDivide:   return run([](double a, double b) { return a / b; });
    case OpModulo:   return run([](double a, double b) { return ::fmod(a, b); });
    case OpPow:      return run([](double a, double b) { return b == 2.0 ? a * a : ::pow(a, b); });
    case OpAtan2:    return run([](double a, double b) { return ::atan2(a, b); });
    case OpMax:      return run([](double a, double b) { return a > b || b != b ? a : b; });
    case OpMin:      return run([](double a, double b) { return a < b || b != b ? a : b; });
    case OpNcr:      return run([](double a, double b) { return Combinations(a, b); });
    case OpNpr:      return run([](double a, double b) { return Permutations(a, b); });
    default:         Q_ASSERT(false);
    }
    // clang-format on
}

void RunUnary(FormulaOperation_e eOperation, const double* __restrict pA, double* __restrict pTarget,
              qint64 nCount)
{
    VisitUnary(eOperation, [=](auto operation) {
        for (qint64 n = 0; n < nCount; ++n)
            pTarget[n] = operation(pA[n]);
    });
}

void RunArrays(FormulaOperation_e eOperation, const double* __restrict pA, const double* __restrict pB,
               double* __restrict pTarget, qint64 nCount)
{
    VisitBinary(eOperation, [=](auto operation) {
        for (qint64 n = 0; n < nCount; ++n)
            pTarget[n] = operation(pA[n], pB[n]);
    });
}

void RunFirstUniform(FormulaOperation_e eOperation, double a, const double* __restrict pB,
                     double* __restrict pTarget, qint64 nCount)
{
    VisitBinary(eOperation, [=](auto operation) {
        for (qint64 n = 0; n < nCount; ++n)
            pTarget[n] = operation(a, pB[n]);
    });
}

void RunSecondUniform(FormulaOperation_e eOperation, const double* __restrict pA, double b,
                      double* __restrict pTarget, qint64 nCount)
{
    if (eOperation == OpPow && b == 2.0) // the same bits, and it vectorises
        return RunArrays(OpMultiply, pA, pA, pTarget, nCount);
    VisitBinary(eOperation, [=](auto operation) {
        for (qint64 n = 0; n < nCount; ++n)
            pTarget[n] = operation(pA[n], b);
    });
}

void RunBinary(FormulaOperation_e eOperation, SFormulaOperand a, SFormulaOperand b, double* pTarget,
               qint64 nCount)
{
    if (a.pValues == nullptr)
        RunFirstUniform(eOperation, a.dValue, b.pValues, pTarget, nCount);
    else if (b.pValues == nullptr)
        RunSecondUniform(eOperation, a.pValues, b.dValue, pTarget, nCount);
    else
        RunArrays(eOperation, a.pValues, b.pValues, pTarget, nCount);
}

template <class Real>
void Gather(const Real* __restrict pSource, qint64 nStride, double* __restrict pTarget, qint64 nCount)
{
    if (nStride == 1) { // a loop of its own, which vectorises
        for (qint64 n = 0; n < nCount; ++n)
            pTarget[n] = pSource[n];
        return;
    }
    for (qint64 n = 0; n < nCount; ++n)
        pTarget[n] = pSource[n * nStride];
}

constexpr SFormulaKernels KERNELS = {RunUnary, RunBinary, Gather<float>, Gather<double>};

} // namespace
