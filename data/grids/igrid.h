#pragma once

#include "data/values/blockshape.h"
#include "data/values/idisposable.h"
#include "data/values/pointbuffers.h"
#include "data/values/valuerange.h"
#include "frame/memory/memoryitem.h"
#include "frame/transform.h"

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>
#include <optional>

class CSearchTree;

/** What IGrid::GetGridKind gives; "#GridType" holds the same values. */
enum GridKind_e { GridKindUnknown = 0, GridKindStructured = 1, GridKindUnstructured = 2 };

/**
 * One block of points, whatever stands behind it: a block of a file, a block seen flipped or moved, a blend
 * of two time levels, a union of blocks. Addresses are one-based (i, j, k), flat indices zero-based with i
 * fastest; SBlockShape has the arithmetic.
 *
 * A point is read by one of two roads, with equal values bit for bit: GetPoint for odd jobs, FillPoints (or
 * the stored arrays themselves) for every loop over a block. GetPoint gives zeros where the data can't be
 * read, so who must know fills.
 *
 * A grid that the manager gave out stays in memory until Dispose. Reading is safe from any thread; what is
 * built on demand (copies, ranges, face edges, the search tree) is for one thread at a time.
 */
class IGrid : public IDisposable, public CMemoryItem
{
public:
    // Life and identity.
    virtual qint64 GetGridId() const = 0; ///< the manager's id, -1 without one; not the memory id
    virtual void SetGridId(qint64 nId) = 0;
    virtual bool Prepare() = 0; ///< makes the object ready for use; true if there is something behind it
    virtual bool IsPrepared() const = 0;
    virtual void Init(const QString& sFileName, qint64 nFileIndex, const IVector3D& dimensions,
                      const IVector3D& start, bool bStructured) = 0;
    virtual bool Allocate(qint64 nPointCount) = 0; ///< zero-filled; false if memory is short, or no storage
    virtual IGrid* GetBaseGrid() = 0;              ///< the innermost grid
    virtual GridKind_e GetGridKind() const = 0;
    virtual QString GetFileName() const = 0;
    virtual qint64 GetFileIndex() const = 0; ///< block of the file, from 0
    virtual bool IsDoublePrecision() const = 0;

    // Shape.
    virtual SBlockShape GetShape() const = 0;
    virtual void SetDimensions(const IVector3D& dimensions) = 0;
    virtual void SetStart(const IVector3D& start) = 0;
    IVector3D GetDimensions() const { return GetShape().dimensions; }
    IVector3D GetStart() const { return GetShape().start; }
    IVector3D GetEnd() const { return GetShape().End(); }
    IVector3D GetCellDimensions() const { return GetShape().CellDimensions(); }
    virtual bool IsPlanar() const = 0;
    bool IsVolume() const { return !IsPlanar(); }
    virtual qint64 GetPointCount() const = 0;
    virtual qint64 GetEdgeCount() const = 0;
    virtual qint64 GetFaceCount() const = 0;
    virtual qint64 GetCellCount() const = 0;
    bool IsInRange(qint64 i, qint64 j, qint64 k) const { return GetShape().Contains({i, j, k}); }
    virtual bool HasPoint(const IVector3D& ijk) const = 0; ///< false in the gaps of a union
    /** False: HasPoint is the same as IsInRange, and a loop over a block needn't ask it. */
    virtual bool HasGaps() const = 0;
    qint64 GetCellIndex(qint64 i, qint64 j, qint64 k) const { return GetShape().CellIndex({i, j, k}); }
    IVector3D GetIJK(qint64 nIndex) const { return GetShape().Address(nIndex); }
    qint64 MirrorIndex(int nAxis, qint64 nIndex) const { return GetShape().Mirrored(nAxis, nIndex); }
    virtual const QStringList& GetBoundaryNames() const = 0;
    virtual const QVector<QVector<qint64>>& GetBoundaryPoints() const = 0; ///< flat indices of each boundary
    virtual QVector<IGrid*> GetLeafGrids() = 0; ///< those that carry data, each once

