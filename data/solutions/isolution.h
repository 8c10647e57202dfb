#pragma once

#include "data/values/blockshape.h"
#include "data/values/idisposable.h"
#include "data/values/pointbuffers.h"
#include "data/values/valuerange.h"
#include "frame/memory/memoryitem.h"
#include "frame/vector3d.h"

#include <QString>
#include <QVector>

#include <optional>

class IStructredSolution;

/** The numbers of a field where they stand as an array in its precision, i fastest; one of the two or
 * neither. */
struct SStoredValues
{
    const float* pSingle = nullptr;
    const double* pDouble = nullptr;
};

/**
 * One variable over one block, whatever stands behind it: numbers of a file, coordinates, a blend of two time
 * levels, a union of blocks, a formula. Every field has three components; a scalar repeats its value. The
 * shape of one over a mesh is (n, 1, 1).
 *
 * Values are read by point for odd jobs, by range or at scattered points for every loop, with equal values
 * bit for bit. A solution that the manager gave out stays in memory until Dispose; any thread may read it.
 * What is built on demand (copies, ranges) is for one thread at a time.
 */
class ISolution : public IDisposable, public CMemoryItem
{
public:
    virtual bool Prepare() = 0; ///< makes the object ready for use; true if there is something behind it
    virtual bool IsPrepared() const = 0;
    virtual ISolution* GetBaseSolution() = 0; ///< the innermost stored one
    virtual QString GetFileName() const = 0;
    virtual qint64 GetFileIndex() const = 0;     ///< block of the file, from 0
    virtual qint64 GetVariableIndex() const = 0; ///< variable of the file, from 0
    virtual qint64 GetSolutionId() const = 0;    ///< the manager's id, -1 without one
    virtual void SetSolutionId(qint64 nId) = 0;
    virtual bool IsDoublePrecision() const = 0;

    /** Null for a field over a mesh. */
    virtual IStructredSolution* AsStructured() { return nullptr; }
    virtual SBlockShape GetShape() const = 0;
    virtual bool HasValue(const IVector3D& ijk) const = 0; ///< false in the gaps of a union
    virtual QVector<ISolution*> GetLeafSolutions() = 0;    ///< those that carry data, each once

    // By flat index. One outside is no error: see the concrete classes. NO_VALUE where the data can't be
    // read.
    virtual DVector3D GetVector(qint64 nIndex) const = 0;
    virtual double GetValue(qint64 nIndex) const = 0;

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

    /** The same at scattered points: flat indices within the field, in any order. */
    virtual LoadStatus_e GatherValues(std::span<const qint64> points, std::span<double> out) const = 0;
    virtual LoadStatus_e GatherVectors(std::span<const qint64> points, const SPointBuffers& out) const = 0;

    /** Stored fields: converts 32-bit integers into the array. */
    virtual void StoreIntegers(const qint32* pValues, qint64 nCount) = 0;
    /**
     * All values. A stored array is given without a copy; the other precision is built at first use and kept
     * until ReleaseValueCopies. Null if nothing could be loaded or memory is short.
     */
    virtual const float* GetValuesSingle() = 0;
    virtual const double* GetValuesDouble() = 0;
    virtual void ReleaseValueCopies() = 0;

    /**
     * Of one component over all points; NO_VALUE and non-finite values don't count. Nothing while it isn't
     * computed, without values, and where they can't be read.
     */
    virtual std::optional<SValueRange> GetRange(int nComponent, bool bCompute) = 0;
    virtual void SetRange(int nComponent, const SValueRange& range) = 0;
    virtual IVector3D GetMinimumLocation(int nComponent) = 0; ///< of the first point with the minimum
    virtual IVector3D GetMaximumLocation(int nComponent) = 0;
    virtual LoadStatus_e ComputeRanges() = 0;
    virtual bool Allocate(qint64 nCount) = 0; ///< false if memory is short, or no storage
};

/** The flat index of the point of a field that is the nearest to an address by each index. */
inline qint64 NearestIndex(const ISolution& field, const IVector3D& ijk)
{
    const SBlockShape shape = field.GetShape();
    return shape.PointIndex(shape.Clamped(ijk));
}
