#include "view/selectables/selectablefactory.h"

#include "simulation/item.h"
#include "view/selectables/itemselectable.h"
#include "view/selectables/surfaceselectable.h"

namespace {

template <class Selectable> ISelectable* Make(const CItem& item, qint64 nViewId)
{
    return new Selectable(item, nViewId);
}

struct SKindRow
{
    SelectableKind_e eKind;
    ISelectable* (*Create)(const CItem&, qint64 nViewId);
};

constexpr SKindRow KINDS[] = {
    {KindSurface, Make<CSurfaceSelectable>},
    {KindBlock, Make<CItemSelectable>},
    {KindBoundarySurface, Make<CBoundarySurfaceSelectable>},
    {KindFace, Make<CFaceSelectable>},
};

} // namespace

ISelectable* CSelectableFactory::CreateItemSelectable(CItem& item, qint64 nViewId)
{
    for (const SKindRow& row : KINDS)
        if (row.eKind == item.GetType())
            return row.Create(item, nViewId);
    return Make<CItemSelectable>(item, nViewId);
}
