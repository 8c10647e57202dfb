#pragma once

#include "data/solutions/isolution.h"

class IGrid;

/**
 * A field over a structured block: what has to do with (i, j, k). A read outside of it gives the value of the
 * nearest point by each index.
 */
class IStructredSolution : public ISolution
{
public:
    IStructredSolution* AsStructured() override { return this; }
    virtual void Init(const QString& sFileName, qint64 nFileIndex, qint64 nVariableIndex,
                      const IVector3D& dimensions, const IVector3D& start) = 0;
    virtual void SetDimensions(const IVector3D& dimensions) = 0;
    IVector3D GetDimensions() const { return GetShape().dimensions; }
    IVector3D GetStart() const { return GetShape().start; }
    IVector3D GetIJKMin() const { return GetShape().start; }
    IVector3D GetIJKMax() const { return GetShape().End(); }
    bool IsInRange(qint64 i, qint64 j, qint64 k) const { return GetShape().Contains({i, j, k}); }
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
    /** Addresses of all values inside one of the ranges, ends included; i outermost, k innermost. None where
     * they can't be read. */
    virtual qint64 CollectInRanges(const QVector<SValueRange>& ranges, QVector<IVector3D>& out) const = 0;
    qint64 CollectInRange(const SValueRange& range, QVector<IVector3D>& out) const
    {
        return CollectInRanges({range}, out);
    }

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

/** The field as one over a structured block; null, and the lease at its end, for any other. */
inline CLease<IStructredSolution> AsStructured(CLease<ISolution> pField)
{
    IStructredSolution* const pStructured = pField ? pField->AsStructured() : nullptr;
    if (pStructured)
        pField.release();
    return CLease<IStructredSolution>(pStructured);
}
