#pragma once

#include <QString>

#include <functional>
#include <memory>

/**
 * What the user sees of a running task. The half of this folder with widgets implements it; where none is
 * installed (a batch run) tasks run without. GUI thread only.
 */
class ITaskDialog
{
public:
    virtual ~ITaskDialog() = default;
    virtual void SetText(const QString& sText) = 0;
    virtual void SetCancelText(const QString& sText) = 0;
    /** Shows a share from 0 to 1 instead of a busy bar. Handles no events. */
    virtual void SetDone(double dDone) = 0;
    /** Shows a busy bar and handles events, with all other windows locked, until Close or the application
     * quits. */
    virtual void RunModal() = 0;
    /** Ends RunModal and hides the dialog; it tells of no cancel any more. */
    virtual void Close() = 0;
};

/**
 * Makes a dialog that stays open, and calls fnCancelled each time the user presses its button, Escape or the
 * close button of its frame.
 */
using TaskDialogFactory = std::function<std::unique_ptr<ITaskDialog>(std::function<void()> fnCancelled)>;
