// How the process starts and ends, seen from outside.
#include "frame/applicationinfo.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"

#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

namespace {

struct SRun
{
    int nStatus = -1;
    QString sOutput;
    QString sErrors;
};

class StartUp : public testing::Test
{
protected:
    StartUp()
    {
        m_environment.insert("QT_QPA_PLATFORM", "offscreen");
        m_environment.insert("XDG_CONFIG_HOME", m_settings.path());
        m_environment.insert("XDG_RUNTIME_DIR", m_settings.path());
    }

    /** For runs that show the window, whose views need OpenGL. False where there is no display. */
    bool UseDisplay()
    {
        m_environment.insert("QT_QPA_PLATFORM", "xcb");
        return m_environment.contains("DISPLAY");
    }

    SRun Run(const QStringList& sArgumentList)
    {
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.start(ZENTO_STARTUP_PROBE, sArgumentList);
        EXPECT_TRUE(process.waitForFinished(30000)) << "still running";
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << "crashed";
        return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
    }

    QTemporaryDir m_settings;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};

} // namespace

TEST_F(StartUp, AModulesRunHasThePreferencesTheArgumentsAndNoWindow)
{
    QSettings settings(m_settings.filePath("NOVRIK/Zento.conf"), QSettings::NativeFormat);
    CPreferences preferences;
    Set(preferences, PreferenceKey::FONT_INCREMENT, 4);
    settings.setValue("data", preferences.ToBytes());
    settings.sync();
    const SRun run = Run({"Plot3D", "report", "last"});
    EXPECT_EQ(run.nStatus, 3);
    EXPECT_EQ(run.sOutput, "initialize 1\ninitialize 6\narguments 4 last, window 0, font 4\n");
}

TEST_F(StartUp, AnUnknownModuleIsSaidOnStandardErrorAndGivesOne)
{
    for (const char* const sModule : {"plot3d", "Nobody"}) {
        const SRun run = Run({sModule, "x"});
        EXPECT_EQ(run.nStatus, 1);
        EXPECT_TRUE(run.sErrors.contains("Failed to locate the given module\n"));
    }
}

TEST_F(StartUp, AnExceptionEndsInOrderWithItsTextOnStandardError)
{
    const SRun run = Run({"Plot3D", "throw"});
    EXPECT_EQ(run.nStatus, 0);
    EXPECT_TRUE(run.sErrors.contains("thrown in a run"));
    if (!UseDisplay())
        return;
    m_environment.insert("PROBE_INTERACTIVE", "throw");
    const SRun interactive = Run({});
    EXPECT_EQ(interactive.nStatus, 0);
    EXPECT_TRUE(interactive.sErrors.contains("thrown in the event loop"));
}

TEST_F(StartUp, AQuestionInARunNeverWaits)
{
    const SRun run = Run({"Plot3D", "ask"});
    EXPECT_EQ(run.nStatus, 7);
    EXPECT_TRUE(run.sErrors.contains("Nobody is here"));
}

TEST_F(StartUp, TheEventLoopsStatusIsTheProcesssStatus)
{
    if (!UseDisplay())
        GTEST_SKIP() << "there is no display";
    m_environment.insert("PROBE_INTERACTIVE", "exit");
    EXPECT_EQ(Run({}).nStatus, 5);
}

TEST_F(StartUp, HelpAndVersionAnswerWithoutADisplay)
{
    m_environment.insert("QT_QPA_PLATFORM", "xcb");
    m_environment.remove("DISPLAY");
    EXPECT_EQ(Run({"--version"}).sOutput, "Zento 2026.1.2-0\n");
    const SRun help = Run({"--help"});
    EXPECT_EQ(help.nStatus, 0);
    EXPECT_TRUE(help.sOutput.startsWith("usage: zento"));
}
