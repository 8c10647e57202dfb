#include "view/selectables/selectablefactory.h"

#include "simulation/item.h"
#include "view/selectables/itemselectable.h"
#include "view/selectables/kinds.h"

ISelectable* CSelectableFactory::CreateItemSelectable(CItem& item, const SItemPart& part, qint64 nViewId)
{
    const SKindRow* const pRow = FindKind(part.eKind);
    return pRow && pRow->MakeSelectable ? pRow->MakeSelectable(item, part.nPartId, nViewId)
                                        : new CItemSelectable(item, nViewId);
}
