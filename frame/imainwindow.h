#pragma once

#include <QImage>
#include <QString>

class ISimulation;
class IViewer;
struct SCapture;

/**
 * What the rest of the program asks of the main window, reached through CWidgetManager. The window
 * implements it; in a command-line run there is none.
 */
class IMainWindow
{
public:
    virtual ~IMainWindow() = default;
    /** Id of the view that commands apply to; -1 for none. */
    virtual qint64 GetActiveViewId() const = 0;
    /** The simulation that the view shows on top; null for none. */
    virtual ISimulation* GetActiveSimulation(qint64 nViewId) const = 0;
    /** Brings the state of all actions up to date. */
    virtual void UpdateActions() = 0;
    /** @param bForce  rebuild what is filled already, @param bAll  docks that are hidden too */
    virtual void RefreshDocks(qint64 nViewId, bool bForce, bool bAll) = 0;
    /** Repaints the active view. */
    virtual void UpdateActiveViewer(qint64 nFlags) = 0;
    /** A view by its place in the order in which the views were made, from 0; null out of range. */
    virtual IViewer* GetViewer(qint64 nIndex) const = 0;
    virtual IViewer* GetViewerById(qint64 nViewId) const = 0;
    virtual void SetStatusText(const QString& sText) = 0;
    /** Shows the terminal with the run of the active simulation. */
    virtual void RunInTerminal() = 0;
    /** Closes the analysis windows, then the main window. */
    virtual void CloseAll() = 0;
    /**
     * Stops (true, before a load) and restarts (false) the updates of all views of a simulation; between the
     * two the user sees the wait cursor.
     */
    virtual void BlockUpdates(qint64 nSimulationId, bool bBlock) = 0;
    /** A picture of the window, or of one view; null if it can't be drawn. */
    virtual QImage captureImage(const SCapture& capture) = 0;
};
