#pragma once

#include "scene/displaytype.h"

#include <QHash>

class IDrawable;

/** What items are drawn as while the camera moves. */
enum Demotion_e { DemotionOff = 0, DemotionWireframe = 1, DemotionBoundingBox = 2 };

/** Shows the surfaces of a view as wireframes while it moves, and then as they were. */
class CDemotion
{
public:
    void Set(Demotion_e eDemotion) { m_eDemotion = eDemotion; }
    bool ShowsBoxes() const { return m_eDemotion == DemotionBoundingBox; }
    /** Before each frame of the view. */
    void Show(qint64 nViewId, bool bMoving);

private:
    /** What a demotion changes of a drawable. */
    struct SShownParts
    {
        DisplayType_e eType;
        bool bWireframe, bShaded, bNodes, bOutlines, bContours, bVectors;
    };

    void Demote(qint64 nViewId);
    void Restore(qint64 nViewId);

    Demotion_e m_eDemotion = DemotionOff;
    bool m_bDemoted = false;
    QHash<IDrawable*, SShownParts> m_saved;
};
