#include "data/grids/grid.h"

#include "data/grids/faceedges.h"
#include "data/grids/gridslices.h"
#include "data/grids/revolvedcopy.h"
#include "data/grids/searchtree.h"

#include <new>

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
    m_bStructured = bStructured;
    SetShape({dimensions, start});
}

void CGrid::SetShape(const SBlockShape& shape)
{
    if (shape == m_shape)
        return;
    m_shape = shape;
    CGrid::ReleaseCoordinateCopies(); // not the derived one: this may run in a constructor
    ForgetGeometry();
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

void CGrid::ForgetDerived()
{
    ReleaseCoordinateCopies();
    ForgetGeometry();
}

template <class Real> const Real* CGrid::Copy(std::array<std::vector<Real>, 3>& copies, int nAxis) const
{
    if (!copies[nAxis].empty())
        return copies[nAxis].data();
    try {
        std::array<std::vector<Real>, 3> built;
        for (auto& axis : built)
            axis.reserve(GetPointCount());
        const auto append = [&](const SIJKRange&, const SPointBuffers& points) {
            for (int n = 0; n < 3; ++n)
                for (const double dValue : points.Axis(n))
                    built[n].push_back(static_cast<Real>(dValue));
        };
        if (ForEachSlice(*this, GetShape().Range(), GapsAreZeros, append) != LoadOk)
            return nullptr;
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

std::optional<SValueRange> CGrid::GetRange(int nAxis, bool bCompute)
{
    if (m_ranges[nAxis].IsEmpty() && (!bCompute || ComputeRanges() != LoadOk || m_ranges[nAxis].IsEmpty()))
        return std::nullopt;
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

// The first of equal extremes counts, in the order of flat indices; gaps and NaN fail both comparisons.
LoadStatus_e CGrid::ComputeRanges()
{
    m_ranges = {};
    const auto scan = [&](const SIJKRange& part, const SPointBuffers& points) {
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
    };
    const LoadStatus_e eStatus = ForEachSlice(*this, GetShape().Range(), GapsAreNaN, scan);
    if (eStatus != LoadOk)
        m_ranges = {};
    return eStatus;
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

// A load may have corrected the dimensions since.
void CGrid::BuildSearchTree()
{
    if (m_pSearchTree && m_pSearchTree->GetShape() == GetShape())
        return;
    try {
        m_pSearchTree = std::make_unique<CSearchTree>(*this);
        if (m_pSearchTree->GetStatus() != LoadOk)
            m_pSearchTree.reset();
    } catch (const std::bad_alloc&) {
        m_pSearchTree.reset();
    }
}

IVector3D CGrid::FindCell(const DVector3D& point)
{
    BuildSearchTree();
    return m_pSearchTree ? m_pSearchTree->FindCell(*this, point) : IVector3D{-1, -1, -1};
}

bool CGrid::IsPointInCell(const DVector3D& point, const IVector3D& ijk) const
{
    return LocateInCell(*this, ijk, point).bInside;
}
