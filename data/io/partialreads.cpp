#include "data/io/partialreads.h"

namespace {

// What the beginning of a read costs, as bytes that could be read in the meantime: measured with files that
// aren't in the page cache, of blocks of 17^3, 49^3 and 129^3 points (faceread_bench).
constexpr qint64 COST_OF_A_RUN = 1 << 16;
constexpr qint64 SHARE_OF_THE_WHOLE = 4; // parts together cost at most this part of a load

qint64 CostOf(const SBlockShape& shape, const SIJKRange& range, qint64 nValueSize)
{
    const CRangeRuns runs(shape, range);
    return runs.Count() * (runs.Length() * nValueSize + COST_OF_A_RUN);
}

} // namespace

bool CPartialReads::Allows(const SBlockShape& shape, const SIJKRange& range, qint64 nValueSize) const
{
    if (range.IsEmpty() || !(Intersection(range, shape.Range()) == range))
        return false;
    const qint64 nBudget = shape.PointCount() * nValueSize / SHARE_OF_THE_WHOLE;
    return m_nSpent + CostOf(shape, range, nValueSize) <= nBudget;
}

bool CPartialReads::Take(const SBlockShape& shape, const SIJKRange& range, qint64 nValueSize)
{
    if (!Allows(shape, range, nValueSize))
        return false;
    m_nSpent += CostOf(shape, range, nValueSize);
    return true;
}

bool CPartialReads::TakePoints(const SBlockShape& shape, qint64 nPoints, qint64 nValueSize)
{
    const qint64 nCost = nPoints * (nValueSize + COST_OF_A_RUN);
    if (nPoints == 0 || m_nSpent + nCost > shape.PointCount() * nValueSize / SHARE_OF_THE_WHOLE)
        return false;
    m_nSpent += nCost;
    return true;
}

CRangeRuns::CRangeRuns(const SBlockShape& shape, const SIJKRange& range) : m_shape(shape), m_range(range)
{
    const IVector3D extent = range.Extent();
    const bool bWholeRows = extent.i == shape.dimensions.i;
    const bool bWholePlanes = bWholeRows && extent.j == shape.dimensions.j;
    m_nLength = bWholePlanes ? extent.i * extent.j * extent.k : bWholeRows ? extent.i * extent.j : extent.i;
    m_nCount = range.Count() / m_nLength;
}

SPointRun CRangeRuns::Run(qint64 nRun) const
{
    const IVector3D extent = m_range.Extent();
    const qint64 nPoint = nRun * m_nLength; // in a buffer of the range
    const IVector3D first = m_range.min + IVector3D{nPoint % extent.i, nPoint / extent.i % extent.j,
                                                    nPoint / extent.i / extent.j};
    return {m_shape.PointIndex(first), m_nLength};
}
