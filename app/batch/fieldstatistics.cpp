#include "app/batch/fieldstatistics.h"

#include "data/kernels/parallel.h"
#include "data/values/blockslices.h"

#include <vector>

namespace {

/** The values of a part, or the magnitudes of its vectors. */
LoadStatus_e Fill(const ISolution& field, const SIJKRange& part, bool bVector, std::vector<double>& values)
{
    const qint64 nCount = part.Count();
    values.resize(bVector ? 3 * nCount : nCount);
    const std::span<double> all(values);
    if (!bVector)
        return field.FillValues(part, all);
    const SPointBuffers vectors{all.first(nCount), all.subspan(nCount, nCount),
                                all.subspan(2 * nCount, nCount)};
    const LoadStatus_e eStatus = field.FillVectors(part, vectors);
    for (qint64 n = 0; n < nCount; ++n) {
        const DVector3D vector{vectors.x[n], vectors.y[n], vectors.z[n]};
        const bool bAll = IsFieldValue(vector.x) && IsFieldValue(vector.y) && IsFieldValue(vector.z);
        values[n] = bAll ? Length(vector) : NO_VALUE;
    }
    return eStatus;
}

/** What some slices of a block hold. */
struct SPiece
{
    LoadStatus_e eStatus = LoadOk;
    qint64 nCounted = 0;
    double dSum = 0.0;
    double dMin = 0.0, dMax = 0.0;
    qint64 nMinAt = -1, nMaxAt = -1; // flat indices of the first ones in the block

    void Add(double dValue, qint64 nIndex)
    {
        if (nCounted == 0 || dValue < dMin) {
            dMin = dValue;
            nMinAt = nIndex;
        }
        if (nCounted == 0 || dValue > dMax) {
            dMax = dValue;
            nMaxAt = nIndex;
        }
        dSum += dValue;
        ++nCounted;
    }
    /** Of the slices behind these. */
    void Join(const SPiece& next)
    {
        eStatus = eStatus == LoadOk ? next.eStatus : eStatus;
        if (next.nCounted == 0)
            return;
        if (nCounted == 0 || next.dMin < dMin) {
            dMin = next.dMin;
            nMinAt = next.nMinAt;
        }
        if (nCounted == 0 || next.dMax > dMax) {
            dMax = next.dMax;
            nMaxAt = next.nMaxAt;
        }
        dSum += next.dSum;
        nCounted += next.nCounted;
    }
};

/** @param slices  in the order of flat indices */
SPiece Scan(const ISolution& field, const ISolution* pHoles, bool bVector, std::span<const SIJKRange> slices)
{
    SPiece piece;
    std::vector<double> values, holes;
    for (const SIJKRange& slice : slices) {
        piece.eStatus = Fill(field, slice, bVector, values);
        if (piece.eStatus == LoadOk && pHoles)
            piece.eStatus = Fill(*pHoles, slice, false, holes);
        if (piece.eStatus != LoadOk)
            return piece;
        const qint64 nFirst = field.GetShape().PointIndex(slice.min);
        for (qint64 n = 0; n < slice.Count(); ++n)
            if (IsFieldValue(values[n]) && !(pHoles && holes[n] == 0.0))
                piece.Add(values[n], nFirst + n);
    }
    return piece;
}

} // namespace

SFieldStatistics ComputeStatistics(const ISolution& field, const ISolution* pHoles, bool bVector)
{
    constexpr qint64 SLICES = 16; // that one thread takes: its buffers serve again
    const SBlockShape shape = field.GetShape();
    std::vector<SIJKRange> slices;
    ForEachSlice(shape.Range(), [&](const SIJKRange& slice) { slices.push_back(slice); });
    const qint64 nPieces = (qint64(slices.size()) + SLICES - 1) / SLICES;
    std::vector<SPiece> pieces(nPieces);
    const auto scan = [&](qint64 nPiece) {
        const size_t nFirst = size_t(nPiece * SLICES);
        const size_t nCount = std::min(size_t(SLICES), slices.size() - nFirst);
        pieces[nPiece] = Scan(field, pHoles, bVector, std::span(slices).subspan(nFirst, nCount));
    };
    if (nPieces > 0)
        scan(0); // on this thread: that loads what has to be loaded
    RunPieces(nPieces - 1, [&](qint64 n) { scan(n + 1); });
    SPiece all; // joined in order, so that the sum doesn't depend on the number of threads
    for (const SPiece& piece : pieces)
        all.Join(piece);

    SFieldStatistics result;
    result.eStatus = all.eStatus;
    result.nPoints = shape.PointCount();
    result.nCounted = all.nCounted;
    if (all.nCounted == 0)
        return result;
    result.dMin = all.dMin;
    result.dMax = all.dMax;
    result.dMean = all.dSum / double(all.nCounted);
    result.minAt = shape.Address(all.nMinAt);
    result.maxAt = shape.Address(all.nMaxAt);
    return result;
}
