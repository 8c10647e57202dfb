#include "data/solutions/solutionmask.h"

bool CSolutionMask::Prepare()
{
    if (m_pInner || m_bFailed)
        return m_pInner != nullptr;
    m_pInner = m_factory(*this);
    m_bFailed = !m_pInner;
    m_failure.Note(m_bFailed ? LoadFailed : LoadOk, GetFileName());
    if (m_bFailed)
        return false;
    const SBlockShape shape = CSolution::GetShape();
    m_pInner->Init(GetFileName(), GetFileIndex(), GetVariableIndex(), shape.dimensions, shape.start);
    m_pInner->SetSolutionId(GetSolutionId());
    return true;
}

bool CSolutionMask::HasFileChangedSinceFailure() const
{
    return m_pInner ? m_pInner->HasFileChangedSinceFailure() : m_failure.HasFileChanged(GetFileName());
}

void CSolutionMask::StartAnew()
{
    m_pInner.reset();
    m_bFailed = false;
}

void CSolutionMask::Dispose()
{
    if (m_pInner)
        m_pInner->Dispose();
    else
        CSolution::Dispose();
}

ISolution* CSolutionMask::GetBaseSolution()
{
    return m_pInner ? m_pInner->GetBaseSolution() : CSolution::GetBaseSolution();
}

void CSolutionMask::SetSolutionId(qint64 nId)
{
    CSolution::SetSolutionId(nId);
    if (m_pInner)
        m_pInner->SetSolutionId(nId);
}

void CSolutionMask::SetDimensions(const IVector3D& dimensions)
{
    CSolution::SetDimensions(dimensions);
    if (m_pInner)
        m_pInner->SetDimensions(dimensions);
}

QVector<ISolution*> CSolutionMask::GetLeafSolutions()
{
    return m_pInner ? m_pInner->GetLeafSolutions() : QVector<ISolution*>();
}

qint64 CSolutionMask::GetIntegerValue(const IVector3D& ijk) const
{
    return m_pInner ? m_pInner->GetIntegerValue(ijk) : 0;
}

LoadStatus_e CSolutionMask::FillValues(const SIJKRange& range, std::span<double> out) const
{
    return m_pInner ? m_pInner->FillValues(range, out) : LoadFailed;
}

void CSolutionMask::StoreIntegers(const qint32* pValues, qint64 nCount)
{
    if (m_pInner)
        m_pInner->StoreIntegers(pValues, nCount);
}

void CSolutionMask::ReleaseValueCopies()
{
    if (m_pInner)
        m_pInner->ReleaseValueCopies();
}

std::optional<SValueRange> CSolutionMask::GetRange(int nComponent, bool bCompute)
{
    return m_pInner ? m_pInner->GetRange(nComponent, bCompute) : std::nullopt;
}

void CSolutionMask::SetRange(int nComponent, const SValueRange& range)
{
    if (m_pInner)
        m_pInner->SetRange(nComponent, range);
}

IVector3D CSolutionMask::GetMinimumLocation(int nComponent)
{
    return m_pInner ? m_pInner->GetMinimumLocation(nComponent) : IVector3D();
}

IVector3D CSolutionMask::GetMaximumLocation(int nComponent)
{
    return m_pInner ? m_pInner->GetMaximumLocation(nComponent) : IVector3D();
}

LoadStatus_e CSolutionMask::ComputeRanges() { return m_pInner ? m_pInner->ComputeRanges() : LoadFailed; }
