#include "data/kernels/pointkernels.h"

#include "data/kernels/parallel.h"
#include "data/kernels/vectorize.h"

namespace {

constexpr qint64 PIECE = 1 << 16; // points; below this a second core costs more than it brings

// Each row by itself over plain arrays: in this form the compiler makes vectors of it.
ZENTO_VECTORIZE void TransformPiece(const DMatrix4x4& matrix, double* __restrict pX, double* __restrict pY,
                                    double* __restrict pZ, qint64 nCount)
{
    const std::array<double, 16> m = matrix.d;
    for (qint64 n = 0; n < nCount; ++n) {
        const double x = pX[n], y = pY[n], z = pZ[n];
        pX[n] = m[0] * x + m[1] * y + m[2] * z + m[3];
        pY[n] = m[4] * x + m[5] * y + m[6] * z + m[7];
        pZ[n] = m[8] * x + m[9] * y + m[10] * z + m[11];
    }
}

ZENTO_VECTORIZE void BlendPiece(double* __restrict pA, const double* __restrict pB, double dWeight,
                                qint64 nCount)
{
    for (qint64 n = 0; n < nCount; ++n)
        pA[n] = dWeight * pA[n] + (1.0 - dWeight) * pB[n];
}

} // namespace

void TransformPoints(const DMatrix4x4& matrix, std::span<double> x, std::span<double> y, std::span<double> z)
{
    RunRanges(qint64(x.size()), PIECE, [&](qint64, qint64 nBegin, qint64 nEnd) {
        TransformPiece(matrix, x.data() + nBegin, y.data() + nBegin, z.data() + nBegin, nEnd - nBegin);
    });
}

void BlendInto(std::span<double> a, std::span<const double> b, double dWeight)
{
    RunRanges(qint64(a.size()), PIECE, [&](qint64, qint64 nBegin, qint64 nEnd) {
        BlendPiece(a.data() + nBegin, b.data() + nBegin, dWeight, nEnd - nBegin);
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
