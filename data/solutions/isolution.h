#pragma once

#include "data/idisposable.h"
#include "data/valuerange.h"
#include "frame/memory/memoryitem.h"
#include "frame/vector3d.h"

#include <QString>

#include <optional>

/**
 * One variable over one block, whatever stands behind it: numbers of a file, coordinates, a blend of two time
 * levels, a union of blocks, a formula. Every field has three components; a scalar repeats its value.
 *
 * A solution that the manager gave out stays in memory until Dispose. Reading by point is safe from any
 * thread for stored fields; an object that computes is for one thread at a time.
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

    // By flat index. One outside is no error: see the concrete classes. NO_VALUE where the data can't be
    // read.
    virtual DVector3D GetVector(qint64 nIndex) const = 0;
    virtual double GetValue(qint64 nIndex) const = 0;

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
    virtual bool Allocate(qint64 nCount) = 0; ///< false if memory is short, or no storage
};
