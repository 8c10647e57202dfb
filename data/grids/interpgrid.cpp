#include "data/grids/interpgrid.h"

#include "data/kernels/pointkernels.h"

#include <vector>

CInterpGrid::CInterpGrid(IGrid* pFirst, IGrid* pSecond, double dWeight)
    : m_pFirst(pFirst), m_pSecond(pSecond), m_dWeight(dWeight)
{}

bool CInterpGrid::Prepare()
{
    const bool bFirst = m_pFirst->Prepare();
    return m_pSecond->Prepare() && bFirst;
}

bool CInterpGrid::HasPoint(const IVector3D& ijk) const
{
    return m_pFirst->HasPoint(ijk) && m_pSecond->HasPoint(ijk);
}

QVector<IGrid*> CInterpGrid::GetLeafGrids()
{
    QVector<IGrid*> leaves = m_pFirst->GetLeafGrids();
    for (IGrid* const pLeaf : m_pSecond->GetLeafGrids())
        if (!leaves.contains(pLeaf))
            leaves.append(pLeaf);
    return leaves;
}

DVector3D CInterpGrid::GetPoint(const IVector3D& ijk) const
{
    return Blended(m_pFirst->GetPoint(ijk), m_pSecond->GetPoint(ijk));
}

DVector3D CInterpGrid::GetPoint(qint64 nIndex) const
{
    return Blended(m_pFirst->GetPoint(nIndex), m_pSecond->GetPoint(nIndex));
}

void CInterpGrid::FillPoints(const SIJKRange& range, const SPointBuffers& out) const
{
    m_pFirst->FillPoints(range, out);
    // The second level plane by plane, so that its scratch stays small beside the block.
    const qint64 nPlane = range.Extent().i * range.Extent().j;
    std::vector<double> scratch(3 * nPlane);
    const std::span<double> all(scratch);
    const SPointBuffers plane{all.subspan(0, nPlane), all.subspan(nPlane, nPlane),
                              all.subspan(2 * nPlane, nPlane)};
    SIJKRange part = range;
    for (qint64 k = range.min.k; k <= range.max.k; ++k) {
        part.min.k = part.max.k = k;
        m_pSecond->FillPoints(part, plane);
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            BlendInto(out.Axis(nAxis).subspan((k - range.min.k) * nPlane, nPlane), plane.Axis(nAxis),
                      m_dWeight);
    }
}
