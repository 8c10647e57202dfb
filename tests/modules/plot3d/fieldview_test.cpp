// FieldView restarts: what is read, and what is shown then.
#include "modules/plot3d/dialogs/plot3ddialog.h"
#include "modules/plot3d/fieldview/fieldviewdisplay.h"
#include "modules/plot3d/fieldview/fieldviewimport.h"
#include "modules/plot3d/fieldview/fieldviewtext.h"
#include "modules/plot3d/fieldview/fieldviewvariables.h"
#include "tests/modules/plot3d/showncase.h"
#include "tests/support/logcapture.h"
#include "tests/support/promptscript.h"
#include "view/selectables/surfaceselectable.h"

#include <QCheckBox>
#include <QJsonArray>
#include <QLineEdit>
#include <QToolButton>

namespace {

const QByteArray MAIN =
    "data_file_restart_version: 18\ndata_type: 1\nfilename: /gone/wing.x\n"
    "dataset_dup_mirror_axis: 2\ndataset_dup_mode: 2\n"
    "data_type: 2\nfilename: /gone/flow1.q\n"
    "trans_restart_version: 9\nangle_axis: 1.5707963 0 0 2\ntranslation: 0.25 -0.5 0\nscale: 8\nzoom: 2\n";
const QByteArray SURFACES =
    "comp_surf_restart_version: 10\nnum_of_grids: 2\n"
    "num_of_walls_per_grid: 1\nnum_of_walls_per_grid: 2\n"
    "dataset: *\nmin: *\nmax: *\ncurr: 4\nmin: 2\nmax: 3\ncurr: 3\nmin: *\nmax: *\ncurr: 1\n"
    "direction_plane: 1\ndisplay_type: 3\ncolor: 6\nvisibility: 1\ntransparency: 0.25\n"
    "scalar_funct: \"Mach-Number [PLOT3D]\"\nscalar_min_max: 0.5 1.5\nshow_mesh: 1\n"
    "dataset: *\ncurr: 1\ncurr: 1\ncurr: 2\ndirection_plane: 3\ndisplay_type: 1\ncolor: 6\n"
    "dataset: *\ndirection_plane: 2\nvisibility: 0\n";
const QByteArray COLORS =
    "colormap_restart_version: 8\n6: 0 255 255\n7: 256 0 0\ngeom_color: 6\ncolor_map_type: viridis\n";
const QByteArray OTHERS =
    "coord_surf_restart_version: 1\nnumber_of_surfaces: 1\nactive_axis: 2\nxcur: 1\nycur: 2.5\n"
    "streamline_restart_version: 1\nnum_rakes: 2\nnum_seeds: 2\nseed_xyz: 1 2 3\nseed_xyz: 1 2 x\n"
    "seed_ijk: 2 2 2\nseed_xyz: 4 5 6\nnum_seeds: 2\nseed_ijk: 3 1 2 4\nseed_ijk: 5 6 7\n"
    "seed_ijk: 0 1 1\nintegration_direction: 2\n";

class FieldView : public ShownCase
{
protected:
    QString WriteRestart()
    {
        WriteText("data/a.dat", MAIN);
        WriteText("data/a.cmp", SURFACES);
        WriteText("data/a.map", COLORS);
        WriteText("data/a.oth", OTHERS);
        WriteText("data/ab.cmp", SURFACES); // of another restart
        return Path("data/a.dat");
    }
    static QJsonObject Surface(const SDisplayDocument& document, int nBlock, int nSurface)
    {
        const QJsonObject block = document.display["meshBlocks"].toArray()[nBlock].toObject();
        return block["disp"].toObject()["surfaces"].toArray()[nSurface].toObject();
    }
    static QJsonObject Drawable(const SDisplayDocument& document, int nBlock, int nSurface)
    {
        return Surface(document, nBlock, nSurface)["drawables"].toArray()[0].toObject();
    }
};

} // namespace

