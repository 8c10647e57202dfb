// Display files of the module.
#include "cases/display/displaydocument.h"
#include "modules/plot3d/dialogs/plot3ddialog.h"
#include "modules/plot3d/icasefileseditor.h"
#include "tests/modules/plot3d/showncase.h"
#include "tests/support/files.h"
#include "tests/support/logcapture.h"
#include "tests/support/promptscript.h"

#include <QCheckBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLineEdit>
#include <QToolButton>
#include <QTreeWidget>

namespace {

class DisplayFile : public ShownCase
{
protected:
    DisplayFile() { OpenWindow(); }

    /** The only display file in the folder of the data. */
    QString TheFile() const
    {
        EXPECT_EQ(DisplayFiles().size(), 1);
        return Path("data/" + DisplayFiles().value(0));
    }
    SDisplayDocument Document(const QString& sFile) const
    {
        SDisplayDocument document;
        EXPECT_EQ(document.FromBytes(Files::Read(sFile)), StoredOk);
        return document;
    }
    QString Store(const QString& sName, const QByteArray& bytes) const
    {
        return Files::Write(Path(sName), bytes);
    }
    /** Loads the file and gives the one message that comes of it. */
    static QString Told(CPlot3DSimulation& simulation, const QString& sFile, bool bLoads)
    {
        CPromptScript user;
        user.Press("Ok");
        EXPECT_EQ(simulation.LoadDisplayFile(sFile, VIEW), bLoads);
        return user.Asked().value(0).sTitle + ": " + user.Asked().value(0).sText;
    }
};

} // namespace

TEST_F(DisplayFile, TheOneThatClosingWritesBringsEverythingBack)
{
    CPlot3DSimulation* const pWing = OpenWing();
    const QJsonObject json = pWing->SaveViewJson(VIEW);
    const SCamera camera = m_pWindow->m_view.m_camera;
    CloseAll();
    EXPECT_TRUE(QRegularExpression(R"(^\d{4}-\d\d-\d\d~\d\d:\d\d:\d\d~analyze\.disp$)")
                    .match(DisplayFiles().value(0))
                    .hasMatch());
    const QString sFile = TheFile();
    m_pWindow->m_view.m_camera = {};
    CPlot3DSimulation* const pAgain = OpenData();
    ASSERT_TRUE(pAgain->LoadDisplayFile(sFile, VIEW));
    EXPECT_EQ(pAgain->SaveViewJson(VIEW), json);
    EXPECT_EQ(pAgain->GetItems(KindSurface).size(), 2) << "surfaces are made anew";
    EXPECT_EQ(m_pWindow->m_view.m_camera, camera);
    EXPECT_EQ(CSimulationManager::Instance().GetDisplayTransforms(VIEW, pAgain->GetId()).size(), 6);
    EXPECT_EQ(pAgain->GetExtraText(), sFile);
    EXPECT_EQ(m_pWindow->m_nBlocked, 0);
    pAgain->Undo();
    EXPECT_TRUE(pAgain->GetItems(KindSurface).isEmpty()) << "one step";
}

TEST_F(DisplayFile, TwoViewsThatCloseInOneSecondLeaveTwoAndACaseOfNothingNone)
{
    CPlot3DSimulation* const pWing = OpenWing();
    pWing->SaveDisplayFile(VIEW);
    pWing->SaveDisplayFile(VIEW);
    pWing->SaveDisplayFile(7); // no view of the window
    EXPECT_EQ(DisplayFiles().size(), 2);
    CPlot3DSimulation* const pEmpty = Add();
    Set(*pEmpty, SimulationKey::DIRECTORY, Path("data"));
    pEmpty->SaveDisplayFile(VIEW);
    EXPECT_EQ(DisplayFiles().size(), 2);
}

