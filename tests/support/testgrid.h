#pragma once

#include "data/grids/grid.h"
#include "data/kernels/pointkernels.h"

#include <atomic>
#include <cmath>
#include <functional>
#include <random>
#include <vector>

/** Where the point of an address lies. */
using PointFunction = std::function<DVector3D(const IVector3D& ijk)>;

/**
 * A block in memory whose points come from a function, kept in Real as a storage grid would. Counts how it is
 * read and given back.
 */
template <class Real> class CTestGridOf : public CGrid
{
public:
    CTestGridOf(const SBlockShape& shape, const PointFunction& function)
    {
        SetShape(shape);
        SetDoublePrecision(sizeof(Real) == sizeof(double));
        for (auto& axis : m_axes)
            axis.resize(shape.PointCount());
        for (qint64 n = 0; n < shape.PointCount(); ++n) {
            const DVector3D point = function(shape.Address(n));
            for (int nAxis = 0; nAxis < 3; ++nAxis)
                m_axes[nAxis][n] = static_cast<Real>(point[nAxis]);
        }
    }

    void Dispose() override { ++m_nDisposed; }

    using IGrid::GetPoint;
    DVector3D GetPoint(const IVector3D& ijk) const override
    {
        ++m_nPointCalls;
        if (!GetShape().Contains(ijk))
            return {};
        const qint64 n = GetShape().PointIndex(ijk);
        return {double(m_axes[0][n]), double(m_axes[1][n]), double(m_axes[2][n])};
    }
    LoadStatus_e FillPoints(const SIJKRange& range, const SPointBuffers& out) const override
    {
        Q_ASSERT(Intersection(range, GetShape().Range()) == range);
        ++m_nFillCalls;
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            CopyRange(m_axes[nAxis].data(), GetShape(), range, out.Axis(nAxis));
        return LoadOk;
    }

    LoadStatus_e GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const override
    {
        for (size_t n = 0; n < points.size(); ++n)
            for (int nAxis = 0; nAxis < 3; ++nAxis)
                out.Axis(nAxis)[n] = double(m_axes[nAxis][points[n]]);
        return LoadOk;
    }

    int m_nDisposed = 0;
    mutable std::atomic<qint64> m_nPointCalls = 0;
    mutable std::atomic<qint64> m_nFillCalls = 0;

private:
    std::array<std::vector<Real>, 3> m_axes;
};

using CTestGrid = CTestGridOf<double>;

namespace TestBlock {

inline DVector3D AsPoint(const IVector3D& ijk) { return {double(ijk.i), double(ijk.j), double(ijk.k)}; }

/** Points at their own addresses times a step: cells are cubes. */
inline PointFunction Box(double dStep = 1.0)
{
    return [=](const IVector3D& ijk) { return dStep * AsPoint(ijk); };
}

/** A parallelepiped whose three edges are far from right angles. */
inline PointFunction Sheared(double dStep = 1.0)
{
    return [=](const IVector3D& ijk) {
        const DVector3D p = AsPoint(ijk);
        return dStep * DVector3D{p.x + 0.7 * p.y, p.y - 0.4 * p.z, p.z + 0.3 * p.x};
    };
}

/** Part of a thick shell: i round z, j from pole to pole without reaching them, k outwards from 1 to 2. */
inline PointFunction Shell(const IVector3D& dimensions, double dSize = 1.0)
{
    return [=](const IVector3D& ijk) {
        const auto share = [&](int nAxis) {
            return double(ijk[nAxis] - 1) / double(std::max<qint64>(dimensions[nAxis] - 1, 1));
        };
        const double dRadius = dSize * (1.0 + share(2) * share(2));
        const double dRound = 5.0 * share(0);
        const double dPolar = 0.3 + 2.4 * share(1);
        return DVector3D{dRadius * std::sin(dPolar) * std::cos(dRound),
                         dRadius * std::sin(dPolar) * std::sin(dRound), dRadius * std::cos(dPolar)};
    };
}

/** Each point of the other function moved at random by up to dReach in each coordinate; the same each time.
 */
inline PointFunction Shaken(const PointFunction& function, double dReach)
{
    return [=](const IVector3D& ijk) {
        std::mt19937 random(unsigned(ijk.i + 131 * ijk.j + 17017 * ijk.k));
        std::uniform_real_distribution<double> shift(-dReach, dReach);
        const DVector3D point = function(ijk);
        return point + DVector3D{shift(random), shift(random), shift(random)};
    };
}

} // namespace TestBlock