TEST_F(FieldView, AFileIsOneByBothMarksInItsFirstHundredLines)
{
    WriteText("first.dat", MAIN);
    WriteText("late.dat", QByteArray(99, '\n') + MAIN);
    WriteText("half.dat", "data_type: 1\n");
    EXPECT_TRUE(IsFieldViewRestart(Path("first.dat")));
    EXPECT_FALSE(IsFieldViewRestart(Path("late.dat"))) << "the second mark is in line 101";
    EXPECT_FALSE(IsFieldViewRestart(Path("half.dat")));
    EXPECT_FALSE(IsFieldViewRestart(Path("none.dat")));
    EXPECT_EQ(TranslateFieldViewVariable("velocity magnitude [plot3d]"), "Vmag[Q]");
    EXPECT_EQ(TranslateFieldViewVariable("Momentum Vectors [PLOT3D]"), "Momentum");
    EXPECT_EQ(TranslateFieldViewVariable("Density (Q1)"), "R");
    EXPECT_EQ(TranslateFieldViewVariable("Velocity Vectors [PLOT3D]"), "Velocity");
    EXPECT_EQ(TranslateFieldViewVariable("Gamma"), "Gamma");
}

TEST_F(FieldView, MainFileAndCompanionsBecomeADisplay)
{
    const auto restart = ReadFieldViewRestart(WriteRestart());
    ASSERT_TRUE(restart);
    const SDisplayDocument document = ToDisplayDocument(*restart);
    EXPECT_EQ(restart->sGridFileList, QStringList{"/gone/wing.x"});
    EXPECT_EQ(restart->sQFileList, QStringList{"/gone/flow1.q"});
    EXPECT_EQ(document.overrides["mirror.Y"], true);
    EXPECT_EQ(document.overrides["mirror.X"], false);
    const auto camera = CameraFromJson(document.viewer);
    ASSERT_TRUE(camera);
    EXPECT_EQ(camera->viewSize, QSizeF(4.0, 4.0));
    EXPECT_EQ(camera->viewCenter, QPointF(-2.0, 4.0));
    EXPECT_NEAR(camera->rotationPoint.x, 4.0, 1e-6) << "in the middle of what is seen";
    EXPECT_NEAR(camera->view(1, 0), 1.0, 1e-6) << "a quarter turn about z";

    const QJsonArray blocks = document.display["meshBlocks"].toArray();
    ASSERT_EQ(blocks.size(), 2);
    EXPECT_EQ(blocks[0].toObject()["blockName"], "Grid1");
    const QJsonObject first = Surface(document, 0, 0);
    EXPECT_EQ(first["constantDirection"], 0);
    EXPECT_EQ(first["constantValue"], (QJsonArray{4, 3, 1}));
    const QJsonObject drawable = Drawable(document, 0, 0);
    EXPECT_EQ(drawable["ijkMin"].toArray()[1], 2);
    EXPECT_EQ(drawable["ijkMax"].toArray()[1], 3);
    EXPECT_EQ(drawable["displayType"], DisplayShadedWireframe);
    EXPECT_EQ(drawable["scalarVariable"], "M[Q]");
    EXPECT_EQ(drawable["geometricColor"], false);
    EXPECT_EQ(drawable["colormapName"], "Viridis");
    EXPECT_EQ(drawable["colormapRange"], (QJsonArray{0.5, 1.5}));
    EXPECT_EQ(drawable["alphaValue"], 0.75);
    const QJsonObject second = Drawable(document, 1, 0);
    EXPECT_EQ(second["displayType"], DisplayWireframe);
    EXPECT_EQ(second["wireframeColor"], "#ff00ffff");
    EXPECT_EQ(Drawable(document, 1, 1)["visible"], false);

    const QJsonObject plane =
        document.display["coordinateSurfaces"].toArray()[0].toObject()["selectable"].toObject();
    EXPECT_EQ(plane["planeNormal"], (QJsonArray{0, 1, 0}));
    EXPECT_EQ(plane["planeValue"], 2.5);
    const QJsonArray rakes = document.display["streamlines"].toArray();
    EXPECT_EQ(rakes[0]["seedDrawable"]["xyzList"].toArray().size(), 2) << "one seed was no point";
    EXPECT_TRUE(rakes[0]["seedIJKs"].isUndefined()) << "places go ahead of indices";
    EXPECT_EQ(rakes[0]["integratorDirection"], 0);
    EXPECT_EQ(rakes[1]["seedIJKs"], (QJsonArray{QJsonArray{1, 2, 4}, QJsonArray{5, 6, 7}}));
    EXPECT_EQ(rakes[1]["seedZoneIds"], (QJsonArray{3, 1}));
    EXPECT_EQ(rakes[1]["integratorDirection"], 2);
}

