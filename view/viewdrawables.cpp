#include "view/viewdrawables.h"

#include "scene/drawablemanager.h"
#include "scene/idrawable.h"
#include "simulation/simulationmanager.h"

QVector<IDrawable*> ViewDrawables::All(qint64 nViewId)
{
    QVector<IDrawable*> drawables;
    for (const qint64 nSimulationId : CSimulationManager::Instance().GetSimulationIds(nViewId))
        drawables += CDrawableManager::Instance().GetDrawables(nViewId, nSimulationId);
    return drawables;
}

QVector<IDrawable*> ViewDrawables::Visible(qint64 nViewId)
{
    QVector<IDrawable*> visible = All(nViewId);
    visible.erase(
        std::remove_if(visible.begin(), visible.end(), [](const auto* p) { return !p->isVisible(); }),
        visible.end());
    return visible;
}
