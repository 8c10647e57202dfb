#include "data/grids/storagegrid.h"

#include "data/io/gridio.h"
#include "frame/memory/memorymanager.h"
#include "frame/messagesink.h"

template <class Real> CStorageGrid<Real>::CStorageGrid()
{
    this->SetDoublePrecision(std::is_same_v<Real, double>);
    m_registration.emplace(this);
}

template <class Real>
void CStorageGrid<Real>::Init(const QString& sFileName, qint64 nFileIndex, const IVector3D& dimensions,
                              const IVector3D& start, bool bStructured)
{
    CGrid::Init(sFileName, nFileIndex, dimensions, start, bStructured);
    SetDimensions(dimensions);
}

template <class Real> void CStorageGrid<Real>::SetDimensions(const IVector3D& dimensions)
{
    CGrid::SetDimensions(dimensions);
    this->SetBytesNeeded(this->GetShape().PointCount() * 3 * qint64(sizeof(Real)));
}

template <class Real> bool CStorageGrid<Real>::Allocate(qint64 nPointCount)
{
    Unload();
    for (CLargeArray<Real>& axis : m_axes) {
        axis = CLargeArray<Real>(nPointCount);
        if (axis.Size() != nPointCount) {
            Unload();
            return false;
        }
    }
    this->SetBytesInUse(3 * m_axes[0].Bytes());
    return true;
}

template <class Real> int CStorageGrid<Real>::Load()
{
    const std::lock_guard lock(m_mutex);
    const bool bThere = this->GetBytesInUse() == this->GetBytesNeeded();
    const int nStatus = bThere ? int(LoadOk) : CGridIO().LoadGrid(*this);
    if (nStatus != LoadOk)
        Unload();
    m_bFilled = nStatus == LoadOk;
    m_failure.Note(nStatus, this->GetFileName());
    return nStatus;
}

template <class Real> void CStorageGrid<Real>::Unload()
{
    m_bFilled = false;
    for (CLargeArray<Real>& axis : m_axes)
        axis.Clear();
    this->ReleaseCoordinateCopies();
    this->SetBytesInUse(0);
}

template <class Real> LoadStatus_e CStorageGrid<Real>::EnsureLoaded() const
{
    if (m_bFilled)
        return LoadOk;
    // A load changes nothing that a reader can see but the time it takes.
    auto* const pThis = const_cast<CStorageGrid*>(this);
    int nStatus = CMemoryManager::Instance().LoadItem(pThis);
    if (nStatus == LoadFailed && !this->HasFailed()) // it has found out that it is of another size
        nStatus = CMemoryManager::Instance().LoadItem(pThis);
    return nStatus == LoadOk && !m_bFilled ? LoadFailed : LoadStatus_e(nStatus);
}

template <class Real> DVector3D CStorageGrid<Real>::GetPoint(const IVector3D& ijk) const
{
    if (this->GetShape().Contains(ijk))
        return GetPoint(this->GetShape().PointIndex(ijk));
    CMessageSink::Instance().Log("Invalid Index");
    return {};
}

template <class Real> DVector3D CStorageGrid<Real>::GetPoint(qint64 nIndex) const
{
    if (EnsureLoaded() != LoadOk)
        return {};
    if (nIndex < 0 || nIndex >= m_axes[0].Size()) {
        CMessageSink::Instance().Log("Invalid Index");
        return {};
    }
    return {m_axes[0][nIndex], m_axes[1][nIndex], m_axes[2][nIndex]};
}

template <class Real> void CStorageGrid<Real>::SetPoint(qint64 nIndex, const DVector3D& point)
{
    if (nIndex < 0 || nIndex >= m_axes[0].Size())
        return;
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        m_axes[nAxis][nIndex] = static_cast<Real>(point[nAxis]);
}

template <class Real>
bool CStorageGrid<Real>::FillFromFile(const SIJKRange& range, const SPointBuffers& out) const
{
    return !m_bFilled && !this->HasFailed() && m_partialReads.Take(this->GetShape(), range, sizeof(Real)) &&
           CGridIO().ReadPoints(*this, range, out);
}

template <class Real>
LoadStatus_e CStorageGrid<Real>::FillPoints(const SIJKRange& range, const SPointBuffers& out) const
{
    if (FillFromFile(range, out))
        return LoadOk;
    if (const LoadStatus_e eStatus = EnsureLoaded(); eStatus != LoadOk)
        return eStatus;
    if (!this->GetShape().Range().Contains(range.min) || !this->GetShape().Range().Contains(range.max))
        return LoadBadContent; // the load found another size
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        CopyRange(m_axes[nAxis].Data(), this->GetShape(), range, out.Axis(nAxis));
    return LoadOk;
}

template <class Real>
LoadStatus_e CStorageGrid<Real>::GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const
{
    const SBlockShape shape = this->GetShape();
    if (!m_bFilled && !this->HasFailed() &&
        m_partialReads.TakePoints(shape, qint64(points.size()), sizeof(Real))) {
        const auto read = [&](size_t n) {
            const IVector3D ijk = shape.Address(points[n]);
            return CGridIO().ReadPoints(*this, {ijk, ijk},
                                        {out.x.subspan(n, 1), out.y.subspan(n, 1), out.z.subspan(n, 1)});
        };
        size_t n = 0;
        while (n < points.size() && read(n))
            ++n;
        if (n == points.size())
            return LoadOk;
    }
    if (const LoadStatus_e eStatus = EnsureLoaded(); eStatus != LoadOk)
        return eStatus;
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        std::transform(points.begin(), points.end(), out.Axis(nAxis).begin(),
                       [&](qint64 n) { return double(m_axes[nAxis][n]); });
    return LoadOk;
}

template <class Real> const float* CStorageGrid<Real>::GetCoordinatesSingle(int nAxis)
{
    if (EnsureLoaded() != LoadOk)
        return nullptr;
    if constexpr (std::is_same_v<Real, float>)
        return m_axes[nAxis].Data();
    else
        return CGrid::GetCoordinatesSingle(nAxis);
}

template <class Real> const double* CStorageGrid<Real>::GetCoordinatesDouble(int nAxis)
{
    if (EnsureLoaded() != LoadOk)
        return nullptr;
    if constexpr (std::is_same_v<Real, double>)
        return m_axes[nAxis].Data();
    else
        return CGrid::GetCoordinatesDouble(nAxis);
}

template class CStorageGrid<float>;
template class CStorageGrid<double>;
