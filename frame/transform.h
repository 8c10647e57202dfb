#pragma once

#include "frame/vector3d.h"

#include <QMatrix4x4>

#include <array>

/**
 * A 4x4 matrix of doubles, row by row: entry (row, column) is at 4 * row + column, and a point is a
 * column that is multiplied from the left, so the translation is in the last column. Comparison is exact.
 */
struct DMatrix4x4
{
    std::array<double, 16> d = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

    constexpr double& operator()(int nRow, int nColumn) { return d[4 * nRow + nColumn]; }
    constexpr double operator()(int nRow, int nColumn) const { return d[4 * nRow + nColumn]; }

    /** True if all sixteen entries equal those of the unit matrix exactly. */
    constexpr bool IsIdentity() const { return *this == DMatrix4x4(); }

    DMatrix4x4 Transposed() const;

    /** The point (x, y, z, 1) times the matrix; the fourth component is ignored (affine matrices only). */
    constexpr DVector3D MapPoint(const DVector3D& p) const
    {
        return {d[0] * p.x + d[1] * p.y + d[2] * p.z + d[3], d[4] * p.x + d[5] * p.y + d[6] * p.z + d[7],
                d[8] * p.x + d[9] * p.y + d[10] * p.z + d[11]};
    }

    static DMatrix4x4 FromFloat(const QMatrix4x4& matrix);
    static DMatrix4x4 Translation(const DVector3D& offset);
    /** Scales each axis by the component of that axis. */
    static DMatrix4x4 Scaling(const DVector3D& factors);
    /** Right-handed rotation by dAngle [radians] about the axis 0, 1 or 2 (x, y, z) through the origin. */
    static DMatrix4x4 Rotation(int nAxis, double dAngle);

    friend constexpr bool operator==(const DMatrix4x4&, const DMatrix4x4&) = default;
};

/** a * b: applies b first. */
DMatrix4x4 operator*(const DMatrix4x4& a, const DMatrix4x4& b);

/**
 * A matrix with what drawing needs of it at hand: whether it is the identity, its transpose (the column
 * order OpenGL takes) and a single-precision copy. Two transforms are equal if their matrices are.
 */
class STransform
{
public:
    STransform() = default;
    explicit STransform(const DMatrix4x4& matrix);

    bool IsIdentity() const { return m_bIdentity; }
    const DMatrix4x4& Matrix() const { return m_matrix; }
    const DMatrix4x4& GlMatrix() const { return m_glMatrix; }
    const QMatrix4x4& FloatMatrix() const { return m_floatMatrix; }

    friend bool operator==(const STransform& a, const STransform& b) { return a.m_matrix == b.m_matrix; }

private:
    bool m_bIdentity = true;
    DMatrix4x4 m_matrix;
    DMatrix4x4 m_glMatrix;
    QMatrix4x4 m_floatMatrix;
};

/** The transform that applies b first, then a. */
STransform operator*(const STransform& a, const STransform& b);

Q_DECLARE_TYPEINFO(DMatrix4x4, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(STransform, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(DMatrix4x4)
Q_DECLARE_METATYPE(STransform)
