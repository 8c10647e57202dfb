#pragma once

#include <QtGlobal>

#include <cstddef>
#include <span>

/**
 * Turns the byte order of each word in place. The size of bytes is a multiple of nWordSize.
 *
 * @param nWordSize  2, 4 or 8 [bytes]; with any other nothing changes
 */
void SwapWords(std::span<std::byte> bytes, int nWordSize);

/** Turns the byte order of each value in place, one thread. Values may be any numbers of 2, 4 or 8 bytes. */
template <class T> void SwapBytes(std::span<T> values)
{
    static_assert(sizeof(T) == 2 || sizeof(T) == 4 || sizeof(T) == 8);
    SwapWords(std::as_writable_bytes(values), sizeof(T));
}
