#include "modules/plot3d/ui/plot3dmodule.h"

#include "data/io/gridio.h"
#include "frame/moduleregistry.h"
#include "modules/plot3d/dialogs/blocklistdialog.h"
#include "modules/plot3d/dialogs/plot3ddialog.h"
#include "tests/modules/plot3d/plot3dcasetest.h"
#include "tests/support/casewindow.h"
#include "tests/support/promptscript.h"

#include <QAction>
#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

namespace {

class Plot3DModule : public Plot3DCaseTest
{
protected:
    Plot3DModule()
    {
        m_module.AddMainMenus(m_window);
        m_module.Initialize();
    }
    ~Plot3DModule() override { CSimulationManager::Instance().RemoveAllViews(); }
    static CPlot3DSimulation* Simulation(qint64 nId)
    {
        return static_cast<CPlot3DSimulation*>(CSimulationManager::Instance().GetSimulation(nId));
    }
    static QStringList States(const QMenu& menu)
    {
        QStringList sList;
        for (const QAction* const pAction : menu.actions())
            if (!pAction->isSeparator())
                sList.append(pAction->text() + (pAction->isEnabled() ? "" : " -"));
        return sList;
    }

    CCaseWindow m_window;
    CPlot3DModule m_module;
};

using Plot3DDialog = Plot3DCaseTest;

QString RowText(const CPlot3DDialog& dialog, int nRow, int nColumn)
{
    return dialog.findChild<QTreeWidget*>("m_pFilesTreeList")->topLevelItem(0)->child(nRow)->text(nColumn);
}

void Click(CPlot3DDialog& dialog, const QString& sButton)
{
    dialog.findChild<QToolButton*>(sButton)->click();
    QCoreApplication::processEvents();
}

} // namespace

