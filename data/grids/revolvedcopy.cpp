#include "data/grids/revolvedcopy.h"

#include "data/grids/gridslices.h"

#include <cmath>
#include <new>

namespace {

/** The first direction of one point; -1 if there is none. */
int FlatAxis(const IVector3D& dimensions)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (dimensions[nAxis] == 1)
            return nAxis;
    return -1;
}

DVector3D Rotated(const DVector3D& point, int nAxis, double dCosine, double dSine)
{
    const int nFirst = (nAxis + 1) % 3;
    const int nSecond = (nAxis + 2) % 3;
    DVector3D result = point;
    result[nFirst] = dCosine * point[nFirst] - dSine * point[nSecond];
    result[nSecond] = dSine * point[nFirst] + dCosine * point[nSecond];
    return result;
}

/** By a right angle: an exchange and a change of sign, so that four of them give the same bits again. */
DVector3D QuarterTurned(const DVector3D& point, int nAxis)
{
    const int nFirst = (nAxis + 1) % 3;
    const int nSecond = (nAxis + 2) % 3;
    DVector3D result = point;
    result[nFirst] = -point[nSecond];
    result[nSecond] = point[nFirst];
    return result;
}

/** The circles of all points of a block, one after another, in the arrays of the solid. */
template <class Real> struct SCircles
{
    const std::array<std::unique_ptr<Real[]>, 3>& arrays;
    int nAxis;
    qint64 nQuarter; // sectors of a quarter turn
    qint64 nStride;  // from one angle to the next
    std::vector<double> cosines, sines;

    void Write(qint64 nPlace, const DVector3D& point) const
    {
        for (int n = 0; n < 3; ++n)
            arrays[n][nPlace] = static_cast<Real>(point[n]);
    }
    /** nCount points that lie a quarter turn apart. */
    void WriteQuarters(qint64 nPlace, DVector3D point, int nCount) const
    {
        for (int n = 0; n < nCount; ++n, nPlace += nQuarter * nStride) {
            Write(nPlace, point);
            point = QuarterTurned(point, nAxis);
        }
    }
    /** nPlace: where the point itself stands. */
    void WriteCircle(qint64 nPlace, const DVector3D& point) const
    {
        for (qint64 n = 1; n < nQuarter; ++n)
            WriteQuarters(nPlace + n * nStride, Rotated(point, nAxis, cosines[n], sines[n]), 4);
        WriteQuarters(nPlace, point, 5); // the fifth one closes the circle
    }
};

/** False if memory is short; then nothing is allocated. */
template <class Real> bool Allocate(std::array<std::unique_ptr<Real[]>, 3>& arrays, qint64 nCount)
{
    for (auto& pArray : arrays)
        pArray.reset(new (std::nothrow) Real[nCount]);
    const bool bAll = arrays[0] && arrays[1] && arrays[2];
    if (!bAll)
        arrays = {};
    return bAll;
}

} // namespace

template <class Real>
LoadStatus_e CRevolvedCopy::Fill(const IGrid& grid, int nAxis, int nAngleAxis,
                                 const std::array<std::unique_ptr<Real[]>, 3>& arrays) const
{
    const qint64 nQuarter = (m_shape.dimensions[nAngleAxis] - 1) / 4;
    const IVector3D strides{1, m_shape.dimensions.i, m_shape.dimensions.i * m_shape.dimensions.j};
    SCircles<Real> circles{arrays, nAxis, nQuarter, strides[nAngleAxis], {}, {}};
    for (qint64 n = 0; n < nQuarter; ++n) {
        const double dAngle = double(n) * 0.5 * M_PI / double(nQuarter);
        circles.cosines.push_back(std::cos(dAngle));
        circles.sines.push_back(std::sin(dAngle));
    }
    const auto revolve = [&](const SIJKRange& part, const SPointBuffers& points) {
        const SBlockShape shape{part.Extent(), part.min};
        for (qint64 n = 0; n < part.Count(); ++n)
            circles.WriteCircle(m_shape.PointIndex(shape.Address(n)), PointAt(points, n));
    };
    return ForEachSlice(grid, grid.GetShape().Range(), GapsAreZeros, revolve);
}

std::unique_ptr<CRevolvedCopy> CRevolvedCopy::Build(const IGrid& grid, int nAxis, qint64 nSectors,
                                                    bool bDouble)
{
    const SBlockShape source = grid.GetShape();
    const int nAngleAxis = FlatAxis(source.dimensions);
    if (source.start != IVector3D{1, 1, 1} || source.Range().IsEmpty() || nAngleAxis < 0)
        return nullptr;
    if (nSectors < 1 || nSectors > MAX_SECTORS)
        return nullptr;
    std::unique_ptr<CRevolvedCopy> pCopy(new (std::nothrow) CRevolvedCopy);
    if (!pCopy)
        return nullptr;
    pCopy->m_shape = source;
    pCopy->m_shape.dimensions[nAngleAxis] = (nSectors + 3) / 4 * 4 + 1;
    const qint64 nCount = pCopy->m_shape.PointCount();
    if (!(bDouble ? Allocate(pCopy->m_double, nCount) : Allocate(pCopy->m_single, nCount)))
        return nullptr;
    try {
        const LoadStatus_e eStatus = bDouble ? pCopy->Fill(grid, nAxis, nAngleAxis, pCopy->m_double)
                                             : pCopy->Fill(grid, nAxis, nAngleAxis, pCopy->m_single);
        if (eStatus != LoadOk)
            return nullptr;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return pCopy;
}
