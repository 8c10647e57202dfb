#include "frame/tasks/task.h"

#include "frame/memory/imemoryitem.h"
#include "frame/messagesink.h"
#include "frame/tasks/taskmanager.h"
#include "frame/tasks/threadhandover.h"

#include <QFutureInterface>
#include <QRunnable>
#include <QThreadPool>

#include <algorithm>
#include <exception>
#include <utility>

namespace {
std::atomic<qint64> s_nNextTaskId = 1;
TaskDialogFactory s_fnMakeDialog;

/**
 * Runs a function on a thread of the pool: QtConcurrent::run in small. In its place the hand-over to the
 * thread and back can be told to the thread sanitizer, before either side touches what the other has written.
 */
class CPoolRun final : public QRunnable
{
public:
    static QFuture<void> Submit(QThreadPool& pool, std::function<void()> fnWork)
    {
        auto* const pRun = new CPoolRun(std::move(fnWork));
        pRun->m_future.setThreadPool(&pool);
        pRun->m_future.setRunnable(pRun); // so that who waits can run it where no thread is free
        pRun->m_future.reportStarted();
        const QFuture<void> future = pRun->m_future.future();
        ThreadHandOver::Give(pRun);
        pool.start(pRun);
        return future;
    }

    void run() override
    {
        ThreadHandOver::Take(this);
        m_fnWork();
        m_future.reportFinished();
    }

private:
    explicit CPoolRun(std::function<void()> fnWork) : m_fnWork(std::move(fnWork)) {}

    const std::function<void()> m_fnWork;
    QFutureInterface<void> m_future;
};

} // namespace

CTask::CTask(CTaskCreator* pCreator) : m_pCreator(pCreator), m_nTaskId(s_nNextTaskId++)
{
    qRegisterMetaType<TaskStatus_e>("TaskStatus_e");
    connect(&m_watcher, &QFutureWatcherBase::finished, this, &CTask::watchFinished);
    CTaskManager::Instance().Add(this);
}

CTask::~CTask() { Q_ASSERT(m_eState != StateRunning); }

TaskDialogFactory CTask::InstallDialogs(TaskDialogFactory fnMake)
{
    return std::exchange(s_fnMakeDialog, std::move(fnMake));
}

TaskStatus_e CTask::RunHere()
{
    m_bAborted = false;
    const TaskStatus_e eStatus = WorkSafely();
    return m_bAborted ? TaskAborted : eStatus;
}

TaskStatus_e CTask::WorkSafely()
{
    QString sReason = "unknown exception";
    try {
        return Work();
    } catch (const std::exception& exception) {
        sReason = exception.what();
    } catch (...) {
    }
    CMessageSink::Instance().Log(QString("Task %1 failed: %2").arg(m_nTaskId).arg(sReason));
    return TaskFailed;
}

bool CTask::Step(double dDone)
{
    const int nPercent = dDone < 0 ? -1 : int(100 * std::min(dDone, 1.0));
    // By name and without arguments, so that nothing but the number goes from thread to thread.
    if (m_nPercent.exchange(nPercent) != nPercent && m_bDialogWanted)
        QMetaObject::invokeMethod(this, "showDone", Qt::QueuedConnection);
    return !m_bAborted;
}

void CTask::showDone()
{
    if (const int nPercent = m_nPercent; m_pDialog && nPercent >= 0)
        m_pDialog->SetDone(nPercent / 100.0);
}

void CTask::Abort() {}

void CTask::Start()
{
    if (m_eState != StateNew || m_bRetired)
        return;
    m_eState = StateRunning;
    m_bAborted = false;
    m_future = CPoolRun::Submit(*QThreadPool::globalInstance(), [this] {
        m_eResult = WorkSafely();
        ThreadHandOver::Give(this);
    });
    m_watcher.setFuture(m_future);
    Wait();
    ThreadHandOver::Take(this);
    m_pDialog.reset();
    TellCreator(m_bAborted ? TaskAborted : m_eResult.load());
    m_eState = StateEnded;
    if (m_bRetired)
        deleteLater(); // removed while it ran
    else
        CTaskManager::Instance().Remove(this);
}

/** Until the work function has ended. A signal that came before a loop is entered waits for it in the queue.
 */
void CTask::Wait()
{
    if (m_pDialog)
        m_pDialog->RunModal();
    if (m_bWaitInEventLoop && !m_bWorkEnded)
        m_eventLoop.exec();
    if (m_bWorkEnded)
        return;
    if (m_pDialog || m_bWaitInEventLoop)
        Abort(); // only the end of the application ends a loop before watchFinished does
    m_future.waitForFinished();
    watchFinished();
}

void CTask::watchFinished()
{
    m_bWorkEnded = true;
    m_watcher.disconnect(this);
    if (m_pDialog)
        m_pDialog->Close();
    m_eventLoop.quit();
}

void CTask::TellCreator(TaskStatus_e eStatus)
{
    emit Finished(m_nTaskId, eStatus);
    if (CTaskCreator* const pCreator = m_pCreator)
        pCreator->TaskFinished(m_nTaskId, eStatus);
    m_pCreator.clear();
}

/** The manager has let the task go. */
void CTask::Retire()
{
    m_bRetired = true;
    if (m_eState != StateRunning) {
        deleteLater();
        return;
    }
    m_pCreator.clear();
    Abort(); // Start deletes
}

qint64 CTask::CountUnloaded(const QVector<IMemoryItem*>& items) const
{
    return std::count_if(items.begin(), items.end(),
                         [](const IMemoryItem* pItem) { return pItem && pItem->GetBytesInUse() == 0; });
}

void CTask::ShowProgressDialog()
{
    m_bDialogWanted = true;
    if (s_fnMakeDialog && !m_pDialog)
        m_pDialog = s_fnMakeDialog([this] { Abort(); });
}

void CTask::SetCancelText(const QString& sText)
{
    if (m_pDialog)
        m_pDialog->SetCancelText(sText);
}

void CTask::SetProgressText(const QString& sText)
{
    if (m_pDialog)
        m_pDialog->SetText(sText);
}

void CTask::SetWaitInEventLoop(bool bWait) { m_bWaitInEventLoop = bWait; }
