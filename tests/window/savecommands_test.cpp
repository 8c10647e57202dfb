// Saving, opening, and restart files, seen through the window.
#include "cases/display/displaydocument.h"
#include "cases/files/casefile.h"
#include "cases/files/restartfile.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "tests/support/files.h"
#include "tests/support/openingmodule.h"
#include "tests/support/print.h"
#include "tests/support/promptscript.h"
#include "tests/support/simulationfixture.h"
#include "tests/support/testsettings.h"
#include "view/ui/oglviewer.h"
#include "window/commands/windowactions.h"
#include "window/mainwindow.h"
#include "window/viewarea.h"

#include <QAbstractButton>
#include <QTabBar>
#include <QTemporaryDir>

namespace {

/** Makes and opens cases of the test; takes no data file. */
class CSavingModule : public COpeningModule
{
public:
    bool CanCreateSimulationFromFile() const override { return true; }
    bool CanRead(const QStringList& sFileList) const override { return sFileList.first().endsWith(".x"); }
    qint64 CreateFromFiles(const QStringList& sFileList, qint64) override
    {
        s_sDataFileList = sFileList;
        return -1;
    }
    qint64 OpenFromKey(const QByteArray& key, qint64, const QString&) override
    {
        if (key != "the data")
            return -1;
        auto* const pSimulation = new CTestSimulation(GetId());
        CSimulationManager::Instance().AddSimulation(pSimulation, 1);
        return pSimulation->GetId();
    }
    static inline QStringList s_sDataFileList;
};

class SaveCommands : public SimulationFixture
{
protected:
    SaveCommands()
    {
        COpeningModule::Register<CSavingModule>();
        m_pWindow = std::make_unique<CMainWindow>();
    }
    ~SaveCommands() override
    {
        m_manager.RemoveAllViews();
        m_pWindow.reset();
    }
    CTestSimulation* AddCase()
    {
        CTestSimulation* const pSimulation = Add();
        pSimulation->SetName("wing");
        Set(*pSimulation, SimulationKey::DIRECTORY, m_folder.path());
        pSimulation->m_viewStates[1] = "what is shown";
        pSimulation->m_dataKey = "the data";
        m_manager.SetActiveSimulation(1, pSimulation->GetId());
        return pSimulation;
    }
    void Trigger(ActionId_e eId) { m_pWindow->GetActions().Get(eId)->trigger(); }
    QString Path(const char* sName) const { return m_folder.filePath(sName); }
    COglViewer& View() { return *m_pWindow->GetViewArea().GetOglViewer(1); }

    const CFreshPreferences m_fresh;
    QTemporaryDir m_folder;
    std::unique_ptr<CMainWindow> m_pWindow;
};

} // namespace

TEST_F(SaveCommands, ANewCaseAsksForItsFileOnceAndBecomesTheMostRecentOne)
{
    EXPECT_FALSE(m_pWindow->GetActions().Get(ActionSave)->isEnabled()) << "there is no case";
    CTestSimulation* const pSimulation = AddCase();
    CPromptScript user;
    const QSignalSpy saved(m_pWindow.get(), &CMainWindow::SignalCaseSaved);
    user.ChooseFile(Path("Wing.v2"));
    Trigger(ActionSave);
    EXPECT_EQ(user.AskedFiles()[0].sTitle, "Save Simulation");
    EXPECT_EQ(user.AskedFiles()[0].sFilter, "Simulation File (*.zento)");
    EXPECT_EQ(user.AskedFiles()[0].sStart, Path("wing.zento"));
    EXPECT_EQ(pSimulation->GetFilePath(), Path("Wing.v2.zento"));
    EXPECT_EQ(Get(CPreferences::Instance(), PreferenceKey::RECENT_FILES), QStringList(Path("Wing.v2.zento")));
    pSimulation->m_viewStates[1] = "something else";
    Trigger(ActionSave);
    SCaseFile file;
    ASSERT_EQ(file.FromBytes(Files::Read(Path("Wing.v2.zento"))), StoredOk);
    EXPECT_EQ(file.sModule, "Plot3D");
    EXPECT_EQ(file.display, "something else");
    EXPECT_EQ(file.camera.Camera(), View().GetCamera());
    user.ChooseFile(Path("copy.ZENTO"));
    Trigger(ActionSaveAs);
    EXPECT_EQ(user.AskedFiles().last().sStart, Path("Wing.v2.zento"));
    EXPECT_EQ(pSimulation->GetFilePath(), Path("copy.ZENTO")) << "the ending in any case";
    user.ChooseFile(Path("none/wing"));
    user.Press("Ok");
    Trigger(ActionSaveAs);
    EXPECT_EQ(pSimulation->GetFilePath(), Path("copy.ZENTO"));
    EXPECT_EQ(Get(CPreferences::Instance(), PreferenceKey::RECENT_FILES).size(), 2) << "not what failed";
    EXPECT_EQ(saved.size(), 3);
}

