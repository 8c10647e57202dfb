#include "data/solutions/solution.h"

#include "data/values/blockslices.h"

#include <new>

namespace {

/** Order in which equal extremes are looked for: i outermost. */
bool ComesFirst(const IVector3D& a, const IVector3D& b)
{
    return std::tuple(a.i, a.j, a.k) < std::tuple(b.i, b.j, b.k);
}

/** A minimum and a maximum on their way through a block, each with its first place. */
struct SExtremes
{
    SValueRange range;
    IVector3D minAt, maxAt;

    void Add(double dValue, const IVector3D& at)
    {
        if (!IsFieldValue(dValue))
            return;
        if (dValue < range.dMin || (dValue == range.dMin && ComesFirst(at, minAt))) {
            range.dMin = dValue;
            minAt = at;
        }
        if (dValue > range.dMax || (dValue == range.dMax && ComesFirst(at, maxAt))) {
            range.dMax = dValue;
            maxAt = at;
        }
    }
};

} // namespace

void CSolution::Dispose()
{
    if (m_pOwner)
        m_pOwner->Release(this);
}

void CSolution::Init(const QString& sFileName, qint64 nFileIndex, qint64 nVariableIndex,
                     const IVector3D& dimensions, const IVector3D& start)
{
    m_sFileName = sFileName;
    m_nFileIndex = nFileIndex;
    m_nVariableIndex = nVariableIndex;
    m_shape = {dimensions, start};
}

DVector3D CSolution::GetVector(const IVector3D& ijk) const
{
    const double dValue = GetValue(ijk);
    return {dValue, dValue, dValue};
}

qint64 CSolution::GetIntegerValue(const IVector3D& ijk) const
{
    constexpr double LIMIT = 9.2e18; // beyond it a double has no 64-bit integer
    const double dValue = GetValue(ijk);
    return std::abs(dValue) < LIMIT ? static_cast<qint64>(dValue) : 0;
}

LoadStatus_e CSolution::FillVectors(const SIJKRange& range, const SPointBuffers& out) const
{
    const qint64 nCount = range.Count();
    const LoadStatus_e eStatus = FillValues(range, out.x.first(nCount));
    std::copy_n(out.x.begin(), nCount, out.y.begin());
    std::copy_n(out.x.begin(), nCount, out.z.begin());
    return eStatus;
}

LoadStatus_e CSolution::GatherVectors(std::span<const qint64> points, const SPointBuffers& out) const
{
    const LoadStatus_e eStatus = GatherValues(points, out.x.first(points.size()));
    std::copy_n(out.x.begin(), points.size(), out.y.begin());
    std::copy_n(out.x.begin(), points.size(), out.z.begin());
    return eStatus;
}

template <class Real> const Real* CSolution::Copy(std::vector<Real>& copy) const
{
    if (!copy.empty())
        return copy.data();
    try {
        std::vector<Real> built(GetShape().PointCount());
        std::vector<double> scratch;
        const LoadStatus_e eStatus = ForEachSlice(GetShape().Range(), [&](const SIJKRange& part) {
            scratch.resize(part.Count());
            const LoadStatus_e eRead = FillValues(part, scratch);
            std::copy(scratch.begin(), scratch.end(), built.begin() + GetShape().PointIndex(part.min));
            return eRead;
        });
        if (eStatus != LoadOk)
            return nullptr;
        copy = std::move(built);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return copy.empty() ? nullptr : copy.data();
}

const float* CSolution::GetValuesSingle() { return Copy(m_singleCopy); }
const double* CSolution::GetValuesDouble() { return Copy(m_doubleCopy); }

void CSolution::ReleaseValueCopies()
{
    m_singleCopy = {};
    m_doubleCopy = {};
}

std::optional<SValueRange> CSolution::GetRange(int nComponent, bool bCompute)
{
    const SValueRange& range = m_ranges[nComponent];
    if (range.IsEmpty() && (!bCompute || ComputeRanges() != LoadOk || range.IsEmpty()))
        return std::nullopt;
    return range;
}

void CSolution::SetExtreme(int nComponent, const SValueRange& range, const IVector3D& minAt,
                           const IVector3D& maxAt)
{
    m_ranges[nComponent] = range;
    m_minimumLocations[nComponent] = minAt;
    m_maximumLocations[nComponent] = maxAt;
}

IVector3D CSolution::GetMinimumLocation(int nComponent)
{
    GetRange(nComponent, true);
    return m_minimumLocations[nComponent];
}

IVector3D CSolution::GetMaximumLocation(int nComponent)
{
    GetRange(nComponent, true);
    return m_maximumLocations[nComponent];
}

LoadStatus_e CSolution::ComputeRanges()
{
    std::array<SExtremes, 3> extremes;
    std::vector<double> scratch;
    const LoadStatus_e eStatus = ForEachSlice(GetShape().Range(), [&](const SIJKRange& part) {
        const qint64 nCount = part.Count();
        scratch.resize(3 * nCount);
        const std::span<double> all(scratch);
        const SPointBuffers values{all.first(nCount), all.subspan(nCount, nCount),
                                   all.subspan(2 * nCount, nCount)};
        if (const LoadStatus_e eRead = FillVectors(part, values); eRead != LoadOk)
            return eRead;
        qint64 n = 0;
        for (qint64 k = part.min.k; k <= part.max.k; ++k)
            for (qint64 j = part.min.j; j <= part.max.j; ++j)
                for (qint64 i = part.min.i; i <= part.max.i; ++i, ++n)
                    for (int nComponent = 0; nComponent < 3; ++nComponent)
                        extremes[nComponent].Add(values.Axis(nComponent)[n], {i, j, k});
        return LoadOk;
    });
    if (eStatus != LoadOk)
        extremes = {};
    for (int nComponent = 0; nComponent < 3; ++nComponent)
        SetExtreme(nComponent, extremes[nComponent].range, extremes[nComponent].minAt,
                   extremes[nComponent].maxAt);
    return eStatus;
}

qint64 CSolution::CollectInRanges(const QVector<SValueRange>& ranges, QVector<IVector3D>& out) const
{
    out.clear();
    std::vector<double> scratch;
    const LoadStatus_e eStatus = ForEachSlice(GetShape().Range(), [&](const SIJKRange& part) {
        scratch.resize(part.Count());
        if (const LoadStatus_e eRead = FillValues(part, scratch); eRead != LoadOk)
            return eRead;
        const SBlockShape shape{part.Extent(), part.min};
        for (qint64 n = 0; n < qint64(scratch.size()); ++n) {
            const auto isInside = [&](const SValueRange& range) { return range.Contains(scratch[n]); };
            if (std::any_of(ranges.begin(), ranges.end(), isInside))
                out.append(shape.Address(n));
        }
        return LoadOk;
    });
    if (eStatus != LoadOk)
        out.clear();
    std::sort(out.begin(), out.end(), ComesFirst);
    return out.size();
}
