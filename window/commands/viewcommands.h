#pragma once

#include "view/iviewer.h"

#include "window/twinviews.h"

#include <QObject>

class CViewArea;

/** What splitting, closing and filling the area with a view means for the cases in it. */
class CViewCommands : public QObject
{
    Q_OBJECT

public:
    /** Connects the area, which must outlive it. */
    explicit CViewCommands(CViewArea& area);

    CTwinViews& GetTwins() { return m_twins; }

public slots:
    /** The first case that comes into a view is shown as a whole. */
    void SlotViewSimulationsChanged(qlonglong nViewId);
    /**
     * Makes a view beside the one that asks and makes it active. But for an empty one it shows the same
     * cases, the same one on top; a copy starts with the same display settings.
     */
    void SlotViewerSplit(qlonglong nViewIndex, Qt::Orientation eOrientation, ViewSplit_e eSplit);
    /** Closes the cases that are in no other view, unless the user refuses, then the view. The last view
     * stays, empty. */
    void SlotViewerClose(qlonglong nViewIndex);
    void SlotViewerExpand(qlonglong nViewIndex, bool bExpand);

private:
    CViewArea& m_area;
    CTwinViews m_twins;
    QHash<qint64, int> m_caseCounts; // by view, as of the last change
};
