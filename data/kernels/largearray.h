#pragma once

#include <QtGlobal>

#include <cstddef>
#include <limits>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

// Storage behind CLargeArray; nothing else should need it.
namespace LargeMemory {
/**
 * Memory that reads as zeros, aligned for any vector. Large sizes come straight from the system, so that no
 * page is touched before its first use, aligned to huge pages, which makes that use three times as fast.
 *
 * @return null if there isn't so much
 */
void* Allocate(size_t nBytes) noexcept;
/** Gives back what Allocate gave for the same size. */
void Free(void* pMemory, size_t nBytes) noexcept;
} // namespace LargeMemory

/**
 * An array of numbers, large as a rule, that owns its memory: the storage of grids and fields. All zero at
 * the start. Move-only. Where memory can't be had it is empty, and nothing is thrown.
 */
template <class T> class CLargeArray
{
    static_assert(std::is_trivially_copyable_v<T>);

public:
    CLargeArray() = default;
    /** nCount zeros; empty if nCount isn't above 0, or there isn't so much memory. */
    explicit CLargeArray(qint64 nCount)
    {
        if (nCount <= 0 || nCount > std::numeric_limits<qint64>::max() / qint64(sizeof(T)))
            return;
        m_pData = static_cast<T*>(LargeMemory::Allocate(nCount * sizeof(T)));
        m_nCount = m_pData ? nCount : 0;
    }
    ~CLargeArray() { Clear(); }
    CLargeArray(CLargeArray&& other) noexcept
        : m_pData(std::exchange(other.m_pData, nullptr)), m_nCount(std::exchange(other.m_nCount, 0))
    {}
    CLargeArray& operator=(CLargeArray&& other) noexcept
    {
        CLargeArray taken(std::move(other)); // what was held here goes with it
        std::swap(m_pData, taken.m_pData);
        std::swap(m_nCount, taken.m_nCount);
        return *this;
    }

    /** Gives the memory back. */
    void Clear() noexcept
    {
        if (m_pData)
            LargeMemory::Free(std::exchange(m_pData, nullptr), m_nCount * sizeof(T));
        m_nCount = 0;
    }

    bool IsEmpty() const { return m_nCount == 0; }
    qint64 Size() const { return m_nCount; }
    qint64 Bytes() const { return m_nCount * qint64(sizeof(T)); }
    T* Data() { return m_pData; }
    const T* Data() const { return m_pData; }
    std::span<T> Span() { return {m_pData, size_t(m_nCount)}; }
    std::span<const T> Span() const { return {m_pData, size_t(m_nCount)}; }
    T& operator[](qint64 n) { return m_pData[n]; }
    const T& operator[](qint64 n) const { return m_pData[n]; }

private:
    T* m_pData = nullptr;
    qint64 m_nCount = 0;
};
