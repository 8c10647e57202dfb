#pragma once

#include <QtGlobal>

/** Lets the user edit the colormaps of the selected items of a view; who has dialogs installs itself. */
class IColormapEditor
{
public:
    virtual ~IColormapEditor() = default;
    /** True if the user accepted. */
    virtual bool EditColormap(qint64 nSimulationId, qint64 nViewId) = 0;

    /** Makes pEditor (not owned, may be null) the one in use; gives the former one. */
    static IColormapEditor* Install(IColormapEditor* pEditor);
    /** Null where no user is. */
    static IColormapEditor* Installed();
};
