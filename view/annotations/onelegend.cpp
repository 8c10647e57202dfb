#include "view/annotations/onelegend.h"

#include "scene/iselectable.h"
#include "scene/selectablekeys.h"
#include "scene/selectablekind.h"
#include "view/annotations/annotationcolormap.h"

namespace {

bool CanShowLegend(const ISelectable& item)
{
    return item.annotationColormap() && item.isVisible() && Get(item, SelectableKey::HAS_LEGEND);
}

bool IsColoured(const ISelectable& item)
{
    return std::any_of(item.drawables().begin(), item.drawables().end(),
                       [](const IDrawable* pDrawable) { return pDrawable->usesColormap(); });
}

/** The first that could take the legend over; null too where one of them shows its own. */
ISelectable* FindHeir(const LegendKey& key, const QVector<ISelectable*>& items)
{
    ISelectable* pHeir = nullptr;
    for (ISelectable* const pItem : items) {
        if (!CanShowLegend(*pItem) || !IsColoured(*pItem) || LegendKeyOf(*pItem) != key)
            continue;
        if (pItem->annotationColormap()->isVisible())
            return nullptr;
        if (!pHeir)
            pHeir = pItem;
    }
    return pHeir;
}

/** Whether the name of the item, or of its block, holds for all of them. */
bool NamesAll(const ISelectable& item, const QVector<ISelectable*>& items)
{
    return items.size() == 1 ||
           (item.typeId() == KindBlock && std::all_of(items.begin(), items.end(), [&](const ISelectable* p) {
                return p->blockId() == item.blockId();
            }));
}

} // namespace

LegendKey LegendKeyOf(const ISelectable& item)
{
    SColormapRecord record = item.colormap();
    if (!item.colormapBindToLocal()) {
        record.dLocalMinimum = 0.0; // not in use
        record.dLocalMaximum = 0.0;
    }
    return {item.scalarVariable(), record};
}

CAnnotationColormap* ShowOneLegend(const QVector<ISelectable*>& items)
{
    for (ISelectable* const pItem : items) {
        if (!CanShowLegend(*pItem))
            continue;
        CAnnotationColormap* const pLegend = pItem->annotationColormap();
        SLegendSettings settings = pLegend->settings();
        settings.subtitle.bVisible = NamesAll(*pItem, items);
        pLegend->setSettings(settings);
        pLegend->setVisible(true);
        return pLegend;
    }
    return nullptr;
}

void PassLegendsOn(const QVector<ISelectable*>& leaving, const QVector<ISelectable*>& staying)
{
    for (ISelectable* const pItem : leaving) {
        CAnnotationColormap* const pLegend = pItem->annotationColormap();
        if (!pLegend || !pLegend->isVisible() || !IsColoured(*pItem))
            continue;
        ISelectable* const pHeir = FindHeir(LegendKeyOf(*pItem), staying);
        if (!pHeir)
            continue;
        pHeir->annotationColormap()->takeLook(*pLegend);
        pLegend->setVisible(false); // or there would be two in one place once the item is shown again
    }
}
