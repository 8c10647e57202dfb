#include "data/kernels/formulaoperations.h"

#include <cmath>
#include <limits>

namespace {
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr quint32 MAX_INTEGER = std::numeric_limits<quint32>::max();

/** nValue *= nFactor, false where 32 bits don't hold the product. */
bool Grow(quint32& nValue, quint32 nFactor)
{
    const quint64 nProduct = quint64(nValue) * nFactor;
    nValue = quint32(nProduct);
    return nProduct <= MAX_INTEGER;
}
} // namespace

double Factorial(double a)
{
    if (!(a >= 0.0)) // NaN too
        return NOT_A_NUMBER;
    if (a > MAX_INTEGER)
        return INFINITE;
    quint32 nResult = 1;
    for (quint32 n = 2; n <= quint32(a); ++n)
        if (!Grow(nResult, n))
            return INFINITE;
    return nResult;
}

double Combinations(double n, double r)
{
    if (!(n >= 0.0 && r >= 0.0 && r <= n)) // NaN too
        return NOT_A_NUMBER;
    if (n > MAX_INTEGER) // so may r, which isn't above it
        return INFINITE;
    const quint32 nAll = quint32(n);
    const quint32 nTaken = quint32(r) > nAll / 2 ? nAll - quint32(r) : quint32(r);
    quint32 nResult = 1;
    for (quint32 i = 1; i <= nTaken; ++i) {
        if (!Grow(nResult, nAll - nTaken + i))
            return INFINITE;
        nResult /= i;
    }
    return nResult;
}

double Permutations(double n, double r) { return Combinations(n, r) * Factorial(r); }
