#include "data/grids/interpgrid.h"

#include "data/grids/gridslices.h"
#include "data/kernels/pointkernels.h"
#include "data/values/sharedpoints.h"

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

bool CInterpGrid::HasGaps() const
{
    return m_pFirst->HasGaps() || m_pSecond->HasGaps() || m_pFirst->GetShape() != m_pSecond->GetShape();
}

DVector3D CInterpGrid::GetPoint(const IVector3D& ijk) const
{
    const bool bSecond = m_pSecond->HasPoint(ijk);
    return Blended(m_pFirst->GetPoint(ijk), bSecond ? m_pSecond->GetPoint(ijk) : DVector3D());
}

LoadStatus_e CInterpGrid::FillPoints(const SIJKRange& range, const SPointBuffers& out) const
{
    if (const LoadStatus_e eStatus = m_pFirst->FillPoints(range, out); eStatus != LoadOk)
        return eStatus;
    // The second level in slices, so that its scratch stays small beside the block.
    qint64 nPlace = 0;
    const auto blend = [&](const SIJKRange& part, const SPointBuffers& second) {
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            BlendInto(out.Axis(nAxis).subspan(nPlace, part.Count()), second.Axis(nAxis), m_dWeight);
        nPlace += part.Count();
    };
    return ForEachSlice(*m_pSecond, range, GapsAreZeros, blend);
}

LoadStatus_e CInterpGrid::GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const
{
    if (const LoadStatus_e eStatus = m_pFirst->GatherPoints(points, out); eStatus != LoadOk)
        return eStatus;
    const SSharedPoints shared =
        FindSharedPoints(points, GetShape(), m_pSecond->GetShape(), [this](const IVector3D& ijk) {
            return !m_pSecond->HasGaps() || m_pSecond->HasPoint(ijk);
        });
    CPointScratch scratch(qint64(shared.indices.size()));
    const SPointBuffers second = scratch.First(qint64(shared.indices.size()));
    const LoadStatus_e eStatus = m_pSecond->GatherPoints(shared.indices, second);
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        std::vector<double> others(points.size(), 0.0);
        Scatter(second.Axis(nAxis), shared.places, others);
        BlendInto(out.Axis(nAxis).first(points.size()), others, m_dWeight);
    }
    return eStatus;
}
