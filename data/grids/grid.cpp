#include "data/grids/grid.h"

#include "data/grids/faceedges.h"
#include "data/grids/revolvedcopy.h"
#include "data/grids/searchtree.h"

#include <new>

namespace {

/** Calls visit(range, buffers) for slices of whole k planes of the block, in order. */
template <class Visit> void ForEachSlice(const IGrid& grid, const SIJKRange& range, const Visit& visit)
{
    constexpr qint64 SLICE = 1 << 16; // points, about: small enough to stay in cache
    const qint64 nPlane = range.Extent().i * range.Extent().j;
    if (nPlane == 0)
        return;
    const qint64 nPlanes = std::max<qint64>(1, SLICE / nPlane);
    std::vector<double> scratch(3 * nPlane * std::min(nPlanes, range.Extent().k));
    for (qint64 k = range.min.k; k <= range.max.k; k += nPlanes) {
        const SIJKRange part{{range.min.i, range.min.j, k},
                             {range.max.i, range.max.j, std::min(range.max.k, k + nPlanes - 1)}};
        const qint64 nCount = part.Count();
        const std::span<double> all(scratch);
        const SPointBuffers points{all.subspan(0, nCount), all.subspan(nCount, nCount),
                                   all.subspan(2 * nCount, nCount)};
        grid.FillPoints(part, points);
        visit(part, points);
    }
}

} // namespace

CGrid::CGrid() = default;
CGrid::~CGrid() = default;

void CGrid::Dispose()
{
    if (m_pOwner)
        m_pOwner->Release(this);
}

void CGrid::Init(const QString& sFileName, qint64 nFileIndex, const IVector3D& dimensions,
                 const IVector3D& start, bool bStructured)
{
    m_sFileName = sFileName;
    m_nFileIndex = nFileIndex;
    m_shape = {dimensions, start};
    m_bStructured = bStructured;
}

void CGrid::SetBoundaries(const QStringList& sNameList, const QVector<QVector<qint64>>& points)
{
    m_sBoundaryNameList = sNameList;
    m_boundaryPoints = points;
}

void CGrid::ForgetGeometry()
{
    m_ranges = {};
    m_pRevolved.reset();
    m_pFaceEdges.reset();
    m_pSearchTree.reset();
}

template <class Real> const Real* CGrid::Copy(std::array<std::vector<Real>, 3>& copies, int nAxis) const
{
    if (!copies[nAxis].empty())
        return copies[nAxis].data();
    try {
        std::array<std::vector<Real>, 3> built;
        for (auto& axis : built)
            axis.reserve(GetPointCount());
        ForEachSlice(*this, GetShape().Range(), [&](const SIJKRange&, const SPointBuffers& points) {
            for (int n = 0; n < 3; ++n)
                for (const double dValue : points.Axis(n))
                    built[n].push_back(static_cast<Real>(dValue));
        });
        copies = std::move(built);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return copies[nAxis].data();
}

const float* CGrid::GetCoordinatesSingle(int nAxis) { return Copy(m_singleCopies, nAxis); }
const double* CGrid::GetCoordinatesDouble(int nAxis) { return Copy(m_doubleCopies, nAxis); }

void CGrid::ReleaseCoordinateCopies()
{
    m_singleCopies = {};
    m_doubleCopies = {};
    m_pRevolved.reset();
}

SValueRange CGrid::GetRange(int nAxis, bool bCompute)
{
    if (bCompute && m_ranges[nAxis].IsEmpty())
        ComputeRanges();
    return m_ranges[nAxis];
}

IVector3D CGrid::GetMinimumLocation(int nAxis)
{
    GetRange(nAxis, true);
    return m_minimumLocations[nAxis];
}

IVector3D CGrid::GetMaximumLocation(int nAxis)
{
    GetRange(nAxis, true);
    return m_maximumLocations[nAxis];
}

// The first of equal extremes counts, in the order of flat indices.
void CGrid::ComputeRanges()
{
    m_ranges = {};
    ForEachSlice(*this, GetShape().Range(), [&](const SIJKRange& part, const SPointBuffers& points) {
        const SBlockShape shape{part.Extent(), part.min};
        for (int nAxis = 0; nAxis < 3; ++nAxis) {
            const std::span<double> values = points.Axis(nAxis);
            SValueRange& range = m_ranges[nAxis];
            for (qint64 n = 0; n < qint64(values.size()); ++n) {
                if (values[n] < range.dMin) {
                    range.dMin = values[n];
                    m_minimumLocations[nAxis] = shape.Address(n);
                }
                if (values[n] > range.dMax) {
                    range.dMax = values[n];
                    m_maximumLocations[nAxis] = shape.Address(n);
                }
            }
        }
    });
}

bool CGrid::BuildRevolvedCoordinates(int nAxis, qint64 nSectors, bool bDouble)
{
    m_pRevolved = CRevolvedCopy::Build(*this, nAxis, nSectors, bDouble);
    return m_pRevolved != nullptr;
}

const float* CGrid::GetRevolvedSingle(int nAxis) const
{
    return m_pRevolved ? m_pRevolved->GetSingle(nAxis) : nullptr;
}

const double* CGrid::GetRevolvedDouble(int nAxis) const
{
    return m_pRevolved ? m_pRevolved->GetDouble(nAxis) : nullptr;
}

void CGrid::BuildSearchTree()
{
    if (!m_pSearchTree)
        m_pSearchTree = std::make_unique<CSearchTree>(*this);
}

IVector3D CGrid::FindCell(const DVector3D& point)
{
    BuildSearchTree();
    return m_pSearchTree->FindCell(*this, point);
}

bool CGrid::IsPointInCell(const DVector3D& point, const IVector3D& ijk) const
{
    return LocateInCell(*this, ijk, point).bInside;
}