TEST_F(Plot3DDialog, FilesAreChosenShownAndAccepted)
{
    WriteGrid();
    WriteQ("case1.q");
    WriteQ("case2.q");
    WriteFunction();
    WriteText("text.q", "no file of this kind");
    CPlot3DDialog dialog;
    CPromptScript user;
    user.Press("Ok");
    dialog.accept();
    EXPECT_EQ(user.Asked().last().sText, "Please select a valid grid file");
    user.ChooseFile(Path("case.x"));
    Click(dialog, QString("m_pBrowse%1-1").arg(RoleGrid));
    EXPECT_EQ(user.AskedFiles().last().sTitle, "Select Grid File");
    EXPECT_EQ(user.AskedFiles().last().sFilter, "Grid Files (*.x *.xyz *.xyzb);; All Files (*)");
    EXPECT_EQ(RowText(dialog, 0, 1), "case.x\t(4 grids)");
    EXPECT_EQ(RowText(dialog, 0, 2), "grid, 3-D, 4 blocks, double precision, Fortran records");
    EXPECT_EQ(RowText(dialog, 1, 1), "") << "neither the same stem nor the only one: text.q";
    user.ChooseFile(Path("text.q"));
    user.Press("Ok");
    Click(dialog, QString("m_pBrowse%1-1").arg(RoleQ));
    EXPECT_EQ(user.Asked().last().sTitle, "Invalid file");
    dialog.AddFiles({Path("case2.q")});
    EXPECT_EQ(RowText(dialog, 1, 1), "case2.q\t(2 transient files)");
    auto* const pTransient = dialog.findChild<QCheckBox*>("m_pTransientCB");
    EXPECT_EQ(pTransient->text(), "Read transient data (2 files)");
    pTransient->click();
    EXPECT_FALSE(dialog.GetRecords().bReadTransient);
    EXPECT_EQ(dialog.GetRecords().functions.size(), 1) << "of the same stem as the grid";
    user.ChooseFile(Path("case.f"));
    user.Press("Ok");
    Click(dialog, QString("m_pBrowse%1-1").arg(RoleFunction));
    EXPECT_EQ(user.Asked().last().sTitle, "Function Exists");
    Click(dialog, QString("m_pDelete%1").arg(RoleFunction) + "0");
    EXPECT_TRUE(dialog.GetRecords().functions.isEmpty());
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST_F(Plot3DDialog, BlocksAreChosenFromAList)
{
    CBlockListDialog dialog({{5, 4, 3}, {3, 3, 3}, {2, 6, 4}}, {0, 2}, nullptr);
    auto* const pList = dialog.findChild<QListWidget*>("m_pBlockList");
    EXPECT_EQ(pList->item(2)->text(), "Block 3 (2 x 6 x 4)");
    EXPECT_EQ(dialog.GetBlocks(), QVector<qint64>({0, 2}));
    pList->item(1)->setSelected(true);
    dialog.findChild<QPushButton*>("m_pSelectedB")->click();
    EXPECT_EQ(dialog.GetBlocks(), QVector<qint64>({1}));
    dialog.findChild<QPushButton*>("m_pNoneB")->click();
    EXPECT_TRUE(dialog.GetBlocks().isEmpty());
}

TEST_F(Plot3DModule, FilesOpenWithoutAQuestionAndOnlyOnce)
{
    WriteGrid();
    for (const char* const sName : {"case.10.q", "case.20.q"})
        WriteQ(sName);
    const qint64 nId = m_module.OpenPlot3D({Path("case.20.q")}, VIEW);
    ASSERT_NE(nId, -1);
    EXPECT_EQ(Get(*Simulation(nId), Plot3DKey::GRID_FILE), "case.x") << "by its name";
    EXPECT_EQ(CSimulationManager::Instance().GetTime(VIEW, nId), 20.0) << "the level that was chosen";
    EXPECT_EQ(CSimulationManager::Instance().GetSimulationOfView(VIEW), Simulation(nId));
    EXPECT_EQ(m_window.m_nBlocked, 0);
    EXPECT_EQ(m_module.CreateFromFiles({Path("case.x"), Path("case.20.q")}, 2), nId);
    EXPECT_EQ(CSelectableManager::Instance().GetSelectables(2, nId).size(), 4) << "in the second view too";
    EXPECT_EQ(m_module.OpenFromKey(Simulation(nId)->GetDataFileKey(), VIEW), nId);
    EXPECT_EQ(m_module.OpenFromKey("no key", VIEW), -1);
    WriteQ("case.30.q");
    EXPECT_TRUE(m_module.AddTransient(nId));
    EXPECT_EQ(Simulation(nId)->GetTimeCount(), 3);
    EXPECT_EQ(CSimulationManager::Instance().GetTime(VIEW, nId), 20.0);
}

TEST_F(Plot3DModule, WhatMakesNoCaseIsToldAndLeavesNone)
{
    const QString sQ = Write("alone.q", 49, KindQ, Plot3DFixture::Blocks({{2, 2, 2}}));
    CPromptScript user;
    user.Press("Ok");
    EXPECT_EQ(m_module.OpenPlot3D({sQ}, VIEW), -1);
    EXPECT_EQ(user.Asked().last().sText, "Please select a valid grid file");
    user.Press("Ok");
    EXPECT_EQ(m_module.OpenPlot3D({WriteGrid(), sQ}, VIEW), -1);
    EXPECT_EQ(user.Asked().last().sTitle, "Dimensions Mismatch");
    EXPECT_TRUE(CSimulationManager::Instance().GetSimulationIds().isEmpty());
}

TEST_F(Plot3DModule, CommandsThatCanBeUsedAreNotGrey)
{
    EXPECT_EQ(States(m_window.m_importMenu),
              QStringList({"Plot3D...", "Analyze Display...", "FieldView Restart..."}));
    m_module.ShowModuleWidgets(VIEW);
    EXPECT_FALSE(m_module.GetMenus()[0]->menuAction()->isVisible());
    const qint64 nId = m_module.OpenPlot3D({WriteGrid()}, VIEW);
    m_module.ShowModuleWidgets(VIEW);
    EXPECT_TRUE(m_module.GetMenus()[0]->menuAction()->isVisible());
    EXPECT_EQ(States(m_window.m_exportMenu), QStringList({"Plot3D..."}));
    EXPECT_EQ(States(*m_module.GetMenus()[0]),
              QStringList({"Surface", "Coordinate Surface -", "ISO Surface -", "Extreme Point -",
                           "Streamline -", "Modify -", "Unify item data -"}));
    Simulation(nId)->GetItem(1)->SelectInView(VIEW);
    m_module.UpdateActions(VIEW, nId);
    EXPECT_TRUE(m_module.GetMenus()[0]->actions().last()->isEnabled());
}

TEST_F(Plot3DModule, SelectedBlocksAreExported)
{
    EXPECT_FALSE(m_module.CanExport(VIEW));
    const qint64 nId = m_module.OpenPlot3D({WriteGrid()}, VIEW);
    Simulation(nId)->GetItem(4)->SelectInView(VIEW);
    Simulation(nId)->GetItem(2)->SelectInView(VIEW);
    CPromptScript user;
    user.ChooseFile(Path("out.x"));
    EXPECT_TRUE(m_module.Export(VIEW));
    ForgetDetectedFiles();
    EXPECT_EQ(CGridIO().GetGridBlockDimensions(Path("out.x")), QVector<IVector3D>({{3, 3, 3}, {4, 4, 4}}));
    user.ChooseFile(Path("none/out.x"));
    user.Press("Ok");
    m_module.SlotExportPlot3D();
    EXPECT_EQ(user.Asked().last().sTitle, "Export Plot3D");
}

TEST_F(Plot3DModule, SettingsAreUnifiedAfterTheQuestion)
{
    const qint64 nId = m_module.OpenPlot3D({WriteGrid()}, VIEW);
    CPlot3DSimulation& simulation = *Simulation(nId);
    auto* const pTwin = static_cast<CBlock*>(simulation.CreateItem(KindBlock, 0, true, 4, -1, 0));
    pTwin->SetSource(Path("case.x"), "case.x", 1, {3, 3, 3});
    simulation.GetItem(2)->SetInt("Setting", 7, 0);
    simulation.GetItem(2)->SelectInView(VIEW);
    CPromptScript user;
    user.Press("Yes");
    m_module.SlotUnifyData();
    EXPECT_EQ(user.Asked().last().sText,
              "Would you like to unify the data of 'Block 2' with its 1 occurrence(s)?");
    EXPECT_EQ(pTwin->GetInt("Setting", 0), 7);
    simulation.Undo();
    EXPECT_EQ(simulation.GetItem(5)->GetInt("Setting", 0), 0);
    simulation.Redo();
    EXPECT_EQ(simulation.GetItem(5)->GetInt("Setting", 0), 7);
}
