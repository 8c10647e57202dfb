#include "view/variablechoice.h"

#include "data/variables/variablegroup.h"
#include "data/variables/variablemanager.h"
#include "frame/novalue.h"
#include "view/caseranges.h"

#include <tuple>

namespace {

/** Listed ones of the kind in their order. */
QVector<qint64> Sorted(const QVector<qint64>& ids, VariableKind_e eKind)
{
    const CVariableManager& manager = CVariableManager::Instance();
    QVector<qint64> listed;
    std::copy_if(ids.begin(), ids.end(), std::back_inserter(listed), [&](qint64 nId) {
        return manager.GetVariable(nId)->IsListed() && manager.GetVariable(nId)->GetKind() == eKind;
    });
    const auto Key = [&](qint64 nId) {
        return std::tuple(GroupOf(manager.GetVariable(nId)), manager.GetVariable(nId)->GetName());
    };
    std::stable_sort(listed.begin(), listed.end(), [&](qint64 a, qint64 b) { return Key(a) < Key(b); });
    return listed;
}

} // namespace

QVector<qint64> VariableChoice::ListedVariables(qint64 nSimulationId, VariableKind_e eKind)
{
    const CVariableManager& manager = CVariableManager::Instance();
    return Sorted(manager.ListVariables(nSimulationId, false), eKind) +
           Sorted(manager.ListVariables(NO_ID, false), eKind);
}

void VariableChoice::SetScalar(const QVector<ISelectable*>& items, qint64 nVariableId)
{
    CCaseRanges ranges;
    for (ISelectable* const pItem : items) {
        const bool bNew = pItem->scalarVariable() != nVariableId;
        pItem->setScalarVariable(nVariableId);
        if (nVariableId == NO_ID)
            continue;
        pItem->setGeometricColor(false);
        if (const SValueRange range = ranges.Get(*pItem, nVariableId); bNew && !range.IsEmpty())
            pItem->setColormapValues(range.dMin, range.dMax);
    }
}

void VariableChoice::SetVector(const QVector<ISelectable*>& items, qint64 nVariableId)
{
    for (ISelectable* const pItem : items)
        pItem->setVectorVariable(nVariableId);
}

void VariableChoice::SetThreshold(const QVector<ISelectable*>& items, qint64 nVariableId)
{
    CCaseRanges ranges;
    for (ISelectable* const pItem : items) {
        const bool bNew = pItem->thresholdVariable() != nVariableId;
        pItem->setThresholdVariable(nVariableId);
        pItem->setThresholdEnable(nVariableId != NO_ID);
        if (const SValueRange range = ranges.Get(*pItem, nVariableId); bNew && !range.IsEmpty())
            pItem->setThresholdRange({range.dMin, range.dMax});
    }
}

qint64 VariableChoice::CommonVariable(const QVector<ISelectable*>& items,
                                      qint64 (CDrawableGroup::*getter)() const)
{
    const qint64 nFirst = items.isEmpty() ? NO_ID : (items.first()->*getter)();
    const bool bAgree = std::all_of(items.begin(), items.end(),
                                    [&](const ISelectable* pItem) { return (pItem->*getter)() == nFirst; });
    return bAgree ? nFirst : NO_ID;
}
