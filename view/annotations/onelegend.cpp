#include "view/annotations/onelegend.h"

#include "scene/iselectable.h"
#include "scene/selectablekeys.h"
#include "view/annotations/annotationcolormap.h"

CAnnotationColormap* ShowOneLegend(const QVector<ISelectable*>& items)
{
    for (ISelectable* const pItem : items) {
        CAnnotationColormap* const pLegend = pItem->annotationColormap();
        if (!pLegend || !pItem->isVisible() || !Get(*pItem, SelectableKey::HAS_LEGEND))
            continue;
        SLegendSettings settings = pLegend->settings();
        settings.subtitle.bVisible = items.size() == 1;
        pLegend->setSettings(settings);
        pLegend->setVisible(true);
        return pLegend;
    }
    return nullptr;
}
