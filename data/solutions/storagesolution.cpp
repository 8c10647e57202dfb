#include "data/solutions/storagesolution.h"

#include "data/kernels/range.h"
#include "data/solutions/bytesolution.h"
#include "frame/memory/memorymanager.h"

template <class Real> CStorageSolution<Real>::CStorageSolution()
{
    this->SetDoublePrecision(std::is_same_v<Real, double>);
    m_registration.emplace(this);
}

template <class Real>
void CStorageSolution<Real>::Init(const QString& sFileName, qint64 nFileIndex, qint64 nVariableIndex,
                                  const IVector3D& dimensions, const IVector3D& start)
{
    CSolution::Init(sFileName, nFileIndex, nVariableIndex, dimensions, start);
    SetDimensions(dimensions);
}

template <class Real> void CStorageSolution<Real>::SetDimensions(const IVector3D& dimensions)
{
    CSolution::SetDimensions(dimensions);
    this->SetBytesNeeded(this->GetShape().PointCount() * qint64(sizeof(Real)));
}

template <class Real> bool CStorageSolution<Real>::Allocate(qint64 nCount)
{
    Unload();
    const bool bAllocated = m_arrays.Allocate(nCount);
    this->SetBytesInUse(m_arrays.Bytes());
    return bAllocated;
}

template <class Real> void CStorageSolution<Real>::StoreIntegers(const qint32* pValues, qint64 nCount)
{
    std::copy_n(pValues, std::min(nCount, m_arrays.Count()), Values().begin());
}

template <class Real> int CStorageSolution<Real>::Load()
{
    IVector3D size = this->GetDimensions();
    const LoadStatus_e eStatus = m_arrays.Load(this->GetFileName(), size);
    this->SetBytesInUse(m_arrays.Bytes());
    return eStatus;
}

template <class Real> void CStorageSolution<Real>::Unload()
{
    m_arrays.Clear();
    this->ReleaseValueCopies();
    this->SetBytesInUse(0);
}

template <class Real> LoadStatus_e CStorageSolution<Real>::EnsureLoaded() const
{
    if (m_arrays.AreFilled())
        return LoadOk;
    // A load changes nothing that a reader can see but the time it takes.
    auto* const pThis = const_cast<CStorageSolution*>(this);
    const int nStatus = CMemoryManager::Instance().LoadItem(pThis);
    return nStatus == LoadOk && !m_arrays.AreFilled() ? LoadFailed : LoadStatus_e(nStatus);
}

template <class Real> double CStorageSolution<Real>::GetValue(const IVector3D& ijk) const
{
    return GetValue(this->GetShape().PointIndex(this->GetShape().Clamped(ijk)));
}

template <class Real> double CStorageSolution<Real>::GetValue(qint64 nIndex) const
{
    if (EnsureLoaded() != LoadOk)
        return NO_VALUE;
    if (nIndex < 0 || nIndex >= m_arrays.Count())
        nIndex =
            std::clamp<qint64>(this->GetShape().PointIndex(this->AddressOf(nIndex)), 0, m_arrays.Count() - 1);
    double dValue = 0.0;
    Widen(m_arrays.Data(0) + nIndex, 1, &dValue);
    return dValue;
}

template <class Real> bool CStorageSolution<Real>::ReadsInPart(const SIJKRange& range) const
{
    return IsPlainNumber() && m_arrays.MayReadPart(this->GetShape(), range);
}

template <class Real>
LoadStatus_e CStorageSolution<Real>::FillValues(const SIJKRange& range, std::span<double> out) const
{
    if (IsPlainNumber() && m_arrays.ReadPart(this->GetShape(), range, {out}))
        return LoadOk;
    if (const LoadStatus_e eStatus = EnsureLoaded(); eStatus != LoadOk)
        return eStatus;
    const SBlockShape shape = this->GetShape();
    const qint64 nRow = range.Extent().i;
    double* pOut = out.data();
    for (qint64 k = range.min.k; k <= range.max.k; ++k) {
        for (qint64 j = range.min.j; j <= range.max.j; ++j, pOut += nRow) {
            Widen(m_arrays.Data(0) + shape.PointIndex({range.min.i, j, k}), nRow, pOut);
        }
    }
    return LoadOk;
}

