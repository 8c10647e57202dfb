#include "view/drawables/surfacedrawable.h"

#include "data/gridmanager.h"
#include "data/loadedleaves.h"
#include "data/solutionmanager.h"
#include "data/solutions/istructredsolution.h"
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

bool WasRead(IGrid& grid)
{
    const QVector<IGrid*> leaves = grid.GetLeafGrids();
    return !leaves.isEmpty() && AreLoaded(leaves);
}

/** The same of a field, which gives zeros that mean nothing where its data are missing. */
bool WasRead(IStructredSolution& field, const SIJKRange& range)
{
    return AreLoaded(field.GetLeafSolutions()) && (field.HasValue(range.min) || field.HasValue(range.max));
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

bool CSurfaceDrawable::ReadPositions(std::span<DVector3D> positions)
{
    const CLease<IGrid> pGrid =
        CGridManager::Instance().GetGrid(simulationId(), blockId(), ANY_SUB_ID, m_dTimeCode);
    if (!pGrid)
        return false;
    if (m_bCells) {
        for (std::size_t n = 0; n < positions.size(); ++n)
            positions[n] = pGrid->GetCellCentre(m_built.AddressOf(qint64(n)), 0.0);
        return WasRead(*pGrid);
    }
    std::vector<double> x(positions.size()), y(positions.size()), z(positions.size());
    pGrid->FillPoints(m_built.Range(), {x, y, z});
    if (!WasRead(*pGrid))
        return false;
    ForEachElement(m_built, [&](qint64 nElement, qint64 nPlace) {
        positions[nElement] = {x[nPlace], y[nPlace], z[nPlace]};
    });
    return true;
}

CLease<IStructredSolution> CSurfaceDrawable::FieldOverPlane(qint64 nVariableId) const
{
    auto pField = CSolutionManager::Instance().GetSolution(nVariableId, simulationId(), blockId(), ANY_SUB_ID,
                                                           m_dTimeCode);
    const SIJKRange range = m_built.Range();
    if (!pField || !(Intersection(range, pField->GetShape().Range()) == range))
        return {};
    return pField;
}

bool CSurfaceDrawable::ReadValues(qint64 nVariableId, std::span<double> values)
{
    const auto pField = FieldOverPlane(nVariableId);
    if (!pField)
        return false;
    std::vector<double> plane(values.size());
    pField->FillValues(m_built.Range(), plane);
    if (!WasRead(*pField, m_built.Range()))
        return false;
    ForEachElement(m_built, [&](qint64 nElement, qint64 nPlace) { values[nElement] = plane[nPlace]; });
    return true;
}

double CSurfaceDrawable::ReadValue(qint64 nVariableId, qint64 nElement) const
{
    const auto pField = FieldOverPlane(nVariableId);
    if (!pField)
        return NO_VALUE;
    const double dValue = pField->GetValue(m_built.AddressOf(nElement));
    return WasRead(*pField, m_built.Range()) ? dValue : NO_VALUE;
}

bool CSurfaceDrawable::ReadVectors(qint64 nVariableId, std::span<DVector3D> vectors)
{
    const auto pField = FieldOverPlane(nVariableId);
    if (!pField)
        return false;
    std::vector<double> x(vectors.size()), y(vectors.size()), z(vectors.size());
    pField->FillVectors(m_built.Range(), {x, y, z});
    if (!WasRead(*pField, m_built.Range()))
        return false;
    ForEachElement(m_built, [&](qint64 nElement, qint64 nPlace) {
        vectors[nElement] = {x[nPlace], y[nPlace], z[nPlace]};
    });
    return true;
}

bool CSurfaceDrawable::ReadMask(std::span<double> mask)
{
    const IVariable* const pMask =
        CVariableManager::Instance().GetHoleVariable(simulationId(), m_bCells ? LocationCell : LocationNode);
    return pMask && ReadValues(pMask->GetId(), mask);
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
