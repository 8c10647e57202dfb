#pragma once

/**
 * ZENTO_VECTORIZE before a function: the compiler turns its loops into vector code wherever it can. For small
 * functions that do nothing but loop over spans; with -O2 alone this compiler does so in the simplest cases
 * only.
 */
#if defined(__GNUC__) && !defined(__clang__)
#define ZENTO_VECTORIZE __attribute__((optimize("O3")))
#else
#define ZENTO_VECTORIZE
#endif

/**
 * ZENTO_WIDE before a function, besides: it may use vectors of 32 bytes, so it may only be called where
 * HasWideVectors gives true. What it calls must be inlined into it to have them too: ZENTO_INLINE.
 */
#if defined(__x86_64__)
#define ZENTO_WIDE ZENTO_VECTORIZE __attribute__((target("avx2")))
inline bool HasWideVectors()
{
    static const bool s_bHas = __builtin_cpu_supports("avx2");
    return s_bHas;
}
#else
#define ZENTO_WIDE ZENTO_VECTORIZE
inline bool HasWideVectors() { return false; }
#endif
#define ZENTO_INLINE inline __attribute__((always_inline))
