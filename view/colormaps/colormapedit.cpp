#include "view/colormaps/colormapedit.h"

#include "scene/selectablemanager.h"
#include "view/annotations/annotationcolormap.h"
#include "view/caseranges.h"

namespace {

/** Of the scalar, though an own colour may stand in for it now. */
SValueRange ShownRange(IDrawable& drawable, const ISelectable&)
{
    const bool bOwnColor = drawable.geometricColor();
    drawable.setGeometricColor(false);
    drawable.build(); // does nothing where all is as it was
    const QPointF own = drawable.scalarRange();
    drawable.setGeometricColor(bOwnColor);
    drawable.build();
    return {own.x(), own.y()};
}

/** The ranges of all drawables as one. */
template <class RangeOf> SValueRange Joined(const QVector<ISelectable*>& items, RangeOf rangeOf)
{
    SValueRange range;
    for (const ISelectable* const pItem : items)
        for (IDrawable* const pDrawable : pItem->drawables())
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
    CCaseRanges ranges;
    return Joined(items, [&](const IDrawable& drawable, const ISelectable& item) {
        return ranges.Get(item, drawable.scalarVariable()).value_or(SValueRange());
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
