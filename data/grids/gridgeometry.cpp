// CGrid: what follows from the points of a block.
#include "data/grids/grid.h"
#include "data/grids/gridslices.h"
#include "data/values/box.h"

#include <QVarLengthArray>

namespace {

constexpr IVector3D UNIT[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

/** The place, counted from 1, about the middle of n points, where geometry is sampled. */
constexpr qint64 MiddlePlace(qint64 nCount) { return std::min(2 * (nCount / 4) + 1, nCount); }

constexpr IVector3D MiddlePlace(const IVector3D& counts)
{
    return {MiddlePlace(counts.i), MiddlePlace(counts.j), MiddlePlace(counts.k)};
}

/** A place at three different parts of the three directions. */
constexpr IVector3D SkewPlace(const IVector3D& counts)
{
    return {std::min(counts.i / 4 + 1, counts.i), std::min(2 * (counts.j / 4) + 1, counts.j),
            std::min(3 * (counts.k / 4) + 1, counts.k)};
}

/** The outer faces of a range; one face for a direction of one point. */
QVarLengthArray<SIJKRange, 6> OuterFaces(const SIJKRange& range)
{
    QVarLengthArray<SIJKRange, 6> faces;
    for (int nAxis = 0; nAxis < 3 && !range.IsEmpty(); ++nAxis) {
        SIJKRange face = range;
        face.max[nAxis] = range.min[nAxis];
        faces.append(face);
        face.min[nAxis] = face.max[nAxis] = range.max[nAxis];
        if (range.max[nAxis] > range.min[nAxis])
            faces.append(face);
    }
    return faces;
}

/** Calls visit(points) for slices of the points that the grid has on the outer faces of a range. */
template <class Visit>
LoadStatus_e ForEachOuterPoints(const IGrid& grid, const SIJKRange& range, const Visit& visit)
{
    const auto visitPoints = [&](const SIJKRange&, const SPointBuffers& points) { visit(points); };
    for (const SIJKRange& face : OuterFaces(range)) {
        const LoadStatus_e eStatus =
            ForEachSlice(grid, Intersection(face, grid.GetShape().Range()), GapsAreNaN, visitPoints);
        if (eStatus != LoadOk)
            return eStatus;
    }
    return LoadOk;
}

/** From the first corner of a cell to each of the eight, k fastest. */
constexpr IVector3D CornerStep(int n) { return {n >> 2, (n >> 1) & 1, n & 1}; }

bool AreApart(const DVector3D& a, const DVector3D& b, double dTolerance)
{
    const DVector3D d = a - b;
    return std::abs(d.x) > dTolerance || std::abs(d.y) > dTolerance || std::abs(d.z) > dTolerance;
}

/** Corners of a cell. Those that fell together count once, so that the centre of a wedge is that of its own.
 */
class CCorners
{
public:
    explicit CCorners(double dTolerance) : m_dTolerance(dTolerance) {}

    void Add(const DVector3D& point)
    {
        if (std::all_of(m_corners.begin(), m_corners.end(),
                        [&](const DVector3D& other) { return AreApart(point, other, m_dTolerance); }))
            m_corners.append(point);
    }
    void AddUnlessGap(const DVector3D& point)
    {
        if (!std::isnan(point.x))
            Add(point);
    }
    DVector3D Mean() const
    {
        DVector3D sum;
        for (const DVector3D& corner : m_corners)
            sum = sum + corner;
        return m_corners.isEmpty() ? DVector3D() : sum / m_corners.size();
    }

private:
    const double m_dTolerance;
    QVarLengthArray<DVector3D, 8> m_corners;
};

} // namespace

bool CGrid::IsRightHanded() const
{
    const SBlockShape shape = GetShape();
    if (shape.IsPlanar() || shape.Range().IsEmpty() || shape.start != IVector3D{1, 1, 1})
        return true;
    const IVector3D place = MiddlePlace(shape.dimensions);
    const DVector3D point = GetPoint(place);
    return Dot(Cross(GetPoint(place + UNIT[0]) - point, GetPoint(place + UNIT[1]) - point),
               GetPoint(place + UNIT[2]) - point) >= 0.0;
}

// The places are counted from 1; the addresses from the start of the block.
DVector3D CGrid::GetSamplePoint(int n) const
{
    const IVector3D counts = GetShape().dimensions;
    const IVector3D before = GetShape().start - IVector3D{1, 1, 1};
    switch (n) {
    case 0:
        return GetPoint(before + IVector3D{1, 1, 1});
    case 1:
        return GetPoint(before + MiddlePlace(counts));
    case 2:
        return GetPoint(before + counts);
    case 3:
        return GetPoint(before + SkewPlace(counts));
    default:
        return {};
    }
}

QVector<DVector3D> CGrid::GetSamplePoints() const
{
    return {GetSamplePoint(0), GetSamplePoint(1), GetSamplePoint(2), GetSamplePoint(3)};
}

QVector<IVector3D> CGrid::GetSampleIndices() const
{
    const SBlockShape shape = GetShape();
    const IVector3D start = shape.start;
    const IVector3D end = shape.End();
    QVector<IVector3D> indices;
    if (shape.dimensions.k > 1)
        indices.append(start + UNIT[2]);
    else if (shape.dimensions.j > 1)
        indices.append(start + UNIT[1]);
    indices << IVector3D{end.i, start.j, start.k} << IVector3D{start.i, end.j, start.k}
            << IVector3D{start.i, start.j, end.k} << end;
    const auto step = [&](int nAxis) { return std::max<qint64>((shape.dimensions[nAxis] + 3) / 4, 1); };
    for (qint64 i = start.i; i <= end.i; i += step(0))
        for (qint64 j = start.j; j <= end.j; j += step(1))
            for (qint64 k = start.k; k <= end.k; k += step(2))
                indices.append({i, j, k});
    return indices;
}

DVector3D CGrid::GetCellCentre(const IVector3D& ijk, double dTolerance) const
{
    CCorners corners(dTolerance);
    for (int n = 0; n < 8; ++n)
        if (const IVector3D corner = ijk + CornerStep(n); HasPoint(corner))
            corners.Add(GetPoint(corner));
    return corners.Mean();
}

LoadStatus_e FillCellCentres(const IGrid& grid, const SIJKRange& cells, const SPointBuffers& out)
{
    return ForEachSlice(cells, [&](const SIJKRange& part) {
        const SIJKRange nodes =
            Intersection({part.min, part.max + IVector3D{1, 1, 1}}, grid.GetShape().Range());
        CPointScratch scratch(nodes.Count());
        const SPointBuffers points = scratch.First(nodes.Count());
        const LoadStatus_e eStatus = FillRange(grid, nodes, GapsAreNaN, points);
        const SBlockShape shape{part.Extent(), part.min};
        for (qint64 nCell = 0; eStatus == LoadOk && nCell < part.Count(); ++nCell) {
            const IVector3D ijk = shape.Address(nCell);
            CCorners corners(0.0);
            for (int n = 0; n < 8; ++n)
                if (const IVector3D corner = ijk + CornerStep(n); nodes.Contains(corner))
                    corners.AddUnlessGap(PointAt(points, nodes.IndexOf(corner)));
            const DVector3D mean = corners.Mean();
            for (int nAxis = 0; nAxis < 3; ++nAxis)
                out.Axis(nAxis)[cells.IndexOf(ijk)] = mean[nAxis];
        }
        return eStatus;
    });
}

std::array<qint64, 4> CGrid::GetFaceCorners(const IVector3D& ijk, int nFace) const
{
    const SBlockShape shape = GetShape();
    const qint64 strides[3] = {1, shape.dimensions.i, shape.dimensions.i * shape.dimensions.j};
    const int nAxis = nFace / 2;
    const qint64 nCorner = shape.PointIndex(ijk) + (nFace % 2) * strides[nAxis];
    // In this order of the face's two directions: k behind i on a j face.
    const qint64 nFirst = strides[nAxis == 0 ? 1 : nAxis == 1 ? 2 : 0];
    const qint64 nSecond = strides[nAxis == 0 ? 2 : nAxis == 1 ? 0 : 1];
    return {nCorner, nCorner + nFirst, nCorner + nSecond, nCorner + nFirst + nSecond};
}

SValueRange CGrid::GetProjectedRange(const DVector3D& direction, const SIJKRange& range) const
{
    SValueRange projected;
    const LoadStatus_e eStatus = ForEachOuterPoints(*this, range, [&](const SPointBuffers& points) {
        for (size_t n = 0; n < points.x.size(); ++n)
            projected.Add(Dot(direction, PointAt(points, n)));
    });
    return eStatus == LoadOk ? projected : SValueRange();
}

QPair<DVector3D, DVector3D> CGrid::GetBoundingBox(const SIJKRange& range, double dMargin) const
{
    SBox box;
    const LoadStatus_e eStatus = ForEachOuterPoints(*this, range, [&](const SPointBuffers& points) {
        for (size_t n = 0; n < points.x.size(); ++n)
            box.Add(PointAt(points, n));
    });
    if (eStatus != LoadOk)
        box = {};
    const DVector3D margin{dMargin, dMargin, dMargin};
    return {box.min - margin, box.max + margin};
}

QVector<DVector3D> CGrid::GetPointNormals(const IVector3D& ijk, int nAxis) const
{
    if (!HasPoint(ijk))
        return {};
    const IVector3D u = UNIT[(nAxis + 1) % 3];
    const IVector3D v = UNIT[(nAxis + 2) % 3];
    const IVector3D walk[] = {ijk + u, ijk + v, ijk - u, ijk - v};
    const DVector3D point = GetPoint(ijk);
    QVector<DVector3D> normals;
    for (int n = 0; n < 4; ++n) {
        const IVector3D& next = walk[(n + 1) % 4]; // closed: the last one is followed by the first
        if (!HasPoint(walk[n]) || !HasPoint(next))
            continue;
        const DVector3D normal = Cross(GetPoint(walk[n]) - point, GetPoint(next) - point);
        if (const double dLength = Length(normal); dLength > 0.0)
            normals.append(normal / dLength);
    }
    return normals;
}
