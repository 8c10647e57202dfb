#include "frame/ui/progressdialog.h"

#include "frame/tasks/task.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <thread>

namespace {

/** Runs until it is aborted and the test lets it end. */
class CStubbornTask final : public CTask
{
public:
    using CTask::CTask;
    void Abort() override { MarkAborted(); }
    std::atomic<bool> m_bMayEnd = false;

private:
    TaskStatus_e Work() override
    {
        while (Step(0.5) || !m_bMayEnd)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return TaskOk;
    }
};

class CCreator : public CTaskCreator
{
public:
    void TaskFinished(qlonglong, TaskStatus_e eStatus) override { statuses.push_back(eStatus); }
    std::vector<TaskStatus_e> statuses;
};

class ProgressDialog : public testing::Test
{
protected:
    ProgressDialog()
    {
        CProgressDialog::Install();
        m_pTask->ShowProgressDialog();
    }
    ~ProgressDialog() override
    {
        CTask::InstallDialogs({});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /** Starts the task; fnUser acts when the dialog is up. */
    void Start(std::function<void(CProgressDialog&)> fnUser)
    {
        QTimer::singleShot(0, [fnUser] {
            auto* const pDialog = qobject_cast<CProgressDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(pDialog);
            fnUser(*pDialog);
        });
        m_pTask->Start();
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }

    CCreator m_creator;
    CStubbornTask* m_pTask = new CStubbornTask(&m_creator);
};

void PressAbort(CProgressDialog& dialog)
{
    QTest::mouseClick(dialog.findChild<QPushButton*>(), Qt::LeftButton);
}
void PressEscape(CProgressDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }
void CloseFrame(CProgressDialog& dialog) { dialog.close(); }

struct SCancelCase
{
    const char* sName;
    void (*fnAct)(CProgressDialog&);
    friend void PrintTo(const SCancelCase& given, std::ostream* pOut) { *pOut << given.sName; }
};
class ProgressDialogCancel : public ProgressDialog, public testing::WithParamInterface<SCancelCase>
{};

} // namespace

TEST_P(ProgressDialogCancel, TheDialogStaysUntilTheWorkHasNoticed)
{
    Start([this](CProgressDialog& dialog) {
        GetParam().fnAct(dialog);
        EXPECT_TRUE(m_pTask->IsAborted());
        QTest::qWait(20);
        EXPECT_TRUE(dialog.isVisible());
        m_pTask->m_bMayEnd = true;
    });
    EXPECT_EQ(m_creator.statuses, std::vector{TaskAborted});
}

INSTANTIATE_TEST_SUITE_P(Actions, ProgressDialogCancel,
                         testing::Values(SCancelCase{"Abort", PressAbort}, SCancelCase{"Escape", PressEscape},
                                         SCancelCase{"close button", CloseFrame}));

TEST_F(ProgressDialog, ShowsABusyBarUntilTheTaskTellsHowFarItIs)
{
    m_pTask->SetProgressText("Saving grids");
    Start([this](CProgressDialog& dialog) {
        auto* const pBar = dialog.findChild<QProgressBar*>();
        EXPECT_EQ(dialog.labelText(), "Saving grids");
        EXPECT_EQ(dialog.findChild<QPushButton*>()->text(), "Abort");
        EXPECT_EQ(dialog.windowModality(), Qt::ApplicationModal);
        EXPECT_TRUE(QTest::qWaitFor([&] { return pBar->maximum() == 100 && pBar->value() == 50; }));
        m_pTask->m_bMayEnd = true;
        m_pTask->Abort();
    });
}

TEST_F(ProgressDialog, IsNotSeenBeforeTheTaskStarts)
{
    for (const QWidget* const pWidget : QApplication::topLevelWidgets())
        EXPECT_FALSE(pWidget->isVisible());
    Start([this](CProgressDialog& dialog) {
        EXPECT_TRUE(dialog.isVisible());
        m_pTask->m_bMayEnd = true;
        m_pTask->Abort();
    });
}