TEST_F(FieldView, WhatStandsInsideASurfaceBelongsToItAlone)
{
    SFieldViewRestart restart;
    ReadFieldViewText("comp_surf_restart_version: 10\nnum_of_walls_per_grid: 2\n"
                      "dataset: *\nstart_grid: 2\nend_grid: 4\ncolormap_atts_restart_version: 1\n"
                      "color_map_type: 3\nvisibility: 0\ndataset: *\nstart_grid: *\n",
                      restart);
    const SDisplayDocument document = ToDisplayDocument(restart);
    ASSERT_EQ(document.display["meshBlocks"].toArray().size(), 4) << "one of grid 1, the other of 2 to 4";
    const QJsonObject drawable = Drawable(document, 3, 0);
    EXPECT_EQ(drawable["visible"], false) << "behind the colours";
    EXPECT_EQ(drawable["colormapName"], "NASA1");
    EXPECT_EQ(Drawable(document, 0, 0)["colormapName"], "");
}

TEST_F(FieldView, WhatASurfaceSaysIsHowItIsDrawn)
{
    struct SLook
    {
        const char* sName;
        const char* sGeneral; ///< lines ahead of all surfaces
        const char* sSurface;
        const char* sKey; ///< of the drawable
        QJsonValue expected;
    };
    const char* const CONTOURS = "display_type: 4\nscalar_funct: \"Z (Q3)\"\n";
    const char* const ARROWS = "vector_len_scale: 2\nvector_u_min_max: -1 3\nvector_w_min_max: -4 0\n";
    const SLook looks[] = {
        {"own range", "", "use_local_scalar_minmax: 1\nlocal_scalar_min_max: 2 3\nscalar_min_max: 0 9\n",
         "colormapRange", QJsonArray{2, 3}},
        {"upside down", "", "color_invert: 1\nscalar_min_max: 0 9\n", "colormapRange", QJsonArray{9, 0}},
        {"all are", "color_invert: 1\n", "scalar_min_max: 0 9\n", "colormapRange", QJsonArray{9, 0}},
        {"but it", "color_invert: 1\n", "color_invert: 0\nscalar_min_max: 0 9\n", "colormapRange",
         QJsonArray{0, 9}},
        {"no range", "", "scalar_min_max: 9 0\n", "colormapBindToLocal", true},
        {"contours", "", CONTOURS, "displayType", DisplayContour},
        {"filled", "contour_filled: 1\n", CONTOURS, "displayType", DisplayShaded},
        {"contours of all", "number_of_contours: 64\n", "", "contourCount", 64},
        {"its own", "number_of_contours: 64\n", "number_of_contours: 7\n", "contourCount", 7},
        {"arrows", "trans_restart_version: 9\nscale: 8\n", ARROWS, "vectorBodyScale", 200.0},
        {"no size", "", ARROWS, "vectorBodyScale", 2.0},
    };
    for (const SLook& look : looks) {
        SFieldViewRestart restart;
        ReadFieldViewText(
            QString(look.sGeneral) + "comp_surf_restart_version: 10\ndataset: *\n" + look.sSurface, restart);
        const SDisplayDocument document = ToDisplayDocument(restart);
        EXPECT_EQ(Drawable(document, 0, 0)[look.sKey], look.expected) << look.sName;
    }
}

TEST_F(FieldView, SurfacesOfTheSameColoursShareALegend)
{
    const QString sSurface = "dataset: *\nlegend_type: %1\nspectrum_num_labels: 5\nlegend_decimal_places: 1\n"
                             "scalar_funct: \"Density (Q1)\"\nscalar_min_max: 0 %2\n";
    SFieldViewRestart restart;
    ReadFieldViewText("comp_surf_restart_version: 10\n" + sSurface.arg("1", "1") + sSurface.arg("2", "1") +
                          sSurface.arg("2", "1") + sSurface.arg("2", "7"),
                      restart);
    const SDisplayDocument document = ToDisplayDocument(restart);
    const auto legend = [&](int nBlock) {
        return Drawable(document, nBlock, 0)["annotationColormap"].toObject();
    };
    QVector<bool> shown;
    for (const int nBlock : {0, 1, 2, 3})
        shown.append(legend(nBlock)["visible"].toBool());
    EXPECT_EQ(shown, (QVector<bool>{false, true, false, true}));
    EXPECT_EQ(legend(1)["labelCount"], 5);
    EXPECT_EQ(legend(1)["digits"], 1);
    EXPECT_GT(legend(3)["x"].toInt(), legend(1)["x"].toInt() + 100) << "beside each other";
}

