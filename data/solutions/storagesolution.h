#pragma once

#include "data/io/storedarrays.h"
#include "data/solutions/solution.h"

#include <optional>

/**
 * One variable of one block of a solution file, in the precision of the file: an array that is loaded at the
 * first access and may be evicted while nobody holds the solution. FillValues of a small range reads that
 * range alone (see CPartialReads). The only solution class that touches a file. A read outside of the block
 * gives the nearest value, one that can't be loaded NO_VALUE.
 */
template <class Real> class CStorageSolution : public CSolution
{
public:
    CStorageSolution();

    void Init(const QString& sFileName, qint64 nFileIndex, qint64 nVariableIndex, const IVector3D& dimensions,
              const IVector3D& start) override;
    void SetDimensions(const IVector3D& dimensions) override;
    /** Of the one variable. */
    void SetReader(std::unique_ptr<IBlockReader> pReader) { m_arrays.SetReader(std::move(pReader)); }
    bool Allocate(qint64 nCount) override;
    void StoreIntegers(const qint32* pValues, qint64 nCount) override;
    bool HasFileChangedSinceFailure() const override
    {
        return m_arrays.HasFileChangedSinceFailure(this->GetFileName());
    }
    int Load() override;
    void Unload() override;

    using IStructredSolution::GetValue;
    double GetValue(const IVector3D& ijk) const override;
    double GetValue(qint64 nIndex) const override;
    LoadStatus_e FillValues(const SIJKRange& range, std::span<double> out) const override;
    LoadStatus_e GatherValues(std::span<const qint64> points, std::span<double> out) const override;
    SStoredValues GetStoredValues() const override;
    bool ReadsInPart(const SIJKRange& range) const override;
    const float* GetValuesSingle() override;
    const double* GetValuesDouble() override;
    LoadStatus_e ComputeRanges() override;

protected:
    /** What stored numbers mean; the integer classes read their bits. */
    virtual void Widen(const Real* pStored, qint64 nCount, double* pOut) const
    {
        std::copy_n(pStored, nCount, pOut);
    }
    virtual bool IsPlainNumber() const { return true; }
    LoadStatus_e EnsureLoaded() const;
    std::span<Real> Values() { return m_arrays.Array(0); }
    std::span<const Real> Values() const { return {m_arrays.Data(0), size_t(m_arrays.Count())}; }

private:
    CStoredArrays<Real, 1> m_arrays;
    std::optional<CMemoryRegistration> m_registration; // last: begins when all above is there
};

class CSolutionSinglePrecision : public CStorageSolution<float>
{};
class CSolutionDoublePrecision : public CStorageSolution<double>
{};
