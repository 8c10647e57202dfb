#pragma once

#include "data/grids/igrid.h"

#include <memory>

/**
 * A solid of revolution made of a block with a flat direction, for display: the first direction of one point
 * (i before j before k) becomes the angle direction with nSectors + 1 points, nSectors rounded up to a
 * multiple of 4. Exact quarter turns, so that the circle closes.
 */
class CRevolvedCopy
{
public:
    /**
     * @param nAxis  axis of revolution
     * @return null if the grid doesn't start at (1, 1, 1), has no flat direction, or memory is short
     */
    static std::unique_ptr<CRevolvedCopy> Build(const IGrid& grid, int nAxis, qint64 nSectors, bool bDouble);

    SBlockShape GetShape() const { return m_shape; }
    const float* GetSingle(int nAxis) const;  ///< null if it was built in double
    const double* GetDouble(int nAxis) const; ///< null if it was built in single

private:
    SBlockShape m_shape;
    std::array<std::vector<float>, 3> m_single;
    std::array<std::vector<double>, 3> m_double;
};