TEST_F(DisplayFile, TheTableNamesTheDataOfTheCase)
{
    CPlot3DSimulation* const pWing = OpenWing();
    pWing->SaveDisplayFile(VIEW);
    const QJsonObject table = Document(TheFile()).overrides;
    EXPECT_EQ(table["dataFiles.gridFile"], Path("data/wing.x"));
    EXPECT_FALSE(table.contains("dataFiles.gridFiles")) << "there is one";
    EXPECT_EQ(table["dataFiles.qFiles"], QJsonArray({Path("data/flow1.q"), Path("data/flow2.q")}));
    EXPECT_EQ(table["dataFiles.functionFiles"], QJsonArray{Path("data/wing.f")});
    EXPECT_FALSE(table.contains("dataFiles.gridFileIndexList")) << "all blocks";
    EXPECT_EQ(table["mirror.offsetY"], -7);
    EXPECT_EQ(table["surface.Block 1.0.constantDirection"], 0);
}

TEST_F(DisplayFile, ChangedSettingsAreShownAndWrongOnesToldTogether)
{
    CPlot3DSimulation* const pWing = OpenWing();
    pWing->SaveDisplayFile(VIEW);
    SDisplayDocument document = Document(TheFile());
    document.overrides["mirror.X"] = true;
    document.overrides["periodicMirror.sectorZ"] = 2;
    document.overrides["surface.Block 1.0.constantValue"] = QJsonArray{4, 1, 1};
    document.overrides["surface.Block 9.0.constantValue"] = QJsonArray{4, 1, 1};
    document.overrides["mirror.offsetX"] = "left";
    const QString sFile = Store("edited.disp", "\n\n" + document.ToBytes());
    EXPECT_EQ(Told(*pWing, sFile, true),
              "Display Override Errors: 'mirror.offsetX': must be a number\nBlock 'Block 9' not found");
    EXPECT_EQ(CSimulationManager::Instance().GetDisplayTransforms(VIEW, pWing->GetId()).size(), 8);
    EXPECT_EQ(Shown(*pWing, 7)->name(), "Surface I = 4 [Block 1]");
    document.overrides = {{"mirror.offsetY", 2.0}};
    QJsonObject older = QJsonDocument::fromJson(document.ToBytes()).object();
    older["mirror"] = QJsonObject{{"mirrorY", true}, {"offsetY", 1.0}};
    older["periodic"] = QJsonObject{{"periodicX", true}, {"sectorX", 3}};
    EXPECT_TRUE(pWing->LoadDisplayFile(Store("older.disp", QJsonDocument(older).toJson()), VIEW));
    EXPECT_EQ(CSimulationManager::Instance().GetMirror(VIEW, pWing->GetId()).dOffset[1], 2.0);
    EXPECT_EQ(CSimulationManager::Instance().GetDisplayTransforms(VIEW, pWing->GetId()).size(), 6);
    document.overrides = {{"periodicMirror.Z", true}, {"periodicMirror.sectorZ", 1e6}};
    EXPECT_TRUE(Told(*pWing, Store("many.disp", document.ToBytes()), true)
                    .contains("would generate 1000000 transforms, which exceeds the safety limit of 16384"));
    EXPECT_EQ(CSimulationManager::Instance().GetDisplayTransforms(VIEW, pWing->GetId()).size(), 1);
}

TEST_F(DisplayFile, WhatIsNoneIsToldAndChangesNothing)
{
    CPlot3DSimulation* const pWing = OpenWing();
    const QByteArray display = pWing->SaveViewState(VIEW);
    const QString sMissing = Path("missing.disp");
    EXPECT_EQ(Told(*pWing, sMissing, false), "Display File: Could not open display file:\n" + sMissing);
    const QString sBroken = Store("broken.disp", "{\"version\": 1.0,");
    EXPECT_EQ(Told(*pWing, sBroken, false), "Display File: Invalid display file format:\n" + sBroken);
    const QString sEmpty =
        Store("empty.disp", R"({"userCustomSettings": {"mirror.Q": 1, "dataFiles.gridFile": "other.x"}})");
    EXPECT_EQ(Told(*pWing, sEmpty, false), "Display File: Failed to load display data from:\n" + sEmpty);
    const QString sOld = Store("old.disp", "no such file");
    EXPECT_EQ(Told(*pWing, sOld, false), "Display File: Failed to load display data from:\n" + sOld);
    SDisplayDocument newer;
    newer.dVersion = 1.5;
    const CPromptScript nobodyAsks;
    EXPECT_FALSE(pWing->LoadDisplayFile(Store("newer.disp", newer.ToBytes()), VIEW));
    EXPECT_TRUE(m_pWindow->m_sStatus.contains("newer version"));
    EXPECT_EQ(pWing->SaveViewState(VIEW), display);
    EXPECT_EQ(pWing->GetUndoCount(), 0);
}

