#include "simulation/simulationmanager.h"

#include "frame/moduleregistry.h"
#include "frame/widgetmanager.h"
#include "runs/process.h"
#include "scene/selectablemanager.h"
#include "simulation/iitempanels.h"
#include "tests/support/files.h"
#include "tests/support/promptscript.h"
#include "tests/support/simulationfixture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

class SimulationManager : public SimulationFixture
{
protected:
    /** Counts panels by pair. */
    class CPanels : public IItemPanels
    {
    public:
        CItemPanel* Create(qint64, qint64) override { return reinterpret_cast<CItemPanel*>(++m_nCreated); }
        void Delete(CItemPanel*) override { ++m_nDeleted; }
        qintptr m_nCreated = 0;
        int m_nDeleted = 0;
    };

    ~SimulationManager() override { m_manager.SetItemPanels(nullptr); }
};

} // namespace

TEST_F(SimulationManager, IdsFollowTheListAndFallBackWithIt)
{
    EXPECT_EQ(Add()->GetId(), 1);
    EXPECT_EQ(Add()->GetId(), 2);
    m_manager.RemoveSimulationFromView(1, 1);
    EXPECT_EQ(Add()->GetId(), 3) << "not reused while the list holds a higher one";
    m_manager.RemoveSimulationFromView(3, 1);
    m_manager.RemoveSimulationFromView(2, 1);
    EXPECT_EQ(Add()->GetId(), 1);
}

TEST_F(SimulationManager, ASimulationLivesUntilItLeavesItsLastView)
{
    bool bDestroyed = false;
    CTestSimulation* const pSimulation = Add(1);
    pSimulation->m_onDestroyed = [&] { bDestroyed = true; };
    QVector<QVector<qint64>> leaving;
    const auto connection = QObject::connect(&m_manager, &CSimulationManager::SignalSimulationLeaves,
                                             [&](qlonglong nViewId, qlonglong nId, bool bLast) {
                                                 EXPECT_NE(m_manager.GetSimulation(nId), nullptr);
                                                 EXPECT_TRUE(m_manager.GetViewIds(nId).contains(nViewId));
                                                 EXPECT_FALSE(bDestroyed);
                                                 leaving.append({nViewId, nId, bLast});
                                             });
    m_manager.AddSimulationToView(1, 2);
    m_manager.AddSimulationToView(1, 2); // already there
    EXPECT_EQ(m_manager.GetUseCount(1), 2);
    EXPECT_EQ(m_manager.GetViewIds(1), QVector<qint64>({1, 2}));
    m_manager.RemoveView(1);
    EXPECT_FALSE(bDestroyed);
    EXPECT_EQ(pSimulation->m_displayFilesSaved, QVector<qint64>({1}));
    m_manager.RemoveSimulationFromView(1, 2);
    EXPECT_TRUE(bDestroyed);
    EXPECT_EQ(m_manager.GetSimulation(1), nullptr);
    EXPECT_EQ(m_manager.GetProcess(1), nullptr);
    EXPECT_EQ(leaving, (QVector<QVector<qint64>>{{1, 1, false}, {2, 1, true}})) << "before anything goes";
    QObject::disconnect(connection);
}

TEST_F(SimulationManager, APairTakesItsPanelAndSelectablesAlong)
{
    CPanels panels;
    m_manager.SetItemPanels(&panels);
    const CTestSelectableFactory factory;
    CTestSimulation* const pSimulation = Add(1);
    m_manager.AddSimulationToView(1, 2);
    CItem* const pItem = pSimulation->Make();
    pItem->CreateSelectable(-1);
    m_manager.RemoveSimulationFromView(1, 1);
    EXPECT_EQ(pItem->GetSelectable(1), nullptr);
    EXPECT_NE(pItem->GetSelectable(2), nullptr);
    EXPECT_EQ(panels.m_nDeleted, 1);
    m_manager.SlotItemPanelDeleted(2, 1);
    EXPECT_EQ(m_manager.GetItemPanel(2, 1), nullptr);
    m_manager.RemoveSimulationFromView(1, 2);
    EXPECT_EQ(panels.m_nDeleted, 1) << "the panel closed by itself";
    EXPECT_TRUE(CSelectableManager::Instance().GetSelectables(2).isEmpty());
}

