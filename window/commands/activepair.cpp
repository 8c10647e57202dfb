#include "window/commands/activepair.h"

#include "frame/widgetmanager.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"

SActivePair::SActivePair()
    : pSimulation(CWidgetManager::Instance().GetActiveSimulation()),
      nViewId(CWidgetManager::Instance().GetActiveViewId())
{}

QVector<ISelectable*> SActivePair::GetSelectables() const
{
    return pSimulation ? CSelectableManager::Instance().GetSelectables(nViewId, pSimulation->GetId())
                       : QVector<ISelectable*>();
}

QVector<ISelectable*> SActivePair::GetSubjects(bool bChildren) const
{
    QSet<qint64> itemIds;
    for (const ISelectable* const pSelectable : GetSelectables()) {
        if (!pSelectable->isSelected())
            continue;
        itemIds.insert(pSelectable->itemId());
        const CItem* const pItem = bChildren ? pSimulation->GetItem(pSelectable->itemId()) : nullptr;
        if (!pItem)
            continue;
        for (const qint64 nId : pItem->GetChildIds(-1, true))
            itemIds.insert(nId);
    }
    QVector<ISelectable*> subjects = GetSelectables();
    subjects.erase(std::remove_if(subjects.begin(), subjects.end(),
                                  [&](const ISelectable* p) { return !itemIds.contains(p->itemId()); }),
                   subjects.end());
    return subjects;
}
