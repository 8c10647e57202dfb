#include "frame/tasks/task.h"

#include "frame/memory/memoryitem.h"
#include "frame/tasks/taskmanager.h"
#include "tests/support/logcapture.h"

#include <QTimer>

#include <stdexcept>
#include <thread>

namespace {

class CTestTask final : public CTask
{
public:
    using WorkFunction = std::function<TaskStatus_e(CTestTask&)>;
    CTestTask(CTaskCreator* pCreator, WorkFunction fnWork) : CTask(pCreator), m_fnWork(std::move(fnWork)) {}
    void Abort() override { MarkAborted(); }

private:
    TaskStatus_e Work() override { return m_fnWork(*this); }
    const WorkFunction m_fnWork;
};

class CTestCreator : public CTaskCreator
{
public:
    void TaskFinished(qlonglong nTaskId, TaskStatus_e eStatus) override
    {
        told.push_back({nTaskId, eStatus});
    }
    std::vector<std::pair<qint64, TaskStatus_e>> told;
};

/** A dialog without a window: what the tasks did with it. */
struct SFakeDialog : ITaskDialog
{
    explicit SFakeDialog(std::function<void()> fn) : fnCancelled(std::move(fn)) { s_pLast = this; }
    ~SFakeDialog() override { s_pLast = nullptr; }
    void SetText(const QString& s) override { sText = s; }
    void SetCancelText(const QString& s) override { sCancelText = s; }
    void SetDone(double dDone) override
    {
        ++s_nShown;
        s_dDone = dDone;
    }
    void RunModal() override
    {
        QTest::qSleep(20); // short work ends before the loop begins
        loop.exec();
    }
    void Close() override { loop.quit(); }

    std::function<void()> fnCancelled;
    QString sText, sCancelText;
    QEventLoop loop;
    static SFakeDialog* s_pLast;
    static int s_nShown;
    static double s_dDone;
};
SFakeDialog* SFakeDialog::s_pLast = nullptr;
int SFakeDialog::s_nShown = 0;
double SFakeDialog::s_dDone = 0;

class Task : public testing::Test
{
protected:
    Task()
    {
        CTask::InstallDialogs(
            [](std::function<void()> fn) { return std::make_unique<SFakeDialog>(std::move(fn)); });
    }
    ~Task() override
    {
        CTask::InstallDialogs({});
        DeleteEnded();
        EXPECT_EQ(CTaskManager::Instance().CountTasks(), 0);
    }

    /** Lives until the manager lets it go. */
    CTestTask* Make(CTestTask::WorkFunction fnWork) { return new CTestTask(&m_creator, std::move(fnWork)); }
    static void DeleteEnded() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    static TaskStatus_e UntilAborted(CTestTask& task)
    {
        while (task.Step(-1))
            std::this_thread::yield();
        return TaskOk;
    }

    CTestCreator m_creator;
};

} // namespace

enum Wait_e { WaitOnThread, WaitInLoop, WaitInDialog, WaitInBoth };
struct SRunCase
{
    Wait_e eWait;
    CTestTask::WorkFunction fnWork;
    TaskStatus_e eExpected;
    friend void PrintTo(const SRunCase& given, std::ostream* pOut)
    {
        *pOut << "wait " << given.eWait << ", status " << given.eExpected;
    }
};
class TaskRun : public Task, public testing::WithParamInterface<SRunCase>
{};

