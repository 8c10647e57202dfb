#pragma once

// The loops of SFormulaKernels. Two files include this, each compiled for another instruction set: so all
// of it is local to the file, and it uses no inline code of headers, which the linker might merge. The flags
// of both files (data/CMakeLists.txt) forbid contraction and let comparisons vectorise.
#include "data/kernels/formulakernels.h"
#include "frame/novalue.h"

#include <math.h>

namespace {

// Only a finite number less itself is 0.
double ToStored(double a) { return a - a == 0.0 ? a : NO_VALUE; }
double ToOperand(double a) { return a - a == 0.0 && a != NO_VALUE ? a : __builtin_nan(""); }

/** Calls run with the operation as a function of one double. */
template <class Run> void VisitUnary(FormulaOperation_e eOperation, const Run& run)
{
    // clang-format off
    switch (eOperation) {
    case OpMarker: return run([](double a) { return ToStored(a); });
    case OpValue:  return run([](double a) { return ToOperand(a); });
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
    case OpPow:      return run([](double a, double b) { return a != a || b != b ? a + b : b == 2.0 ? a * a : ::pow(a, b); });
    case OpAtan2:    return run([](double a, double b) { return ::atan2(a, b); });
    case OpMax:      return run([](double a, double b) { return a > b || a != a ? a : b; });
    case OpMin:      return run([](double a, double b) { return a < b || a != a ? a : b; });
    case OpNcr:      return run([](double a, double b) { return Combinations(a, b); });
    case OpNpr:      return run([](double a, double b) { return Permutations(a, b); });
    default:         Q_ASSERT(false);
    }
    // clang-format on
}

/** Calls run with one of the four operations that pairs begin with. */
template <class Run> void VisitFirstOfPair(FormulaOperation_e eOperation, const Run& run)
{
    // clang-format off
    switch (eOperation) {
    case OpAdd:      return run([](double a, double b) { return a + b; });
    case OpSubtract: return run([](double a, double b) { return a - b; });
    case OpMultiply: return run([](double a, double b) { return a * b; });
    case OpDivide:   return run([](double a, double b) { return a / b; });
    default:         Q_ASSERT(false);
    }
    // clang-format on
}

/** Calls run with the second operation of a pair as a function of the first one's value and c. */
template <class Run> void VisitSecondOfPair(FormulaPair_e ePair, const Run& run)
{
    // clang-format off
    switch (ePair) {
    case PairAdd:          return run([](double v, double c) { return v + c; });
    case PairSubtract:     return run([](double v, double c) { return v - c; });
    case PairSubtractFrom: return run([](double v, double c) { return c - v; });
    case PairMultiply:     return run([](double v, double c) { return v * c; });
    case PairDivide:       return run([](double v, double c) { return v / c; });
    case PairDivideInto:   return run([](double v, double c) { return c / v; });
    case PairSqrt:         return run([](double v, double) { return ::sqrt(v); });
    case PairAbs:          return run([](double v, double) { return ::fabs(v); });
    case PairNegate:       return run([](double v, double) { return -v; });
    case PairMarker:       return run([](double v, double) { return ToStored(v); });
    case PairValue:        return run([](double v, double) { return ToOperand(v); });
    }
    // clang-format on
}

/** target = operation(a, b, c); the inner loops have a fixed length and become a few instructions. */
template <class Operation, class A, class B, class C>
void RunBlocks(const A* __restrict pA, qint64 nStepA, const B* __restrict pB, qint64 nStepB,
               const C* __restrict pC, qint64 nStepC, double* __restrict pTarget, const char* pAhead,
               qint64 nAheadBytes, qint64 nBlocks)
{
    // Of doubles; for floats two of these are the same line.
    constexpr qint64 LINES = FORMULA_BLOCK * sizeof(double) / FORMULA_LINE_BYTES;
    for (qint64 n = 0; n < nBlocks; ++n) {
        for (qint64 k = 0; k < LINES; ++k)
            __builtin_prefetch(pAhead + k * (nAheadBytes / LINES));
        for (qint64 k = 0; k < FORMULA_BLOCK; ++k)
            pTarget[k] = Operation()(double(pA[k]), double(pB[k]), double(pC[k]));
        pA += nStepA;
        pB += nStepB;
        pC += nStepC;
        pTarget += FORMULA_BLOCK;
        pAhead += nAheadBytes;
    }
}

template <class Operation, class A, class B, class C> void Loop(const SFormulaCall& call, qint64 nBlocks)
{
    const SFormulaOperand(&arguments)[3] = call.arguments;
    RunBlocks<Operation>(static_cast<const A*>(arguments[0].pValues), arguments[0].nStep,
                         static_cast<const B*>(arguments[1].pValues), arguments[1].nStep,
                         static_cast<const C*>(arguments[2].pValues), arguments[2].nStep, call.pTarget,
                         call.pAhead, call.nAheadBytes, nBlocks);
}

// An argument that the operation doesn't have repeats the one before, and is of its type.

template <class Operation> FormulaLoop UnaryLoop(FormulaFloats floats)
{
    struct SOperation
    {
        double operator()(double a, double, double) const { return Operation()(a); }
    };
    return floats & 1 ? Loop<SOperation, float, float, float> : Loop<SOperation, double, double, double>;
}

template <class Operation> FormulaLoop BinaryLoop(FormulaFloats floats)
{
    struct SOperation
    {
        double operator()(double a, double b, double) const { return Operation()(a, b); }
    };
    constexpr FormulaLoop LOOPS[] = {
        Loop<SOperation, double, double, double>, Loop<SOperation, float, double, double>,
        Loop<SOperation, double, float, float>, Loop<SOperation, float, float, float>};
    return LOOPS[floats & 3];
}

template <class Operation> FormulaLoop TernaryLoop(FormulaFloats floats)
{
    constexpr FormulaLoop LOOPS[] = {
        Loop<Operation, double, double, double>, Loop<Operation, float, double, double>,
        Loop<Operation, double, float, double>,  Loop<Operation, float, float, double>,
        Loop<Operation, double, double, float>,  Loop<Operation, float, double, float>,
        Loop<Operation, double, float, float>,   Loop<Operation, float, float, float>};
    return LOOPS[floats & 7];
}

FormulaLoop SingleLoop(FormulaOperation_e eOperation, FormulaFloats floats)
{
    FormulaLoop pLoop = nullptr;
    if (IsBinary(eOperation))
        VisitBinary(eOperation, [&]<class Operation>(Operation) { pLoop = BinaryLoop<Operation>(floats); });
    else
        VisitUnary(eOperation, [&]<class Operation>(Operation) { pLoop = UnaryLoop<Operation>(floats); });
    return pLoop;
}

FormulaLoop PairLoop(FormulaOperation_e eFirst, FormulaPair_e eSecond, FormulaFloats floats)
{
    FormulaLoop pLoop = nullptr;
    VisitFirstOfPair(eFirst, [&]<class First>(First) {
        VisitSecondOfPair(eSecond, [&]<class Second>(Second) {
            struct SOperation
            {
                double operator()(double a, double b, double c) const { return Second()(First()(a, b), c); }
            };
            pLoop = TernaryLoop<SOperation>(floats);
        });
    });
    return pLoop;
}

/** Flag is an integer of the size of Real, so that a comparison of a vector is one of flags. */
template <class Real, class Flag> bool AreOperands(const Real* __restrict pValues, qint64 nCount)
{
    Flag nMisfit = 0;
    for (qint64 n = 0; n < nCount; ++n) {
        const Real value = pValues[n];
        nMisfit |= Flag(value - value != Real(0)) | Flag(value == Real(NO_VALUE));
    }
    return nMisfit == 0;
}

bool AreFloatOperands(const float* pValues, qint64 nCount)
{
    return AreOperands<float, qint32>(pValues, nCount);
}
bool AreDoubleOperands(const double* pValues, qint64 nCount)
{
    return AreOperands<double, qint64>(pValues, nCount);
}

constexpr SFormulaKernels KERNELS = {SingleLoop, PairLoop, AreFloatOperands, AreDoubleOperands};

} // namespace