TEST_F(FieldView, AnAngleBeyondATurnIsInDegrees)
{
    const auto angle = [](const char* sValue) {
        SFieldViewRestart restart;
        ReadFieldViewText(QString("trans_restart_version: 9\nangle_axis: %1 0 0 1\n").arg(sValue), restart);
        return restart.dAngle;
    };
    EXPECT_DOUBLE_EQ(angle("-6.2"), -6.2);
    EXPECT_DOUBLE_EQ(angle("90"), M_PI / 2.0);
}

TEST_F(FieldView, LinesThatAreNotUnderstoodAreCountedBySection)
{
    SFieldViewRestart restart;
    ReadFieldViewText("data_file_restart_version: 18\ndata_type: 1\niblanks: 1\n\n"
                      "comp_surf_restart_version: 10\nnum_of_grids: 1\ndataset: *\ninc: 1\ninc: 2\n"
                      "transparency: thin\nsurface_type: 2\nvisibility: 1\nend\n"
                      "title_restart_version: 2\nCFD of a wing\n",
                      restart);
    EXPECT_EQ(restart.passedOver, (QMap<QString, int>{{"data_file", 1}, {"comp_surf", 3}, {"title", 1}}));
}

TEST_F(FieldView, OnlyTextsOfTheSameNameAreCompanions)
{
    WriteText("data/run[1].dat", MAIN);
    WriteText("data/run[1].cmp", SURFACES);
    WriteText("data/run[1].log", "# of the solver\ncomp_surf: 1\ndataset: *\nscale: 7\n");
    const auto restart = ReadFieldViewRestart(Path("data/run[1].dat"));
    ASSERT_TRUE(restart);
    EXPECT_EQ(restart->surfaces.size(), 3);
    EXPECT_EQ(restart->dScale, 8.0);
}

TEST_F(FieldView, TheImportShowsItsSurfacesInTheBlocks)
{
    OpenWindow();
    CPlot3DSimulation* const pCase = OpenData();
    ISelectable* const pBlock = Shown(*pCase, pCase->GetItems(KindBlock)[3]->GetId());
    ISelectable* const pBoundary = Shown(*pCase, pCase->GetItems(KindBoundarySurface)[0]->GetId());
    const qint64 nScalar = Variable(*pCase, "P[Q]");
    pBlock->setScalarVariable(nScalar);
    const QByteArray before = pCase->SaveViewState(VIEW);
    CLogCapture log;
    ASSERT_TRUE(ShowFieldView(*pCase, WriteRestart(), VIEW));
    EXPECT_TRUE(log.Lines().value(0).contains("lines passed over: 1 of colormap, 2 of streamline"));
    EXPECT_TRUE(QRegularExpression(R"(^\d{4}-\d\d-\d\d~\d\d:\d\d:\d\d~fieldview-import~analyze\.disp$)")
                    .match(DisplayFiles().value(0))
                    .hasMatch());
    EXPECT_EQ(pCase->GetExtraText(), Path("data/" + DisplayFiles().value(0)));
    const QVector<CItem*> surfaces = pCase->GetItems(KindSurface);
    ASSERT_EQ(surfaces.size(), 3);
    auto* const pFirst = static_cast<CSurfaceSelectable*>(Shown(*pCase, surfaces[0]->GetId()));
    EXPECT_EQ(pFirst->name(), "Surface I = 4 [Block 1]");
    EXPECT_EQ(pFirst->startIndices(), (IVector3D{1, 2, 1}));
    EXPECT_EQ(pFirst->endIndices(), (IVector3D{5, 3, 3})) << "an open end is that of the block";
    EXPECT_EQ(pFirst->scalarVariable(), Variable(*pCase, "M[Q]"));
    EXPECT_EQ(Shown(*pCase, surfaces[1]->GetId())->name(), "Surface K = 2 [Block 2]");
    EXPECT_FALSE(Shown(*pCase, surfaces[2]->GetId())->isVisible());
    for (const CItem* const pItem : pCase->GetItems(KindBlock))
        EXPECT_FALSE(Shown(*pCase, pItem->GetId())->isVisible()) << "a restart shows its surfaces alone";
    EXPECT_FALSE(pBoundary->isVisible());
    EXPECT_EQ(pBlock->scalarVariable(), nScalar);
    EXPECT_TRUE(CSimulationManager::Instance().GetMirror(VIEW, pCase->GetId()).bActive[1]);
    WriteText("data/a.cmp", "comp_surf_restart_version: 10\ndataset: *\n");
    ASSERT_TRUE(ShowFieldView(*pCase, Path("data/a.dat"), VIEW));
    EXPECT_FALSE(Shown(*pCase, surfaces[1]->GetId())->isVisible()) << "of the former restart";
    EXPECT_EQ(pCase->GetItems(KindSurface).size(), 3);
    pCase->Undo();
    pCase->Undo();
    EXPECT_EQ(pCase->SaveViewState(VIEW), before) << "a step each";
    WriteText("data/a.cmp", "");
    ASSERT_TRUE(ShowFieldView(*pCase, Path("data/a.dat"), VIEW));
    EXPECT_TRUE(pBlock->isVisible()) << "without surfaces nothing would be seen";
}

