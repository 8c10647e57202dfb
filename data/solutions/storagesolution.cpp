#include "data/solutions/storagesolution.h"

#include "data/io/solutionio.h"
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
    m_values = CLargeArray<Real>(nCount);
    this->SetBytesInUse(m_values.Bytes());
    return m_values.Size() == nCount;
}

template <class Real> void CStorageSolution<Real>::StoreIntegers(const qint32* pValues, qint64 nCount)
{
    std::copy_n(pValues, std::min(nCount, m_values.Size()), m_values.Data());
}

template <class Real> int CStorageSolution<Real>::Load()
{
    const std::lock_guard lock(m_mutex);
    const bool bThere = this->GetBytesInUse() == this->GetBytesNeeded();
    const int nStatus = bThere ? int(LoadOk) : CSolutionIO().LoadSolution(*this);
    if (nStatus != LoadOk)
        Unload();
    m_bFilled = nStatus == LoadOk;
    m_failure.Note(nStatus, this->GetFileName());
    return nStatus;
}

template <class Real> void CStorageSolution<Real>::Unload()
{
    m_bFilled = false;
    m_values.Clear();
    this->ReleaseValueCopies();
    this->SetBytesInUse(0);
}

template <class Real> LoadStatus_e CStorageSolution<Real>::EnsureLoaded() const
{
    if (m_bFilled)
        return LoadOk;
    // A load changes nothing that a reader can see but the time it takes.
    auto* const pThis = const_cast<CStorageSolution*>(this);
    const int nStatus = CMemoryManager::Instance().LoadItem(pThis);
    return nStatus == LoadOk && !m_bFilled ? LoadFailed : LoadStatus_e(nStatus);
}

template <class Real> double CStorageSolution<Real>::GetValue(const IVector3D& ijk) const
{
    return GetValue(this->GetShape().PointIndex(this->GetShape().Clamped(ijk)));
}

template <class Real> double CStorageSolution<Real>::GetValue(qint64 nIndex) const
{
    if (EnsureLoaded() != LoadOk)
        return NO_VALUE;
    if (nIndex < 0 || nIndex >= m_values.Size())
        nIndex =
            std::clamp<qint64>(this->GetShape().PointIndex(this->AddressOf(nIndex)), 0, m_values.Size() - 1);
    double dValue = 0.0;
    Widen(m_values.Data() + nIndex, 1, &dValue);
    return dValue;
}

template <class Real> bool CStorageSolution<Real>::ReadsInPart(const SIJKRange& range) const
{
    return !m_bFilled && !this->HasFailed() && IsPlainNumber() &&
           m_partialReads.Allows(this->GetShape(), range, sizeof(Real));
}

template <class Real>
LoadStatus_e CStorageSolution<Real>::FillValues(const SIJKRange& range, std::span<double> out) const
{
    if (ReadsInPart(range) && m_partialReads.Take(this->GetShape(), range, sizeof(Real)) &&
        CSolutionIO().ReadValues(*this, range, out))
        return LoadOk;
    if (const LoadStatus_e eStatus = EnsureLoaded(); eStatus != LoadOk)
        return eStatus;
    const SBlockShape shape = this->GetShape();
    const qint64 nRow = range.Extent().i;
    double* pOut = out.data();
    for (qint64 k = range.min.k; k <= range.max.k; ++k) {
        for (qint64 j = range.min.j; j <= range.max.j; ++j, pOut += nRow) {
            Widen(m_values.Data() + shape.PointIndex({range.min.i, j, k}), nRow, pOut);
        }
    }
    return LoadOk;
}

template <class Real>
LoadStatus_e CStorageSolution<Real>::GatherValues(std::span<const qint64> points, std::span<double> out) const
{
    const SBlockShape shape = this->GetShape();
    if (!m_bFilled && !this->HasFailed() && IsPlainNumber() &&
        m_partialReads.TakePoints(shape, qint64(points.size()), sizeof(Real))) {
        const auto read = [&](size_t n) {
            const IVector3D ijk = shape.Address(points[n]);
            return CSolutionIO().ReadValues(*this, {ijk, ijk}, out.subspan(n, 1));
        };
        size_t n = 0;
        while (n < points.size() && read(n))
            ++n;
        if (n == points.size())
            return LoadOk;
    }
    if (const LoadStatus_e eStatus = EnsureLoaded(); eStatus != LoadOk)
        return eStatus;
    constexpr size_t PIECE = 1024;
    std::array<Real, PIECE> stored;
    for (size_t nFirst = 0; nFirst < points.size(); nFirst += PIECE) {
        const std::span<const qint64> piece = points.subspan(nFirst, std::min(PIECE, points.size() - nFirst));
        std::transform(piece.begin(), piece.end(), stored.begin(), [this](qint64 n) { return m_values[n]; });
        Widen(stored.data(), qint64(piece.size()), out.data() + nFirst);
    }
    return LoadOk;
}

template <class Real> SStoredValues CStorageSolution<Real>::GetStoredValues() const
{
    if (!IsPlainNumber() || EnsureLoaded() != LoadOk)
        return {};
    if constexpr (std::is_same_v<Real, float>)
        return {m_values.Data(), nullptr};
    else
        return {nullptr, m_values.Data()};
}

template <class Real> const float* CStorageSolution<Real>::GetValuesSingle()
{
    if (EnsureLoaded() != LoadOk)
        return nullptr;
    if constexpr (std::is_same_v<Real, float>)
        return m_values.Data();
    else
        return CSolution::GetValuesSingle();
}

template <class Real> const double* CStorageSolution<Real>::GetValuesDouble()
{
    if (EnsureLoaded() != LoadOk)
        return nullptr;
    if constexpr (std::is_same_v<Real, double>)
        return m_values.Data();
    else
        return CSolution::GetValuesDouble();
}

// A scan of the array as it stands, on several threads; the integer classes take the general road.
template <class Real> LoadStatus_e CStorageSolution<Real>::ComputeRanges()
{
    if (!IsPlainNumber() || EnsureLoaded() != LoadOk)
        return CSolution::ComputeRanges();
    const SPlacedRange found = FindRange(std::span<const Real>(m_values.Span()));
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
    return std::bit_cast<qint32>(m_values[GetShape().PointIndex(GetShape().Clamped(ijk))]);
}

void CSolutionByteSinglePrecision::StoreIntegers(const qint32* pValues, qint64 nCount)
{
    for (qint64 n = 0; n < std::min(nCount, m_values.Size()); ++n)
        m_values[n] = std::bit_cast<float>(pValues[n]);
}

qint64 CSolutionByteDoublePrecision::GetIntegerValue(const IVector3D& ijk) const
{
    if (EnsureLoaded() != LoadOk)
        return 0;
    return std::bit_cast<qint64>(m_values[GetShape().PointIndex(GetShape().Clamped(ijk))]);
}

void CSolutionByteDoublePrecision::StoreIntegers(const qint32* pValues, qint64 nCount)
{
    for (qint64 n = 0; n < std::min(nCount, m_values.Size()); ++n)
        m_values[n] = std::bit_cast<double>(qint64(pValues[n]));
}
