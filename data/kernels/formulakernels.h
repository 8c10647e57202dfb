#pragma once

#include "data/kernels/formulaoperations.h"

/** A line of the cache, on all processors that this runs on. */
inline constexpr qint64 FORMULA_LINE_BYTES = 64;

/** Points that the loops take at a time: enough to be unrolled, and whole cache lines. */
inline constexpr qint64 FORMULA_BLOCK = 32;

/** How far ahead of what they read loops bring arrays into the cache, in points: longer than memory takes. */
inline constexpr qint64 FORMULA_AHEAD = 256;

/**
 * An argument over a run of blocks, an array of doubles or of floats. Block n stands nStep * n values on:
 * nStep is FORMULA_BLOCK for an array and 0 for doubles that are the same everywhere, of which there is one
 * block.
 */
struct SFormulaOperand
{
    const void* pValues;
    qint64 nStep;
};

/** What a pair does with the value of its first operation, v, and its last argument, c. */
enum FormulaPair_e : quint8 {
    PairAdd,          ///< v + c
    PairSubtract,     ///< v - c
    PairSubtractFrom, ///< c - v
    PairMultiply,     ///< v * c
    PairDivide,       ///< v / c
    PairDivideInto,   ///< c / v
    PairSqrt,         ///< of v; this and the rest have no c
    PairAbs,
    PairNegate,
    PairMarker,
    PairValue
};

/** What a loop reads and writes. The target overlaps no argument. */
struct SFormulaCall
{
    SFormulaOperand arguments[3]; ///< those beyond the operation's are read too
    double* pTarget;
    /** Brought into the cache meanwhile, for later: with block n what stands nAheadBytes * n on. */
    const char* pAhead;
    qint64 nAheadBytes;
};
using FormulaLoop = void (*)(const SFormulaCall& call, qint64 nBlocks);

/** Which arguments are floats, by bit; the rest are doubles. */
using FormulaFloats = unsigned;

/**
 * The loops that runs of points go through. Each set gives the same bits, and the bits of ApplyUnary and
 * ApplyBinary: IEEE double arithmetic, no contraction, libm for all but arithmetic, comparison, square root
 * and rounding.
 */
struct SFormulaKernels
{
    FormulaLoop (*Single)(FormulaOperation_e eOperation, FormulaFloats floats);
    /** Two operations in one loop, both rounded: half the traffic. eFirst is OpAdd to OpDivide. */
    FormulaLoop (*Pair)(FormulaOperation_e eFirst, FormulaPair_e eSecond, FormulaFloats floats);
    /** Whether stored values are operands as they stand: OpValue changes none of them. */
    bool (*AreFloatOperands)(const float* pValues, qint64 nCount);
    bool (*AreDoubleOperands)(const double* pValues, qint64 nCount);
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
