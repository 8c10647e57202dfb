#pragma once

#include "data/grids/gridslices.h"
#include "data/grids/igrid.h"
#include "data/values/box.h"

#include <array>
#include <limits>

/** The points of a range of a grid, read in one go; gaps are three NaN, and all where it can't be read.
 * Throws std::bad_alloc. */
class CGridPiece
{
public:
    CGridPiece(const IGrid& grid, const SIJKRange& range)
        : m_range(range),
          m_scratch(range.Count()),
          m_points(m_scratch.First(range.Count())),
          m_eStatus(FillRange(grid, range, GapsAreNaN, m_points))
    {
        if (m_eStatus != LoadOk)
            for (int nAxis = 0; nAxis < 3; ++nAxis)
                std::fill(m_points.Axis(nAxis).begin(), m_points.Axis(nAxis).end(),
                          std::numeric_limits<double>::quiet_NaN());
    }

    LoadStatus_e GetStatus() const { return m_eStatus; }

    DVector3D Point(const IVector3D& ijk) const { return PointAt(m_points, m_range.IndexOf(ijk)); }
    SBox BoxOf(const SIJKRange& part) const;

    /** Calls visit(j, k, points) for each row of a part of the range; points holds the row from part.min.i.
     */
    template <class Visit> void ForEachRow(const SIJKRange& part, const Visit& visit) const
    {
        const qint64 nRow = part.Extent().i;
        for (qint64 k = part.min.k; k <= part.max.k; ++k) {
            for (qint64 j = part.min.j; j <= part.max.j; ++j) {
                const qint64 nPlace = m_range.IndexOf({part.min.i, j, k});
                visit(j, k,
                      SPointBuffers{m_points.x.subspan(nPlace, nRow), m_points.y.subspan(nPlace, nRow),
                                    m_points.z.subspan(nPlace, nRow)});
            }
        }
    }

private:
    SIJKRange m_range;
    CPointScratch m_scratch;
    SPointBuffers m_points;
    LoadStatus_e m_eStatus;
};

/** Between which places a layer of cells lies; low above high for a layer without points. */
struct SLayerBounds
{
    quint8 nLow;
    quint8 nHigh;
};

/**
 * How the layers of a small range of cells lie in space. For each direction of the block there is a direction
 * in space, across its layers; along it the points of each layer are bounded. That tells cells apart that lie
 * askew, where the boxes of neighbours overlap by much.
 */
class CCellBundle
{
public:
    static constexpr qint64 MAX_CELLS = 16; ///< in one direction

    /**
     * @param range   the points of the cells
     * @param origin  near the points
     * @param bounds  of the layers; room for the same number along i, j and k, which begin at each third
     */
    CCellBundle(const CGridPiece& points, const SIJKRange& range, const DVector3D& origin,
                std::span<SLayerBounds> bounds);

    /** The points of the cells. */
    SIJKRange Points() const
    {
        const IVector3D first{m_nFirst[0], m_nFirst[1], m_nFirst[2]};
        return {first, first + IVector3D{m_nExtent[0], m_nExtent[1], m_nExtent[2]}};
    }

    /**
     * The layers of one direction that may hold a point, as bits.
     *
     * @param fromOrigin  from the origin of the build, the very same, to the point
     * @param bounds      of the layers of this direction, as they were written
     */
    quint32 LayersAt(const DVector3D& fromOrigin, int nAxis, std::span<const SLayerBounds> bounds) const;

private:
    /** Along a direction: 2 to 253 from the first point of all to the last, 0 and 255 far outside. */
    double PlaceOf(const DVector3D& fromOrigin, int nAxis) const
    {
        const double dPlace = Dot(fromOrigin, Normal(nAxis)) - m_offsets[nAxis];
        return dPlace < 0.0 ? 0.0 : dPlace > 255.0 ? 255.0 : dPlace;
    }
    DVector3D Normal(int nAxis) const
    {
        const float* const pNormal = m_normals[nAxis];
        return {pNormal[0], pNormal[1], pNormal[2]};
    }
    using PlaneRanges = std::array<std::array<SValueRange, MAX_CELLS + 1>, 3>;

    void ChooseDirections(const CGridPiece& points, const SIJKRange& range, const DVector3D& origin);
    void SetScale(const DVector3D& normal, const SValueRange& reach, int nAxis);
    PlaneRanges PlacesOfPlanes(const CGridPiece& points, const SIJKRange& range,
                               const DVector3D& origin) const;

    float m_normals[3][3];
    float m_offsets[3];
    qint32 m_nFirst[3];
    quint8 m_nExtent[3];
};
