#include "data/grids/gridmask.h"

bool CGridMask::Prepare()
{
    if (m_pInner || m_bFailed)
        return m_pInner != nullptr;
    m_pInner = m_factory(*this);
    m_bFailed = !m_pInner;
    m_failure.Note(m_bFailed ? LoadFailed : LoadOk, CGrid::GetFileName());
    if (m_bFailed)
        return false;
    const SBlockShape shape = CGrid::GetShape();
    m_pInner->Init(CGrid::GetFileName(), CGrid::GetFileIndex(), shape.dimensions, shape.start, m_bStructured);
    m_pInner->SetGridId(CGrid::GetGridId());
    return true;
}

bool CGridMask::HasFileChangedSinceFailure() const
{
    return m_pInner ? m_pInner->HasFileChangedSinceFailure() : m_failure.HasFileChanged(CGrid::GetFileName());
}

void CGridMask::StartAnew()
{
    m_pInner.reset();
    m_bFailed = false;
    ForgetGeometry();
}

void CGridMask::Init(const QString& sFileName, qint64 nFileIndex, const IVector3D& dimensions,
                     const IVector3D& start, bool bStructured)
{
    CGrid::Init(sFileName, nFileIndex, dimensions, start, bStructured);
    m_bStructured = bStructured;
}

const float* CGridMask::GetCoordinatesSingle(int nAxis)
{
    return m_pInner ? m_pInner->GetCoordinatesSingle(nAxis) : nullptr;
}

const double* CGridMask::GetCoordinatesDouble(int nAxis)
{
    return m_pInner ? m_pInner->GetCoordinatesDouble(nAxis) : nullptr;
}

void CGridMask::ReleaseCoordinateCopies()
{
    if (m_pInner)
        m_pInner->ReleaseCoordinateCopies();
}

std::optional<SValueRange> CGridMask::GetRange(int nAxis, bool bCompute)
{
    return m_pInner ? m_pInner->GetRange(nAxis, bCompute) : std::nullopt;
}

void CGridMask::SetRange(int nAxis, const SValueRange& range)
{
    if (m_pInner)
        m_pInner->SetRange(nAxis, range);
}

IVector3D CGridMask::GetMinimumLocation(int nAxis)
{
    return m_pInner ? m_pInner->GetMinimumLocation(nAxis) : IVector3D();
}

IVector3D CGridMask::GetMaximumLocation(int nAxis)
{
    return m_pInner ? m_pInner->GetMaximumLocation(nAxis) : IVector3D();
}

LoadStatus_e CGridMask::ComputeRanges() { return m_pInner ? m_pInner->ComputeRanges() : LoadFailed; }
