#pragma once

#include "data/grids/grid.h"
#include "data/io/storedarrays.h"

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

    /** Of the three coordinates. */
    void SetReader(std::unique_ptr<IBlockReader> pReader) { m_arrays.SetReader(std::move(pReader)); }
    bool Allocate(qint64 nPointCount) override;
    void SetDimensions(const IVector3D& dimensions) override;
    void Init(const QString& sFileName, qint64 nFileIndex, const IVector3D& dimensions,
              const IVector3D& start, bool bStructured) override;

    bool HasFileChangedSinceFailure() const override
    {
        return m_arrays.HasFileChangedSinceFailure(this->GetFileName());
    }
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

    CStoredArrays<Real, 3> m_arrays;
    std::optional<CMemoryRegistration> m_registration; // last: begins when all above is there
};

/** The two precisions of files. */
class CGridSinglePrecision final : public CStorageGrid<float>
{};
class CGridDoublePrecision final : public CStorageGrid<double>
{};
