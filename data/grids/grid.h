#pragma once

#include "data/grids/igrid.h"

#include <array>
#include <memory>
#include <vector>

class IGridOwner;
class CFaceEdges;
class CRevolvedCopy;

/**
 * What all grids share: identity, shape, ranges and everything that follows from the points. A derived class
 * supplies the two roads to the points.
 */
class CGrid : public IGrid
{
public:
    CGrid();
    ~CGrid() override;

    /** Whoever takes the grid back at Dispose (not owned); null: Dispose does nothing. */
    void SetOwner(IGridOwner* pOwner) { m_pOwner = pOwner; }
    /** The data couldn't be read, and the file isn't any more what it was then. */
    virtual bool HasFileChangedSinceFailure() const { return false; }
    /** Nothing that was built from the points holds any more. */
    void ForgetDerived();

    void Dispose() override;
    qint64 GetGridId() const override { return m_nGridId; }
    void SetGridId(qint64 nId) override { m_nGridId = nId; }
    bool Prepare() override { return true; }
    bool IsPrepared() const override { return true; }
    void Init(const QString& sFileName, qint64 nFileIndex, const IVector3D& dimensions,
              const IVector3D& start, bool bStructured) override;
    bool Allocate(qint64) override { return false; }
    IGrid* GetBaseGrid() override { return this; }
    GridKind_e GetGridKind() const override
    {
        return m_bStructured ? GridKindStructured : GridKindUnstructured;
    }
    QString GetFileName() const override { return m_sFileName; }
    qint64 GetFileIndex() const override { return m_nFileIndex; }
    bool IsDoublePrecision() const override { return m_bDoublePrecision; }

    SBlockShape GetShape() const override { return m_shape; }
    void SetDimensions(const IVector3D& dimensions) override { SetShape({dimensions, m_shape.start}); }
    void SetStart(const IVector3D& start) override { SetShape({m_shape.dimensions, start}); }
    bool IsPlanar() const override { return GetShape().IsPlanar(); }
    qint64 GetPointCount() const override { return GetShape().PointCount(); }
    qint64 GetEdgeCount() const override { return GetShape().EdgeCount(); }
    qint64 GetFaceCount() const override { return GetShape().FaceCount(); }
    qint64 GetCellCount() const override { return GetShape().CellCount(); }
    bool HasPoint(const IVector3D& ijk) const override { return GetShape().Contains(ijk); }
    bool HasGaps() const override { return false; }
    const QStringList& GetBoundaryNames() const override { return m_sBoundaryNameList; }
    const QVector<QVector<qint64>>& GetBoundaryPoints() const override { return m_boundaryPoints; }
    QVector<IGrid*> GetLeafGrids() override { return {this}; }

    using IGrid::GetPoint;
    DVector3D GetPoint(qint64 nIndex) const override { return GetPoint(GetIJK(nIndex)); }
    void SetPoint(qint64, const DVector3D&) override {}
    const float* GetCoordinatesSingle(int nAxis) override;
    const double* GetCoordinatesDouble(int nAxis) override;
    void ReleaseCoordinateCopies() override;

    std::optional<SValueRange> GetRange(int nAxis, bool bCompute) override;
    void SetRange(int nAxis, const SValueRange& range) override { m_ranges[nAxis] = range; }
    IVector3D GetMinimumLocation(int nAxis) override;
    IVector3D GetMaximumLocation(int nAxis) override;
    LoadStatus_e ComputeRanges() override;

    bool IsRightHanded() const override;
    DVector3D GetSamplePoint(int n) const override;
    QVector<DVector3D> GetSamplePoints() const override;
    QVector<IVector3D> GetSampleIndices() const override;
    DVector3D GetCellCentre(const IVector3D& ijk, double dTolerance) const override;
    std::array<qint64, 4> GetFaceCorners(const IVector3D& ijk, int nFace) const override;
    SValueRange GetProjectedRange(const DVector3D& direction, const SIJKRange& range) const override;
    QPair<DVector3D, DVector3D> GetBoundingBox(const SIJKRange& range, double dMargin) const override;
    QVector<DVector3D> GetPointNormals(const IVector3D& ijk, int nAxis) const override;
    bool BuildRevolvedCoordinates(int nAxis, qint64 nSectors, bool bDouble) override;
    const float* GetRevolvedSingle(int nAxis) const override;
    const double* GetRevolvedDouble(int nAxis) const override;

    void ResetFaceEdges() override;
    void BuildFaceEdge(int nFace, int nEdge) override;
    const QVector<DVector3D>& GetFaceEdgePoints(int nFace, int nEdge) override;
    const QVector<DVector3D>& GetFaceEdgeNormals(int nFace, int nEdge) override;
    const QVector<DVector3D>& GetFaceEdgeInward(int nFace, int nEdge) override;
    DVector3D GetFaceEdgeBoxMin(int nFace, int nEdge) override;
    DVector3D GetFaceEdgeBoxMax(int nFace, int nEdge) override;
    bool FaceEdgeBoxesTouch(int nFace, int nEdge, const DVector3D& min, const DVector3D& max) override;
    bool FaceEdgesMatch(int nFace, int nEdge, IGrid& other, int nOtherFace, int nOtherEdge) override;

    void BuildSearchTree() override;
    const CSearchTree* GetSearchTree() const override { return m_pSearchTree.get(); }
    IVector3D FindCell(const DVector3D& point) override;
    bool IsPointInCell(const DVector3D& point, const IVector3D& ijk) const override;

protected:
    /** Of another shape, nothing holds that was built from the points. */
    void SetShape(const SBlockShape& shape);
    void SetDoublePrecision(bool bDouble) { m_bDoublePrecision = bDouble; }
    void SetBoundaries(const QStringList& sNameList, const QVector<QVector<qint64>>& points);
    /** Ranges, face edges, revolved copies and the search tree no longer hold. */
    void ForgetGeometry();

private:
    template <class Real> const Real* Copy(std::array<std::vector<Real>, 3>& copies, int nAxis) const;

    IGridOwner* m_pOwner = nullptr;
    qint64 m_nGridId = -1;
    QString m_sFileName;
    qint64 m_nFileIndex = 0;
    SBlockShape m_shape;
    bool m_bStructured = true;
    bool m_bDoublePrecision = true;
    std::array<SValueRange, 3> m_ranges;
    std::array<IVector3D, 3> m_minimumLocations;
    std::array<IVector3D, 3> m_maximumLocations;
    std::array<std::vector<float>, 3> m_singleCopies;
    std::array<std::vector<double>, 3> m_doubleCopies;
    std::unique_ptr<CRevolvedCopy> m_pRevolved;
    std::unique_ptr<CFaceEdges> m_pFaceEdges;
    std::unique_ptr<CSearchTree> m_pSearchTree;
    QStringList m_sBoundaryNameList;
    QVector<QVector<qint64>> m_boundaryPoints;
};

/** Who takes grids back: the manager. */
class IGridOwner
{
public:
    virtual ~IGridOwner() = default;
    virtual void Release(CGrid* pGrid) = 0;
};
