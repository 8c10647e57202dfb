#include "view/selectables/kinds.h"

#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "view/annotations/legendtexts.h"
#include "view/selectables/itemselectable.h"
#include "view/selectables/surfaceitems.h"
#include "view/selectables/surfaceselectable.h"

namespace {

template <class Selectable> ISelectable* Make(CItem& item, qint64, qint64 nViewId)
{
    return new Selectable(item, nViewId);
}

CItem* MakeSurface(ISimulation& simulation, const QVector<qint64>& blockIds)
{
    const CItem* const pBlock = simulation.GetItem(blockIds.value(0, NO_ID));
    return pBlock ? CreateSurfaceItem(simulation, pBlock->GetId(), FacePlane(pBlock->GetSize(), 4)) : nullptr;
}

constexpr SOverrideField SURFACE_FIELDS[] = {
    {Definitions::KeyOf(&SSurfacePlane::nDirection), OverrideDirection},
    {Definitions::KeyOf(&SSurfacePlane::constants), OverrideIndices},
};
constexpr SOverrideField COORDINATE_SURFACE_FIELDS[] = {
    {"planeNormal", OverridePoint, SOverrideField::InObject, "selectable"},
    {"planeValue", OverrideNumber, SOverrideField::InObject, "selectable"},
};
const SOverrideField ISO_SURFACE_FIELDS[] = {
    {"isoVariable", OverrideString, SOverrideField::InList, "drawables"},
    {"isoValue", OverrideNumber, SOverrideField::InList, "drawables"},
    {DisplayKeyOf(&SDisplayState::nScalarVariable), OverrideString, SOverrideField::InList, "drawables"},
};
constexpr SOverrideField EXTREME_FIELDS[] = {{"extremeVariable", OverrideString}};
constexpr const char* SEED_HINTS[] = {"seedZoneIds", "seedIJKs"}; // of the seeds that were
constexpr SOverrideField STREAMLINE_FIELDS[] = {
    {"showSeeds", OverrideBool},
    {"seeds", OverridePoints, SOverrideField::InObject, "seedDrawable", "xyzList", SEED_HINTS},
};

constexpr qint64 PLANE_CAPABILITIES = CapabilityLegend | CapabilityExtreme | CapabilitySums;

const SKindRow ROWS[] = {
    {.eKind = KindBlock,
     .sList = "meshBlocks",
     .sGroup = "Blocks",
     .sName = "Block",
     .sToolTip = "Blocks of the grid file",
     .sIcon = ":/Icons/zone.png",
     .nCapabilities = CapabilityLegend | CapabilityPlaneCut | CapabilityIsoSurface | CapabilityExtreme,
     .MakeSelectable = Make<CItemSelectable>},
    {.eKind = KindSurface,
     .bUnderBlock = true,
     .sList = "surfaces",
     .sGroup = "Surfaces",
     .sName = "Surface",
     .sToolTip = "Index planes of blocks",
     .sIcon = ":/Icons/surface.png",
     .nCapabilities = PLANE_CAPABILITIES,
     .nDocks = DataDockSurface,
     .MakeItem = MakeSurface,
     .MakeSelectable = Make<CSurfaceSelectable>,
     .LegendText = LegendTexts::OfPlane,
     .sOverrideHead = "surface",
     .overrides = SURFACE_FIELDS},
    {.eKind = KindBoundarySurface,
     .bUnderBlock = true,
     .sList = "boundarySurfaces",
     .sGroup = "Boundary Surfaces",
     .sName = "Boundary Surface",
     .sToolTip = "Faces that the boundary files beside the grid name",
     .sIcon = ":/Icons/boundary.png",
     .sDeleteName = "Boundary Surfaces",
     .nCapabilities = PLANE_CAPABILITIES,
     .nDocks = DataDockSurface,
     .MakeSelectable = Make<CBoundarySurfaceSelectable>},
    {.eKind = KindFace,
     .sGroup = "Faces",
     .sName = "Face",
     .sToolTip = "Faces of blocks",
     .sIcon = ":/Icons/face.png",
     .nCapabilities = PLANE_CAPABILITIES,
     .nDocks = DataDockSurface,
     .MakeSelectable = Make<CFaceSelectable>},
    {.eKind = KindCoordinateSurface,
     .sList = "coordinateSurfaces",
     .sGroup = "Coordinate Surfaces",
     .sName = "Coordinate Surface",
     .sToolTip = "Cuts with a plane",
     .sIcon = ":/Icons/coordinatesurface.png",
     .LegendText = [](const ISelectable&) { return QString("Coordinate Surface"); },
     .sOverrideHead = "coordinateSurface",
     .overrides = COORDINATE_SURFACE_FIELDS},
    {.eKind = KindStreamline,
     .sList = "streamlines",
     .sGroup = "Streamlines",
     .sName = "Streamline",
     .sToolTip = "Paths along a vector field",
     .sIcon = ":/Icons/streamline.png",
     .LegendText = [](const ISelectable& s) { return LegendTexts::OfBlockOr("Streamline", s); },
     .sOverrideHead = "streamline",
     .overrides = STREAMLINE_FIELDS},
    {.eKind = KindISOSurface,
     .sList = "isoSurfaces",
     .sGroup = "ISO Surfaces",
     .sName = "ISO Surface",
     .sToolTip = "Surfaces on which a variable has one value",
     .sIcon = ":/Icons/isosurface.png",
     .LegendText = [](const ISelectable& s) { return LegendTexts::OfBlockOr("Iso Surface", s); },
     .sOverrideHead = "isoSurface",
     .overrides = ISO_SURFACE_FIELDS},
    {.eKind = KindExtremePoint,
     .sList = "extremePoints",
     .sGroup = "Extreme Points",
     .sName = "Extreme Point",
     .sToolTip = "Where a variable is least and greatest",
     .sIcon = ":/Icons/extremepoint.png",
     .LegendText = [](const ISelectable& s) { return LegendTexts::OfBlockOr("Extreme Point", s); },
     .sOverrideHead = "extremePoint",
     .overrides = EXTREME_FIELDS},
};

QVector<const SKindRow*>& AllKinds()
{
    static QVector<const SKindRow*> s_rows = [] {
        QVector<const SKindRow*> rows;
        for (const SKindRow& row : ROWS)
            rows.append(&row);
        return rows;
    }();
    return s_rows;
}

} // namespace

const QVector<const SKindRow*>& Kinds() { return AllKinds(); }

const SKindRow* FindKind(qint64 nKind)
{
    for (const SKindRow* const pRow : Kinds())
        if (pRow->eKind == nKind)
            return pRow;
    return nullptr;
}

void AddKinds(std::span<const SKindRow> rows)
{
    for (const SKindRow& row : rows)
        AllKinds().append(&row);
}
