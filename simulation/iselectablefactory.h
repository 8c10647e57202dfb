#pragma once

#include <QtGlobal>

class CItem;
class ISelectable;
struct SItemPart;

/**
 * Who makes the selectable that shows an item in a view. The view library installs itself at start-up;
 * without it (a run with no view) items have none.
 */
class ISelectableFactory
{
public:
    virtual ~ISelectableFactory() = default;
    /** A new selectable of the part's kind for the view, for the caller to give to CSelectableManager. */
    virtual ISelectable* CreateItemSelectable(CItem& item, const SItemPart& part, qint64 nViewId) = 0;

    /** Makes pFactory (not owned, may be null) the one in use; gives the former one. */
    static ISelectableFactory* Install(ISelectableFactory* pFactory);
    static ISelectableFactory* Installed();
};
