// Case files of the module: what is saved comes back, whatever happens to files and folders.
#include "cases/files/casestorage.h"
#include "data/managers/solutionmanager.h"
#include "tests/modules/plot3d/showncase.h"
#include "tests/support/files.h"
#include "tests/support/golden.h"
#include "tests/support/logcapture.h"
#include "tests/support/promptscript.h"
#include "view/annotations/annotationcolormap.h"

#include <QRandomGenerator>

namespace {

/** What a session holds, to see that nothing has changed. */
struct SSession
{
    QVector<qint64> simulationIds = CSimulationManager::Instance().GetSimulationIds();
    QVector<qint64> inView = CSimulationManager::Instance().GetSimulationIds(1);
    ISimulation* pActive = CSimulationManager::Instance().GetSimulationOfView(1);

    friend bool operator==(const SSession&, const SSession&) = default;
};

class CaseFile : public ShownCase
{
protected:
    /** Saves the wing and closes it. */
    QString SaveWing()
    {
        CPlot3DSimulation* const pWing = OpenWing();
        const QString sFile = Path("wing.zento");
        EXPECT_TRUE(m_module.Save(sFile, pWing->GetId()));
        CloseAll();
        return sFile;
    }
    /** As SaveWing, smaller: one block and a surface. */
    QString SaveSmall()
    {
        Write("small.x", 2, KindGrid, Plot3DFixture::Blocks({{2, 2, 2}}));
        CPlot3DSimulation* const pSmall = Simulation(m_module.OpenPlot3D({Path("small.x")}, VIEW));
        CreateSurfaceItem(*pSmall, 1, FacePlane({2, 2, 2}, 5));
        EXPECT_TRUE(m_module.Save(Path("small.zento"), pSmall->GetId()));
        CloseAll();
        return Path("small.zento");
    }
};

} // namespace

TEST_F(CaseFile, EverythingComesBack)
{
    OpenWindow();
    CPlot3DSimulation* const pWing = OpenWing();
    const QString sFile = Path("wing.zento");
    ASSERT_TRUE(m_module.Save(sFile, pWing->GetId()));
    const QByteArray data = pWing->ToBytes(), display = pWing->SaveViewState(VIEW);
    const QJsonObject json = pWing->SaveViewJson(VIEW);
    const SCamera camera = m_pWindow->m_view.m_camera;
    EXPECT_EQ(pWing->GetSavedData(), data);
    EXPECT_EQ(pWing->GetSavedDisplay(), display);
    CloseAll();
    m_pWindow->m_view.m_camera = {};
    const CPlot3DSimulation* const pAgain = Simulation(m_module.Open(sFile, -1));
    ASSERT_NE(pAgain, nullptr);
    EXPECT_EQ(pAgain->ToBytes(), data);
    EXPECT_EQ(pAgain->SaveViewState(VIEW), display);
    EXPECT_EQ(pAgain->SaveViewJson(VIEW), json);
    EXPECT_EQ(m_pWindow->m_view.m_camera, camera);
    EXPECT_EQ(m_pWindow->m_nBlocked, 0);
    EXPECT_EQ(pAgain->GetFilePath(), sFile);
    EXPECT_EQ(pAgain->GetSavedData(), pAgain->ToBytes()) << "it isn't modified";
    EXPECT_EQ(pAgain->GetSavedDisplay(), pAgain->SaveViewState(VIEW));
    const QByteArray stored = Files::Read(sFile);
    EXPECT_TRUE(m_module.Save(Path("again.zento"), pAgain->GetId()));
    EXPECT_TRUE(Files::Read(Path("again.zento")) == stored);
}

TEST_F(CaseFile, ADataFileThatIsGoneIsToldInTheStatusBar)
{
    OpenWindow();
    const CPlot3DSimulation& wing = *OpenData();
    QFile::remove(Path("data/flow2.q"));
    CLogCapture log;
    const auto pField =
        CSolutionManager::Instance().GetSolution(Variable(wing, "R"), wing.GetId(), 1, -1, 2.0);
    ASSERT_TRUE(pField);
    EXPECT_EQ(pField->GetValue(qint64(0)), NO_VALUE);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_pWindow->m_sStatus,
              QString("Can't read %1: it is not there any more").arg(Path("data/flow2.q")));
    EXPECT_EQ(log.Lines().filter(m_pWindow->m_sStatus).size(), 1);
}