template <class Real>
LoadStatus_e CStorageSolution<Real>::GatherValues(std::span<const qint64> points, std::span<double> out) const
{
    if (IsPlainNumber() && m_arrays.ReadPoints(this->GetShape(), points, {out}))
        return LoadOk;
    if (const LoadStatus_e eStatus = EnsureLoaded(); eStatus != LoadOk)
        return eStatus;
    constexpr size_t PIECE = 1024;
    std::array<Real, PIECE> stored;
    for (size_t nFirst = 0; nFirst < points.size(); nFirst += PIECE) {
        const std::span<const qint64> piece = points.subspan(nFirst, std::min(PIECE, points.size() - nFirst));
        std::transform(piece.begin(), piece.end(), stored.begin(),
                       [pValues = m_arrays.Data(0)](qint64 n) { return pValues[n]; });
        Widen(stored.data(), qint64(piece.size()), out.data() + nFirst);
    }
    return LoadOk;
}

template <class Real> SStoredValues CStorageSolution<Real>::GetStoredValues() const
{
    if (!IsPlainNumber() || EnsureLoaded() != LoadOk)
        return {};
    if constexpr (std::is_same_v<Real, float>)
        return {m_arrays.Data(0), nullptr};
    else
        return {nullptr, m_arrays.Data(0)};
}

template <class Real> const float* CStorageSolution<Real>::GetValuesSingle()
{
    if (EnsureLoaded() != LoadOk)
        return nullptr;
    if constexpr (std::is_same_v<Real, float>)
        return m_arrays.Data(0);
    else
        return CSolution::GetValuesSingle();
}

template <class Real> const double* CStorageSolution<Real>::GetValuesDouble()
{
    if (EnsureLoaded() != LoadOk)
        return nullptr;
    if constexpr (std::is_same_v<Real, double>)
        return m_arrays.Data(0);
    else
        return CSolution::GetValuesDouble();
}

// A scan of the array as it stands, on several threads; the integer classes take the general road.
template <class Real> LoadStatus_e CStorageSolution<Real>::ComputeRanges()
{
    if (!IsPlainNumber() || EnsureLoaded() != LoadOk)
        return CSolution::ComputeRanges();
    const SPlacedRange found = FindRange(std::span<const Real>(Values()));
    if (found.IsEmpty())
        return LoadOk;
    const SBlockShape shape = this->GetShape();
    for (int nComponent = 0; nComponent < 3; ++nComponent)
        this->SetExtreme(nComponent, {found.dMin, found.dMax}, shape.Address(found.nMinIndex),
                         shape.Address(found.nMaxIndex));
    return LoadOk;
}

template class CStorageSolution<float>;
template class CStorageSolution<double>;

qint64 CSolutionByteSinglePrecision::GetIntegerValue(const IVector3D& ijk) const
{
    if (EnsureLoaded() != LoadOk)
        return 0;
    return std::bit_cast<qint32>(Values()[GetShape().PointIndex(GetShape().Clamped(ijk))]);
}

void CSolutionByteSinglePrecision::StoreIntegers(const qint32* pValues, qint64 nCount)
{
    for (qint64 n = 0; n < std::min(nCount, qint64(Values().size())); ++n)
        Values()[n] = std::bit_cast<float>(pValues[n]);
}

qint64 CSolutionByteDoublePrecision::GetIntegerValue(const IVector3D& ijk) const
{
    if (EnsureLoaded() != LoadOk)
        return 0;
    return std::bit_cast<qint64>(Values()[GetShape().PointIndex(GetShape().Clamped(ijk))]);
}

void CSolutionByteDoublePrecision::StoreIntegers(const qint32* pValues, qint64 nCount)
{
    for (qint64 n = 0; n < std::min(nCount, qint64(Values().size())); ++n)
        Values()[n] = std::bit_cast<double>(qint64(pValues[n]));
}