TEST_F(SimulationManager, OnlyASimulationOfTheViewCanBeActive)
{
    Add(1);
    CTestSimulation* const pSecond = Add(2);
    m_manager.SetActiveSimulation(1, 2);
    EXPECT_EQ(m_manager.GetSimulationOfView(1), nullptr);
    m_manager.SetActiveSimulation(2, 2);
    EXPECT_EQ(m_manager.GetSimulationOfView(2), pSecond);
    m_manager.SetActiveSimulation(2, -1);
    EXPECT_EQ(m_manager.GetSimulationOfView(2), nullptr);
    m_manager.AddSimulationToView(1, 2, 0);
    EXPECT_EQ(m_manager.GetSimulationIds(2), QVector<qint64>({1, 2})) << "at the place asked for";
    m_manager.SetActiveSimulation(2, 2);
    m_manager.RemoveSimulationFromView(2, 2);
    EXPECT_EQ(m_manager.GetSimulationOfView(2), nullptr);
}

TEST_F(SimulationManager, AnOpenCaseIsFoundByItsData)
{
    Add()->m_dataKey = "a";
    CTestSimulation* const pSecond = Add();
    pSecond->m_dataKey = "b";
    EXPECT_EQ(m_manager.FindSimulationByData("b"), pSecond);
    EXPECT_EQ(m_manager.FindSimulationByData("c"), nullptr);
    EXPECT_EQ(m_manager.FindSimulationByData(""), nullptr);
}

TEST_F(SimulationManager, APairStartsAtTheFirstLevelAndIsTransientWithTwo)
{
    CTestSimulation* const pSteady = Add(1);
    EXPECT_EQ(m_manager.GetTime(1, pSteady->GetId()), -1.0);
    EXPECT_FALSE(m_manager.IsTransient(1, pSteady->GetId()));

    pSteady->AddTime(0.5, 10);
    pSteady->AddTime(0.7, 20);
    QSignalSpy changed(&m_manager, &CSimulationManager::SignalSimulationTransientChanged);
    m_manager.SlotSimulationTransientChanged(1);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(m_manager.GetTime(1, 1), 0.5);
    EXPECT_TRUE(m_manager.IsTransient(1, 1));
    m_manager.SetTime(1, 1, 0.7);
    m_manager.SlotSimulationTransientChanged(1);
    EXPECT_EQ(m_manager.GetTime(1, 1), 0.7) << "a level on show stays";
    m_manager.AddSimulationToView(1, 2);
    EXPECT_EQ(m_manager.GetRequestTime(2, 1), 0.5);
    m_manager.SetTransient(2, 1, false);
    EXPECT_EQ(m_manager.GetRequestTime(2, 1), -1.0);
    EXPECT_EQ(m_manager.GetRequestTime(1, 1), 0.7) << "the other view keeps its own";
}

TEST_F(SimulationManager, TimeSignalsComeForEachSetAndForARealChangeOfTransient)
{
    Add();
    QSignalSpy times(&m_manager, &CSimulationManager::SignalSimulationTimeChanged);
    m_manager.SetTime(1, 1, 2.0);
    m_manager.SetTransient(1, 1, true);
    m_manager.SetTransient(1, 1, true);
    m_manager.SetTime(9, 1, 2.0); // no such pair
    ASSERT_EQ(times.count(), 2);
    EXPECT_EQ(times[0], QVariantList({1LL, 1LL}));
}

TEST_F(SimulationManager, DisplayTransformsFollowThePairsSettings)
{
    Add(1);
    m_manager.AddSimulationToView(1, 2);
    EXPECT_EQ(m_manager.GetDisplayTransforms(1, 1).size(), 1);
    m_manager.SetMirror(1, 1, {{true, true, false}, {}});
    m_manager.SetSectors(1, 1, {{false, false, true}, {1, 1, 4}});
    EXPECT_EQ(m_manager.GetDisplayTransforms(1, 1).size(), 16);
    m_manager.SetRotationCentre(1, 1, {5, 0, 0});
    const DVector3D image = m_manager.GetDisplayTransforms(1, 1).last().Matrix().MapPoint({5, 0, 0});
    EXPECT_NEAR(image.x, 5 - 0.0, 1e-12) << "mirrored to -5, a quarter turn back about 5 gives 5";
    EXPECT_EQ(m_manager.GetDisplayTransforms(2, 1).size(), 1) << "the other view has its own";
    EXPECT_TRUE(m_manager.GetDisplayTransforms(3, 1).isEmpty());
}

