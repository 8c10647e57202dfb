#include "data/kernels/formulaloops.h"

#ifdef __AVX2__
const SFormulaKernels* WideFormulaKernels() { return __builtin_cpu_supports("avx2") ? &KERNELS : nullptr; }
#else
const SFormulaKernels* WideFormulaKernels() { return nullptr; }
#endif