    // Points.
    virtual DVector3D GetPoint(const IVector3D& ijk) const = 0;
    virtual DVector3D GetPoint(qint64 nIndex) const = 0;
    DVector3D GetPoint(qint64 i, qint64 j, qint64 k) const { return GetPoint(IVector3D{i, j, k}); }
    virtual void SetPoint(qint64 nIndex, const DVector3D& point) = 0; ///< storage alone; ignored out of range
    /**
     * The coordinates of a range that lies within the grid, in double. Gaps give zeros; after a failure the
     * buffers mean nothing.
     */
    virtual LoadStatus_e FillPoints(const SIJKRange& range, const SPointBuffers& out) const = 0;
    /** The same at scattered points: flat indices within the grid, in any order. */
    virtual LoadStatus_e GatherPoints(std::span<const qint64> points, const SPointBuffers& out) const = 0;
    /**
     * All points of one axis. A stored array is given without a copy; the other precision is built at first
     * use and kept until ReleaseCoordinateCopies. Null if memory is short or nothing could be loaded.
     */
    virtual const float* GetCoordinatesSingle(int nAxis) = 0;
    virtual const double* GetCoordinatesDouble(int nAxis) = 0;
    virtual void ReleaseCoordinateCopies() = 0;

    // Ranges.
    /** Nothing while it isn't computed, without points, and where they can't be read. */
    virtual std::optional<SValueRange> GetRange(int nAxis, bool bCompute) = 0;
    virtual void SetRange(int nAxis, const SValueRange& range) = 0;
    virtual IVector3D GetMinimumLocation(int nAxis) = 0; ///< of the first point with the minimum
    virtual IVector3D GetMaximumLocation(int nAxis) = 0;
    virtual LoadStatus_e ComputeRanges() = 0;

    // Geometry. The same for all classes; built on FillPoints (gridgeometry.cpp and its neighbours).
    virtual bool IsRightHanded() const = 0;
    virtual DVector3D GetSamplePoint(int n) const = 0;
    virtual QVector<DVector3D> GetSamplePoints() const = 0;
    virtual QVector<IVector3D> GetSampleIndices() const = 0;
    virtual DVector3D GetCellCentre(const IVector3D& ijk, double dTolerance) const = 0;
    /** Flat indices of the corners of a cell's face: 0 i low, 1 i high, 2 j low, 3 j high, 4 k low, 5 k high.
     */
    virtual std::array<qint64, 4> GetFaceCorners(const IVector3D& ijk, int nFace) const = 0;
    /** Of direction * point over the outer faces of a sub-range; empty where they can't be read. */
    virtual SValueRange GetProjectedRange(const DVector3D& direction, const SIJKRange& range) const = 0;
    /** Box of the points on the outer faces of a sub-range, grown on all sides; empty (least above greatest)
     * where they can't be read. */
    virtual QPair<DVector3D, DVector3D> GetBoundingBox(const SIJKRange& range, double dMargin) const = 0;
    virtual QVector<DVector3D> GetPointNormals(const IVector3D& ijk, int nAxis) const = 0;
    virtual bool BuildRevolvedCoordinates(int nAxis, qint64 nSectors, bool bDouble) = 0;
    virtual const float* GetRevolvedSingle(int nAxis) const = 0;
    virtual const double* GetRevolvedDouble(int nAxis) const = 0;

    // Face edges: face 0 to 5, edge 0 to 3 (faceedges.h).
    virtual void ResetFaceEdges() = 0;
    virtual void BuildFaceEdge(int nFace, int nEdge) = 0;
    virtual const QVector<DVector3D>& GetFaceEdgePoints(int nFace, int nEdge) = 0;
    virtual const QVector<DVector3D>& GetFaceEdgeNormals(int nFace, int nEdge) = 0;
    virtual const QVector<DVector3D>& GetFaceEdgeInward(int nFace, int nEdge) = 0;
    virtual DVector3D GetFaceEdgeBoxMin(int nFace, int nEdge) = 0;
    virtual DVector3D GetFaceEdgeBoxMax(int nFace, int nEdge) = 0;
    virtual bool FaceEdgeBoxesTouch(int nFace, int nEdge, const DVector3D& min, const DVector3D& max) = 0;
    virtual bool FaceEdgesMatch(int nFace, int nEdge, IGrid& other, int nOtherFace, int nOtherEdge) = 0;

    // Point location (searchtree.h).
    virtual void BuildSearchTree() = 0; ///< once, over the whole block
    virtual const CSearchTree* GetSearchTree() const = 0;
    virtual IVector3D FindCell(const DVector3D& point) = 0; ///< (-1, -1, -1) if no cell holds it
    virtual bool IsPointInCell(const DVector3D& point, const IVector3D& ijk) const = 0;
};

/** The weight of the first end of an edge whose ends have values of opposite sign. */
constexpr double GetEdgeWeight(double dFirst, double dSecond) { return dFirst / (dSecond - dFirst) + 1.0; }
