#pragma once

#include "data/values/valuerange.h"

#include <QtGlobal>

#include <span>

/** A stored value as formulas calculate with it: NaN where there is none. */
inline double AsOperand(double dValue)
{
    return IsFieldValue(dValue) ? dValue : std::numeric_limits<double>::quiet_NaN();
}

/**
 * The values of one input at the points of a range: an array of floats or doubles, or one value for all
 * points. Holds no copy: the array must live while a formula reads it.
 */
class CFormulaColumn
{
public:
    CFormulaColumn(double dValue) : m_dValue(dValue) {}

    /** Point n has values[n * nStride]; a stride of 3 reads one component of vectors. */
    CFormulaColumn(std::span<const float> values, qint64 nStride = 1)
        : m_pFloats(values.data()), m_nStride(nStride), m_nCount(PointCount(values.size(), nStride))
    {}
    CFormulaColumn(std::span<const double> values, qint64 nStride = 1)
        : m_pDoubles(values.data()), m_nStride(nStride), m_nCount(PointCount(values.size(), nStride))
    {}

    bool IsUniform() const { return m_pFloats == nullptr && m_pDoubles == nullptr; }
    /** Whether loops can read the array as it stands. */
    bool IsPlain() const { return m_nStride == 1; }
    bool IsOfFloats() const { return m_pFloats != nullptr; }
    bool HasPoints(qint64 nCount) const { return IsUniform() || nCount <= m_nCount; }

    double GetUniform() const { return m_dValue; }
    /** The first byte of the array, whatever it is of. */
    const char* GetBytes() const
    {
        return m_pFloats != nullptr ? reinterpret_cast<const char*>(m_pFloats)
                                    : reinterpret_cast<const char*>(m_pDoubles);
    }
    const float* GetFloats() const { return m_pFloats; }
    const double* GetDoubles() const { return m_pDoubles; }
    qint64 GetStride() const { return m_nStride; }

private:
    static qint64 PointCount(size_t nValues, qint64 nStride)
    {
        return (qint64(nValues) + nStride - 1) / nStride;
    }

    const float* m_pFloats = nullptr;
    const double* m_pDoubles = nullptr;
    double m_dValue = 0.0;
    qint64 m_nStride = 0;
    qint64 m_nCount = 0;
};