TEST_F(SimulationManager, ANewNameIsToldOnceTheSimulationIsKnown)
{
    QSignalSpy names(&m_manager, &CSimulationManager::SignalSimulationNameChanged);
    auto* const pSimulation = new CTestSimulation;
    pSimulation->SetName("early");
    EXPECT_EQ(names.count(), 0);
    m_manager.AddSimulation(pSimulation, 1);
    pSimulation->SetName("late");
    pSimulation->SetName("late");
    EXPECT_EQ(names.count(), 1);
    EXPECT_EQ(pSimulation->GetToolTip(), "late");
}

TEST_F(SimulationManager, OutputOfARunIsCollectedInLines)
{
    CTestSimulation* const pSimulation = Add();
    QSignalSpy data(&m_manager, &CSimulationManager::SignalSimulationProcessDataChanged);
    QSignalSpy states(&m_manager, &CSimulationManager::SignalSimulationProcessStateChanged);
    pSimulation->GetProcess()->Start("/bin/sh", {"-c", "printf 'one\\ntwo\\n'; printf 'err' >&2"});
    EXPECT_TRUE(pSimulation->IsProcessRunning());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !pSimulation->IsProcessRunning(); }, 10000));
    QStringList lines = m_manager.GetProcessLines(1);
    lines.sort();
    EXPECT_EQ(lines, QStringList({"err", "one", "two"}));
    EXPECT_GE(data.count(), 2);
    EXPECT_EQ(states.count(), 3) << "starting, running, not running";
    EXPECT_EQ(m_manager.GetProcessLinesSince(1, 2).size(), 1);
    m_manager.ClearProcessLines(1);
    EXPECT_TRUE(m_manager.GetProcessLines(1).isEmpty());
    EXPECT_TRUE(m_manager.GetProcessData(1).isEmpty());
}

TEST_F(SimulationManager, ARefusedWarningLeavesEverythingOpenAndRunning)
{
    for (int n = 0; n < 3; ++n)
        Add();
    static_cast<CTestSimulation*>(m_manager.GetSimulation(2))->m_sCloseWarning =
        "Simulation 'B' data is not saved. Continue?";
    m_manager.GetProcess(1)->Start("sleep 60");
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_manager.GetProcess(1)->GetState() == QProcess::Running; }));
    {
        CPromptScript user;
        user.Press("No");
        EXPECT_FALSE(m_manager.CloseSimulations(-1));
        EXPECT_EQ(user.Asked().value(0).sText, "Simulation 'B' data is not saved. Continue?");
    }
    EXPECT_TRUE(m_manager.GetProcess(1)->IsRunning());
    EXPECT_EQ(m_manager.GetSimulationIds().size(), 3);
    CPromptScript user;
    user.Press("Yes");
    EXPECT_TRUE(m_manager.CloseSimulations(-1));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m_manager.GetProcess(1)->IsRunning(); }))
        << "killed at the end";
    EXPECT_EQ(m_manager.GetSimulationIds().size(), 3) << "the caller removes them";
}

TEST_F(SimulationManager, TheDisplayFileThatClosingWritesIsCopiedToTheChosenName)
{
    QTemporaryDir folder;
    QTemporaryDir kept;
    const QString sTarget = kept.filePath("kept.disp");
    Files::Write(folder.filePath("2020-01-01~00:00:00~analyze.disp"), "an older one");
    Files::Write(sTarget, "to be replaced");
    CTestSimulation* const pSimulation = Add();
    pSimulation->SetName("Wing");
    Set(*pSimulation, SimulationKey::DIRECTORY, folder.path());
    pSimulation->m_onSaveDisplay = [&] {
        Files::Write(folder.filePath("2026-01-01~00:00:00~analyze.disp"), "new");
    };
    {
        CPromptScript user;
        user.Press("Cancel");
        EXPECT_FALSE(m_manager.CloseSimulations(1));
        EXPECT_EQ(user.Asked()[0].sTitle, "Close Simulation");
        EXPECT_EQ(user.Asked()[0].sText, "Would you like to save 'Wing' display file with a different name?");
    }
    CPromptScript user;
    user.Press("Save As...");
    user.ChooseFile(sTarget);
    ASSERT_TRUE(m_manager.CloseSimulations(1));
    EXPECT_EQ(user.AskedFiles()[0].sTitle, "Save Display File");
    EXPECT_EQ(user.AskedFiles()[0].sStart, folder.path());
    m_manager.RemoveAllViews();
    m_manager.CopyDisplayFiles();
    EXPECT_EQ(Files::Read(sTarget), "new");
    Files::Write(sTarget, "later");
    m_manager.CopyDisplayFiles();
    EXPECT_EQ(Files::Read(sTarget), "later") << "each copy is made once";
}

