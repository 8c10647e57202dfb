#include "window/mainwindow.h"

#include "frame/applicationinfo.h"
#include "frame/moduleregistry.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "frame/ui/fontincrement.h"
#include "frame/widgetmanager.h"
#include "simulation/panel/dockwidget.h"
#include "tests/support/promptscript.h"
#include "tests/support/simulationfixture.h"
#include "tests/support/testmodule.h"
#include "tests/support/testsettings.h"
#include "window/commands/windowactions.h"
#include "window/picksession.h"
#include "window/startup/commandline.h"
#include "window/stylesheets.h"
#include "window/viewarea.h"

#include <QLabel>
#include <QSettings>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

/** A module with a toolbar and data to export. */
class CToolBarModule : public CTestModule
{
public:
    CToolBarModule() : CTestModule(1, "Plot3D") {}
    void AddMainMenus(IMainMenus&) override
    {
        if (!m_toolBars.isEmpty())
            return;
        m_toolBars.append(new QToolBar("Create Toolbar"));
        m_toolBars.first()->setObjectName("create");
    }
    bool CanExport(qint64 nViewId) const override { return IsShownIn(nViewId); }
    bool Export(qint64 nViewId) override
    {
        m_exported.append(nViewId);
        return true;
    }
    static inline QVector<qint64> m_exported;
};

/** A dock that counts what selectables tell it. */
class CHearingDock : public CDockWidget
{
public:
    using CDockWidget::BeginPick;
    using CDockWidget::EndPick;
    void SlotSelectableDoubleClicked(QVector<ISelectable*>) override { show(); }
    void SlotSelectableChanged(ISelectable*) override { ++m_nChanges; }
    void SlotSelectableDeleted(ISelectable*) override { ++m_nDeleted; }

    int m_nChanges = 0, m_nDeleted = 0;
};

class CDockModule : public CTestModule
{
public:
    explicit CDockModule(qint32 nId) : CTestModule(nId, nId == 1 ? "Plot3D" : "Velor") {}
    void Initialize() override { m_secondDocks.append(m_docksById[GetId()] = new CHearingDock); }
    static inline QMap<qint64, CHearingDock*> m_docksById;
};

/** A run of the program with that module. */
class CRun
{
public:
    CRun()
    {
        CModuleRegistry::Instance().SetFactory(1, [] { return std::make_unique<CToolBarModule>(); });
        m_pWindow = std::make_unique<CMainWindow>();
        m_pWindow->show();
    }
    CMainWindow* operator->() { return m_pWindow.get(); }
    QToolBar* ToolBar() { return m_pWindow->findChild<QToolBar*>("create"); }
    bool ShowsToolBar() { return !ToolBar()->isHidden(); }

private:
    const COwnModules m_modules;
    std::unique_ptr<CMainWindow> m_pWindow;
};

class MainWindow : public SimulationFixture
{
protected:
    MainWindow()
    {
        CModuleRegistry::Instance().SetFactory(1, [] { return std::make_unique<CTestModule>(1, "Plot3D"); });
    }
    ~MainWindow() override { Settings().clear(); }

    /** A case of the module on top of view 1. Gives its id. */
    qint64 AddOnTop(qint64 nModuleId)
    {
        auto* const pSimulation = new CTestSimulation(nModuleId);
        m_manager.AddSimulation(pSimulation, 1);
        m_manager.SetActiveSimulation(1, pSimulation->GetId());
        return pSimulation->GetId();
    }

    static QSettings& Settings()
    {
        static QSettings settings(QSettings::UserScope, ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
        return settings;
    }
};

} // namespace

TEST_F(MainWindow, RegistersItselfAndLeavesWithItsLife)
{
    {
        CMainWindow window;
        EXPECT_EQ(CWidgetManager::Instance().GetWidget(CWidgetManager::MAIN_WINDOW), &window);
        EXPECT_EQ(window.windowTitle(), "Zento 2026.1.2-0[*]");
        EXPECT_NE(CModuleRegistry::Instance().FindByName("Plot3D"), nullptr);
    }
    EXPECT_EQ(CWidgetManager::Instance().GetWidget(CWidgetManager::MAIN_WINDOW), nullptr);
}

TEST_F(MainWindow, SplittersHaveTheStoredWidthFromTheStart)
{
    CPreferences stored;
    Set(stored, PreferenceKey::SPLITTER_WIDTH, 7);
    EXPECT_TRUE(stored.Save(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME));
    const CFreshPreferences fresh;
    CMainWindow window;
    window.GetViewArea().Split(1, Qt::Horizontal);
    for (const QSplitter* const pSplitter : window.GetViewArea().findChildren<QSplitter*>())
        EXPECT_EQ(pSplitter->handleWidth(), 7);
}

TEST_F(MainWindow, ComesUpWhereTheLastRunLeftIt)
{
    const QRect place(120, 90, 640, 400);
    {
        CMainWindow window;
        window.ShowAsStored();
        window.setGeometry(place);
        window.close();
    }
    {
        CMainWindow window;
        EXPECT_EQ(window.geometry(), place);
        window.ShowAsStored();
        window.setWindowState(Qt::WindowMaximized);
        window.close();
    }
    CMainWindow window;
    window.ShowAsStored();
    EXPECT_TRUE(window.isMaximized());
    window.showNormal();
    EXPECT_EQ(window.geometry().size(), place.size()) << "the normal place survives";

    Settings().setValue("mainwindowwindowedrect", QRect(5, 5, -7, -7));
    CMainWindow other;
    EXPECT_TRUE(other.geometry().isValid());
}

