#include "data/grids/gridwrapper.h"

namespace {
const QStringList NO_NAMES;
const QVector<QVector<qint64>> NO_POINTS;
} // namespace

void CGridWrapper::Dispose()
{
    if (Inner())
        Inner()->Dispose();
    else
        CGrid::Dispose();
}

qint64 CGridWrapper::GetGridId() const { return Inner() ? Inner()->GetGridId() : CGrid::GetGridId(); }

void CGridWrapper::SetGridId(qint64 nId)
{
    CGrid::SetGridId(nId);
    if (Inner())
        Inner()->SetGridId(nId);
}

bool CGridWrapper::Allocate(qint64 nPointCount) { return Inner() && Inner()->Allocate(nPointCount); }
bool CGridWrapper::Prepare() { return Inner() && Inner()->Prepare(); }
bool CGridWrapper::IsPrepared() const { return Inner() && Inner()->IsPrepared(); }
IGrid* CGridWrapper::GetBaseGrid() { return Inner() ? Inner()->GetBaseGrid() : this; }
GridKind_e CGridWrapper::GetGridKind() const { return Inner() ? Inner()->GetGridKind() : GridKindUnknown; }
QString CGridWrapper::GetFileName() const { return Inner() ? Inner()->GetFileName() : CGrid::GetFileName(); }
qint64 CGridWrapper::GetFileIndex() const
{
    return Inner() ? Inner()->GetFileIndex() : CGrid::GetFileIndex();
}
bool CGridWrapper::IsDoublePrecision() const { return Inner() && Inner()->IsDoublePrecision(); }
SBlockShape CGridWrapper::GetShape() const { return Inner() ? Inner()->GetShape() : CGrid::GetShape(); }

void CGridWrapper::SetDimensions(const IVector3D& dimensions)
{
    CGrid::SetDimensions(dimensions);
    if (Inner())
        Inner()->SetDimensions(dimensions);
}

void CGridWrapper::SetStart(const IVector3D& start)
{
    CGrid::SetStart(start);
    if (Inner())
        Inner()->SetStart(start);
}

bool CGridWrapper::IsPlanar() const { return Inner() && Inner()->IsPlanar(); }
qint64 CGridWrapper::GetPointCount() const
{
    return Inner() ? Inner()->GetPointCount() : CGrid::GetPointCount();
}
qint64 CGridWrapper::GetEdgeCount() const
{
    return Inner() ? Inner()->GetEdgeCount() : CGrid::GetEdgeCount();
}
qint64 CGridWrapper::GetFaceCount() const
{
    return Inner() ? Inner()->GetFaceCount() : CGrid::GetFaceCount();
}
qint64 CGridWrapper::GetCellCount() const
{
    return Inner() ? Inner()->GetCellCount() : CGrid::GetCellCount();
}
bool CGridWrapper::HasPoint(const IVector3D& ijk) const { return Inner() && Inner()->HasPoint(ijk); }
bool CGridWrapper::HasGaps() const { return !Inner() || Inner()->HasGaps(); }

const QStringList& CGridWrapper::GetBoundaryNames() const
{
    return Inner() ? Inner()->GetBoundaryNames() : NO_NAMES;
}

const QVector<QVector<qint64>>& CGridWrapper::GetBoundaryPoints() const
{
    return Inner() ? Inner()->GetBoundaryPoints() : NO_POINTS;
}

QVector<IGrid*> CGridWrapper::GetLeafGrids() { return Inner() ? Inner()->GetLeafGrids() : QVector<IGrid*>(); }

DVector3D CGridWrapper::GetPoint(const IVector3D& ijk) const
{
    return Inner() ? Inner()->GetPoint(ijk) : DVector3D();
}

DVector3D CGridWrapper::GetPoint(qint64 nIndex) const
{
    return Inner() ? Inner()->GetPoint(nIndex) : DVector3D();
}

void CGridWrapper::SetPoint(qint64 nIndex, const DVector3D& point)
{
    if (Inner())
        Inner()->SetPoint(nIndex, point);
}

LoadStatus_e CGridWrapper::FillPoints(const SIJKRange& range, const SPointBuffers& out) const
{
    return Inner() ? Inner()->FillPoints(range, out) : LoadFailed;
}

bool CGridWrapper::IsRightHanded() const { return Inner() && CGrid::IsRightHanded(); }

LoadStatus_e CGridWrapper::GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const
{
    return Inner() ? Inner()->GatherPoints(points, out) : LoadFailed;
}