TEST_F(SimulationManager, CasesThatCloseTogetherFromOneFolderEachKeepTheirOwnDisplay)
{
    QTemporaryDir folder;
    Files::Write(folder.filePath("0.disp"), "older");
    CPromptScript user;
    for (int n = 1; n <= 2; ++n) {
        CTestSimulation* const pSimulation = Add();
        Set(*pSimulation, SimulationKey::DIRECTORY, folder.path());
        pSimulation->m_onSaveDisplay = [&folder, n] {
            Files::Write(folder.filePath(QString("%1.disp").arg(n)), QByteArray::number(n));
        };
        user.Press("Save As...");
        user.ChooseFile(folder.filePath(QString("kept%1").arg(n)));
    }
    ASSERT_TRUE(m_manager.CloseSimulations(-1));
    m_manager.RemoveAllViews();
    m_manager.CopyDisplayFiles();
    EXPECT_EQ(Files::Read(folder.filePath("kept1.disp")), "1");
    EXPECT_EQ(Files::Read(folder.filePath("kept2.disp")), "2");
}

TEST_F(SimulationManager, ACopyThatFailsIsReportedAndCancelAtTheThirdLeavesAllOpen)
{
    QTemporaryDir folder;
    Files::Write(folder.filePath("a.disp"), "a");
    for (int n = 0; n < 5; ++n)
        Set(*Add(), SimulationKey::DIRECTORY, folder.path());
    {
        CPromptScript user;
        for (const char* const sButton : {"Close", "Close", "Cancel"})
            user.Press(sButton);
        EXPECT_FALSE(m_manager.CloseSimulations(-1));
    }
    EXPECT_EQ(m_manager.GetSimulationIds().size(), 5);
    CPromptScript user;
    user.Press("Save As...");
    user.ChooseFile(folder.filePath("missing/kept.disp"));
    EXPECT_TRUE(m_manager.CloseSimulations(3));
    user.Press("Ok");
    m_manager.CopyDisplayFiles();
    EXPECT_EQ(user.Asked().last().sTitle, "Save Display File");
}

TEST_F(SimulationManager, WithoutAWindowTheWidgetManagerAnswersNeutrally)
{
    CWidgetManager& widgets = CWidgetManager::Instance();
    EXPECT_EQ(widgets.GetActiveViewId(), -1);
    EXPECT_EQ(widgets.GetActiveSimulation(), nullptr);
    EXPECT_EQ(widgets.GetWidget(CWidgetManager::MAIN_WINDOW), nullptr);
    widgets.UpdateActions();
    widgets.RefreshDocks(1);
    widgets.BlockUpdates(1, true);
    widgets.CloseAll();
}

TEST_F(SimulationManager, TheWorkingDirectoryIsTheFirstOfTheTwoThatExists)
{
    QTemporaryDir folder;
    CTestSimulation simulation;
    EXPECT_EQ(simulation.GetWorkingDirectory(), "");
    simulation.SetFilePath(folder.filePath("case.zento"));
    EXPECT_EQ(simulation.GetWorkingDirectory(), folder.path());
    ASSERT_TRUE(QDir(folder.path()).mkdir("run"));
    Set(simulation, SimulationKey::WORKING_DIRECTORY, folder.filePath("run"));
    EXPECT_EQ(simulation.GetWorkingDirectory(), folder.filePath("run"));
    Set(simulation, SimulationKey::WORKING_DIRECTORY, folder.filePath("gone"));
    EXPECT_EQ(simulation.GetWorkingDirectory(), folder.path());
}
