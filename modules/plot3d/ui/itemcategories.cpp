#include "modules/plot3d/ui/itemcategories.h"

#include "scene/selectablekind.h"

#include <algorithm>

static constexpr SItemKindRow s_rows[] = {
    {KindBoundarySurface, "Boundary Surfaces", "Boundary Surface",
     "Faces that the boundary files beside the grid name", ":/Icons/boundary.png"},
    {KindStreamline, "Streamlines", "Streamline", "Paths along a vector field", ":/Icons/streamline.png"},
    {KindExtremePoint, "Extreme Points", "Extreme Point", "Where a variable is least and greatest",
     ":/Icons/extremepoint.png"},
    {KindBlock, "Blocks", "Block", "Blocks of the grid file", ":/Icons/zone.png"},
    {KindFace, "Faces", "Face", "Faces of blocks", ":/Icons/face.png"},
    {KindISOSurface, "ISO Surfaces", "ISO Surface", "Surfaces on which a variable has one value",
     ":/Icons/isosurface.png"},
    {KindCoordinateSurface, "Coordinate Surfaces", "Coordinate Surface", "Cuts with a plane",
     ":/Icons/coordinatesurface.png"},
    {KindSurface, "Surfaces", "Surface", "Index planes of blocks", ":/Icons/surface.png"},
};

std::span<const SItemKindRow> ItemKindTable() { return s_rows; }

const SItemKindRow* FindItemKind(qint64 nKind)
{
    const auto row = std::find_if(std::begin(s_rows), std::end(s_rows),
                                  [nKind](const SItemKindRow& r) { return r.nKind == nKind; });
    return row == std::end(s_rows) ? nullptr : &*row;
}