TEST_F(DisplayFile, TheOlderFormIsReadToo)
{
    CPlot3DSimulation* const pWing = OpenWing();
    SOldDisplayFile old;
    old.display = pWing->SaveViewState(VIEW);
    old.camera = SStoredCamera(m_pWindow->m_view.m_camera).block;
    const SCamera camera = m_pWindow->m_view.m_camera;
    Shown(*pWing, 1)->setShadeColor(Qt::green);
    m_pWindow->m_view.m_camera = {};
    m_pWindow->m_view.m_camera.rotationPoint = camera.rotationPoint; // the form has none
    EXPECT_TRUE(pWing->LoadDisplayFile(Store("old.disp", old.ToBytes()), VIEW));
    EXPECT_EQ(pWing->SaveViewState(VIEW), old.display);
    EXPECT_EQ(m_pWindow->m_view.m_camera, camera);
}

TEST_F(DisplayFile, BlocksAreFoundByTheirGridThenByName)
{
    CPlot3DSimulation* const pWing = OpenData();
    Shown(*pWing, 2)->setShadeColor(Qt::red);
    QJsonObject display = pWing->SaveViewJson(VIEW);
    Shown(*pWing, 2)->setShadeColor(Qt::gray);
    QJsonArray blocks = display["meshBlocks"].toArray();
    QJsonObject block = blocks[1].toObject();
    EXPECT_EQ(block["identification"].toString(), pWing->GetItem(2)->GetLinkKey().toHex());
    block["blockName"] = "Block 4";
    ASSERT_TRUE(pWing->LoadViewJson({{"blocks", QJsonArray{block}}}, VIEW, 1.0));
    EXPECT_EQ(Shown(*pWing, 2)->shadeColor(), QColor(Qt::red)) << "the grid says more than the name";
    block["identification"] = "00";
    ASSERT_TRUE(pWing->LoadViewJson({{"blocks", QJsonArray{block}}}, VIEW, 1.0));
    EXPECT_EQ(Shown(*pWing, 4)->shadeColor(), QColor(Qt::red)) << "of another mesh";
    block["blockName"] = "Block 17";
    CLogCapture log;
    EXPECT_TRUE(pWing->LoadViewJson({{"meshBlocks", QJsonArray{block}},
                                     {"streamlines", QJsonArray{QJsonObject(), QJsonObject()}},
                                     {"extremePoints", QJsonArray{QJsonObject()}}},
                                    VIEW, 1.0));
    ASSERT_EQ(log.Lines().size(), 1);
    EXPECT_TRUE(log.Lines()[0].contains("wing: left out of the display: 1 block(s) that the case doesn't "
                                        "have, 2 streamline(s), 1 extreme point(s)"));
}

TEST_F(DisplayFile, DataFilesAreReadAgainWhereTheyAreOthersAndFoundBesideTheFile)
{
    CPlot3DSimulation* const pWing = OpenWing();
    pWing->SaveDisplayFile(VIEW);
    SDisplayDocument document = Document(TheFile());
    ASSERT_TRUE(QDir().mkpath(Path("copy")));
    ASSERT_TRUE(QFile::copy(Path("data/wing.x"), Path("copy/other.x")));
    document.overrides["dataFiles.gridFile"] = "/no/such/place/other.x";
    document.overrides["dataFiles.gridFileIndexList"] = QJsonArray{0, 2};
    document.overrides.remove("dataFiles.qFiles");
    document.overrides["dataFiles.qFile"] = Path("data/flow2.q");
    ASSERT_TRUE(pWing->LoadDisplayFile(Store("copy/edited.disp", document.ToBytes()), VIEW));
    EXPECT_EQ(Names(*pWing, KindBlock), QStringList({"Block 1", "Block 3"}));
    EXPECT_EQ(static_cast<CBlock*>(pWing->GetItems(KindBlock)[0])->GetFileName(), Path("copy/other.x"));
    EXPECT_EQ(Get(*pWing, SimulationKey::DIRECTORY), Path("copy")) << "that of the display file";
    EXPECT_EQ(Get(*pWing, Plot3DKey::Q_FILE), Path("data/flow2.q"));
    EXPECT_EQ(pWing->GetTimeCount(), 0) << "one level alone";
    EXPECT_EQ(Shown(*pWing, pWing->GetItems(KindBlock)[0]->GetId())->alphaValue(), 0.75);
    EXPECT_EQ(pWing->Reload(), "") << "the names lead to the files";

    document.overrides["dataFiles.gridFileIndexList"] = QJsonArray{"all"};
    EXPECT_EQ(Told(*pWing, Store("copy/bad.disp", document.ToBytes()), true),
              "Display File: Block index exceeds grid size in " + Path("copy/other.x"));
    EXPECT_EQ(Names(*pWing, KindBlock), QStringList({"Block 1", "Block 3"}));
}

