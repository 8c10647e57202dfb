#include "data/kernels/largearray.h"

#include <cstdint>
#include <cstdlib>
#include <sys/mman.h>

namespace {

constexpr size_t HUGE_PAGE = size_t(1) << 21;
#if defined(__SANITIZE_ADDRESS__)
// The sanitizer watches the ends of what the heap gives only; more than it can give, it ends the program.
constexpr size_t FROM_SYSTEM = size_t(1) << 33;
#else
constexpr size_t FROM_SYSTEM = 2 * HUGE_PAGE; // below, the alignment costs more than the pages give
#endif
constexpr size_t SMALL_PAGE = 4096;

size_t RoundUp(size_t n, size_t nUnit) { return (n + nUnit - 1) / nUnit * nUnit; }

/** Address space for the size, aligned to huge pages: more than needed is taken, the ends are given back. */
void* MapAligned(size_t nBytes)
{
    const size_t nTaken = nBytes + HUGE_PAGE;
    void* const pTaken = ::mmap(nullptr, nTaken, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pTaken == MAP_FAILED)
        return nullptr;
    const auto nBegin = reinterpret_cast<uintptr_t>(pTaken);
    const uintptr_t nAligned = RoundUp(nBegin, HUGE_PAGE);
    if (nAligned > nBegin)
        ::munmap(pTaken, nAligned - nBegin);
    if (const size_t nRest = nBegin + nTaken - (nAligned + nBytes); nRest > 0)
        ::munmap(reinterpret_cast<void*>(nAligned + nBytes), nRest);
    return reinterpret_cast<void*>(nAligned);
}

} // namespace

void* LargeMemory::Allocate(size_t nBytes) noexcept
{
    if (nBytes < FROM_SYSTEM)
        return std::calloc(nBytes, 1);
    if (nBytes > SIZE_MAX / 2)
        return nullptr;
    void* const pMemory = MapAligned(RoundUp(nBytes, SMALL_PAGE));
    if (pMemory)
        ::madvise(pMemory, RoundUp(nBytes, SMALL_PAGE), MADV_HUGEPAGE); // a wish: without it it's only slower
    return pMemory;
}

void LargeMemory::Free(void* pMemory, size_t nBytes) noexcept
{
    if (nBytes < FROM_SYSTEM)
        std::free(pMemory);
    else
        ::munmap(pMemory, RoundUp(nBytes, SMALL_PAGE));
}
