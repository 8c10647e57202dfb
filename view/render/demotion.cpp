#include "view/render/demotion.h"

#include "scene/idrawable.h"
#include "view/viewdrawables.h"

void CDemotion::Show(qint64 nViewId, bool bMoving)
{
    if (m_eDemotion != DemotionWireframe || !bMoving)
        Restore(nViewId);
    else if (!std::exchange(m_bDemoted, true))
        Demote(nViewId);
}

void CDemotion::Demote(qint64 nViewId)
{
    for (IDrawable* const pDrawable : ViewDrawables::Visible(nViewId)) {
        const DisplayType_e eType = pDrawable->displayType();
        if (!pDrawable->canDemote() || eType == DisplayContour || eType == DisplayNodes ||
            eType == DisplayVector)
            continue;
        m_saved.insert(pDrawable, {eType, pDrawable->drawWireframe(), pDrawable->drawShaded(),
                                   pDrawable->drawNodes(), pDrawable->drawOutlines(),
                                   pDrawable->drawContoursFlag(), pDrawable->drawVectorsFlag()});
        if (eType > DisplayWireframe)
            pDrawable->setDisplayTypeQuick(DisplayWireframe);
    }
}

void CDemotion::Restore(qint64 nViewId)
{
    if (!std::exchange(m_bDemoted, false))
        return;
    const QHash<IDrawable*, SShownParts> saved = std::exchange(m_saved, {});
    for (IDrawable* const pDrawable : ViewDrawables::All(nViewId)) // those that still live
        if (const auto parts = saved.constFind(pDrawable); parts != saved.cend()) {
            pDrawable->setDisplayTypeQuick(parts->eType);
            pDrawable->setDrawWireframe(parts->bWireframe);
            pDrawable->setDrawShaded(parts->bShaded);
            pDrawable->setDrawNodes(parts->bNodes);
            pDrawable->setDrawOutlines(parts->bOutlines);
            pDrawable->setDrawContours(parts->bContours);
            pDrawable->setDrawVectors(parts->bVectors);
        }
}
