#include "data/io/storedarrays.h"

#include "data/io/filefaults.h"
#include "frame/messagesink.h"

template <class Real, int N> bool CStoredArrays<Real, N>::Allocate(qint64 nCount)
{
    Clear();
    for (CLargeArray<Real>& array : m_arrays) {
        array = CLargeArray<Real>(nCount);
        if (array.Size() != nCount) {
            Clear();
            return false;
        }
    }
    return true;
}

template <class Real, int N> void CStoredArrays<Real, N>::Clear()
{
    m_bFilled = false;
    for (CLargeArray<Real>& array : m_arrays)
        array.Clear();
}

template <class Real, int N> SLoadResult CStoredArrays<Real, N>::LoadNow(IVector3D& size)
{
    if (!m_pReader)
        return SLoadResult::Failed();
    IVector3D found = size;
    if (SLoadResult check = m_pReader->Check(size, found); !check.IsOk()) {
        if (found != size)
            check.eStatus = LoadNever;
        size = found;
        return check;
    }
    const qint64 nCount = SBlockShape{size}.PointCount();
    if (!Allocate(nCount))
        return SLoadResult::NoMemory();
    std::array<std::span<Real>, N> arrays;
    for (int n = 0; n < N; ++n)
        arrays[n] = Array(n);
    const SPointRun all{0, nCount};
    return m_pReader->Read({&all, 1}, arrays);
}

template <class Real, int N>
LoadStatus_e CStoredArrays<Real, N>::Load(const QString& sFileName, IVector3D& size)
{
    const std::lock_guard lock(m_mutex);
    if (Count() > 0) { // a failed load leaves nothing, so somebody else has filled them
        m_bFilled = true;
        return LoadOk;
    }
    m_failure.Note(LoadFailed, sFileName); // ahead of the read: a file that comes back during it has changed
    const SLoadResult result = LoadNow(size);
    if (!result.sMessage.isEmpty())
        CMessageSink::Instance().Log(result.sMessage, result.nLevel);
    if (result.eStatus != LoadNever)
        FileFaults::Report(sFileName, result);
    if (!result.IsOk())
        Clear();
    m_bFilled = result.IsOk();
    if (result.eStatus != LoadFailed && result.eStatus != LoadBadContent)
        m_failure.Note(result.eStatus, sFileName);
    return result.eStatus;
}

template <class Real, int N>
bool CStoredArrays<Real, N>::ReadRuns(const IVector3D& size, const std::vector<SPointRun>& runs,
                                      const std::array<std::span<double>, N>& out) const
{
    IVector3D found;
    if (!m_pReader || !m_pReader->Check(size, found).IsOk())
        return false;
    if constexpr (std::is_same_v<Real, double>)
        return m_pReader->Read(runs, out).IsOk();
    std::vector<Real> values(N * out[0].size()); // of two-dimensional files the third stays zero
    std::array<std::span<Real>, N> arrays;
    for (int n = 0; n < N; ++n)
        arrays[n] = std::span(values).subspan(n * out[0].size(), out[0].size());
    if constexpr (std::is_same_v<Real, float>) {
        if (!m_pReader->Read(runs, arrays).IsOk())
            return false;
    }
    for (int n = 0; n < N; ++n)
        std::copy(arrays[n].begin(), arrays[n].end(), out[n].begin());
    return true;
}

template <class Real, int N>
bool CStoredArrays<Real, N>::ReadPart(const SBlockShape& shape, const SIJKRange& range,
                                      const std::array<std::span<double>, N>& out) const
{
    if (!MayReadPart(shape, range) || !m_partialReads.Take(shape, range, sizeof(Real)))
        return false;
    const CRangeRuns rows(shape, range);
    std::vector<SPointRun> runs;
    for (qint64 n = 0; n < rows.Count(); ++n)
        runs.push_back(rows.Run(n));
    std::array<std::span<double>, N> parts;
    for (int n = 0; n < N; ++n) {
        parts[n] = out[n].first(range.Count());
        std::fill(parts[n].begin(), parts[n].end(), 0.0); // which two-dimensional files leave as it is
    }
    return ReadRuns(shape.dimensions, runs, parts);
}

template <class Real, int N>
bool CStoredArrays<Real, N>::ReadPoints(const SBlockShape& shape, std::span<const qint64> points,
                                        const std::array<std::span<double>, N>& out) const
{
    if (m_bFilled || m_failure.IsNoted() ||
        !m_partialReads.TakePoints(shape, qint64(points.size()), sizeof(Real)))
        return false;
    std::vector<SPointRun> runs;
    for (const qint64 nPoint : points)
        runs.push_back({nPoint, 1});
    std::array<std::span<double>, N> parts;
    for (int n = 0; n < N; ++n) {
        parts[n] = out[n].first(points.size());
        std::fill(parts[n].begin(), parts[n].end(), 0.0);
    }
    return ReadRuns(shape.dimensions, runs, parts);
}

template class CStoredArrays<float, 1>;
template class CStoredArrays<double, 1>;
template class CStoredArrays<float, 3>;
template class CStoredArrays<double, 3>;