TEST_F(DisplayFile, TheUserChoosesOneOfThoseBesideTheData)
{
    CPlot3DSimulation* const pWing = OpenWing();
    EXPECT_FALSE(pWing->ChooseDisplayFile(VIEW)) << "there are none: nothing to ask";
    pWing->SaveDisplayFile(VIEW);
    Shown(*pWing, 1)->setShadeColor(Qt::green);
    CPromptScript user;
    user.ChooseEntry("Skip");
    EXPECT_TRUE(pWing->ChooseDisplayFile(VIEW));
    EXPECT_EQ(user.AskedChoices()[0].sTitle, "Select Display File");
    EXPECT_EQ(user.AskedChoices()[0].sLabel, "Available Display Files");
    EXPECT_EQ(user.AskedChoices()[0].sEntryList, QStringList("Skip") + DisplayFiles());
    EXPECT_EQ(Shown(*pWing, 1)->shadeColor(), QColor(Qt::green));
    user.ChooseEntry(DisplayFiles()[0]);
    EXPECT_TRUE(pWing->ChooseDisplayFile(VIEW));
    EXPECT_NE(Shown(*pWing, 1)->shadeColor(), QColor(Qt::green));
    pWing->SetDisplayChosen();
    EXPECT_FALSE(pWing->ChooseDisplayFile(VIEW)) << "it was chosen with the data";
}

TEST_F(DisplayFile, TheImportCommandOpensTheCaseThatTheFileNames)
{
    CPlot3DSimulation* pWing = OpenWing();
    const QJsonObject json = pWing->SaveViewJson(VIEW);
    CloseAll();
    const QString sFile = TheFile();
    CPromptScript user;
    user.ChooseFile(sFile);
    m_module.SlotImportAnalyzeDisp();
    EXPECT_EQ(user.AskedFiles()[0].sTitle, "Select Display File");
    EXPECT_EQ(user.AskedFiles()[0].sFilter, "Display Files (*.disp);;All Files (*)");
    pWing = static_cast<CPlot3DSimulation*>(CSimulationManager::Instance().GetSimulationOfView(VIEW));
    ASSERT_NE(pWing, nullptr);
    EXPECT_EQ(pWing->SaveViewJson(VIEW), json);
    Shown(*pWing, 1)->setShadeColor(Qt::green);
    user.ChooseFile(sFile);
    m_module.SlotImportAnalyzeDisp();
    EXPECT_EQ(pWing->SaveViewJson(VIEW), json) << "onto the case that is there";
    EXPECT_EQ(CSimulationManager::Instance().GetSimulationIds().size(), 1);
    CloseAll();

    SDisplayDocument document = Document(sFile);
    document.overrides["dataFiles.gridFile"] = "/no/such/file.x";
    const std::pair<QString, QString> problems[] = {
        {Path("none.disp"), "Could not open:\n" + Path("none.disp")},
        {Store("old.disp", SOldDisplayFile().ToBytes()), "Only JSON .disp files are supported here."},
        {Store("broken.disp", "{"), "Invalid display file format."},
        {Store("lost.disp", document.ToBytes()), "Display file does not reference an accessible grid file."}};
    for (const auto& [sBad, sText] : problems) {
        user.ChooseFile(sBad);
        user.Press("Ok");
        m_module.SlotImportAnalyzeDisp();
        EXPECT_EQ(user.Asked().last().sText, sText);
        EXPECT_EQ(user.Asked().last().sTitle, "Display File");
    }
    EXPECT_TRUE(CSimulationManager::Instance().GetSimulationIds().isEmpty());
}

