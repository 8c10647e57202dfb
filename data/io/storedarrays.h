#pragma once

#include "data/io/blockreader.h"
#include "data/io/filefailure.h"
#include "data/io/partialreads.h"
#include "data/kernels/largearray.h"
#include "data/values/blockshape.h"

#include <array>
#include <atomic>
#include <memory>
#include <mutex>

/**
 * Arrays of one block of a file, in the precision of the file, as a stored grid or field holds them: loaded
 * whole, or read in part while that is cheaper. What isn't about their own memory is left to the memory item
 * that owns them. Any thread.
 */
template <class Real, int N> class CStoredArrays
{
public:
    /** Null: nothing can be read. Ahead of all reads. */
    void SetReader(std::unique_ptr<IBlockReader> pReader) { m_pReader = std::move(pReader); }

    /** Zero-filled; false, and nothing is allocated, if memory is short. */
    bool Allocate(qint64 nCount);
    void Clear();
    /** Empty while nothing is allocated. */
    std::span<Real> Array(int n) { return m_arrays[n].Span(); }
    const Real* Data(int n) const { return m_arrays[n].Data(); }
    qint64 Count() const { return m_arrays[0].Size(); }
    qint64 Bytes() const { return N * m_arrays[0].Bytes(); }
    /** They are filled, not only allocated: another thread may be loading them now. */
    bool AreFilled() const { return m_bFilled; }

    /**
     * Loads what isn't there, one thread at a time, and tells the user of a file that can't be read.
     *
     * @param size   of the block; takes the one that it has in the file, with LoadNever, where that is
     * another
     */
    LoadStatus_e Load(const QString& sFileName, IVector3D& size);

    /**
     * A range alone, from the file. False, without a message, where all is there, where the whole had better
     * be loaded, and where it can't be read; out is undefined then.
     */
    bool ReadPart(const SBlockShape& shape, const SIJKRange& range,
                  const std::array<std::span<double>, N>& out) const;
    /** The same of scattered points. */
    bool ReadPoints(const SBlockShape& shape, std::span<const qint64> points,
                    const std::array<std::span<double>, N>& out) const;
    bool MayReadPart(const SBlockShape& shape, const SIJKRange& range) const
    {
        return !m_bFilled && !m_failure.IsNoted() && m_partialReads.Allows(shape, range, sizeof(Real));
    }

    /** A load has failed, and the file isn't any more what it was then. */
    bool HasFileChangedSinceFailure(const QString& sFileName) const
    {
        return m_failure.HasFileChanged(sFileName);
    }

private:
    SLoadResult LoadNow(IVector3D& size);
    bool ReadRuns(const IVector3D& size, const std::vector<SPointRun>& runs,
                  const std::array<std::span<double>, N>& out) const;

    std::unique_ptr<IBlockReader> m_pReader;
    std::mutex m_mutex; // serialises loads
    std::atomic<bool> m_bFilled = false;
    std::array<CLargeArray<Real>, N> m_arrays;
    mutable CPartialReads m_partialReads;
    CFileFailure m_failure;
};
