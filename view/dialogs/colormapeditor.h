#pragma once

#include "view/annotations/icolormapeditor.h"

/** Opens CColormapDialog above the main window. */
class CColormapEditor : public IColormapEditor
{
public:
    /** Makes all legends use it from now on. */
    static void Install();

    bool EditColormap(qint64 nSimulationId, qint64 nViewId) override;
};