TEST_F(DisplayFile, TheFilesDialogTakesOneWithItsDataOrAlone)
{
    CPlot3DSimulation* const pWing = OpenWing();
    pWing->SaveDisplayFile(VIEW);
    const QString sFile = TheFile();
    CPlot3DDialog dialog;
    CPromptScript user;
    const auto browse = [&](const QString& sName) {
        user.ChooseFile(sName);
        dialog.findChild<QToolButton*>("m_pBrowseDisplayB")->click();
    };
    browse(sFile);
    EXPECT_EQ(dialog.GetRecords().grid.FileName(), Path("data/wing.x"));
    EXPECT_EQ(dialog.GetRecords().q.TransientCount(), 2);
    EXPECT_EQ(dialog.GetRecords().functions.size(), 1);
    EXPECT_EQ(dialog.findChild<QLineEdit*>("m_pDisplayFileE")->text(), sFile);
    user.Press("Ok");
    browse(Store("broken.disp", "{"));
    EXPECT_EQ(user.Asked().last().sText, "Invalid display file format.");
    EXPECT_EQ(dialog.GetRecords().sDisplayFile, sFile) << "the former one stays";
    auto* const pNoData = dialog.findChild<QCheckBox*>("m_pNoDataReadCB");
    EXPECT_TRUE(dialog.findChild<QTreeWidget*>("m_pFilesTreeList")->isEnabled());
    pNoData->click();
    EXPECT_FALSE(dialog.findChild<QTreeWidget*>("m_pFilesTreeList")->isEnabled());
    browse(Store("lost.disp", SDisplayDocument().ToBytes()));
    EXPECT_EQ(dialog.GetRecords().sDisplayFile, Path("lost.disp")) << "it need not name any data then";
    dialog.findChild<QToolButton*>("m_pDeleteDisplayB")->click();
    EXPECT_EQ(dialog.GetRecords().sDisplayFile, "");
}

TEST_F(DisplayFile, WhatTheDialogChoseIsShownOnTheDataThatAreThere)
{
    struct CEditor : ICaseFilesEditor
    {
        bool EditCaseFiles(CCaseRecords& records) override
        {
            records.sDisplayFile = sFile;
            records.bNoDataRead = true;
            CPlot3DDialog dialog;
            dialog.SetRecords(records);
            dialog.accept();
            return dialog.result() == QDialog::Accepted;
        }
        QString sFile;
    } editor;
    CPlot3DSimulation* const pWing = OpenWing();
    pWing->SaveDisplayFile(VIEW);
    editor.sFile = TheFile();
    const QColor color = Shown(*pWing, 1)->shadeColor();
    Shown(*pWing, 1)->setShadeColor(Qt::green);
    ICaseFilesEditor* const pFormer = ICaseFilesEditor::Install(&editor);
    EXPECT_TRUE(pWing->EditData());
    EXPECT_EQ(Shown(*pWing, 1)->shadeColor(), color);
    Shown(*pWing, 1)->setShadeColor(Qt::green);
    EXPECT_EQ(m_module.Analyze(VIEW), pWing->GetId());
    EXPECT_EQ(Shown(*pWing, 1)->shadeColor(), color) << "of the case that the view shows";
    editor.sFile.clear();
    EXPECT_TRUE(pWing->EditData()) << "nothing to do";
    CPromptScript user;
    user.Press("Ok");
    EXPECT_FALSE(Add()->EditData());
    EXPECT_EQ(user.Asked().last().sTitle, "No Data Read");
    CloseAll();
    user.Press("Ok");
    EXPECT_EQ(m_module.Analyze(VIEW), -1);
    ICaseFilesEditor::Install(pFormer);
}