TEST_F(CaseFile, AFileOfTheFirstVersionOpensAndIsWrittenTheSame)
{
    // Its data aren't there, so that nothing in it depends on where this runs.
    OpenWindow();
    if (qEnvironmentVariableIsSet("ZENTO_WRITE_GOLDEN")) {
        CPlot3DSimulation* const pWing = OpenWing();
        Set(*pWing, SimulationKey::DIRECTORY, "/no/such/folder");
        for (CItem* const pBlock : pWing->GetItems(KindBlock))
            Set(*pBlock, BlockKey::ABSOLUTE_FILE, "/no/such/folder/wing.x");
        ASSERT_TRUE(m_module.Save(Path("wing.zento"), pWing->GetId()));
        Golden::Expect("wing.zento", Files::Read(Path("wing.zento")));
        CloseAll();
    }
    UserPrompt::Install(nullptr);
    const CPlot3DSimulation* const pWing = Simulation(m_module.Open(Golden::Path("wing.zento"), -1));
    ASSERT_NE(pWing, nullptr);
    EXPECT_EQ(Names(*pWing),
              QStringList({"Block 1", "Block 2", "Block 3", "Block 4", "Boundary 'wall' \u2014 Block 3",
                           "Boundary 'wall' \u2014 Block 2", "Surface", "Surface"}));
    EXPECT_EQ(Shown(*pWing, 3)->lineThickness(), 1.5 + 4);
    EXPECT_FALSE(Shown(*pWing, 2)->isVisible());
    EXPECT_EQ(CSimulationManager::Instance().GetDisplayTransforms(VIEW, pWing->GetId()).size(), 6);
    EXPECT_EQ(m_pWindow->m_view.m_camera.rotationPoint, DVector3D(1.0, 2.0, 3.0));
    ASSERT_TRUE(m_module.Save(Path("again.zento"), pWing->GetId()));
    EXPECT_TRUE(Files::Read(Path("again.zento")) == Golden::Read("wing.zento"));
}

TEST_F(CaseFile, ARunWithoutAWindowKeepsDisplayAndCamera)
{
    OpenWindow();
    const QString sFile = SaveWing();
    const QByteArray stored = Files::Read(sFile);
    m_pWindow.reset();
    const qint64 nId = m_module.Open(sFile, -1);
    ASSERT_NE(nId, -1);
    // Nobody sees what such a run shows.
    CSelectableManager::Instance().Find(-1, nId, 1)->setVisible(false);
    EXPECT_TRUE(m_module.Save(Path("batch.zento"), nId));
    EXPECT_TRUE(Files::Read(Path("batch.zento")) == stored);
}

TEST_F(CaseFile, DamagedFilesAreRefusedOrOpenedAndLeaveTheSession)
{
    const QString sFile = SaveSmall();
    const QByteArray whole = Files::Read(sFile);
    OpenWindow();
    m_module.OpenPlot3D({Path("small.x")}, VIEW);
    const SSession before;
    UserPrompt::Install(nullptr); // refusals are told, and nobody is there
    QRandomGenerator random(5);
    int nRefused = 0;
    const auto open = [&](const QByteArray& bytes) {
        Files::Write(Path("damaged.zento"), bytes);
        const qint64 nId = m_module.Open(Path("damaged.zento"), -1);
        if (nId == -1) {
            ++nRefused;
            ASSERT_EQ(SSession(), before);
        } else
            CSimulationManager::Instance().RemoveSimulationFromView(nId, VIEW);
        CSimulationManager::Instance().SetActiveSimulation(VIEW, before.simulationIds.first());
    };
    for (int nSize = 0; nSize < whole.size(); nSize += nSize < 64 ? 1 : 7)
        open(whole.left(nSize));
    EXPECT_EQ(nRefused, (64 + (whole.size() - 64 + 6) / 7)) << "every one that was cut";
    for (int n = 0; n < 400; ++n) {
        QByteArray bytes = whole;
        for (int nFlips = 1 + n % 3; nFlips > 0; --nFlips)
            bytes[random.bounded(bytes.size())] = char(random.bounded(256));
        open(bytes);
    }
    EXPECT_EQ(QDir(m_folder.path()).entryList({"*.disp"}).size() > 0, true)
        << "those that opened left theirs";
    EXPECT_EQ(m_pWindow->m_nBlocked, 0);
}

