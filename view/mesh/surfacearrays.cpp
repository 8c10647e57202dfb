#include "view/mesh/surfacearrays.h"

#include "data/kernels/parallel.h"
#include "frame/novalue.h"

#include <cmath>

namespace {

constexpr float GPU_NO_VALUE = 1e36F;
constexpr float LARGEST_VALUE = 1e30F;
constexpr double FAR_OFF = 16.0;         // extents of a box; floats have 24 bits
constexpr qint64 NORMALS_AT_ONCE = 8192; // by one thread

DVector3D UnitNormal(const DVector3D& a, const DVector3D& b, const DVector3D& c)
{
    const DVector3D normal = Cross(b - a, c - a);
    const double dLength = Length(normal);
    return dLength > 0.0 ? normal / dLength : DVector3D();
}

DVector3D CellNormal(const SSurfaceSize& size, std::span<const DVector3D> positions, qint64 nRow,
                     qint64 nColumn)
{
    const qint64 nFirst = size.Index(nRow, nColumn);
    const qint64 nSecond = size.Index(nRow + 1, nColumn);
    DVector3D n1 = UnitNormal(positions[nFirst], positions[nSecond], positions[nFirst + 1]);
    DVector3D n2 = UnitNormal(positions[nSecond + 1], positions[nFirst + 1], positions[nSecond]);
    if (n1 == DVector3D())
        n1 = n2;
    else if (n2 == DVector3D())
        n2 = n1;
    const DVector3D sum = n1 + n2;
    const double dLength = Length(sum);
    return dLength > 0.0 ? sum / dLength : DVector3D();
}

void BuildRowOfNormals(const SSurfaceSize& size, std::span<const DVector3D> positions, qint64 nRow,
                       std::span<float> normals)
{
    float* pNormal = normals.data();
    for (qint64 nColumn = 0; nColumn < size.nColumns; ++nColumn) {
        DVector3D normal{0.0, 0.0, 1.0};
        if (size.HasCells())
            normal = CellNormal(size, positions, std::min(nRow, size.nRows - 2),
                                std::min(nColumn, size.nColumns - 2));
        for (const double d : {normal.x, normal.y, normal.z})
            *pNormal++ = static_cast<float>(d);
    }
}

bool HasValue(float fValue) { return fValue > -LARGEST_VALUE && fValue < LARGEST_VALUE; }

/** One cell while its contours are looked for: the corners in the order of a walk round it. */
struct SCell
{
    qint64 nCorners[4];
    float fValues[4];
    float fLeast;
    float fGreatest;
};

/** The cells that have a value and no hole at every corner. */
std::vector<SCell> WholeCells(const SurfaceArrays::SContourInput& input)
{
    std::vector<SCell> cells;
    for (qint64 nRow = 0; nRow + 1 < input.size.nRows; ++nRow)
        for (qint64 nColumn = 0; nColumn + 1 < input.size.nColumns; ++nColumn) {
            const qint64 a = input.size.Index(nRow, nColumn);
            const qint64 b = input.size.Index(nRow + 1, nColumn);
            SCell cell{{a, b, b + 1, a + 1}, {}, 0.0F, 0.0F};
            bool bIsWhole = true;
            for (int n = 0; n < 4; ++n) {
                cell.fValues[n] = input.values[cell.nCorners[n]];
                bIsWhole &=
                    HasValue(cell.fValues[n]) && (input.holes.empty() || !input.holes[cell.nCorners[n]]);
            }
            if (!bIsWhole)
                continue;
            const auto ends = std::minmax_element(std::begin(cell.fValues), std::end(cell.fValues));
            cell.fLeast = *ends.first;
            cell.fGreatest = *ends.second;
            cells.push_back(cell);
        }
    return cells;
}

void AppendCrossing(const SurfaceArrays::SContourInput& input, const SCell& cell, int nFrom, double dLevel,
                    SurfaceArrays::SContours& out)
{
    const int nTo = (nFrom + 1) % 4;
    const double t = (dLevel - cell.fValues[nFrom]) / (double(cell.fValues[nTo]) - cell.fValues[nFrom]);
    const qint64 a = cell.nCorners[nFrom], b = cell.nCorners[nTo];
    const DVector3D point = input.positions[a] + t * (input.positions[b] - input.positions[a]) - input.origin;
    out.positions.insert(out.positions.end(), {float(point.x), float(point.y), float(point.z)});
    out.values.push_back(float(dLevel));
    for (int n = 0; !input.thresholds.empty() && n < 3; ++n) {
        const double dFirst = input.thresholds[3 * a + n];
        out.thresholds.push_back(float(dFirst + t * (input.thresholds[3 * b + n] - dFirst)));
    }
}

/** Walks round the cell; the crossings come in pairs, each pair a segment. */
void AppendSegments(const SurfaceArrays::SContourInput& input, const SCell& cell, double dLevel,
                    SurfaceArrays::SContours& out)
{
    for (int n = 0; n < 4; ++n)
        if ((cell.fValues[n] < dLevel) != (cell.fValues[(n + 1) % 4] < dLevel))
            AppendCrossing(input, cell, n, dLevel, out);
}

} // namespace

