#include "runs/process.h"

#include <QTemporaryDir>

namespace {

class Process : public testing::Test
{
protected:
    Process()
    {
        QObject::connect(&m_process, &CProcess::SignalStateChanged, [this](qlonglong nId, auto eState) {
            EXPECT_EQ(nId, 7);
            m_states.append(eState);
        });
    }
    bool WaitForEnd()
    {
        return QTest::qWaitFor([&] { return !m_process.IsRunning(); }, 10000);
    }

    CProcess m_process{7};
    QVector<int> m_states;
};

} // namespace

TEST_F(Process, ARunPassesThroughItsStatesAndBothStreamsAreKeptApart)
{
    m_process.Start("/bin/sh", {"-c", "echo out; echo err >&2"});
    EXPECT_EQ(m_process.GetState(), QProcess::Starting);
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(m_states, QVector<int>({1, 2, 0}));
    EXPECT_EQ(m_process.TakeStandardOutput(), "out\n");
    EXPECT_EQ(m_process.TakeStandardError(), "err\n");
    EXPECT_EQ(m_process.TakeStandardOutput(), "") << "taken once";
}

TEST_F(Process, ACommandLineIsSplitAtBlanksAndRunsInItsDirectory)
{
    QTemporaryDir folder;
    m_process.SetWorkingDirectory(folder.path());
    m_process.Start("touch plain \"with blank\"");
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(QFile::exists(folder.filePath("plain")));
    EXPECT_TRUE(QFile::exists(folder.filePath("with blank")));
}

TEST_F(Process, AProgramThatCannotStartEndsWithALineOfErrorText)
{
    for (const char* const sCommand : {"/nowhere/solver -f input", ""}) {
        m_states.clear();
        m_process.Start(QString(sCommand));
        ASSERT_TRUE(WaitForEnd()) << "'" << sCommand << "' never ended";
        EXPECT_EQ(m_states, QVector<int>({1, 0})) << sCommand;
        EXPECT_FALSE(m_process.TakeStandardError().isEmpty());
    }
}

TEST_F(Process, KillEndsARunAndASecondStartLeavesARunAlone)
{
    m_process.Start("sleep 60");
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_process.GetState() == QProcess::Running; }));
    m_process.Start("/bin/echo other");
    EXPECT_EQ(m_process.GetState(), QProcess::Running);
    m_process.Kill();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(m_states, QVector<int>({1, 2, 0}));
    EXPECT_FALSE(m_process.TakeStandardOutput().contains("other"));
    m_process.Kill(); // nothing to kill
}
