#pragma once

#include "data/values/idisposable.h"
#include "view/mesh/surface.h"
#include "view/mesh/surfaceplane.h"

class ISolution;

/** An index plane of a structured block. */
class CSurfaceDrawable : public CSurface
{
    Q_OBJECT

public:
    CSurfaceDrawable(qint64 nSimulationId, qint64 nViewId, qint64 nBlockId);

    /** What the block doesn't have is cut off when it is built. */
    void setDefinition(const SSurfacePlane& plane);

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

    SSurfacePlane m_plane; // as its selectable hands it over
    SSurfacePlane m_built; // what of it the block has; of cells if m_bCells
    bool m_bCells = false;
};
