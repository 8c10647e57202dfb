#pragma once

#include <QtGlobal>

class QWidget;

/** What a new view shows that comes from splitting another. */
enum ViewSplit_e {
    SplitEmpty,    ///< no case
    SplitInstance, ///< the same cases, whose display settings follow each other
    SplitCopy,     ///< cases of its own that start the same
    SplitPlotter,  ///< an analysis item
};

/**
 * One view of the main window's area, three-dimensional or of an analysis item. The area knows views only
 * through this and through the signals that both kinds have: SignalActivated, SignalSplit, SignalExpand and
 * SignalClose. A view index in them is the id of the view.
 */
class IViewer
{
public:
    virtual ~IViewer() = default;

    virtual QWidget* GetWidget() = 0;
    virtual qint64 GetViewId() const = 0;
    /** Marks the view as the one that commands apply to. */
    virtual void SetActive(bool bActive) = 0;
    /** The view fills the area alone, or is one of several again; its button follows. */
    virtual void SetExpanded(bool bExpanded) = 0;
    /** Whether the button that fills the area with this view makes sense: there are several views. */
    virtual void SetExpandable(bool bExpandable) = 0;
    /** Draws anew. */
    virtual void Refresh() = 0;
};
