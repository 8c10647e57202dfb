#pragma once

#if defined(__SANITIZE_THREAD__)
#include <sanitizer/tsan_interface.h>
#endif

/**
 * Tells the thread sanitizer of a hand-over between threads that Qt's library does: the library isn't built
 * with the sanitizer, so that what it does to order two threads can't be seen. What the one thread did before
 * Give comes before what the other does after Take with the same address. Without the sanitizer: nothing.
 */
namespace ThreadHandOver {

inline void Give([[maybe_unused]] void* pAddress)
{
#if defined(__SANITIZE_THREAD__)
    __tsan_release(pAddress);
#endif
}

inline void Take([[maybe_unused]] void* pAddress)
{
#if defined(__SANITIZE_THREAD__)
    __tsan_acquire(pAddress);
#endif
}

} // namespace ThreadHandOver