TEST_F(CaseFile, WhatIsNoFileOfTheModuleIsTold)
{
    OpenWindow();
    SCaseFile file;
    file.sModule = "Corin";
    Files::Write(Path("other.zento"), file.ToBytes());
    CPromptScript user;
    user.Press("Ok");
    EXPECT_EQ(m_module.Open(Path("other.zento"), -1), -1);
    EXPECT_EQ(user.Asked().last().sText, "The selected file is not a valid Velor simulation");
    user.Press("Ok");
    EXPECT_EQ(m_module.Open(Path("missing.zento"), -1), -1);
    EXPECT_EQ(user.Asked().last().sText, "Failed to open the selected file");
    EXPECT_EQ(user.Asked().last().sTitle, "Open Simulation");
    file.sModule = "Plot3D";
    file.dDataVersion = 1.1;
    Files::Write(Path("newer.zento"), file.ToBytes());
    CLogCapture log;
    EXPECT_EQ(m_module.Open(Path("newer.zento"), -1), -1) << "without a box";
    EXPECT_TRUE(m_pWindow->m_sStatus.contains("newer version"));
    EXPECT_TRUE(log.Lines().join('\n').contains("newer.zento was written by a newer version"));
    EXPECT_TRUE(CSimulationManager::Instance().GetSimulationIds().isEmpty());
}

TEST_F(CaseFile, AFailedSaveIsToldAndLeavesTheOldFileAndTheBaseline)
{
    OpenWindow();
    CPlot3DSimulation* const pWing = OpenWing();
    ASSERT_TRUE(m_module.Save(Path("wing.zento"), pWing->GetId()));
    const QByteArray saved = pWing->GetSavedData();
    Shown(*pWing, 1)->setShadeColor(Qt::blue);
    pWing->GetItem(1)->SetInt("Setting", 3, 0);
    CPromptScript user;
    user.Press("Ok");
    EXPECT_FALSE(m_module.Save(Path("wing.zento") + "/below", pWing->GetId()));
    EXPECT_EQ(user.Asked().last().sText, "Failed to open the selected file");
    EXPECT_EQ(user.Asked().last().sTitle, "Save Simulation");
    EXPECT_EQ(user.Asked().last().eKind, PromptCritical);
    EXPECT_EQ(pWing->GetFilePath(), Path("wing.zento"));
    EXPECT_EQ(pWing->GetSavedData(), saved);
    EXPECT_FALSE(m_module.Save(Path("new.zento"), 99)) << "no such case: nothing to tell";
    CPlot3DModule other(7, "CGNS Structured");
    EXPECT_FALSE(other.Save(Path("new.zento"), pWing->GetId())) << "of another module";
}

TEST_F(CaseFile, AFolderThatMovedAsAWholeIsFoundAgain)
{
    OpenWindow();
    QDir().mkpath(Path("project/cases"));
    WriteData();
    ASSERT_TRUE(QDir().rename(Path("data"), Path("project/data")));
    CPlot3DSimulation* const pWing =
        Simulation(m_module.OpenPlot3D({Path("project/data/wing.x"), Path("project/data/flow1.q")}, VIEW));
    Shown(*pWing, 1)->setScalarVariable(Variable(*pWing, "P[Q]"));
    ASSERT_TRUE(m_module.Save(Path("project/cases/wing.zento"), pWing->GetId()));
    const QByteArray key = pWing->GetDataFileKey();
    CloseAll();
    ASSERT_TRUE(QDir().rename(Path("project"), Path("elsewhere")));
    const CPromptScript nobodyAsks;
    const CPlot3DSimulation* const pAgain = Simulation(m_module.Open(Path("elsewhere/cases/wing.zento"), -1));
    ASSERT_NE(pAgain, nullptr);
    EXPECT_EQ(Get(*pAgain, SimulationKey::DIRECTORY), Path("elsewhere/data"));
    EXPECT_EQ(static_cast<CBlock*>(pAgain->GetItem(1))->GetFileName(), Path("elsewhere/data/wing.x"));
    EXPECT_EQ(Shown(*pAgain, 1)->scalarVariable(), Variable(*pAgain, "P[Q]"));
    EXPECT_EQ(pAgain->GetTimeCount(), 2);
    EXPECT_EQ(m_module.OpenFromKey(key, VIEW, Path("elsewhere/cases")), pAgain->GetId())
        << "it is the open one";
}

TEST_F(CaseFile, MissingFilesAreListedOnceAndFoundInTheFolderThatTheUserNames)
{
    OpenWindow();
    const QString sFile = SaveWing();
    QTemporaryDir away;
    ASSERT_TRUE(QDir().rename(Path("data"), away.filePath("kept")));
    CPromptScript user;
    user.Press("Choose Folder...");
    user.ChooseFile(away.filePath("kept"));
    const CPlot3DSimulation* const pAgain = Simulation(m_module.Open(sFile, -1));
    ASSERT_NE(pAgain, nullptr);
    ASSERT_EQ(user.Asked().size(), 1);
    EXPECT_EQ(user.Asked()[0].sText,
              QString("Files of the case 'wing' are not where they were:\n%1\n%2\n%3")
                  .arg(Path("data/wing.x"), Path("data/flow1.q"), Path("data/wing.f")));
    EXPECT_TRUE(user.AskedFiles()[0].bFolder);
    EXPECT_EQ(Get(*pAgain, SimulationKey::DIRECTORY), away.filePath("kept"));
    EXPECT_NE(Shown(*pAgain, 1)->scalarVariable(), -1);
}