TEST_F(MainWindow, ExportWritesTheDataOfTheCaseOnTop)
{
    CRun run;
    QAction* const pExport = run->GetActions().Get(ActionExport);
    EXPECT_FALSE(pExport->isEnabled());
    AddOnTop(1);
    EXPECT_TRUE(pExport->isEnabled());
    pExport->trigger();
    EXPECT_EQ(CToolBarModule::m_exported, QVector<qint64>{1});
    AddOnTop(6);
    EXPECT_FALSE(pExport->isEnabled()) << "its module exports nothing";
}

TEST_F(MainWindow, ARefusedCloseKeepsWindowAndCases)
{
    CMainWindow window;
    window.show();
    Add()->m_sCloseWarning = "Simulation 'A' data is not saved. Continue?";
    {
        CPromptScript user;
        user.Press("No");
        EXPECT_FALSE(window.close());
    }
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(m_manager.GetSimulationIds().size(), 1);
    CPromptScript user;
    user.Press("Yes");
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(m_manager.GetSimulationIds().isEmpty());
}

TEST_F(MainWindow, DocksHearOfTheirCasesAloneAndOfChangesWhileTheyAreOnShow)
{
    for (const qint32 nId : {1, 3})
        CModuleRegistry::Instance().SetFactory(nId, [nId] { return std::make_unique<CDockModule>(nId); });
    CMainWindow window;
    CHearingDock &dock = *CDockModule::m_docksById[1], &foreign = *CDockModule::m_docksById[3];
    CSelectableManager& manager = CSelectableManager::Instance();
    auto* const pSelectable = new CTestSelectable(1, AddOnTop(1), 1);
    manager.Add(pSelectable);
    manager.NotifyUpdated(pSelectable);
    EXPECT_EQ(dock.m_nChanges, 0);
    manager.NotifyDoubleClicked(pSelectable);
    EXPECT_FALSE(dock.isHidden());
    EXPECT_TRUE(foreign.isHidden());
    manager.NotifyUpdated(pSelectable);
    manager.NotifyDisplayOnNodes(pSelectable);
    EXPECT_EQ(dock.m_nChanges, 2);
    dock.BeginPick();
    EXPECT_EQ(window.GetPicks().GetMode(), MousePointPick);
    dock.EndPick();
    EXPECT_EQ(window.GetPicks().GetMode(), MouseNormal);
    dock.BeginPick();
    foreign.BeginPick();
    EXPECT_FALSE(dock.IsPicking());
    manager.Remove(pSelectable);
    EXPECT_EQ(dock.m_nDeleted, 1);
    EXPECT_EQ(foreign.m_nDeleted, 1) << "who holds a pointer lets go of it though hidden";
}

TEST_F(MainWindow, AModulesToolBarThatTheUserHasHiddenStaysHidden)
{
    {
        CRun run;
        const qint64 nCase = AddOnTop(1);
        EXPECT_TRUE(run.ShowsToolBar());
        run.ToolBar()->toggleViewAction()->trigger();
        AddOnTop(6);
        m_manager.SetActiveSimulation(1, nCase);
        EXPECT_FALSE(run.ShowsToolBar()) << "another case was on top";
        EXPECT_TRUE(run->close());
    }
    CRun run;
    AddOnTop(1);
    EXPECT_FALSE(run.ShowsToolBar()) << "another run";
    run->SlotDefaultView();
    EXPECT_TRUE(run.ShowsToolBar());
    m_manager.RemoveAllViews();
    run->SlotDefaultView();
    EXPECT_FALSE(run.ShowsToolBar()) << "there is no case of the module";
}

TEST(StyleSheets, AThemeWithoutAResourceKeepsTheWindowsOwnSheet)
{
    const QStringList sheets = LoadStyleSheets("QWidget {}");
    ASSERT_EQ(sheets.size(), 4);
    EXPECT_EQ(sheets[0], "QWidget {}");
    for (const QString& sSheet : sheets)
        EXPECT_FALSE(sSheet.isEmpty());
}

TEST(FontIncrement, CountsFromTheFirstSizeAndEndsAtOnePoint)
{
    QWidget window;
    QLabel child(&window), large(&window);
    const int nBase = window.font().pointSize();
    QFont font = large.font();
    font.setPointSize(nBase + 10);
    large.setFont(font);
    const auto apply = [&](qint64 nIncrement) {
        Set(CPreferences::Instance(), PreferenceKey::FONT_INCREMENT, nIncrement);
        ApplyFontIncrement(&window);
        return QVector<int>{window.font().pointSize(), child.font().pointSize(), large.font().pointSize()};
    };
    EXPECT_EQ(apply(3), QVector<int>({nBase + 3, nBase + 3, nBase + 13}));
    EXPECT_EQ(apply(3), QVector<int>({nBase + 3, nBase + 3, nBase + 13})) << "twice changes nothing";
    EXPECT_EQ(apply(-20), QVector<int>({1, 1, std::max(1, nBase - 10)}));
    EXPECT_EQ(apply(0), QVector<int>({nBase, nBase, nBase + 10}));
}

TEST(CommandLine, TwoArgumentsAreAModulesRunAndOneIsAFile)
{
    EXPECT_EQ(ParseCommandLine({"zento"}).eMode, SCommandLine::Interactive);
    EXPECT_EQ(ParseCommandLine({"zento", "wing.zento"}).sFileName, "wing.zento");
    const SCommandLine run = ParseCommandLine({"zento", "--help", "3"});
    EXPECT_EQ(run.eMode, SCommandLine::RunModule);
    EXPECT_EQ(run.sModule, "--help");
    EXPECT_EQ(ParseCommandLine({"zento", "--version"}).sText, "Zento 2026.1.2-0\n");
}
