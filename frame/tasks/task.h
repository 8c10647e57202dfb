#pragma once

#include "frame/tasks/iprogress.h"
#include "frame/tasks/itaskdialog.h"
#include "frame/tasks/taskcreator.h"

#include <QEventLoop>
#include <QFutureWatcher>
#include <QPointer>
#include <QVector>

#include <atomic>

class IMemoryItem;

/**
 * Long work in the background, with a dialog if wanted:
 *
 *     auto* pTask = new CSaveTask(this, sFileName);   // belongs to CTaskManager from now on
 *     pTask->ShowProgressDialog();
 *     pTask->SetProgressText("Saving");
 *     pTask->Start();                                 // this->TaskFinished(...) has been called after it
 *
 * A concrete task implements Work and, if it can be stopped, Abort. All except Step, Abort and IsAborted is
 * for the thread that made the task. A task is never deleted directly: Start lets it go at its end, and
 * CTaskManager::Remove does before it is started and while it runs.
 */
class CTask : public CTaskCreator, public IProgress
{
    Q_OBJECT

public:
    /** The creator is told at the end if it still lives then; null: nobody is. */
    explicit CTask(CTaskCreator* pCreator);

    /** Counts from 1 within the process. */
    qint64 GetTaskId() const { return m_nTaskId; }
    bool IsAborted() const { return m_bAborted; }

    /** Calls the work function on this thread, for a creator that needs neither; it then removes the task. */
    TaskStatus_e RunHere();
    /** For the work function: shows the share in the dialog, if there is one. False once the task is aborted.
     */
    bool Step(double dDone) override;

    /** What ShowProgressDialog makes dialogs with; an empty function: no dialogs. Gives the former one. */
    static TaskDialogFactory InstallDialogs(TaskDialogFactory fnMake);

public slots:
    /**
     * Asks the work function to stop. Does nothing here: a task that can be stopped calls MarkAborted. Any
     * thread; may be called several times.
     */
    virtual void Abort();

public:
    /**
     * Runs the work function on the global thread pool and returns when it has ended and the creator has been
     * told. Meanwhile events are handled in the dialog or in the event loop, if asked for. When the
     * application quits meanwhile, the task is aborted. A second call does nothing.
     */
    virtual void Start();
    /** How many of the items are not in memory; null ones don't count. */
    virtual qint64 CountUnloaded(const QVector<IMemoryItem*>& items) const;
    /** Start will show a dialog, where dialogs are installed. */
    virtual void ShowProgressDialog();
    /** The text of the dialog's button; without a dialog nothing. */
    virtual void SetCancelText(const QString& sText);
    /** The text above the dialog's bar; without a dialog nothing. */
    virtual void SetProgressText(const QString& sText);
    /** Start will handle events while it waits. */
    virtual void SetWaitInEventLoop(bool bWait);

signals:
    /** Just before the creator is told. */
    void Finished(qlonglong nTaskId, TaskStatus_e eStatus);

public slots:
    /** The work function has ended: ends the dialog and the event loop. */
    void watchFinished();

protected:
    /** Asserts that the work function doesn't run. */
    ~CTask() override;

    /**
     * The work, on a thread of the pool. Polls IsAborted or Step, and leaves nothing half-done behind when it
     * stops or fails. An exception counts as TaskFailed.
     */
    virtual TaskStatus_e Work() = 0;
    void MarkAborted() { m_bAborted = true; }

private slots:
    void showDone();

private:
    friend class CTaskManager;
    enum State_e { StateNew, StateRunning, StateEnded };

    TaskStatus_e WorkSafely();
    void Wait();
    void TellCreator(TaskStatus_e eStatus);
    void Retire();

    QPointer<CTaskCreator> m_pCreator;
    const qint64 m_nTaskId;
    QFutureWatcher<void> m_watcher;
    QFuture<void> m_future;
    std::atomic<TaskStatus_e> m_eResult =
        TaskFailed; // of the work function; not a result of the future, since
                    // either thread may be the last to let go of that one
    std::unique_ptr<ITaskDialog> m_pDialog;
    bool m_bDialogWanted = false;
    QEventLoop m_eventLoop;
    bool m_bWaitInEventLoop = false;
    State_e m_eState = StateNew;
    bool m_bWorkEnded = false; // watchFinished was here
    bool m_bRetired = false;   // no longer with the manager
    std::atomic<bool> m_bAborted = false;
    std::atomic<int> m_nPercent = -1; // to be shown; -1: not known
};
