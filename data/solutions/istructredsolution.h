#pragma once

#include "data/blockshape.h"
#include "data/pointbuffers.h"
#include "data/solutions/isolution.h"

#include <QVector>

class IGrid;

/** The numbers of a field where they stand as an array in its precision, i fastest; one of the two or
 * neither. */
struct SStoredValues
{
    const float* pSingle = nullptr;
    const double* pDouble = nullptr;
};

/**
 * A field over a structured block. A read outside of it gives the value of the nearest point by each index.
 *
 * A value is read by one of two roads, with equal values bit for bit: GetValue and GetVector for odd jobs,
 * FillValues and FillVectors (or the stored arrays themselves) for every loop over a block.
 */
class IStructredSolution : public ISolution
{
public:
    virtual void Init(const QString& sFileName, qint64 nFileIndex, qint64 nVariableIndex,
                      const IVector3D& dimensions, const IVector3D& start) = 0;
    virtual SBlockShape GetShape() const = 0;
    virtual void SetDimensions(const IVector3D& dimensions) = 0;
    IVector3D GetDimensions() const { return GetShape().dimensions; }
    IVector3D GetStart() const { return GetShape().start; }
    IVector3D GetIJKMin() const { return GetShape().start; }
    IVector3D GetIJKMax() const { return GetShape().End(); }
    bool IsInRange(qint64 i, qint64 j, qint64 k) const { return GetShape().Contains({i, j, k}); }
    virtual bool HasValue(const IVector3D& ijk) const = 0; ///< false in the gaps of a union
    qint64 GetLinearIndex(qint64 i, qint64 j, qint64 k) const { return GetShape().PointIndex({i, j, k}); }
    qint64 GetStride(int nAxis) const
    {
        const IVector3D d = GetDimensions();
        return nAxis == 0 ? 1 : nAxis == 1 ? d.i : d.i * d.j;
    }

    using ISolution::GetValue;
    using ISolution::GetVector;
    virtual DVector3D GetVector(const IVector3D& ijk) const = 0;
    virtual double GetValue(const IVector3D& ijk) const = 0;
    /** 0 where the data can't be read. */
    virtual qint64 GetIntegerValue(const IVector3D& ijk) const = 0;
    /**
     * The values, or all three components, of a range that lies within the field. Gaps give NO_VALUE; after a
     * failure the buffers mean nothing.
     */
    virtual LoadStatus_e FillValues(const SIJKRange& range, std::span<double> out) const = 0;
    virtual LoadStatus_e FillVectors(const SIJKRange& range, const SPointBuffers& out) const = 0;

    /** The array behind the whole field, loaded if need be; nothing for one that is computed or of integers.
     */
    virtual SStoredValues GetStoredValues() const = 0;
    /** True while FillValues would read just this range from a file, so that nobody should load the whole for
     * it. */
    virtual bool ReadsInPart(const SIJKRange& range) const = 0;

    /** Addresses of all values inside one of the ranges, ends included; i outermost, k innermost. None where
     * they can't be read. */
    virtual qint64 CollectInRanges(const QVector<SValueRange>& ranges, QVector<IVector3D>& out) const = 0;
    qint64 CollectInRange(const SValueRange& range, QVector<IVector3D>& out) const
    {
        return CollectInRanges({range}, out);
    }
    virtual IVector3D GetMinimumLocation(int nComponent) = 0; ///< of the first point with the minimum
    virtual IVector3D GetMaximumLocation(int nComponent) = 0;
    virtual LoadStatus_e ComputeRanges() = 0;
    virtual QVector<IStructredSolution*> GetLeafSolutions() = 0; ///< those that carry data, each once

    // Chunks: boxes with the range of their values, so that a search for one value can pass most by.
    /** Covers the block with boxes of this size that share their boundary planes; once. */
    virtual void BuildChunks(const IVector3D& size) = 0;
    virtual IVector3D GetChunkMinimum(qint64 nChunk) const = 0; ///< (1, 1, 1) past the end
    virtual IVector3D GetChunkMaximum(qint64 nChunk) const = 0; ///< (0, 0, 0) past the end
    virtual const IVector3D* GetChunkMinimumArray() const = 0;  ///< null without chunks
    virtual const IVector3D* GetChunkMaximumArray() const = 0;
    virtual QVector<qint64> FindChunks(double dValue) const = 0; ///< numbers of those whose range holds it

    /** The mean of the 27 points round an address, weighted by the inverse of their distance from the point.
     */
    virtual double InterpolateAt(const DVector3D& point, const IVector3D& ijk, const IGrid& grid) const = 0;
    virtual DVector3D InterpolateVectorAt(const DVector3D& point, const IVector3D& ijk,
                                          const IGrid& grid) const = 0;
};
