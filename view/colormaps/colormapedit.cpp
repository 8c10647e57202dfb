#include "view/colormaps/colormapedit.h"

#include "data/variables/variablemanager.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "view/annotations/annotationcolormap.h"

namespace {

/** Of the scalar that a drawable shows, over a block or (-1) all of the case. */
SValueRange VariableRange(const IDrawable& drawable, const ISelectable& item, qint64 nBlockId)
{
    IVariable* const pVariable = CVariableManager::Instance().GetVariable(drawable.scalarVariable());
    return pVariable ? pVariable->GetGlobalRange(item.viewId(), item.simulationId(), nBlockId)
                     : SValueRange();
}

SValueRange ShownRange(const IDrawable& drawable, const ISelectable& item)
{
    const QPointF own = drawable.scalarRange();
    if (own.x() <= own.y())
        return {own.x(), own.y()};
    return item.blockId() == -1 ? SValueRange() : VariableRange(drawable, item, item.blockId());
}

/** The ranges of all drawables as one. */
template <class RangeOf> SValueRange Joined(const QVector<ISelectable*>& items, RangeOf rangeOf)
{
    SValueRange range;
    for (const ISelectable* const pItem : items)
        for (const IDrawable* const pDrawable : pItem->drawables())
            range.Add(rangeOf(*pDrawable, *pItem));
    return range;
}

} // namespace

QVector<ISelectable*> ColormapEdit::Subjects(qint64 nViewId, qint64 nSimulationId, bool bAll)
{
    CSelectableManager& manager = CSelectableManager::Instance();
    QVector<ISelectable*> items =
        bAll ? manager.GetSelectables(nViewId, nSimulationId) : manager.GetSelected(nViewId, nSimulationId);
    items.erase(
        std::remove_if(items.begin(), items.end(), [](auto* pItem) { return pItem->drawables().isEmpty(); }),
        items.end());
    return items;
}

SValueRange ColormapEdit::ItemsRange(const QVector<ISelectable*>& items) { return Joined(items, ShownRange); }

SValueRange ColormapEdit::CaseRange(const QVector<ISelectable*>& items)
{
    return Joined(items, [](const IDrawable& drawable, const ISelectable& item) {
        return VariableRange(drawable, item, -1);
    });
}

void ColormapEdit::SetRange(const QVector<ISelectable*>& items, const SValueRange& range)
{
    for (ISelectable* const pItem : items) {
        if (range.IsEmpty())
            return;
        pItem->setColormapBindToLocal(false); // the local range would go ahead of this one
        pItem->setColormapValues(range.dMin, range.dMax);
    }
}

void ColormapEdit::ToggleLegends(const QVector<ISelectable*>& items)
{
    const auto IsShown = [](const ISelectable* pItem) {
        return !pItem->annotationColormap() || pItem->annotationColormap()->isVisible();
    };
    const bool bShow = !std::all_of(items.begin(), items.end(), IsShown);
    for (const ISelectable* const pItem : items)
        if (CAnnotationColormap* const pLegend = pItem->annotationColormap())
            pLegend->setVisible(bShow);
}

QString ColormapEdit::VariableText(const QVector<ISelectable*>& items)
{
    QVector<qint64> ids;
    for (const ISelectable* const pItem : items)
        for (const IDrawable* const pDrawable : pItem->drawables())
            if (!ids.contains(pDrawable->scalarVariable()))
                ids.append(pDrawable->scalarVariable());
    if (ids.size() > 1)
        return "various variables";
    const IVariable* const pVariable = CVariableManager::Instance().GetVariable(ids.value(0, -1));
    return pVariable ? pVariable->GetName() : QString();
}