TEST_P(TaskRun, TheCreatorIsToldOnceBeforeStartReturnsAndTheTaskGoes)
{
    const SRunCase& given = GetParam();
    const CLogCapture log;
    QPointer<CTestTask> pTask = Make(given.fnWork);
    const qint64 nId = pTask->GetTaskId();
    if (given.eWait == WaitInDialog || given.eWait == WaitInBoth)
        pTask->ShowProgressDialog();
    pTask->SetWaitInEventLoop(given.eWait == WaitInLoop || given.eWait == WaitInBoth);
    QSignalSpy spy(pTask, &CTask::Finished);
    pTask->Start();
    EXPECT_EQ(m_creator.told, (std::vector{std::pair(nId, given.eExpected)}));
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(SFakeDialog::s_pLast, nullptr);
    ASSERT_TRUE(pTask) << "goes only when control is back in the event loop";
    pTask->Start();
    DeleteEnded();
    EXPECT_FALSE(pTask);
    EXPECT_EQ(m_creator.told.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TaskRun,
    testing::Values(SRunCase{WaitOnThread, [](CTestTask&) { return TaskOk; }, TaskOk},
                    SRunCase{WaitInLoop, [](CTestTask&) { return TaskOk; }, TaskOk},
                    SRunCase{WaitInDialog, [](CTestTask&) { return TaskOk; }, TaskOk},
                    SRunCase{WaitInBoth, [](CTestTask&) { return TaskOk; }, TaskOk},
                    SRunCase{WaitInLoop, [](CTestTask&) { return TaskFailed; }, TaskFailed},
                    SRunCase{WaitInDialog, [](CTestTask&) -> TaskStatus_e { throw std::runtime_error("x"); },
                             TaskFailed},
                    SRunCase{WaitOnThread, [](CTestTask&) -> TaskStatus_e { throw 7; }, TaskFailed}));

TEST_F(Task, AnExceptionLeavesItsTextInTheLog)
{
    const CLogCapture log;
    CTestTask* const pTask = Make([](CTestTask&) -> TaskStatus_e { throw std::runtime_error("disk full"); });
    const qint64 nId = pTask->GetTaskId();
    pTask->Start();
    EXPECT_EQ(log.Lines(), QStringList(QString("Task %1 failed: disk full").arg(nId)));
}

TEST_F(Task, CancelInTheDialogStopsTheWork)
{
    CTestTask* const pTask = Make(UntilAborted);
    pTask->ShowProgressDialog();
    pTask->SetProgressText("Saving grids");
    pTask->SetCancelText("Stop");
    EXPECT_EQ(SFakeDialog::s_pLast->sText, "Saving grids");
    EXPECT_EQ(SFakeDialog::s_pLast->sCancelText, "Stop");
    QTimer::singleShot(0, [] { SFakeDialog::s_pLast->fnCancelled(); });
    pTask->Start();
    ASSERT_EQ(m_creator.told.size(), 1u);
    EXPECT_EQ(m_creator.told[0].second, TaskAborted);
}

TEST_F(Task, WithoutDialogsInstalledTheTaskRunsAllTheSame)
{
    CTask::InstallDialogs({});
    CTestTask* const pTask = Make([](CTestTask& task) { return task.Step(0.5) ? TaskOk : TaskFailed; });
    pTask->ShowProgressDialog();
    pTask->SetProgressText("Saving grids");
    pTask->Start();
    EXPECT_EQ(m_creator.told[0].second, TaskOk);
}

TEST_F(Task, StartClearsAnEarlierAbort)
{
    CTestTask* const pTask = Make([](CTestTask& task) { return task.IsAborted() ? TaskFailed : TaskOk; });
    pTask->Abort();
    pTask->Start();
    EXPECT_EQ(m_creator.told[0].second, TaskOk);
}

TEST_F(Task, ProgressIsShownOnceForEachPercent)
{
    SFakeDialog::s_nShown = 0;
    CTestTask* const pTask = Make([](CTestTask& task) {
        for (int n = 0; n <= 20000; ++n)
            if (!task.Step(n / 20000.0))
                return TaskFailed;
        return TaskOk;
    });
    pTask->ShowProgressDialog();
    pTask->Start();
    EXPECT_EQ(m_creator.told[0].second, TaskOk);
    EXPECT_GE(SFakeDialog::s_nShown, 1);
    EXPECT_LE(SFakeDialog::s_nShown, 101);
    EXPECT_EQ(SFakeDialog::s_dDone, 1.0);
}

TEST_F(Task, ATaskRemovedWhileItRunsIsAbortedAndTellsNobody)
{
    QPointer<CTestTask> pTask = Make(UntilAborted);
    pTask->SetWaitInEventLoop(true);
    QTimer::singleShot(0, [&] { CTaskManager::Instance().Remove(pTask); });
    pTask->Start();
    DeleteEnded();
    EXPECT_FALSE(pTask);
    EXPECT_TRUE(m_creator.told.empty());
}

TEST_F(Task, ATaskRemovedBeforeItsStartNeverRuns)
{
    QPointer<CTestTask> pTask = Make([](CTestTask&) { return TaskOk; });
    CTaskManager::Instance().Remove(pTask);
    CTaskManager::Instance().Remove(pTask);
    pTask->Start();
    EXPECT_TRUE(m_creator.told.empty());
    DeleteEnded();
    EXPECT_FALSE(pTask);
}

TEST_F(Task, ACreatorMayEndBeforeItsTask)
{
    auto pCreator = std::make_unique<CTestCreator>();
    auto* const pTask = new CTestTask(pCreator.get(), UntilAborted);
    pTask->SetWaitInEventLoop(true);
    QTimer::singleShot(0, [&] {
        pCreator.reset();
        pTask->Abort();
    });
    pTask->Start();
}

TEST_F(Task, TheEndOfTheApplicationAbortsATask)
{
    for (const bool bDialog : {false, true}) {
        m_creator.told.clear();
        QTimer::singleShot(0, [&] {
            CTestTask* const pTask = Make(UntilAborted);
            if (bDialog)
                pTask->ShowProgressDialog();
            pTask->SetWaitInEventLoop(true);
            QTimer::singleShot(0, [] { QCoreApplication::quit(); });
            pTask->Start();
        });
        QCoreApplication::exec();
        ASSERT_EQ(m_creator.told.size(), 1u);
        EXPECT_EQ(m_creator.told[0].second, TaskAborted);
        DeleteEnded();
    }
}

TEST_F(Task, TheWorkCanBeDoneWithoutAThread)
{
    const std::thread::id here = std::this_thread::get_id();
    CTestTask* const pTask =
        Make([&](CTestTask&) { return std::this_thread::get_id() == here ? TaskOk : TaskFailed; });
    EXPECT_EQ(pTask->RunHere(), TaskOk);
    CTaskManager::Instance().Remove(pTask);
    EXPECT_TRUE(m_creator.told.empty());
}

TEST_F(Task, ItemsThatHoldNoBytesCountAsUnloaded)
{
    struct SItem : CMemoryItem
    {
        explicit SItem(qint64 nBytes) { SetBytesInUse(nBytes); }
    } empty(0), full(1);
    CTestTask* const pTask = Make([](CTestTask&) { return TaskOk; });
    EXPECT_EQ(pTask->CountUnloaded({&empty, &full, nullptr, &empty}), 2);
    CTaskManager::Instance().Remove(pTask);
}
