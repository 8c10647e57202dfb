#include "view/takenranges.h"

#include "scene/selectablemanager.h"
#include "simulation/simulationmanager.h"
#include "view/caseranges.h"

namespace {

/** An item's range has an extent even where that of the variable has none. */
bool IsTakenFrom(const std::optional<SValueRange>& variable, const SValueRange& item)
{
    return !variable ||
           (item.dMin == variable->dMin && (item.dMax == variable->dMax || variable->dMin == variable->dMax));
}

SValueRange ColorRange(const ISelectable& item)
{
    const SColormapRecord record = item.colormap();
    const auto [dMin, dMax] = std::minmax(record.dMinimum, record.dMaximum); // inverted ones too
    return {dMin, dMax};
}

QVector<ISelectable*> AllItems()
{
    const CSimulationManager& manager = CSimulationManager::Instance();
    QVector<ISelectable*> items;
    for (const qint64 nSimulationId : manager.GetSimulationIds())
        for (const qint64 nViewId : manager.GetViewIds(nSimulationId))
            for (ISelectable* const pItem :
                 CSelectableManager::Instance().GetSelectables(nViewId, nSimulationId))
                if (!pItem->drawables().isEmpty())
                    items.append(pItem);
    return items;
}

} // namespace

CTakenRanges::CTakenRanges(qint64 nVariableId)
{
    const IVariable* const pVariable = CVariableManager::Instance().GetVariable(nVariableId);
    if (!pVariable)
        return;
    const QVector<qint64> changing = pVariable->GetDependants(true) + QVector<qint64>{nVariableId};
    CCaseRanges ranges;
    for (ISelectable* const pItem : AllItems()) {
        if (const qint64 nScalar = pItem->scalarVariable();
            changing.contains(nScalar) && IsTakenFrom(ranges.Get(*pItem, nScalar), ColorRange(*pItem)))
            m_scalars.append(pItem);
        const QPointF threshold = pItem->thresholdRange();
        if (const qint64 nThreshold = pItem->thresholdVariable();
            changing.contains(nThreshold) &&
            IsTakenFrom(ranges.Get(*pItem, nThreshold), {threshold.x(), threshold.y()}))
            m_thresholds.append(pItem);
    }
}

void CTakenRanges::TakeAnew() const
{
    CCaseRanges ranges;
    for (ISelectable* const pItem : m_scalars)
        if (const auto range = ranges.Get(*pItem, pItem->scalarVariable()))
            pItem->setColormapValues(range->dMin, range->dMax);
    for (ISelectable* const pItem : m_thresholds)
        if (const auto range = ranges.Get(*pItem, pItem->thresholdVariable()))
            pItem->setThresholdRange({range->dMin, range->dMax});
}
