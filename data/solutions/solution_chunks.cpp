// CSolution: chunks, and the interpolation at a point.
#include "data/grids/igrid.h"
#include "data/solutions/solution.h"

namespace {

/** The chunk's range; (1, 0), which holds nothing, if it has no value or can't be read. */
SValueRange ChunkRange(const CSolution& solution, const SIJKRange& chunk, std::vector<double>& scratch)
{
    scratch.resize(chunk.Count());
    SValueRange range;
    if (solution.FillValues(chunk, scratch) != LoadOk)
        return {1.0, 0.0};
    for (const double dValue : scratch)
        if (IsFieldValue(dValue))
            range.Add(dValue);
    return range.IsEmpty() ? SValueRange{1.0, 0.0} : range;
}

/** The mean of the points round an address, weighted by the inverse of their distance from the point. */
template <class ValueAt>
auto MeanAround(const SBlockShape& shape, const DVector3D& point, const IVector3D& ijk, const IGrid& grid,
                const ValueAt& valueAt)
{
    const IVector3D low = shape.Clamped(ijk - IVector3D{1, 1, 1});
    const IVector3D high = shape.Clamped(ijk + IVector3D{1, 1, 1});
    double dWeights = 0.0;
    decltype(valueAt(ijk)) sum{};
    for (qint64 k = low.k; k <= high.k; ++k) {
        for (qint64 j = low.j; j <= high.j; ++j) {
            for (qint64 i = low.i; i <= high.i; ++i) {
                const IVector3D neighbour{i, j, k};
                const double dDistance = Length(point - grid.GetPoint(neighbour));
                if (!(dDistance > 0.0))
                    return valueAt(neighbour);
                dWeights += 1.0 / dDistance;
                sum = sum + valueAt(neighbour) / dDistance;
            }
        }
    }
    return dWeights > 0.0 ? sum / dWeights : valueAt(ijk);
}

} // namespace

void CSolution::BuildChunks(const IVector3D& size)
{
    if (!m_chunkMinima.isEmpty())
        return;
    const SBlockShape shape = GetShape();
    const IVector3D end = shape.End();
    std::vector<double> scratch;
    for (qint64 k = shape.start.k; k <= end.k; k += size.k) {
        for (qint64 j = shape.start.j; j <= end.j; j += size.j) {
            for (qint64 i = shape.start.i; i <= end.i; i += size.i) {
                // One past its size: neighbours share their boundary plane, so no cell lies between two.
                const SIJKRange chunk{{i, j, k}, shape.Clamped({i + size.i, j + size.j, k + size.k})};
                m_chunkMinima.append(chunk.min);
                m_chunkMaxima.append(chunk.max);
                m_chunkRanges.append(ChunkRange(*this, chunk, scratch));
            }
        }
    }
}

IVector3D CSolution::GetChunkMinimum(qint64 nChunk) const
{
    return nChunk >= 0 && nChunk < m_chunkMinima.size() ? m_chunkMinima[nChunk] : IVector3D{1, 1, 1};
}

IVector3D CSolution::GetChunkMaximum(qint64 nChunk) const
{
    return nChunk >= 0 && nChunk < m_chunkMaxima.size() ? m_chunkMaxima[nChunk] : IVector3D{0, 0, 0};
}

const IVector3D* CSolution::GetChunkMinimumArray() const
{
    return m_chunkMinima.isEmpty() ? nullptr : m_chunkMinima.constData();
}

const IVector3D* CSolution::GetChunkMaximumArray() const
{
    return m_chunkMaxima.isEmpty() ? nullptr : m_chunkMaxima.constData();
}

QVector<qint64> CSolution::FindChunks(double dValue) const
{
    QVector<qint64> found;
    for (int n = 0; n < m_chunkRanges.size(); ++n)
        if (m_chunkRanges[n].Contains(dValue))
            found.append(n);
    return found;
}

double CSolution::InterpolateAt(const DVector3D& point, const IVector3D& ijk, const IGrid& grid) const
{
    return MeanAround(GetShape(), point, ijk, grid, [this](const IVector3D& at) { return GetValue(at); });
}

DVector3D CSolution::InterpolateVectorAt(const DVector3D& point, const IVector3D& ijk,
                                         const IGrid& grid) const
{
    return MeanAround(GetShape(), point, ijk, grid, [this](const IVector3D& at) { return GetVector(at); });
}
