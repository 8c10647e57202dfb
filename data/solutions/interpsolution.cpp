#include "data/solutions/interpsolution.h"

#include "data/blockslices.h"

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

CInterpSolution::CInterpSolution(IStructredSolution* pFirst, IStructredSolution* pSecond, double dWeight)
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

QVector<IStructredSolution*> CInterpSolution::GetLeafSolutions()
{
    QVector<IStructredSolution*> leaves = m_pFirst->GetLeafSolutions();
    for (IStructredSolution* const pLeaf : m_pSecond->GetLeafSolutions())
        if (!leaves.contains(pLeaf))
            leaves.append(pLeaf);
    return leaves;
}

double CInterpSolution::GetValue(const IVector3D& ijk) const
{
    return Blend(m_pFirst->GetValue(ijk), m_pSecond->GetValue(ijk), m_dWeight);
}

DVector3D CInterpSolution::GetVector(const IVector3D& ijk) const
{
    const DVector3D first = m_pFirst->GetVector(ijk);
    const DVector3D second = m_pSecond->GetVector(ijk);
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
