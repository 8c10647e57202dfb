#pragma once

#include <QMetaType>
#include <QtGlobal>

#include <cmath>

/** A point or direction in space, three doubles. Comparison is exact. */
struct DVector3D
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr double& operator[](int nAxis) { return nAxis == 0 ? x : nAxis == 1 ? y : z; }
    constexpr double operator[](int nAxis) const { return nAxis == 0 ? x : nAxis == 1 ? y : z; }

    friend constexpr bool operator==(const DVector3D&, const DVector3D&) = default;
};

constexpr DVector3D operator+(const DVector3D& a, const DVector3D& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr DVector3D operator-(const DVector3D& a, const DVector3D& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr DVector3D operator-(const DVector3D& a) { return {-a.x, -a.y, -a.z}; }
constexpr DVector3D operator*(const DVector3D& a, double d) { return {a.x * d, a.y * d, a.z * d}; }
constexpr DVector3D operator*(double d, const DVector3D& a) { return a * d; }
constexpr DVector3D operator/(const DVector3D& a, double d) { return {a.x / d, a.y / d, a.z / d}; }

constexpr double Dot(const DVector3D& a, const DVector3D& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
constexpr DVector3D Cross(const DVector3D& a, const DVector3D& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double Length(const DVector3D& a) { return std::sqrt(Dot(a, a)); }

/** An (I, J, K) address in a block or a triple of counts. Addresses are one-based, I varies fastest. */
struct IVector3D
{
    qint64 i = 0;
    qint64 j = 0;
    qint64 k = 0;

    constexpr qint64& operator[](int nAxis) { return nAxis == 0 ? i : nAxis == 1 ? j : k; }
    constexpr qint64 operator[](int nAxis) const { return nAxis == 0 ? i : nAxis == 1 ? j : k; }

    friend constexpr bool operator==(const IVector3D&, const IVector3D&) = default;
};

constexpr IVector3D operator+(const IVector3D& a, const IVector3D& b)
{
    return {a.i + b.i, a.j + b.j, a.k + b.k};
}
constexpr IVector3D operator-(const IVector3D& a, const IVector3D& b)
{
    return {a.i - b.i, a.j - b.j, a.k - b.k};
}

Q_DECLARE_TYPEINFO(DVector3D, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(IVector3D, Q_PRIMITIVE_TYPE);
Q_DECLARE_METATYPE(DVector3D)
Q_DECLARE_METATYPE(IVector3D)