TEST_F(SaveCommands, CasesOfUnknownKindsAndNewerOnesChangeNothingAndShowNoBox)
{
    AddCase();
    SCaseFile file;
    file.sModule = "Nobody";
    Files::Write(Path("unknown.dat"), file.ToBytes());
    file.sModule = "Plot3D";
    file.dDisplayVersion = 1.5;
    Files::Write(Path("newer.zento"), file.ToBytes());
    Files::Write(Path("garbage.zento"), "no case at all");
    CSavingModule::s_sDataFileList.clear();
    const CPromptScript nobodyAsks;
    for (const char* const sName : {"unknown.dat", "newer.zento", "garbage.zento"})
        m_pWindow->SlotOpenSimulation(Path(sName));
    EXPECT_EQ(CSavingModule::s_sDataFileList, QStringList()) << "none is a file of data";
    EXPECT_EQ(m_manager.GetSimulationIds().size(), 1);
    CPromptScript user;
    user.Press("Ok");
    m_pWindow->SlotOpenSimulation(Path("missing.zento"));
    EXPECT_EQ(user.Asked()[0].sText, "Failed to open the selected file");
    EXPECT_EQ(user.Asked()[0].sTitle, "Open Simulation");
    Files::Write(Path("grid.x"), "data");
    m_pWindow->SlotOpenSimulation(Path("grid.x"));
    EXPECT_EQ(CSavingModule::s_sDataFileList, QStringList(Path("grid.x")));
    Files::Write(Path("letter.txt"), "data");
    user.Press("Ok");
    m_pWindow->SlotOpenSimulation(Path("letter.txt"));
    EXPECT_EQ(user.Asked().last().sText, "The selected file could not be identified");
}

TEST_F(SaveCommands, OnlyTheFirstModuleThatCanReadTheFilesIsAskedForACase)
{
    class CReader : public CTestModule
    {
    public:
        CReader(qint32 nId, const QString& sName, const QString& sSuffix)
            : CTestModule(nId, sName), m_sSuffix(sSuffix)
        {}
        bool CanCreateSimulationFromFile() const override { return true; }
        bool CanRead(const QStringList& sFileList) const override
        {
            return sFileList.first().endsWith(m_sSuffix);
        }
        qint64 CreateFromFiles(const QStringList&, qint64) override
        {
            Made().append(GetId());
            return -1; // what is wrong was told: nobody else need try
        }
        static QVector<qint32>& Made()
        {
            static QVector<qint32> made;
            return made;
        }

    private:
        const QString m_sSuffix;
    };
    m_pWindow.reset();
    const COwnModules modules;
    CModuleRegistry& registry = CModuleRegistry::Instance();
    registry.SetFactory(0, [] { return std::make_unique<CReader>(0, "Velor", ".cgns"); });
    registry.SetFactory(1, [] { return std::make_unique<CReader>(1, "Plot3D", ".x"); });
    registry.SetFactory(2, [] { return std::make_unique<CReader>(2, "Star", ".x"); });
    registry.CreateModules();
    {
        CMainWindow window;
        Files::Write(Path("grid.x"), "data");
        window.SlotOpenSimulation(Path("grid.x"));
    }
    EXPECT_EQ(CReader::Made(), QVector<qint32>{1});
}

