#pragma once

#include "data/grids/igrid.h"

#include <array>
#include <memory>

/**
 * A solid of revolution made of a block with a flat direction, for display: the first direction of one point
 * (i before j before k) becomes the angle direction with nSectors + 1 points, nSectors rounded up to a
 * multiple of 4. Exact quarter turns, so that the circle closes. Angles grow as the right hand turns.
 */
class CRevolvedCopy
{
public:
    static constexpr qint64 MAX_SECTORS = 1 << 24;

    /**
     * @param nAxis     axis of revolution
     * @param nSectors  1 to MAX_SECTORS
     * @return null if the grid doesn't start at (1, 1, 1), has no flat direction, or memory is short
     */
    static std::unique_ptr<CRevolvedCopy> Build(const IGrid& grid, int nAxis, qint64 nSectors, bool bDouble);

    SBlockShape GetShape() const { return m_shape; }
    const float* GetSingle(int nAxis) const { return m_single[nAxis].get(); }  ///< null if built in double
    const double* GetDouble(int nAxis) const { return m_double[nAxis].get(); } ///< null if built in single

private:
    CRevolvedCopy() = default;
    template <class Real>
    LoadStatus_e Fill(const IGrid& grid, int nAxis, int nAngleAxis,
                      const std::array<std::unique_ptr<Real[]>, 3>& arrays) const;

    SBlockShape m_shape;
    std::array<std::unique_ptr<float[]>, 3> m_single;
    std::array<std::unique_ptr<double[]>, 3> m_double;
};
