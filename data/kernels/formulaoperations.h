#pragma once

#include <QtGlobal>

/** What a step of a formula does; doubles in, a double out. */
enum FormulaOperation_e : quint8 {
    // one argument
    OpMarker, ///< NO_VALUE for what is NaN or infinite: ends every formula
    OpValue,  ///< NaN for what is NO_VALUE or infinite: makes a stored value an operand
    OpNegate,
    OpAbs,
    OpAcos,
    OpAsin,
    OpAtan,
    OpCeil,
    OpCos,
    OpCosh,
    OpExp,
    OpFac,
    OpFloor,
    OpLn,
    OpLog10,
    OpRound, ///< halves away from zero
    OpSin,
    OpSinh,
    OpSqrt,
    OpTan,
    OpTanh,
    // two arguments
    OpAdd,
    OpSubtract,
    OpMultiply,
    OpDivide,
    OpModulo, ///< fmod: the sign of the first argument
    OpPow,    ///< with the exponent 2 the exact product, rounded once; NaN where an argument is, unlike pow
    OpAtan2,
    OpMax, ///< NaN where an argument is, unlike fmax
    OpMin, ///< NaN where an argument is, unlike fmin
    OpNcr,
    OpNpr
};

inline bool IsBinary(FormulaOperation_e eOperation) { return eOperation >= OpAdd; }

/**
 * a! of a cut to an integer, in 32 bits without sign: NaN below 0 and for NaN, infinity above 4294967295
 * and where a product overflows, so from 13 on.
 */
double Factorial(double a);

/**
 * n over r, both cut to integers, built up as result * (n - r + i) / i in 32 bits without sign: NaN for r
 * or n below 0 or NaN and for r above n, infinity where an argument or a product is above 4294967295.
 */
double Combinations(double n, double r);

/** Combinations(n, r) * Factorial(r). */
double Permutations(double n, double r);