TEST_F(SaveCommands, UnsavedEditsAreMarkedAndNoCaseClosesWithThemWithoutAQuestion)
{
    CTestSimulation* const pSimulation = AddCase();
    pSimulation->NoteSaved();
    const auto* const pTabs = m_pWindow->findChild<QTabBar*>();
    const auto marks = [&] {
        m_pWindow->SlotShowUnsaved();
        return pTabs->tabText(0) + (m_pWindow->isWindowModified() ? " in the title too" : "");
    };
    EXPECT_EQ(marks(), "wing");
    pSimulation->m_viewStates[1] = "edited";
    EXPECT_EQ(marks(), "wing * in the title too");
    pSimulation->m_viewStates[1] = "what is shown";
    EXPECT_EQ(marks(), "wing") << "it is as it was";
    Set(*pSimulation, SimulationKey::TOOL_TIP, "edited");
    Files::Write(Path("older.disp"), "{}");
    {
        CPromptScript user;
        user.Press("Cancel");
        EXPECT_FALSE(m_pWindow->close());
        EXPECT_EQ(user.Asked()[0].sText,
                  "'wing' has changes that are not saved. Would you like to save them?");
        user.Press("Save");
        user.ChooseFile(""); // cancelled
        View().findChild<QAbstractButton*>("m_pCloseViewB")->click();
        EXPECT_EQ(m_manager.GetSimulationIds().size(), 1);
    }
    CPromptScript user;
    user.Press("Save");
    user.ChooseFile(Path("wing.zento"));
    EXPECT_TRUE(m_pWindow->close());
    EXPECT_EQ(user.Asked().size(), 1) << "the display is asked about only where nothing else was";
    EXPECT_EQ(user.AskedFiles()[0].sStart, Path("wing.zento"));
    SCaseFile file;
    ASSERT_EQ(file.FromBytes(Files::Read(Path("wing.zento"))), StoredOk);
    EXPECT_EQ(Get(CPreferences::Instance(), PreferenceKey::RECENT_FILES).value(0), Path("wing.zento"));

    CTestSimulation* const pAgain = AddCase();
    pAgain->NoteSaved();
    Set(*pAgain, SimulationKey::TOOL_TIP, "edited");
    user.Press("Discard");
    EXPECT_TRUE(m_pWindow->close());
    EXPECT_EQ(m_manager.GetSimulationIds().size(), 0);
}

TEST_F(SaveCommands, ACopiedViewShowsACaseOfItsOwn)
{
    CTestSimulation* const pSimulation = AddCase();
    pSimulation->Make(3)->SetName("Block", 0);
    CPromptScript user;
    user.ChooseFile(Path("wing.zento"));
    Trigger(ActionSave);
    const QByteArray saved = Files::Read(Path("wing.zento"));
    View().findChild<QAction*>("actionHCopy")->trigger();
    auto* const pCopy = static_cast<CTestSimulation*>(m_manager.GetSimulationOfView(2));
    ASSERT_NE(pCopy, nullptr);
    ASSERT_NE(pCopy, pSimulation);
    EXPECT_EQ(pCopy->GetName(), "wing (2)");
    EXPECT_EQ(pCopy->GetFilePath(), "");
    EXPECT_EQ(pCopy->GetItem(1)->GetName(), "Block");
    EXPECT_EQ(pCopy->m_viewStates[2], "what is shown");
    EXPECT_FALSE(pCopy->HasUnsavedEdits());
    pCopy->m_viewStates[2] = "its own";
    user.ChooseFile(Path("copy.zento"));
    Trigger(ActionSave);
    EXPECT_EQ(user.AskedFiles().last().sStart, Path("wing (2).zento"));
    EXPECT_EQ(Files::Read(Path("wing.zento")), saved);
    pSimulation->m_viewStates[1] = "edited";
    View().findChild<QAction*>("actionVCopy")->trigger();
    const ISimulation* const pThird = m_manager.GetSimulationOfView(3);
    EXPECT_EQ(pThird->GetName(), "wing (3)");
    EXPECT_TRUE(pThird->HasUnsavedEdits()) << "so had the case that it is a copy of";
}

