#include "data/solutions/solutionmask.h"

bool CSolutionMask::Prepare()
{
    return m_inner.Prepare(GetFileName(), [this] {
        std::unique_ptr<CSolution> pSolution = m_factory(*this);
        const SBlockShape shape = CSolution::GetShape();
        if (pSolution) {
            pSolution->Init(GetFileName(), GetFileIndex(), GetVariableIndex(), shape.dimensions, shape.start);
            pSolution->SetSolutionId(GetSolutionId());
        }
        return pSolution;
    });
}

void CSolutionMask::Dispose()
{
    if (m_inner.Get())
        m_inner.Get()->Dispose();
    else
        CSolution::Dispose();
}

ISolution* CSolutionMask::GetBaseSolution()
{
    return m_inner.Get() ? m_inner.Get()->GetBaseSolution() : CSolution::GetBaseSolution();
}

void CSolutionMask::SetSolutionId(qint64 nId)
{
    CSolution::SetSolutionId(nId);
    if (m_inner.Get())
        m_inner.Get()->SetSolutionId(nId);
}

void CSolutionMask::SetDimensions(const IVector3D& dimensions)
{
    CSolution::SetDimensions(dimensions);
    if (m_inner.Get())
        m_inner.Get()->SetDimensions(dimensions);
}

QVector<ISolution*> CSolutionMask::GetLeafSolutions()
{
    return m_inner.Get() ? m_inner.Get()->GetLeafSolutions() : QVector<ISolution*>();
}

qint64 CSolutionMask::GetIntegerValue(const IVector3D& ijk) const
{
    return m_inner.Get() ? m_inner.Get()->GetIntegerValue(ijk) : 0;
}

LoadStatus_e CSolutionMask::FillValues(const SIJKRange& range, std::span<double> out) const
{
    return m_inner.Get() ? m_inner.Get()->FillValues(range, out) : LoadFailed;
}

void CSolutionMask::StoreIntegers(const qint32* pValues, qint64 nCount)
{
    if (m_inner.Get())
        m_inner.Get()->StoreIntegers(pValues, nCount);
}

void CSolutionMask::ReleaseValueCopies()
{
    if (m_inner.Get())
        m_inner.Get()->ReleaseValueCopies();
}

std::optional<SValueRange> CSolutionMask::GetRange(int nComponent, bool bCompute)
{
    return m_inner.Get() ? m_inner.Get()->GetRange(nComponent, bCompute) : std::nullopt;
}

void CSolutionMask::SetRange(int nComponent, const SValueRange& range)
{
    if (m_inner.Get())
        m_inner.Get()->SetRange(nComponent, range);
}

IVector3D CSolutionMask::GetMinimumLocation(int nComponent)
{
    return m_inner.Get() ? m_inner.Get()->GetMinimumLocation(nComponent) : IVector3D();
}

IVector3D CSolutionMask::GetMaximumLocation(int nComponent)
{
    return m_inner.Get() ? m_inner.Get()->GetMaximumLocation(nComponent) : IVector3D();
}

LoadStatus_e CSolutionMask::ComputeRanges()
{
    return m_inner.Get() ? m_inner.Get()->ComputeRanges() : LoadFailed;
}
