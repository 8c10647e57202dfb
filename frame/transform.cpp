#include "frame/transform.h"

DMatrix4x4 DMatrix4x4::Transposed() const
{
    DMatrix4x4 result;
    for (int nRow = 0; nRow < 4; ++nRow)
        for (int nColumn = 0; nColumn < 4; ++nColumn)
            result(nColumn, nRow) = (*this)(nRow, nColumn);
    return result;
}

DMatrix4x4 DMatrix4x4::FromFloat(const QMatrix4x4& matrix)
{
    DMatrix4x4 result;
    for (int n = 0; n < 16; ++n)
        result.d[n] = double(matrix(n / 4, n % 4));
    return result;
}

DMatrix4x4 DMatrix4x4::Translation(const DVector3D& offset)
{
    DMatrix4x4 result;
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        result(nAxis, 3) = offset[nAxis];
    return result;
}

DMatrix4x4 DMatrix4x4::Scaling(const DVector3D& factors)
{
    DMatrix4x4 result;
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        result(nAxis, nAxis) = factors[nAxis];
    return result;
}

DMatrix4x4 DMatrix4x4::Rotation(int nAxis, double dAngle)
{
    const int nFirst = (nAxis + 1) % 3;
    const int nSecond = (nAxis + 2) % 3;
    DMatrix4x4 result;
    result(nFirst, nFirst) = result(nSecond, nSecond) = std::cos(dAngle);
    result(nSecond, nFirst) = std::sin(dAngle);
    result(nFirst, nSecond) = -std::sin(dAngle);
    return result;
}

DMatrix4x4 operator*(const DMatrix4x4& a, const DMatrix4x4& b)
{
    DMatrix4x4 result;
    for (int nRow = 0; nRow < 4; ++nRow) {
        for (int nColumn = 0; nColumn < 4; ++nColumn) {
            double dSum = 0.0;
            for (int n = 0; n < 4; ++n)
                dSum += a(nRow, n) * b(n, nColumn);
            result(nRow, nColumn) = dSum;
        }
    }
    return result;
}

STransform::STransform(const DMatrix4x4& matrix)
    : m_bIdentity(matrix.IsIdentity()), m_matrix(matrix), m_glMatrix(matrix.Transposed())
{
    // QMatrix4x4(row-major floats) keeps the identity's flag only when asked to optimize.
    std::array<float, 16> entries;
    for (int n = 0; n < 16; ++n)
        entries[n] = static_cast<float>(matrix.d[n]);
    m_floatMatrix = QMatrix4x4(entries.data());
    m_floatMatrix.optimize();
}

STransform operator*(const STransform& a, const STransform& b) { return STransform(a.Matrix() * b.Matrix()); }
