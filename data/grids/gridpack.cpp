#include "data/grids/gridpack.h"

#include "data/grids/gridslices.h"
#include "data/values/sharedpoints.h"

#include <limits>

CGridPack::CGridPack(const QVector<IGrid*>& members)
{
    constexpr qint64 HIGH = std::numeric_limits<qint32>::max();
    SIJKRange range{{HIGH, HIGH, HIGH}, {0, 0, 0}};
    bool bDouble = false;
    for (IGrid* const pMember : members) {
        for (int nAxis = 0; nAxis < 3; ++nAxis) {
            range.min[nAxis] = std::min(range.min[nAxis], pMember->GetStart()[nAxis]);
            range.max[nAxis] = std::max(range.max[nAxis], pMember->GetEnd()[nAxis]);
        }
        bDouble = bDouble || pMember->IsDoublePrecision();
        m_members.emplace_back(pMember);
    }
    if (!members.isEmpty())
        SetShape({range.max - range.min + IVector3D{1, 1, 1}, range.min});
    SetDoublePrecision(bDouble);
}

bool CGridPack::Prepare()
{
    bool bAll = true;
    for (const auto& pMember : m_members)
        bAll = pMember->Prepare() && bAll;
    return bAll;
}

bool CGridPack::IsPrepared() const
{
    return std::all_of(m_members.begin(), m_members.end(), [](const auto& p) { return p->IsPrepared(); });
}

GridKind_e CGridPack::GetGridKind() const
{
    return m_members.empty() ? GridKindUnknown : m_members.front()->GetGridKind();
}

bool CGridPack::HasGaps() const
{
    return m_members.size() != 1 || m_members.front()->HasGaps() ||
           m_members.front()->GetShape() != GetShape();
}

const QStringList& CGridPack::GetBoundaryNames() const
{
    return m_members.empty() ? CGrid::GetBoundaryNames() : m_members.front()->GetBoundaryNames();
}

const QVector<QVector<qint64>>& CGridPack::GetBoundaryPoints() const
{
    return m_members.empty() ? CGrid::GetBoundaryPoints() : m_members.front()->GetBoundaryPoints();
}

QVector<IGrid*> CGridPack::GetLeafGrids()
{
    QVector<IGrid*> leaves;
    for (const auto& pMember : m_members)
        for (IGrid* const pLeaf : pMember->GetLeafGrids())
            if (!leaves.contains(pLeaf))
                leaves.append(pLeaf);
    return leaves;
}

IGrid* CGridPack::FindMember(const IVector3D& ijk) const
{
    for (const auto& pMember : m_members)
        if (pMember->HasPoint(ijk))
            return pMember.get();
    return nullptr;
}

DVector3D CGridPack::GetPoint(const IVector3D& ijk) const
{
    const IGrid* const pMember = FindMember(ijk);
    return pMember ? pMember->GetPoint(ijk) : DVector3D();
}

LoadStatus_e CGridPack::FillPoints(const SIJKRange& range, const SPointBuffers& out) const
{
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        std::fill_n(out.Axis(nAxis).begin(), range.Count(), 0.0);
    // From the last to the first, so that the first has the last word where they overlap.
    for (auto it = m_members.rbegin(); it != m_members.rend(); ++it)
        if (const LoadStatus_e eStatus = FillCovered(**it, range, out); eStatus != LoadOk)
            return eStatus;
    return LoadOk;
}

const float* CGridPack::GetCoordinatesSingle(int nAxis)
{
    return m_members.empty() ? nullptr : m_members.front()->GetCoordinatesSingle(nAxis);
}

const double* CGridPack::GetCoordinatesDouble(int nAxis)
{
    return m_members.empty() ? nullptr : m_members.front()->GetCoordinatesDouble(nAxis);
}

void CGridPack::ReleaseCoordinateCopies()
{
    for (const auto& pMember : m_members)
        pMember->ReleaseCoordinateCopies();
}

LoadStatus_e CGridPack::GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const
{
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        std::fill_n(out.Axis(nAxis).begin(), points.size(), 0.0);
    for (auto it = m_members.rbegin(); it != m_members.rend(); ++it) {
        const IGrid& member = **it;
        const SSharedPoints shared =
            FindSharedPoints(points, GetShape(), member.GetShape(),
                             [&](const IVector3D& ijk) { return !member.HasGaps() || member.HasPoint(ijk); });
        CPointScratch scratch(qint64(shared.indices.size()));
        const SPointBuffers found = scratch.First(qint64(shared.indices.size()));
        if (const LoadStatus_e eStatus = member.GatherPoints(shared.indices, found); eStatus != LoadOk)
            return eStatus;
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            Scatter(found.Axis(nAxis), shared.places, out.Axis(nAxis));
    }
    return LoadOk;
}
