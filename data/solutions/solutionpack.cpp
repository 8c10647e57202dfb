#include "data/solutions/solutionpack.h"

namespace {

/** Calls fill(row) for each row of i that a member shares with a range, with the row's place in the range, up
 * to the first failure. */
template <class Fill>
LoadStatus_e ForEachSharedRow(const ISolution& member, const SIJKRange& range, const Fill& fill)
{
    const SIJKRange part = Intersection(range, member.GetShape().Range());
    if (part.IsEmpty())
        return LoadOk;
    for (qint64 k = part.min.k; k <= part.max.k; ++k)
        for (qint64 j = part.min.j; j <= part.max.j; ++j)
            if (const LoadStatus_e eStatus = fill(SIJKRange{{part.min.i, j, k}, {part.max.i, j, k}},
                                                  range.IndexOf({part.min.i, j, k}));
                eStatus != LoadOk)
                return eStatus;
    return LoadOk;
}

} // namespace

CSolutionPack::CSolutionPack(const QVector<ISolution*>& members)
{
    constexpr qint64 HIGH = std::numeric_limits<qint32>::max();
    SIJKRange range{{HIGH, HIGH, HIGH}, {0, 0, 0}};
    bool bDouble = false;
    for (ISolution* const pMember : members) {
        for (int nAxis = 0; nAxis < 3; ++nAxis) {
            range.min[nAxis] = std::min(range.min[nAxis], pMember->GetShape().start[nAxis]);
            range.max[nAxis] = std::max(range.max[nAxis], pMember->GetShape().End()[nAxis]);
        }
        bDouble = bDouble || pMember->IsDoublePrecision();
        m_members.emplace_back(pMember);
    }
    SetShape({range.max - range.min + IVector3D{1, 1, 1}, range.min});
    SetDoublePrecision(bDouble);
}

bool CSolutionPack::Prepare()
{
    bool bAll = true;
    for (const auto& pMember : m_members)
        bAll = pMember->Prepare() && bAll;
    return bAll;
}

bool CSolutionPack::IsPrepared() const
{
    return std::all_of(m_members.begin(), m_members.end(), [](const auto& p) { return p->IsPrepared(); });
}

ISolution* CSolutionPack::GetBaseSolution()
{
    return m_members.empty() ? this : m_members.front()->GetBaseSolution();
}

QVector<ISolution*> CSolutionPack::GetLeafSolutions()
{
    QVector<ISolution*> leaves;
    for (const auto& pMember : m_members)
        for (ISolution* const pLeaf : pMember->GetLeafSolutions())
            if (!leaves.contains(pLeaf))
                leaves.append(pLeaf);
    return leaves;
}

const ISolution* CSolutionPack::FindMember(const IVector3D& ijk) const
{
    for (const auto& pMember : m_members)
        if (pMember->HasValue(ijk))
            return pMember.get();
    return nullptr;
}

double CSolutionPack::GetValue(const IVector3D& ijk) const
{
    const IVector3D inside = GetShape().Clamped(ijk);
    const ISolution* const pMember = FindMember(inside);
    return pMember ? pMember->GetValue(pMember->GetShape().PointIndex(inside)) : NO_VALUE;
}

DVector3D CSolutionPack::GetVector(const IVector3D& ijk) const
{
    const IVector3D inside = GetShape().Clamped(ijk);
    const ISolution* const pMember = FindMember(inside);
    return pMember ? pMember->GetVector(pMember->GetShape().PointIndex(inside))
                   : DVector3D{NO_VALUE, NO_VALUE, NO_VALUE};
}

// From the last member to the first, so that the first has the last word where they overlap.
LoadStatus_e CSolutionPack::FillValues(const SIJKRange& range, std::span<double> out) const
{
    std::fill_n(out.begin(), range.Count(), NO_VALUE);
    for (auto it = m_members.rbegin(); it != m_members.rend(); ++it) {
        const LoadStatus_e eStatus = ForEachSharedRow(**it, range, [&](const SIJKRange& row, qint64 nPlace) {
            return (*it)->FillValues(row, out.subspan(nPlace, row.Count()));
        });
        if (eStatus != LoadOk)
            return eStatus;
    }
    return LoadOk;
}

LoadStatus_e CSolutionPack::FillVectors(const SIJKRange& range, const SPointBuffers& out) const
{
    for (int n = 0; n < 3; ++n)
        std::fill_n(out.Axis(n).begin(), range.Count(), NO_VALUE);
    for (auto it = m_members.rbegin(); it != m_members.rend(); ++it) {
        const LoadStatus_e eStatus = ForEachSharedRow(**it, range, [&](const SIJKRange& row, qint64 nPlace) {
            const qint64 nCount = row.Count();
            return (*it)->FillVectors(row, {out.x.subspan(nPlace, nCount), out.y.subspan(nPlace, nCount),
                                            out.z.subspan(nPlace, nCount)});
        });
        if (eStatus != LoadOk)
            return eStatus;
    }
    return LoadOk;
}

LoadStatus_e CSolutionPack::GatherValues(std::span<const qint64> points, std::span<double> out) const
{
    std::fill_n(out.begin(), points.size(), NO_VALUE);
    for (auto it = m_members.rbegin(); it != m_members.rend(); ++it) {
        const SSharedPoints shared = SharedWith(**it, points);
        std::vector<double> values(shared.indices.size());
        if (const LoadStatus_e eStatus = (*it)->GatherValues(shared.indices, values); eStatus != LoadOk)
            return eStatus;
        Scatter(values, shared.places, out);
    }
    return LoadOk;
}

LoadStatus_e CSolutionPack::GatherVectors(std::span<const qint64> points, const SPointBuffers& out) const
{
    for (int n = 0; n < 3; ++n)
        std::fill_n(out.Axis(n).begin(), points.size(), NO_VALUE);
    for (auto it = m_members.rbegin(); it != m_members.rend(); ++it) {
        const SSharedPoints shared = SharedWith(**it, points);
        const size_t nCount = shared.indices.size();
        std::vector<double> x(nCount), y(nCount), z(nCount);
        if (const LoadStatus_e eStatus = (*it)->GatherVectors(shared.indices, {x, y, z}); eStatus != LoadOk)
            return eStatus;
        Scatter(x, shared.places, out.x);
        Scatter(y, shared.places, out.y);
        Scatter(z, shared.places, out.z);
    }
    return LoadOk;
}

SSharedPoints CSolutionPack::SharedWith(const ISolution& member, std::span<const qint64> points) const
{
    return FindSharedPoints(points, GetShape(), member.GetShape(),
                            [&](const IVector3D& ijk) { return member.HasValue(ijk); });
}

LoadStatus_e CSolutionPack::ComputeRanges()
{
    for (const auto& pMember : m_members)
        if (!pMember->GetRange(0, false))
            if (const LoadStatus_e eStatus = pMember->ComputeRanges(); eStatus != LoadOk)
                return eStatus;
    for (int nComponent = 0; nComponent < 3; ++nComponent) {
        SValueRange range;
        IVector3D minAt, maxAt;
        for (const auto& pMember : m_members) {
            const std::optional<SValueRange> part = pMember->GetRange(nComponent, false);
            if (!part)
                continue;
            if (part->dMin < range.dMin)
                minAt = pMember->GetMinimumLocation(nComponent);
            if (part->dMax > range.dMax)
                maxAt = pMember->GetMaximumLocation(nComponent);
            range.Add(*part);
        }
        SetExtreme(nComponent, range, minAt, maxAt);
    }
    return LoadOk;
}