TEST_F(FieldView, WhatIsNoRestartIsTold)
{
    WriteText("no.dat", "nothing");
    CPromptScript user;
    user.ChooseFile("");
    EXPECT_EQ(AskFieldView(), "");
    EXPECT_EQ(user.AskedFiles().first().sTitle, "Select FieldView Restart File");
    EXPECT_EQ(user.AskedFiles().first().sFilter, "FieldView Restart (*.dat);;All Files (*)");
    user.ChooseFile(Path("no.dat"));
    user.Press("Ok");
    EXPECT_EQ(AskFieldView(), "");
    EXPECT_EQ(user.Asked().first().sTitle, "FieldView Import");
    EXPECT_EQ(user.Asked().first().sText,
              QString("This file is not a valid FieldView restart .dat file:\n%1").arg(Path("no.dat")));

    CPlot3DSimulation* const pCase = OpenData();
    const QString sFile = WriteRestart();
    const QByteArray shown = pCase->SaveViewState(VIEW);
    Set(*pCase, SimulationKey::DIRECTORY, Path("no such folder"));
    user.Press("Ok");
    EXPECT_FALSE(ShowFieldView(*pCase, sFile, VIEW));
    EXPECT_EQ(user.Asked().last().sTitle, "FieldView Restart");
    EXPECT_EQ(user.Asked().last().sText,
              "Failed to save display file:\n" + Path("no such folder/fieldview-import~analyze.disp"));
    EXPECT_EQ(pCase->SaveViewState(VIEW), shown);
}

TEST_F(FieldView, AVelocityThatOnlyTheFormulasGiveIsTaken)
{
    SFieldViewRestart restart;
    ReadFieldViewText("comp_surf_restart_version: 10\ndataset: *\nscalar_funct: \"u-velocity [PLOT3D]\"\n",
                      restart);
    const auto scalar = [&](const QStringList& sVariableList) {
        const SDisplayDocument document = ToDisplayDocument(restart, sVariableList);
        return Drawable(document, 0, 0)["scalarVariable"].toString();
    };
    EXPECT_EQ(scalar({"U[Q]"}), "U[Q]");
    EXPECT_EQ(scalar({"U", "U[Q]"}), "U");
    EXPECT_EQ(scalar({}), "U");
}

TEST_F(FieldView, TheCommandTakesTheDataBesideTheRestart)
{
    OpenWindow();
    CPlot3DSimulation* const pCase = OpenData();
    ASSERT_TRUE(QDir().mkpath(Path("restart")));
    Write("restart/small.x", 2, KindGrid, {{{7, 6, 5}, 2}});
    WriteText("restart/a.cmp", SURFACES);
    WriteText("restart/a.dat", QByteArray(MAIN).replace("wing.x", "small.x"));
    WriteText("restart/lost.dat", QByteArray(MAIN).replace("wing.x", "lost.x"));
    CPromptScript user;
    user.ChooseFile(Path("restart/lost.dat"));
    m_module.SlotImportFieldViewRestart();
    EXPECT_EQ(pCase->GetItems(KindBlock).size(), 4) << "without its data it goes onto those that are there";
    user.ChooseFile(Path("restart/a.dat"));
    m_module.SlotImportFieldViewRestart();
    EXPECT_EQ(pCase->GetItems(KindBlock).size(), 1);
    EXPECT_EQ(pCase->GetItems(KindSurface).size(), 1);
    EXPECT_EQ(CSimulationManager::Instance().GetSimulationIds().size(), 1);
    CloseAll();
    user.ChooseFile(Path("restart/lost.dat"));
    user.Press("Ok");
    m_module.SlotImportFieldViewRestart();
    EXPECT_EQ(user.Asked().last().sTitle, "Display File");
    EXPECT_EQ(user.Asked().last().sText, "Display file does not reference an accessible grid file.");
    EXPECT_TRUE(CSimulationManager::Instance().GetSimulationIds().isEmpty());
    user.ChooseFile(Path("restart/a.dat"));
    m_module.SlotImportFieldViewRestart();
    ASSERT_EQ(CSimulationManager::Instance().GetSimulationIds().size(), 1) << "a case of them";
}

