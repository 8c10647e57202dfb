#include "data/kernels/pointkernels.h"

#include "data/kernels/parallel.h"

namespace {
constexpr qint64 PIECE = 1 << 16; // points; below this a second core costs more than it brings
} // namespace

void TransformPoints(const DMatrix4x4& matrix, std::span<double> x, std::span<double> y, std::span<double> z)
{
    RunRanges(qint64(x.size()), PIECE, [&](qint64, qint64 nBegin, qint64 nEnd) {
        for (qint64 n = nBegin; n < nEnd; ++n) {
            const DVector3D moved = matrix.MapPoint({x[n], y[n], z[n]});
            x[n] = moved.x;
            y[n] = moved.y;
            z[n] = moved.z;
        }
    });
}

void BlendInto(std::span<double> a, std::span<const double> b, double dWeight)
{
    RunRanges(qint64(a.size()), PIECE, [&](qint64, qint64 nBegin, qint64 nEnd) {
        for (qint64 n = nBegin; n < nEnd; ++n)
            a[n] = dWeight * a[n] + (1.0 - dWeight) * b[n];
    });
}

void ReverseAxis(std::span<double> values, const IVector3D& extent, int nAxis)
{
    // Seen from the axis, the buffer is nOuter times n slabs of nInner values each.
    const qint64 nInner = nAxis == 0 ? 1 : nAxis == 1 ? extent.i : extent.i * extent.j;
    const qint64 nCount = extent[nAxis];
    const qint64 nSlab = nInner * nCount;
    for (qint64 nBegin = 0; nSlab > 0 && nBegin < qint64(values.size()); nBegin += nSlab) {
        for (qint64 n = 0; n < nCount / 2; ++n) {
            double* const pFirst = values.data() + nBegin + n * nInner;
            double* const pSecond = values.data() + nBegin + (nCount - 1 - n) * nInner;
            std::swap_ranges(pFirst, pFirst + nInner, pSecond);
        }
    }
}