TEST_F(CaseFile, ACaseWithoutItsDataKeepsWhatItShowsUntilTheyAreBack)
{
    OpenWindow();
    const QString sFile = SaveWing();
    const QByteArray stored = Files::Read(sFile);
    ASSERT_TRUE(QDir().rename(Path("data"), Path("gone")));
    CPromptScript user;
    user.Press("Open Without");
    CLogCapture log;
    CPlot3DSimulation* const pWithout = Simulation(m_module.Open(sFile, -1));
    ASSERT_NE(pWithout, nullptr);
    EXPECT_TRUE(log.Lines().join('\n').contains("wing opens without data"));
    EXPECT_EQ(Names(*pWithout, KindBlock).size(), 4);
    EXPECT_EQ(Shown(*pWithout, 1)->scalarVariable(), -1);
    ASSERT_TRUE(m_module.Save(Path("without.zento"), pWithout->GetId()));
    EXPECT_TRUE(Files::Read(Path("without.zento")) == stored) << "nothing is lost by saving it so";
    ASSERT_TRUE(QDir().rename(Path("gone"), Path("data")));
    EXPECT_EQ(pWithout->Reload(), "");
    EXPECT_EQ(Shown(*pWithout, 1)->scalarVariable(), Variable(*pWithout, "P[Q]"));
}

TEST_F(CaseFile, AMissingSolutionLeavesTheGrid)
{
    OpenWindow();
    const QString sFile = SaveWing();
    for (const char* const sName : {"data/flow1.q", "data/flow2.q"})
        QFile::remove(Path(sName));
    CLogCapture log;
    UserPrompt::Install(nullptr); // as in a batch run: nothing waits
    const CPlot3DSimulation* const pAgain = Simulation(m_module.Open(sFile, -1));
    ASSERT_NE(pAgain, nullptr);
    EXPECT_EQ(Variable(*pAgain, "P[Q]"), -1);
    EXPECT_NE(Variable(*pAgain, "F1.1"), -1);
    EXPECT_EQ(Get(*pAgain, Plot3DKey::Q_FILE), "flow1.q") << "the case still names it";
    EXPECT_TRUE(log.Lines().join('\n').contains("The file " + Path("data/flow1.q") + " is not valid"));
}

TEST_F(CaseFile, AReferenceToItsDataOpensTheCaseWithItsSurfaces)
{
    OpenWindow();
    CPlot3DSimulation* const pWing = OpenWing();
    const QByteArray key = pWing->GetDataFileKey(), display = pWing->SaveViewState(VIEW);
    const QJsonObject json = pWing->SaveViewJson(VIEW);
    CloseAll();
    CPlot3DModule other(7, "CGNS Structured");
    EXPECT_EQ(other.OpenFromKey(key, VIEW), -1) << "of another module";
    CPlot3DSimulation* const pAgain = Simulation(m_module.OpenFromKey(key, VIEW));
    ASSERT_NE(pAgain, nullptr);
    EXPECT_TRUE(pAgain->GetItems(KindSurface).isEmpty());
    ASSERT_TRUE(pAgain->LoadViewState(display, VIEW, 1.0));
    EXPECT_EQ(pAgain->GetItems(KindSurface).size(), 2);
    EXPECT_EQ(pAgain->SaveViewJson(VIEW), json);
}

TEST_F(CaseFile, ADeletedBlockLeavesItsLegendToOneThatIsColouredAlike)
{
    OpenWindow();
    CPlot3DSimulation* const pWing = OpenData();
    const auto legendOf = [pWing](qint64 nItemId) { return Shown(*pWing, nItemId)->annotationColormap(); };
    for (const qint64 nBlock : {1, 3}) {
        Shown(*pWing, nBlock)->setScalarVariable(Variable(*pWing, "P[Q]"));
        Shown(*pWing, nBlock)->setGeometricColor(false);
    }
    legendOf(1)->setVisible(false);
    legendOf(3)->setVisible(true);
    pWing->BeginUndoStep();
    pWing->DeleteItem(3, -1);
    pWing->EndUndoStep();
    EXPECT_TRUE(legendOf(1)->isVisible());
    pWing->Undo();
    EXPECT_FALSE(legendOf(1)->isVisible());
    EXPECT_TRUE(legendOf(3)->isVisible());
}
