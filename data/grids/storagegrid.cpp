#include "data/grids/storagegrid.h"

#include "data/kernels/pointkernels.h"
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
    const bool bAllocated = m_arrays.Allocate(nPointCount);
    this->SetBytesInUse(m_arrays.Bytes());
    return bAllocated;
}

template <class Real> int CStorageGrid<Real>::Load()
{
    IVector3D size = this->GetDimensions();
    const LoadStatus_e eStatus = m_arrays.Load(this->GetFileName(), size);
    if (eStatus == LoadNever)
        SetDimensions(size); // the next access loads it
    this->SetBytesInUse(m_arrays.Bytes());
    return eStatus;
}

template <class Real> void CStorageGrid<Real>::Unload()
{
    m_arrays.Clear();
    this->ReleaseCoordinateCopies();
    this->SetBytesInUse(0);
}

template <class Real> LoadStatus_e CStorageGrid<Real>::EnsureLoaded() const
{
    if (m_arrays.AreFilled())
        return LoadOk;
    // A load changes nothing that a reader can see but the time it takes.
    auto* const pThis = const_cast<CStorageGrid*>(this);
    int nStatus = CMemoryManager::Instance().LoadItem(pThis);
    if (nStatus == LoadFailed && !this->HasFailed()) // it has found out that it is of another size
        nStatus = CMemoryManager::Instance().LoadItem(pThis);
    return nStatus == LoadOk && !m_arrays.AreFilled() ? LoadFailed : LoadStatus_e(nStatus);
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
    if (nIndex < 0 || nIndex >= m_arrays.Count()) {
        CMessageSink::Instance().Log("Invalid Index");
        return {};
    }
    return {m_arrays.Data(0)[nIndex], m_arrays.Data(1)[nIndex], m_arrays.Data(2)[nIndex]};
}

template <class Real> void CStorageGrid<Real>::SetPoint(qint64 nIndex, const DVector3D& point)
{
    if (nIndex < 0 || nIndex >= m_arrays.Count())
        return;
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        m_arrays.Array(nAxis)[nIndex] = static_cast<Real>(point[nAxis]);
}

template <class Real>
LoadStatus_e CStorageGrid<Real>::FillPoints(const SIJKRange& range, const SPointBuffers& out) const
{
    if (m_arrays.ReadPart(this->GetShape(), range, {out.x, out.y, out.z}))
        return LoadOk;
    if (const LoadStatus_e eStatus = EnsureLoaded(); eStatus != LoadOk)
        return eStatus;
    if (!this->GetShape().Range().Contains(range.min) || !this->GetShape().Range().Contains(range.max))
        return LoadBadContent; // the load found another size
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        CopyRange(m_arrays.Data(nAxis), this->GetShape(), range, out.Axis(nAxis));
    return LoadOk;
}

template <class Real>
LoadStatus_e CStorageGrid<Real>::GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const
{
    if (m_arrays.ReadPoints(this->GetShape(), points, {out.x, out.y, out.z}))
        return LoadOk;
    if (const LoadStatus_e eStatus = EnsureLoaded(); eStatus != LoadOk)
        return eStatus;
    const auto isThere = [nCount = m_arrays.Count()](qint64 n) { return n < nCount; };
    if (!std::all_of(points.begin(), points.end(), isThere))
        return LoadBadContent; // the load found another size
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        std::transform(points.begin(), points.end(), out.Axis(nAxis).begin(),
                       [pArray = m_arrays.Data(nAxis)](qint64 n) { return double(pArray[n]); });
    return LoadOk;
}

template <class Real> const float* CStorageGrid<Real>::GetCoordinatesSingle(int nAxis)
{
    if (EnsureLoaded() != LoadOk)
        return nullptr;
    if constexpr (std::is_same_v<Real, float>)
        return m_arrays.Data(nAxis);
    else
        return CGrid::GetCoordinatesSingle(nAxis);
}

template <class Real> const double* CStorageGrid<Real>::GetCoordinatesDouble(int nAxis)
{
    if (EnsureLoaded() != LoadOk)
        return nullptr;
    if constexpr (std::is_same_v<Real, double>)
        return m_arrays.Data(nAxis);
    else
        return CGrid::GetCoordinatesDouble(nAxis);
}

template class CStorageGrid<float>;
template class CStorageGrid<double>;
