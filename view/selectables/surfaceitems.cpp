#include "view/selectables/surfaceitems.h"

#include "scene/iselectable.h"
#include "scene/selectablekind.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/simulationmanager.h"

namespace {

constexpr int FACE_COUNT = 6;
constexpr int USUAL_FACE = 4;

/** A new surface goes on with the colours of its block: the scalar and its range. */
void TakeColors(ISelectable& surface, const ISelectable& block)
{
    if (block.scalarVariable() == NO_ID)
        return;
    const SColormapRecord colormap = block.colormap();
    surface.setScalarVariable(block.scalarVariable());
    surface.setGeometricColor(block.geometricColor());
    surface.setColormapType(colormap.nId);
    surface.setColormapValues(colormap.dMinimum, colormap.dMaximum);
    surface.setColormapBindToLocal(block.colormapBindToLocal());
}

void TakeColorsInAllViews(CItem& surface, const CItem& block)
{
    for (const qint64 nViewId : CSimulationManager::Instance().GetViewIds(surface.GetSimulationId())) {
        ISelectable* const pSurface = surface.GetSelectable(nViewId);
        const ISelectable* const pBlock = block.GetSelectable(nViewId);
        if (pSurface && pBlock)
            TakeColors(*pSurface, *pBlock);
    }
}

} // namespace

SSurfacePlane InsideBlock(const SSurfacePlane& plane, const IVector3D& dimensions)
{
    SSurfacePlane inside = plane;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const qint64 nLast = std::max<qint64>(dimensions[nAxis], 1);
        inside.constants[nAxis] = std::clamp<qint64>(plane.constants[nAxis], 1, nLast);
        inside.end[nAxis] = std::clamp<qint64>(plane.end[nAxis], 1, nLast);
        inside.start[nAxis] = std::clamp<qint64>(plane.start[nAxis], 1, inside.end[nAxis]);
    }
    return inside;
}

int ThinDirection(const IVector3D& dimensions)
{
    constexpr qint64 MOST_POINTS = 2; // two-dimensional cases are also written as one layer of cells
    int nThin = -1;
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (dimensions[nAxis] <= (nThin < 0 ? MOST_POINTS : dimensions[nThin] - 1))
            nThin = nAxis;
    return nThin;
}

QVector<int> FacesToShow(const IVector3D& dimensions, qint64 nDefaultFace)
{
    if (const int nThin = ThinDirection(dimensions); nThin >= 0)
        return {2 * nThin}; // all its other faces are lines, or as good as
    if (nDefaultFace == FACE_COUNT)
        return {0, 1, 2, 3, 4, 5};
    return {nDefaultFace >= 0 && nDefaultFace < FACE_COUNT ? int(nDefaultFace) : USUAL_FACE};
}

void ApplyFirstDisplay(IDrawable& drawable)
{
    drawable.setDisplayType(DisplayShaded);
    drawable.setDrawOutlines(true); // so that blocks stand apart, and lines are seen at all
}

CItem* CreateSurfaceItem(ISimulation& simulation, qint64 nBlockId, const SSurfacePlane& plane)
{
    const CItem* const pBlock = simulation.GetItem(nBlockId);
    if (!pBlock)
        return nullptr;
    const SSurfacePlane inside = InsideBlock(plane, pBlock->GetSize());
    CItem* const pItem = simulation.CreateItem(KindSurface, 0, true, simulation.GetItemCount(), NO_ID, 0);
    if (!pItem)
        return nullptr;
    Definitions::ToPack(inside, *pItem);
    pItem->SetName("Surface", 0);
    pItem->SetParentId(nBlockId, true);
    pItem->CreateSelectable(-1);
    TakeColorsInAllViews(*pItem, *pBlock);
    return pItem;
}
