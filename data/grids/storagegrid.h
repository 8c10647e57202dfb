#pragma once

#include "data/grids/grid.h"
#include "data/io/filefailure.h"
#include "data/io/partialreads.h"
#include "data/kernels/largearray.h"
#include "data/kernels/pointkernels.h"

#include <atomic>
#include <mutex>
#include <optional>

/**
 * A block of a structured grid file, in the precision of the file: three arrays that are loaded at the first
 * access and may be evicted while nobody holds the grid. FillPoints of a small range reads that range alone
 * (see CPartialReads). The only grid class that touches a file.
 */
template <class Real> class CStorageGrid : public CGrid
{
public:
    CStorageGrid();

    /** What the file was when it was chosen: it is read as that while it fits. */
    void SetKnownFile(const SPlot3DFile& file) { m_knownFile = file; }
    const SPlot3DFile& GetKnownFile() const { return m_knownFile; }
    bool Allocate(qint64 nPointCount) override;
    void SetDimensions(const IVector3D& dimensions) override;
    void Init(const QString& sFileName, qint64 nFileIndex, const IVector3D& dimensions,
              const IVector3D& start, bool bStructured) override;
    /** Where a reader puts the coordinates of one axis; empty while nothing is allocated. */
    std::span<Real> Coordinates(int nAxis) { return m_axes[nAxis].Span(); }

    bool HasFileChangedSinceFailure() const override { return m_failure.HasFileChanged(this->GetFileName()); }
    int Load() override;
    void Unload() override;

    using IGrid::GetPoint;
    DVector3D GetPoint(const IVector3D& ijk) const override;
    DVector3D GetPoint(qint64 nIndex) const override;
    void SetPoint(qint64 nIndex, const DVector3D& point) override;
    LoadStatus_e FillPoints(const SIJKRange& range, const SPointBuffers& out) const override;
    LoadStatus_e GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const override;
    const float* GetCoordinatesSingle(int nAxis) override;
    const double* GetCoordinatesDouble(int nAxis) override;

private:
    LoadStatus_e EnsureLoaded() const;
    /** The range alone, from the file; false where all is there or had better be. */
    bool FillFromFile(const SIJKRange& range, const SPointBuffers& out) const;

    SPlot3DFile m_knownFile;
    mutable std::mutex m_mutex; // serialises loads
    // The arrays are filled, not only allocated: another thread may be loading them now.
    std::atomic<bool> m_bFilled = false;
    std::array<CLargeArray<Real>, 3> m_axes;
    mutable CPartialReads m_partialReads;
    CFileFailure m_failure;
    std::optional<CMemoryRegistration> m_registration; // last: begins when all above is there
};

/** The two precisions of files. */
class CGridSinglePrecision final : public CStorageGrid<float>
{};
class CGridDoublePrecision final : public CStorageGrid<double>
{};
