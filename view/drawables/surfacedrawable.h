#pragma once

#include "data/blockshape.h"
#include "data/idisposable.h"
#include "view/mesh/surface.h"

class ISolution;

/** Which index plane of a block a surface shows. Addresses are one-based, both ends included. */
struct SSurfacePlane
{
    int nDirection = 2;              ///< constant direction: 0 I, 1 J, 2 K
    IVector3D constants = {1, 1, 1}; ///< of each direction; only that of nDirection counts
    IVector3D start = {1, 1, 1};
    IVector3D end = {1, 1, 1};

    int RowAxis() const { return (nDirection + 1) % 3; }
    int ColumnAxis() const { return (nDirection + 2) % 3; }
    SSurfaceSize Size() const;
    /** The plane as a box of the block. */
    SIJKRange Range() const;
    IVector3D AddressOf(qint64 nElement) const;

    friend bool operator==(const SSurfacePlane&, const SSurfacePlane&) = default;
};

/** The whole of a face: 0 I min, 1 I max, 2 J min, 3 J max, 4 K min, 5 K max. */
SSurfacePlane FacePlane(const IVector3D& dimensions, int nFace);

/** An index plane of a structured block. */
class CSurfaceDrawable : public CSurface
{
    Q_OBJECT

public:
    CSurfaceDrawable(qint64 nSimulationId, qint64 nViewId, qint64 nBlockId);

    const SSurfacePlane& plane() const { return m_plane; }
    /** What the block doesn't have is cut off when it is built. */
    void setPlane(const SSurfacePlane& plane);

    QJsonObject toJson() const override;
    bool fromJson(const QJsonObject& display) override;
    QByteArray toBinary() const override;
    bool fromBinary(const QByteArray& bytes, double dVersion) override;

protected:
    bool ElementsAreCells() const override;
    SSurfaceSize ReadSize() override;
    LoadStatus_e ReadPositions(std::span<DVector3D> positions) override;
    LoadStatus_e ReadValues(qint64 nVariableId, std::span<double> values) override;
    double ReadValue(qint64 nVariableId, qint64 nElement) const override;
    LoadStatus_e ReadVectors(qint64 nVariableId, std::span<DVector3D> vectors) override;
    LoadStatus_e ReadMask(std::span<double> mask) override;
    IVector3D AddressOf(qint64 nElement) const override { return m_built.AddressOf(nElement); }
    double CurrentTime() const override;
    QMatrix4x4 CurrentModelMatrix() const override;
    QString ItemName() const override;

private:
    /** The field of a variable if it has values all over the plane that was built; null if not. */
    CLease<ISolution> FieldOverPlane(qint64 nVariableId) const;

    SSurfacePlane m_plane;
    SSurfacePlane m_built; // what of it the block has; of cells if m_bCells
    bool m_bCells = false;
};
