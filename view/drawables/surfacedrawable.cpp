#include "view/drawables/surfacedrawable.h"

#include "data/grids/gridslices.h"
#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "data/solutions/isolution.h"
#include "data/variables/variablemanager.h"
#include "scene/iselectable.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

namespace {

constexpr qint64 ANY_SUB_ID = -1;

/** Calls place(element, number in a buffer of the range, i fastest) for all elements of the plane. */
template <class Place> void ForEachElement(const SSurfacePlane& plane, const Place& place)
{
    const SSurfaceSize size = plane.Size();
    const bool bColumnsFirst = plane.ColumnAxis() < plane.RowAxis(); // the buffer's fast direction
    for (qint64 nRow = 0; nRow < size.nRows; ++nRow)
        for (qint64 nColumn = 0; nColumn < size.nColumns; ++nColumn)
            place(size.Index(nRow, nColumn),
                  bColumnsFirst ? nRow * size.nColumns + nColumn : nColumn * size.nRows + nRow);
}

SSurfacePlane Clipped(const SSurfacePlane& plane, const SBlockShape& shape)
{
    SSurfacePlane clipped = plane;
    clipped.constants = shape.Clamped(plane.constants);
    clipped.start = shape.Clamped(plane.start);
    clipped.end = shape.Clamped(plane.end);
    return clipped;
}

/** The cells that the elements of the plane begin. */
SSurfacePlane OfCells(SSurfacePlane plane, const IVector3D& cells)
{
    for (const int nAxis : {plane.RowAxis(), plane.ColumnAxis()})
        plane.end[nAxis] = std::max(plane.start[nAxis], std::min(plane.end[nAxis] - 1, cells[nAxis]));
    plane.constants[plane.nDirection] = std::min(plane.constants[plane.nDirection], cells[plane.nDirection]);
    return plane;
}

} // namespace

CSurfaceDrawable::CSurfaceDrawable(qint64 nSimulationId, qint64 nViewId, qint64 nBlockId)
    : CSurface(nSimulationId, nViewId, nBlockId)
{}

void CSurfaceDrawable::setDefinition(const SSurfacePlane& plane)
{
    if (plane == m_plane)
        return;
    m_plane = plane;
    invalidateAll();
}

bool CSurfaceDrawable::ElementsAreCells() const
{
    const IVariable* const pVariable = CVariableManager::Instance().GetVariable(scalarVariable());
    return !displayOnNodes() && pVariable && pVariable->GetLocation() == LocationCell;
}

SSurfaceSize CSurfaceDrawable::ReadSize()
{
    const CLease<IGrid> pGrid =
        CGridManager::Instance().GetGrid(simulationId(), blockId(), ANY_SUB_ID, m_dTimeCode);
    if (!pGrid)
        return {};
    m_bCells = ElementsAreCells();
    m_built = Clipped(m_plane, pGrid->GetShape());
    if (m_bCells)
        m_built = OfCells(m_built, pGrid->GetCellDimensions());
    return m_built.Size();
}

LoadStatus_e CSurfaceDrawable::ReadPositions(std::span<DVector3D> positions)
{
    const CLease<IGrid> pGrid =
        CGridManager::Instance().GetGrid(simulationId(), blockId(), ANY_SUB_ID, m_dTimeCode);
    if (!pGrid)
        return LoadNever;
    std::vector<double> x(positions.size()), y(positions.size()), z(positions.size());
    const LoadStatus_e eStatus = m_bCells ? FillCellCentres(*pGrid, m_built.Range(), {x, y, z})
                                          : pGrid->FillPoints(m_built.Range(), {x, y, z});
    ForEachElement(m_built, [&](qint64 nElement, qint64 nPlace) {
        positions[nElement] = {x[nPlace], y[nPlace], z[nPlace]};
    });
    return eStatus;
}

CLease<ISolution> CSurfaceDrawable::FieldOverPlane(qint64 nVariableId) const
{
    auto pField = CSolutionManager::Instance().GetSolution(nVariableId, simulationId(), blockId(), ANY_SUB_ID,
                                                           m_dTimeCode);
    const SIJKRange range = m_built.Range();
    if (!pField || !(Intersection(range, pField->GetShape().Range()) == range))
        return {};
    return pField;
}

LoadStatus_e CSurfaceDrawable::ReadValues(qint64 nVariableId, std::span<double> values)
{
    const auto pField = FieldOverPlane(nVariableId);
    if (!pField)
        return LoadNever;
    std::vector<double> plane(values.size());
    const LoadStatus_e eStatus = pField->FillValues(m_built.Range(), plane);
    if (eStatus == LoadOk)
        ForEachElement(m_built, [&](qint64 nElement, qint64 nPlace) { values[nElement] = plane[nPlace]; });
    return eStatus;
}

double CSurfaceDrawable::ReadValue(qint64 nVariableId, qint64 nElement) const
{
    const auto pField = FieldOverPlane(nVariableId);
    return pField ? pField->GetValue(pField->GetShape().PointIndex(m_built.AddressOf(nElement))) : NO_VALUE;
}

LoadStatus_e CSurfaceDrawable::ReadVectors(qint64 nVariableId, std::span<DVector3D> vectors)
{
    const auto pField = FieldOverPlane(nVariableId);
    if (!pField)
        return LoadNever;
    std::vector<double> x(vectors.size()), y(vectors.size()), z(vectors.size());
    const LoadStatus_e eStatus = pField->FillVectors(m_built.Range(), {x, y, z});
    ForEachElement(m_built, [&](qint64 nElement, qint64 nPlace) {
        vectors[nElement] = {x[nPlace], y[nPlace], z[nPlace]};
    });
    return eStatus;
}

LoadStatus_e CSurfaceDrawable::ReadMask(std::span<double> mask)
{
    const IVariable* const pMask =
        CVariableManager::Instance().GetHoleVariable(simulationId(), m_bCells ? LocationCell : LocationNode);
    return pMask ? ReadValues(pMask->GetId(), mask) : LoadNever;
}

double CSurfaceDrawable::CurrentTime() const
{
    return CSimulationManager::Instance().GetRequestTime(viewId(), simulationId());
}

QMatrix4x4 CSurfaceDrawable::CurrentModelMatrix() const
{
    const ISimulation* const pSimulation = CSimulationManager::Instance().GetSimulation(simulationId());
    return pSimulation ? pSimulation->GetModelMatrix(blockId(), m_dTimeCode) : QMatrix4x4();
}

QString CSurfaceDrawable::ItemName() const
{
    const QVector<ISelectable*> owners = ownerSelectables();
    return owners.isEmpty() ? QString() : owners.first()->name();
}