void SurfaceArrays::BuildNormals(const SSurfaceSize& size, std::span<const DVector3D> positions,
                                 std::span<float> normals)
{
    RunRanges(size.nRows, std::max<qint64>(NORMALS_AT_ONCE / std::max<qint64>(size.nColumns, 1), 1),
              [&](qint64, qint64 nBegin, qint64 nEnd) {
                  for (qint64 nRow = nBegin; nRow < nEnd; ++nRow)
                      BuildRowOfNormals(size, positions, nRow,
                                        normals.subspan(3 * size.Index(nRow, 0), 3 * size.nColumns));
              });
}

void SurfaceArrays::BuildOutlineFlags(const SSurfaceSize& size, std::span<float> flags)
{
    for (qint64 nRow = 0; nRow < size.nRows; ++nRow)
        for (qint64 nColumn = 0; nColumn < size.nColumns; ++nColumn)
            flags[size.Index(nRow, nColumn)] =
                nRow == 0 || nRow == size.nRows - 1 || nColumn == 0 || nColumn == size.nColumns - 1 ? 1.0F
                                                                                                    : 0.0F;
}

QVector<quint32> SurfaceArrays::TriangleIndices(const SSurfaceSize& size)
{
    if (!size.HasCells())
        return {};
    QVector<quint32> indices(static_cast<int>(6 * (size.nRows - 1) * (size.nColumns - 1)));
    quint32* pIndex = indices.data();
    for (qint64 nRow = 0; nRow + 1 < size.nRows; ++nRow)
        for (qint64 nColumn = 0; nColumn + 1 < size.nColumns; ++nColumn) {
            const auto a = static_cast<quint32>(size.Index(nRow, nColumn));
            const auto b = static_cast<quint32>(size.Index(nRow + 1, nColumn));
            for (const quint32 nIndex : {a + 1, b + 1, a, b, b + 1, a})
                *pIndex++ = nIndex;
        }
    return indices;
}

QVector<quint32> SurfaceArrays::WireframeIndices(const SSurfaceSize& size)
{
    QVector<quint32> indices;
    if (size.Count() <= 0)
        return indices;
    indices.reserve(static_cast<int>(2 * size.Count() - 1));
    for (qint64 nRow = 0; nRow < size.nRows; ++nRow)
        for (qint64 n = 0; n < size.nColumns; ++n)
            indices.append(quint32(size.Index(nRow, nRow % 2 == 0 ? n : size.nColumns - 1 - n)));
    // The columns begin at the corner where the rows have ended, so that element isn't repeated.
    const bool bFromRight = size.nRows % 2 == 1;
    for (qint64 nPass = 0; nPass < size.nColumns; ++nPass) {
        const qint64 nColumn = bFromRight ? size.nColumns - 1 - nPass : nPass;
        for (qint64 n = nPass == 0 ? 1 : 0; n < size.nRows; ++n)
            indices.append(quint32(size.Index(nPass % 2 == 0 ? size.nRows - 1 - n : n, nColumn)));
    }
    return indices;
}

QVector<quint32> SurfaceArrays::OutlineIndices(const SSurfaceSize& size)
{
    QVector<quint32> indices;
    if (size.Count() <= 0)
        return indices;
    for (qint64 c = 0; c < size.nColumns; ++c)
        indices.append(quint32(size.Index(0, c)));
    for (qint64 r = 1; r < size.nRows; ++r)
        indices.append(quint32(size.Index(r, size.nColumns - 1)));
    for (qint64 c = size.nColumns - 2; c >= 0; --c)
        indices.append(quint32(size.Index(size.nRows - 1, c)));
    for (qint64 r = size.nRows - 2; r >= 0; --r)
        indices.append(quint32(size.Index(r, 0)));
    return indices;
}

SurfaceArrays::SContours SurfaceArrays::BuildContours(const SContourInput& input, qint64 nCount,
                                                      double dMinimum, double dMaximum)
{
    SContours contours;
    if (!input.size.HasCells() || nCount < 1)
        return contours;
    const std::vector<SCell> cells = WholeCells(input);
    for (qint64 n = 0; n <= nCount; ++n) {
        const double dLevel = dMinimum + double(n) / double(nCount) * (dMaximum - dMinimum);
        for (const SCell& cell : cells)
            if (dLevel > cell.fLeast && dLevel <= cell.fGreatest)
                AppendSegments(input, cell, dLevel, contours);
    }
    return contours;
}

DVector3D SurfaceArrays::OriginOf(const DVector3D& minimum, const DVector3D& maximum)
{
    double dExtent = 0.0, dFarthest = 0.0;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        dExtent = std::max(dExtent, maximum[nAxis] - minimum[nAxis]);
        dFarthest = std::max({dFarthest, std::abs(minimum[nAxis]), std::abs(maximum[nAxis])});
    }
    const bool bFar = minimum.x <= maximum.x && std::isfinite(dFarthest) && dFarthest > FAR_OFF * dExtent;
    return bFar ? 0.5 * (minimum + maximum) : DVector3D();
}

std::vector<float> SurfaceArrays::ToFloats(std::span<const DVector3D> points, const DVector3D& origin)
{
    std::vector<float> floats(3 * points.size());
    float* pFloat = floats.data();
    for (const DVector3D& point : points)
        for (const double d : {point.x - origin.x, point.y - origin.y, point.z - origin.z})
            *pFloat++ = static_cast<float>(d);
    return floats;
}

float SurfaceArrays::ToGpuValue(double dValue)
{
    return dValue == NO_VALUE || !std::isfinite(dValue) ? GPU_NO_VALUE : static_cast<float>(dValue);
}
