#pragma once

#include "data/solutions/istructredsolution.h"

#include <array>
#include <vector>

class ISolutionOwner;

/**
 * What all fields share: identity, shape, ranges, chunks. A derived class supplies the values; a scalar one
 * GetValue, FillValues and GatherValues alone.
 */
class CSolution : public IStructredSolution
{
public:
    /** Whoever takes the solution back at Dispose (not owned); null: Dispose does nothing. */
    void SetOwner(ISolutionOwner* pOwner) { m_pOwner = pOwner; }
    /** The data couldn't be read, and the file isn't any more what it was then. */
    virtual bool HasFileChangedSinceFailure() const { return false; }

    void Dispose() override;
    bool Prepare() override { return true; }
    bool IsPrepared() const override { return true; }
    ISolution* GetBaseSolution() override { return this; }
    QString GetFileName() const override { return m_sFileName; }
    qint64 GetFileIndex() const override { return m_nFileIndex; }
    qint64 GetVariableIndex() const override { return m_nVariableIndex; }
    qint64 GetSolutionId() const override { return m_nSolutionId; }
    void SetSolutionId(qint64 nId) override { m_nSolutionId = nId; }
    bool IsDoublePrecision() const override { return m_bDoublePrecision; }

    void Init(const QString& sFileName, qint64 nFileIndex, qint64 nVariableIndex, const IVector3D& dimensions,
              const IVector3D& start) override;
    SBlockShape GetShape() const override { return m_shape; }
    void SetDimensions(const IVector3D& dimensions) override { m_shape.dimensions = dimensions; }
    bool HasValue(const IVector3D& ijk) const override { return GetShape().Contains(ijk); }

    using IStructredSolution::GetValue;
    using IStructredSolution::GetVector;
    DVector3D GetVector(qint64 nIndex) const override { return GetVector(AddressOf(nIndex)); }
    double GetValue(qint64 nIndex) const override { return GetValue(AddressOf(nIndex)); }
    DVector3D GetVector(const IVector3D& ijk) const override;
    qint64 GetIntegerValue(const IVector3D& ijk) const override;
    LoadStatus_e FillVectors(const SIJKRange& range, const SPointBuffers& out) const override;
    LoadStatus_e GatherVectors(std::span<const qint64> points, const SPointBuffers& out) const override;
    SStoredValues GetStoredValues() const override { return {}; }
    bool ReadsInPart(const SIJKRange&) const override { return false; }
    void StoreIntegers(const qint32*, qint64) override {}
    const float* GetValuesSingle() override;
    const double* GetValuesDouble() override;
    void ReleaseValueCopies() override;
    bool Allocate(qint64) override { return false; }

    std::optional<SValueRange> GetRange(int nComponent, bool bCompute) override;
    void SetRange(int nComponent, const SValueRange& range) override { m_ranges[nComponent] = range; }
    IVector3D GetMinimumLocation(int nComponent) override;
    IVector3D GetMaximumLocation(int nComponent) override;
    LoadStatus_e ComputeRanges() override;
    qint64 CollectInRanges(const QVector<SValueRange>& ranges, QVector<IVector3D>& out) const override;
    QVector<ISolution*> GetLeafSolutions() override { return {this}; }

    void BuildChunks(const IVector3D& size) override;
    IVector3D GetChunkMinimum(qint64 nChunk) const override;
    IVector3D GetChunkMaximum(qint64 nChunk) const override;
    const IVector3D* GetChunkMinimumArray() const override;
    const IVector3D* GetChunkMaximumArray() const override;
    QVector<qint64> FindChunks(double dValue) const override;
    double InterpolateAt(const DVector3D& point, const IVector3D& ijk, const IGrid& grid) const override;
    DVector3D InterpolateVectorAt(const DVector3D& point, const IVector3D& ijk,
                                  const IGrid& grid) const override;

protected:
    void SetShape(const SBlockShape& shape) { m_shape = shape; }
    void SetDoublePrecision(bool bDouble) { m_bDoublePrecision = bDouble; }
    /** The address of a flat index; one outside gives the nearest address. */
    IVector3D AddressOf(qint64 nIndex) const { return GetShape().Clamped(GetShape().Address(nIndex)); }
    void SetExtreme(int nComponent, const SValueRange& range, const IVector3D& minAt, const IVector3D& maxAt);

private:
    template <class Real> const Real* Copy(std::vector<Real>& copy) const;

    ISolutionOwner* m_pOwner = nullptr;
    qint64 m_nSolutionId = -1;
    QString m_sFileName;
    qint64 m_nFileIndex = 0;
    qint64 m_nVariableIndex = 0;
    SBlockShape m_shape;
    bool m_bDoublePrecision = true;
    std::array<SValueRange, 3> m_ranges;
    std::array<IVector3D, 3> m_minimumLocations;
    std::array<IVector3D, 3> m_maximumLocations;
    QVector<IVector3D> m_chunkMinima; // first address of each chunk
    QVector<IVector3D> m_chunkMaxima; // last address, parallel
    QVector<SValueRange> m_chunkRanges;
    std::vector<float> m_singleCopy;
    std::vector<double> m_doubleCopy;
};

/** Who takes solutions back: the manager. */
class ISolutionOwner
{
public:
    virtual ~ISolutionOwner() = default;
    virtual void Release(CSolution* pSolution) = 0;
};
