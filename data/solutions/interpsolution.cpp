#include "data/solutions/interpsolution.h"

#include "data/values/blockslices.h"
#include "data/values/sharedpoints.h"

#include <vector>

namespace {

double Blend(double dFirst, double dSecond, double dWeight)
{
    if (dFirst == NO_VALUE || dSecond == NO_VALUE)
        return NO_VALUE;
    return dWeight * dFirst + (1.0 - dWeight) * dSecond;
}

void BlendInto(std::span<double> first, std::span<const double> second, double dWeight)
{
    for (size_t n = 0; n < second.size(); ++n)
        first[n] = Blend(first[n], second[n], dWeight);
}

} // namespace

CInterpSolution::CInterpSolution(ISolution* pFirst, ISolution* pSecond, double dWeight)
    : m_pFirst(pFirst), m_pSecond(pSecond), m_dWeight(dWeight)
{}

bool CInterpSolution::Prepare()
{
    const bool bFirst = m_pFirst->Prepare();
    return m_pSecond->Prepare() && bFirst;
}

bool CInterpSolution::HasValue(const IVector3D& ijk) const
{
    return m_pFirst->HasValue(ijk) && m_pSecond->HasValue(ijk);
}

QVector<ISolution*> CInterpSolution::GetLeafSolutions()
{
    QVector<ISolution*> leaves = m_pFirst->GetLeafSolutions();
    for (ISolution* const pLeaf : m_pSecond->GetLeafSolutions())
        if (!leaves.contains(pLeaf))
            leaves.append(pLeaf);
    return leaves;
}

double CInterpSolution::GetValue(const IVector3D& ijk) const
{
    return Blend(m_pFirst->GetValue(NearestIndex(*m_pFirst, ijk)),
                 m_pSecond->GetValue(NearestIndex(*m_pSecond, ijk)), m_dWeight);
}

DVector3D CInterpSolution::GetVector(const IVector3D& ijk) const
{
    const DVector3D first = m_pFirst->GetVector(NearestIndex(*m_pFirst, ijk));
    const DVector3D second = m_pSecond->GetVector(NearestIndex(*m_pSecond, ijk));
    return {Blend(first.x, second.x, m_dWeight), Blend(first.y, second.y, m_dWeight),
            Blend(first.z, second.z, m_dWeight)};
}

LoadStatus_e CInterpSolution::FillValues(const SIJKRange& range, std::span<double> out) const
{
    if (const LoadStatus_e eStatus = m_pFirst->FillValues(range, out); eStatus != LoadOk)
        return eStatus;
    std::vector<double> scratch;
    return ForEachSlice(range, [&](const SIJKRange& part) {
        scratch.resize(part.Count());
        const LoadStatus_e eStatus = m_pSecond->FillValues(part, scratch);
        BlendInto(out.subspan(range.IndexOf(part.min), part.Count()), scratch, m_dWeight);
        return eStatus;
    });
}

LoadStatus_e CInterpSolution::FillVectors(const SIJKRange& range, const SPointBuffers& out) const
{
    if (const LoadStatus_e eStatus = m_pFirst->FillVectors(range, out); eStatus != LoadOk)
        return eStatus;
    std::vector<double> scratch;
    return ForEachSlice(range, [&](const SIJKRange& part) {
        const qint64 nCount = part.Count();
        scratch.resize(3 * nCount);
        const std::span<double> all(scratch);
        const SPointBuffers second{all.first(nCount), all.subspan(nCount, nCount),
                                   all.subspan(2 * nCount, nCount)};
        const LoadStatus_e eStatus = m_pSecond->FillVectors(part, second);
        for (int n = 0; n < 3; ++n)
            BlendInto(out.Axis(n).subspan(range.IndexOf(part.min), nCount), second.Axis(n), m_dWeight);
        return eStatus;
    });
}

LoadStatus_e CInterpSolution::GatherValues(std::span<const qint64> points, std::span<double> out) const
{
    std::vector<double> second(points.size());
    if (const LoadStatus_e eStatus = m_pFirst->GatherValues(points, out); eStatus != LoadOk)
        return eStatus;
    const LoadStatus_e eStatus =
        m_pSecond->GatherValues(Translated(points, GetShape(), m_pSecond->GetShape()), second);
    BlendInto(out.first(points.size()), second, m_dWeight);
    return eStatus;
}

LoadStatus_e CInterpSolution::GatherVectors(std::span<const qint64> points, const SPointBuffers& out) const
{
    const size_t nCount = points.size();
    std::vector<double> scratch(3 * nCount);
    const std::span<double> all(scratch);
    const SPointBuffers second{all.first(nCount), all.subspan(nCount, nCount), all.last(nCount)};
    if (const LoadStatus_e eStatus = m_pFirst->GatherVectors(points, out); eStatus != LoadOk)
        return eStatus;
    const LoadStatus_e eStatus =
        m_pSecond->GatherVectors(Translated(points, GetShape(), m_pSecond->GetShape()), second);
    for (int n = 0; n < 3; ++n)
        BlendInto(out.Axis(n).first(nCount), second.Axis(n), m_dWeight);
    return eStatus;
}
