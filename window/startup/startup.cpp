#include "window/startup/startup.h"

#include "frame/applicationinfo.h"
#include "frame/moduleregistry.h"
#include "frame/preferences/preferences.h"
#include "frame/tasks/task.h"
#include "frame/themeicon.h"
#include "frame/ui/messageboxprompt.h"
#include "frame/ui/progressdialog.h"
#include "simulation/simulationcases.h"
#include "view/dialogs/colormapeditor.h"
#include "view/selectables/selectablefactory.h"
#include "view/shownvariables.h"
#include "view/ui/surfaceformat.h"
#include "window/mainwindow.h"
#include "window/startup/caserecovery.h"
#include "window/startup/commandline.h"
#include "window/startup/startuptimings.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int SAMPLES = 8; // for each pixel of a view

/** Messages and the progress of tasks reach the user while this lives; a command-line run has none. */
class CUserScope
{
public:
    CUserScope()
    {
        UserPrompt::Install(&m_prompt);
        CColormapEditor::Install();
        CProgressDialog::Install();
    }
    ~CUserScope()
    {
        CTask::InstallDialogs({});
        UserPrompt::Install(nullptr);
    }

private:
    CMessageBoxPrompt m_prompt;
};

int RunInteractive(const QString& sFileName)
{
    const CUserScope user;
    CMainWindow window;
    StartupTimings::PrintAfterFirstPaint(&window);
    window.ShowAsStored();
    StartupTimings::Note("shown");
    if (!sFileName.isEmpty())
        window.SlotOpenSimulation(sFileName);
    CCaseRecovery recovery(CCaseRecovery::DefaultRoot());
    QObject::connect(&recovery, &CCaseRecovery::SignalOpenSaved, &window, &CMainWindow::SlotOpenSimulation);
    QObject::connect(&window, &CMainWindow::SignalCaseSaved, &recovery, &CCaseRecovery::SlotKeepCases);
    QTimer::singleShot(0, &recovery, &CCaseRecovery::OfferLostCases); // the window comes first
    const int nStatus = QApplication::exec();
    recovery.End();
    return nStatus;
}

int RunModule(const QString& sModule, QApplication& application, int argc, char** argv)
{
    // Modules write paths that depend on the user's settings; without a window nothing saves them.
    CPreferences::Instance().Load(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    CModuleRegistry& registry = CModuleRegistry::Instance();
    registry.CreateModules();
    registry.InitializeAll();
    IModuleInterface* const pModule = registry.FindByName(sModule);
    if (!pModule) {
        std::fputs("Failed to locate the given module\n", stderr);
        return 1;
    }
    return pModule->Run(&application, argc, argv);
}

int Run(const SCommandLine& commandLine, QApplication& application, int argc, char** argv)
{
    const CSimulationCases cases;
    const CSelectableFactory selectables;
    const CShownVariables shownVariables;
    try {
        if (commandLine.eMode == SCommandLine::RunModule)
            return RunModule(commandLine.sModule, application, argc, argv);
        return RunInteractive(commandLine.sFileName);
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "%s: %s\n", ApplicationInfo::NAME, exception.what());
    } catch (...) {
        std::fprintf(stderr, "%s: unknown exception\n", ApplicationInfo::NAME);
    }
    return 0;
}

} // namespace

int RunApplication(int argc, char** argv)
{
    StartupTimings::Note("main");
    QStringList sArgumentList;
    for (int n = 0; n < argc; ++n)
        sArgumentList.append(QString::fromLocal8Bit(argv[n]));
    const SCommandLine commandLine = ParseCommandLine(sArgumentList);
    if (commandLine.eMode == SCommandLine::PrintAndExit) {
        std::fputs(qPrintable(commandLine.sText), stdout);
        return 0;
    }
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QCoreApplication::setAttribute(Qt::AA_UseDesktopOpenGL);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QSurfaceFormat::setDefaultFormat(ViewSurfaceFormat(SAMPLES));
    QApplication application(argc, argv);
    StartupTimings::Note("application");
    QGuiApplication::setDesktopFileName("zento"); // a desktop finds the name and the large icon by it
    QApplication::setWindowIcon(ThemeIcon(":/Icons/zento.svg"));
    // Fixes the size that the platform reports, so that a later change of the desktop's font leaves it.
    QFont font = QApplication::font();
    font.setPointSize(font.pointSize());
    QApplication::setFont(font);
    return Run(commandLine, application, argc, argv);
}