TEST_F(SaveCommands, QuestionsForFilesStartInTheFolderOfTheLastOneInTheNextRunToo)
{
    AddCase();
    Files::Write(Path("garbage.zento"), "no case at all");
    CPromptScript user;
    user.ChooseFile(Path("garbage.zento"));
    Trigger(ActionOpen);
    user.ChooseFile({});
    Trigger(ActionExportSimulation);
    user.ChooseFile({});
    Trigger(ActionOpen);
    for (int n : {1, 2})
        EXPECT_EQ(user.AskedFiles()[n].sStart, m_folder.path());
    CPreferences next;
    next.Load(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    EXPECT_EQ(Get(next, PreferenceKey::RECENT_DIRECTORY), m_folder.path());
}

TEST_F(SaveCommands, TheDisplayStateIsExported)
{
    AddCase();
    CPromptScript user;
    user.ChooseFile(Path("view.json"));
    user.Press("Ok");
    Trigger(ActionDisplayState);
    EXPECT_TRUE(QRegularExpression(R"(/\d{4}-\d\d-\d\d~\d\d-\d\d-\d\d~display\.disp$)")
                    .match(user.AskedFiles()[0].sStart)
                    .hasMatch())
        << user.AskedFiles()[0].sStart.toStdString();
    EXPECT_EQ(user.AskedFiles()[0].sFilter, "Display Files (*.disp);; All Files (*)");
    EXPECT_EQ(user.Asked().last().sText, "Display state exported successfully to " + Path("view.json.disp"));
    EXPECT_EQ(user.Asked().last().sTitle, "Export Display State");
    SDisplayDocument document;
    EXPECT_EQ(document.FromBytes(Files::Read(Path("view.json.disp"))), StoredOk);
    EXPECT_EQ(CameraFromJson(document.viewer), View().GetCamera());
    user.ChooseFile(Path("none/view.disp"));
    user.Press("Ok");
    Trigger(ActionDisplayState);
    EXPECT_EQ(user.Asked().last().sText,
              QString("Failed to open file %1 for writing").arg(Path("none/view.disp")));
    EXPECT_EQ(user.Asked().last().eKind, PromptCritical);
}

TEST_F(SaveCommands, ARestartFileBringsDataAndDisplayOrTheDisplayAlone)
{
    CTestSimulation* const pSimulation = AddCase();
    SCamera camera = View().GetCamera();
    camera.view.rotate(30.0F, 0.0F, 1.0F, 0.0F);
    View().SetCamera(camera);
    CPromptScript user;
    user.ChooseFile(Path("wing"));
    Trigger(ActionExportSimulation);
    EXPECT_EQ(user.AskedFiles()[0].sTitle, "Simulation Restart File");
    EXPECT_EQ(user.AskedFiles()[0].sFilter, "Simulation Restart Files (*.srst)");
    SRestartFile file;
    ASSERT_EQ(file.FromBytes(Files::Read(Path("wing.srst"))), StoredOk);
    EXPECT_EQ(file.key, "the data");
    EXPECT_EQ(file.nModuleId, 1);

    pSimulation->m_viewStates[1] = "another";
    View().SetCamera(SCamera());
    user.ChooseFile(Path("wing.srst"));
    Trigger(ActionImportSimulationDisplay);
    EXPECT_EQ(user.AskedFiles()[1].sFilter, "Simulation Restart Files (*.srst);; All Files (*)");
    EXPECT_EQ(pSimulation->m_viewStates[1], "what is shown");
    EXPECT_EQ(View().GetCamera().view, camera.view);
    pSimulation->m_viewStates[1] = "another";
    user.ChooseFile(Path("wing.srst"));
    Trigger(ActionImportSimulationAll);
    EXPECT_EQ(m_manager.GetSimulationIds().size(), 1) << "its data are open";
    EXPECT_EQ(pSimulation->m_viewStates[1], "what is shown");

    m_manager.RemoveAllViews();
    user.ChooseFile(Path("wing.srst"));
    Trigger(ActionImportSimulationAll);
    const auto* const pOpened = static_cast<CTestSimulation*>(m_manager.GetSimulationOfView(1));
    ASSERT_NE(pOpened, nullptr);
    EXPECT_EQ(pOpened->m_viewStates[1], "what is shown");
    user.ChooseFile(Path("none/wing.srst"));
    user.Press("Ok");
    Trigger(ActionExportSimulation);
    EXPECT_EQ(user.Asked().last().sText, "Failed to write simulation restart file " + Path("none/wing.srst"));
}

TEST_F(SaveCommands, RestartFilesThatDontFitAreRefused)
{
    SRestartFile file;
    file.nModuleId = 1;
    file.key = "other data";
    const auto import = [&](const QByteArray& bytes, bool bAsks) {
        Files::Write(Path("wing.srst"), bytes);
        CPromptScript user;
        user.ChooseFile(Path("wing.srst"));
        if (bAsks)
            user.Press("Ok");
        Trigger(ActionImportSimulationAll);
        return user.Asked().isEmpty() ? QString() : user.Asked()[0].sTitle + ": " + user.Asked()[0].sText;
    };
    const QString sNoData = "Invalid Simulation: Failed to load the data of the selected restart file";
    EXPECT_EQ(import(file.ToBytes(), true), sNoData);
    EXPECT_EQ(import("short", true), sNoData);
    file.dVersion = 1.8;
    EXPECT_EQ(import(file.ToBytes(), false), "") << "without a message";
    CTestSimulation* const pSimulation = AddCase();
    file.dVersion = 1.7;
    file.nModuleId = 2;
    EXPECT_EQ(import(file.ToBytes(), true),
              "Invalid Simulation: The selected file contains a simulation of a different module than the "
              "current active simulation");
    EXPECT_EQ(m_manager.GetSimulationOfView(1), pSimulation);
    EXPECT_EQ(pSimulation->m_viewStates[1], "what is shown");
}
