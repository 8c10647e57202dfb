#include "app/batch/fieldstatistics.h"

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

} // namespace

SFieldStatistics ComputeStatistics(const ISolution& field, const ISolution* pHoles, bool bVector)
{
    SFieldStatistics result;
    const SBlockShape shape = field.GetShape();
    result.nPoints = shape.PointCount();
    std::vector<double> values, holes;
    double dSum = 0.0;
    result.eStatus = ForEachSlice(shape.Range(), [&](const SIJKRange& part) {
        LoadStatus_e eStatus = Fill(field, part, bVector, values);
        if (eStatus == LoadOk && pHoles)
            eStatus = Fill(*pHoles, part, false, holes);
        if (eStatus != LoadOk)
            return eStatus;
        const SBlockShape slice{part.Extent(), part.min};
        for (qint64 n = 0; n < part.Count(); ++n) {
            if (!IsFieldValue(values[n]) || (pHoles && holes[n] == 0.0))
                continue;
            if (result.nCounted == 0 || values[n] < result.dMin) {
                result.dMin = values[n];
                result.minAt = slice.Address(n);
            }
            if (result.nCounted == 0 || values[n] > result.dMax) {
                result.dMax = values[n];
                result.maxAt = slice.Address(n);
            }
            dSum += values[n];
            ++result.nCounted;
        }
        return LoadOk;
    });
    if (result.nCounted > 0)
        result.dMean = dSum / double(result.nCounted);
    return result;
}