TEST_F(FieldView, TheFilesDialogWritesNothingAndTakesTheDataUnlessTheyStay)
{
    WriteData();
    const QString sFile = WriteRestart();
    CPlot3DDialog dialog;
    CPromptScript user;
    const auto click = [&](const char* sButton) { dialog.findChild<QToolButton*>(sButton)->click(); };
    user.ChooseFile(sFile);
    click("m_pBrowseFieldViewB");
    EXPECT_EQ(dialog.GetRecords().grid.FileName(), Path("data/wing.x")) << "named elsewhere, beside it";
    EXPECT_EQ(dialog.GetRecords().q.FileName(), Path("data/flow1.q"));
    EXPECT_EQ(dialog.findChild<QLineEdit*>("m_pFieldViewE")->text(), sFile);
    dialog.findChild<QCheckBox*>("m_pNoDataReadCB")->click();
    user.Press("Ok");
    dialog.accept();
    EXPECT_EQ(user.Asked().last().sTitle, "No Data Read");
    EXPECT_NE(dialog.result(), QDialog::Accepted) << "it can be unchecked";
    click("m_pDeleteFieldViewB");
    EXPECT_FALSE(dialog.GetRecords().HasDisplay());
    dialog.reject();
    EXPECT_TRUE(DisplayFiles().isEmpty());
}

TEST_F(FieldView, NoDataReadLeavesTheDataOfTheCase)
{
    OpenWindow();
    CPlot3DSimulation* const pCase = OpenData();
    Write("data/small.x", 2, KindGrid, {{{7, 6, 5}, 2}});
    WriteText("data/small.disp", R"({"version": 1.0, "viewportDisp": {"meshBlocks": []},
        "userCustomSettings": {"dataFiles.gridFile": "small.x"}})");
    CCaseRecords records;
    records.bNoDataRead = true;
    records.sDisplayFile = Path("data/small.disp");
    const CPromptScript nobodyAsks;
    EXPECT_TRUE(pCase->ShowDisplayOf(records, VIEW));
    records.sDisplayFile.clear();
    records.sRestartFile = WriteRestart();
    WriteText("data/a.dat", QByteArray(MAIN).replace("wing.x", "small.x"));
    EXPECT_TRUE(pCase->ShowDisplayOf(records, VIEW));
    EXPECT_EQ(pCase->GetItems(KindBlock).size(), 4);
    EXPECT_EQ(pCase->GetItems(KindSurface).size(), 3);
}

TEST_F(FieldView, ARealRestartHasItsThreeSurfaces)
{
    const QString sFile =
        qEnvironmentVariable("ZENTO_SAMPLE_DATA", ZENTO_SAMPLE_DATA) + "/fieldview/fv.restart_xmera.dat";
    if (!QFile::exists(sFile))
        GTEST_SKIP() << "no sample files";
    const auto restart = ReadFieldViewRestart(sFile);
    ASSERT_TRUE(restart);
    ASSERT_EQ(restart->surfaces.size(), 3);
    EXPECT_EQ(restart->surfaces[2].nGrid, 3);
    EXPECT_EQ(restart->surfaces[2].nDirection, 2);
    EXPECT_EQ(restart->surfaces[2].current, (std::array<qint64, 3>{24, 56, 1}));
    EXPECT_EQ(restart->surfaces[0].look.sScalar, "M[Q]");
    EXPECT_FALSE(restart->surfaces[0].look.bLegend) << "those of all three would stand in one place";
    EXPECT_EQ(restart->colorTable.size(), 8);
    EXPECT_EQ(restart->colors.sColormap, "RGB LINEAR");
    const auto camera = CameraFromJson(ToDisplayDocument(*restart).viewer);
    ASSERT_TRUE(camera);
    EXPECT_NEAR(camera->viewSize.height(), 2.295, 1e-3) << "round an airfoil of length 1";
    EXPECT_NEAR(camera->viewCenter.x(), 0.7775, 1e-3);
    EXPECT_TRUE(restart->sGridFileList.first().endsWith("plot3dg.bin_xmera"));
}
