#include "data/grids/gridmask.h"

bool CGridMask::Prepare()
{
    return m_inner.Prepare(CGrid::GetFileName(), [this] {
        std::unique_ptr<CGrid> pGrid = m_factory(*this);
        const SBlockShape shape = CGrid::GetShape();
        if (pGrid) {
            pGrid->Init(CGrid::GetFileName(), CGrid::GetFileIndex(), shape.dimensions, shape.start,
                        m_bStructured);
            pGrid->SetGridId(CGrid::GetGridId());
        }
        return pGrid;
    });
}

void CGridMask::StartAnew()
{
    m_inner.StartAnew();
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
    return m_inner.Get() ? m_inner.Get()->GetCoordinatesSingle(nAxis) : nullptr;
}

const double* CGridMask::GetCoordinatesDouble(int nAxis)
{
    return m_inner.Get() ? m_inner.Get()->GetCoordinatesDouble(nAxis) : nullptr;
}

void CGridMask::ReleaseCoordinateCopies()
{
    if (m_inner.Get())
        m_inner.Get()->ReleaseCoordinateCopies();
}

std::optional<SValueRange> CGridMask::GetRange(int nAxis, bool bCompute)
{
    return m_inner.Get() ? m_inner.Get()->GetRange(nAxis, bCompute) : std::nullopt;
}

void CGridMask::SetRange(int nAxis, const SValueRange& range)
{
    if (m_inner.Get())
        m_inner.Get()->SetRange(nAxis, range);
}

IVector3D CGridMask::GetMinimumLocation(int nAxis)
{
    return m_inner.Get() ? m_inner.Get()->GetMinimumLocation(nAxis) : IVector3D();
}

IVector3D CGridMask::GetMaximumLocation(int nAxis)
{
    return m_inner.Get() ? m_inner.Get()->GetMaximumLocation(nAxis) : IVector3D();
}

LoadStatus_e CGridMask::ComputeRanges()
{
    return m_inner.Get() ? m_inner.Get()->ComputeRanges() : LoadFailed;
}
