#include "modules/plot3d/plot3dsimulation.h"

#include "data/io/plot3dprobe.h"
#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "data/variables/expressionvariable.h"
#include "data/variables/variablemanager.h"
#include "tests/modules/plot3d/plot3dcasetest.h"
#include "tests/support/logcapture.h"
#include "tests/support/promptscript.h"

#include <cstring>

using Plot3DFixture::HeaderReal;
using Plot3DFixture::Value;

namespace {

class Plot3DSimulation : public Plot3DCaseTest
{
protected:
    static double FieldValue(const ISimulation& simulation, const char* sName, qint64 nItemId,
                             double dTime = STEADY_TIME)
    {
        const qint64 nId = CVariableManager::Instance().FindByName(simulation.GetId(), sName, LocationNode);
        const auto pField =
            CSolutionManager::Instance().GetSolution(nId, simulation.GetId(), nItemId, -1, dTime);
        return pField ? pField->GetValue(qint64(0)) : NO_VALUE;
    }
    static ISelectable* Find(const ISimulation& simulation, qint64 nItemId)
    {
        return CSelectableManager::Instance().Find(VIEW, simulation.GetId(), nItemId);
    }
    const QByteArray m_boundaries = "FVBND 1 4\nwall\nBOUNDARIES\n1 3 1 1 1 $ 1 $\n1 1 1 2 1 2 1 2\n"
                                    "1 2 1 1 1 $ 1 $\n1 3 2 2 1 3 1 $ T -1\n";
};

} // namespace

TEST_F(Plot3DSimulation, ChosenBlocksBecomeItemsWithTheirData)
{
    CCaseRecords records = Records({WriteGrid(), WriteQ(), WriteFunction()});
    records.grid.SetBlocks({0, 2});
    const CPlot3DSimulation& simulation = *Open(records);
    EXPECT_EQ(Names(simulation), QStringList({"Block 1", "Block 3"}));
    EXPECT_EQ(simulation.GetItem(2)->GetName(1), "(2 x 6 x 4)");
    EXPECT_EQ(simulation.GetName(), "case");
    EXPECT_EQ(simulation.GetPointCount(), 60 + 48);
    EXPECT_EQ(simulation.GetCellCount(), 24 + 15);
    EXPECT_EQ(CGridManager::Instance().GetGrid(simulation.GetId(), 2, -1, -1.0)->GetPoint(qint64(0)).x,
              Value(2, 0, 0));
    EXPECT_EQ(FieldValue(simulation, "RU", 2), Value(2, 1, 0));
    EXPECT_EQ(FieldValue(simulation, "F1.2", 2), Value(2, 1, 0));
    EXPECT_EQ(FieldValue(simulation, "Hole", 1), 1.0);
    EXPECT_EQ(Get(simulation, Plot3DKey::FREE_STREAM_MACH), HeaderReal(0, 0));
    EXPECT_EQ(Get(simulation, Plot3DKey::ANGLE_OF_ATTACK), HeaderReal(0, 1));
    EXPECT_EQ(Get(simulation, Plot3DKey::GRID_BLOCKS), QVector<qint64>({0, 2}));
    EXPECT_NE(CVariableManager::Instance().FindByName(simulation.GetId(), "P[Q]", LocationNode), -1);
    EXPECT_TRUE(simulation.GetToolTip().contains("double precision, Fortran records"))
        << simulation.GetToolTip().toStdString();
}

TEST_F(Plot3DSimulation, AMachNumberOf100IsNoneAndWithoutQItIsAssumed)
{
    CPlot3DSimulation& simulation = *Open(Records({WriteGrid()}));
    EXPECT_TRUE(simulation.FreeStreamAssumed());
    EXPECT_EQ(simulation.GetFreeStreamVelocity(), 1.0);
    EXPECT_EQ(Get(simulation, Plot3DKey::FREE_STREAM_MACH), 1.0);
    Set(simulation, Plot3DKey::FREE_STREAM_MACH, 0.5);
    EXPECT_FALSE(simulation.FreeStreamAssumed());
    EXPECT_EQ(simulation.GetFreeStreamVelocity(), 0.5);
    Set(simulation, Plot3DKey::FREE_STREAM_MACH, 100.0);
    EXPECT_TRUE(simulation.FreeStreamAssumed());
}

namespace {

/** Puts another Mach number into the header of the file's first block. */
void SetMach(const QString& sFileName, double dMach)
{
    const SPlot3DFile file = DetectPlot3DSolution(sFileName);
    QByteArray bytes = Files::Read(sFileName);
    std::memcpy(bytes.data() + QHeaderOffset(file.layout, file.blocks[0]), &dMach, sizeof dMach);
    Files::Write(sFileName, bytes);
}

} // namespace

TEST_F(Plot3DSimulation, TheFreeStreamFollowsTheDataAndAnEditedConstantStays)
{
    const QString sGrid = WriteGrid(), sQ = WriteQ();
    CPlot3DSimulation& simulation = *Open(Records({sGrid, sQ}));
    const auto constant = [&](const char* sName) {
        CVariableManager& manager = CVariableManager::Instance();
        const qint64 nId = manager.FindByName(simulation.GetId(), sName, LocationNone);
        return static_cast<CExpressionVariable*>(manager.GetVariable(nId));
    };
    const double dCp = FieldValue(simulation, "Cp[Q]", 1);
    EXPECT_EQ(constant("Vinf")->EvaluateScalarConstant(), 0.5);
    SetMach(sQ, 0.25);
    EXPECT_EQ(simulation.Reload(), "");
    EXPECT_EQ(constant("Vinf")->EvaluateScalarConstant(), 0.25);
    EXPECT_NEAR(FieldValue(simulation, "Cp[Q]", 1), 4.0 * dCp, 1e-9 * std::abs(dCp));
    constant("Vinf")->SetExpression("0.3", false, false);
    SetMach(sQ, 0.75);
    EXPECT_EQ(simulation.Reload(), "");
    EXPECT_EQ(constant("Vinf")->EvaluateScalarConstant(), 0.3);
    EXPECT_TRUE(constant("Vinf")->GetComment().contains("differs from 0.75"));
    EXPECT_EQ(constant("Pinf")->GetComment(), "");
    SetMach(sQ, 0.3);
    EXPECT_EQ(simulation.Reload(), "");
    EXPECT_EQ(constant("Vinf")->GetComment(), "") << "the same again";
}

TEST_F(Plot3DSimulation, VectorsHaveAThirdComponentWhenTheDataHave)
{
    const auto flat = Plot3DFixture::Blocks({{5, 4, 1}}), solid = Plot3DFixture::Blocks({{5, 4, 3}});
    CPlot3DSimulation& simulation =
        *Open(Records({Write("flat.x", 16, KindGrid, flat), Write("flat.q", 83, KindQ, flat)}));
    const auto velocity = [&] {
        const auto pField = CSolutionManager::Instance().GetSolution(
            CVariableManager::Instance().FindByName(simulation.GetId(), "Momentum", LocationNode),
            simulation.GetId(), simulation.GetItems(KindBlock).first()->GetId(), -1, -1.0);
        return pField ? pField->GetVector(qint64(0)) : DVector3D();
    };
    EXPECT_EQ(velocity(), (DVector3D{Value(0, 1, 0), Value(0, 2, 0), 0.0}));
    EXPECT_EQ(
        simulation.Load(Records({Write("solid.x", 2, KindGrid, solid), Write("solid.q", 49, KindQ, solid)})),
        "");
    EXPECT_EQ(velocity(), (DVector3D{Value(0, 1, 0), Value(0, 2, 0), Value(0, 3, 0)}));
}

TEST_F(Plot3DSimulation, ASeriesIsATimeTableAndNewLevelsJoinAtAReload)
{
    WriteGrid();
    WriteQ("flow10.q");
    WriteQ("flow20.q");
    CPlot3DSimulation& simulation = *Open(Records({Path("case.x"), Path("flow10.q")}));
    EXPECT_EQ(simulation.GetTimeRange(), QPointF(10.0, 20.0));
    EXPECT_EQ(simulation.TimeToStep(20.0), 20.0);
    EXPECT_TRUE(CSimulationManager::Instance().IsTransient(VIEW, simulation.GetId()));
    EXPECT_EQ(FieldValue(simulation, "R", 4, 20.0), Value(3, 0, 0));
    ISelectable* const pShown = Find(simulation, 1);
    WriteQ("flow30.q");
    EXPECT_EQ(simulation.Reload(), "");
    EXPECT_EQ(simulation.GetTimeRange(), QPointF(10.0, 30.0));
    EXPECT_EQ(Find(simulation, 1), pShown) << "what is the same stays";
    CCaseRecords records = simulation.GetRecords();
    records.bReadTransient = false;
    EXPECT_EQ(simulation.Load(records), "");
    EXPECT_EQ(simulation.GetTimeCount(), 0);
    EXPECT_EQ(CSimulationManager::Instance().GetRequestTime(VIEW, simulation.GetId()), STEADY_TIME);
}

TEST_F(Plot3DSimulation, AFailedReloadLeavesTheCase)
{
    CPlot3DSimulation& simulation = *Open(Records({WriteGrid(), WriteQ()}));
    CCaseRecords records = simulation.GetRecords();
    records.q = CFileRecord(Write("bad.q", 49, KindQ, Plot3DFixture::Blocks({{2, 2, 2}})), RoleQ);
    EXPECT_NE(simulation.Load(records), "");
    EXPECT_EQ(simulation.GetItemCount(), 4);
    EXPECT_EQ(FieldValue(simulation, "R", 1), Value(0, 0, 0));
    records = simulation.GetRecords();
    records.q = {};
    records.grid.SetBlocks({1, 3});
    EXPECT_EQ(simulation.Load(records), "");
    EXPECT_EQ(Names(simulation), QStringList({"Block 2", "Block 4"}));
    EXPECT_EQ(simulation.GetItemIds(), QVector<qint64>({2, 4})) << "blocks that stay keep their ids";
    EXPECT_EQ(CVariableManager::Instance().FindByName(simulation.GetId(), "P[Q]", LocationNode), -1);
}

TEST_F(Plot3DSimulation, AnUndoOfWhatWasBeforeAReloadLeavesTheNewItems)
{
    CCaseRecords records = Records({WriteGrid()});
    records.grid.SetBlocks({0, 1});
    CPlot3DSimulation& simulation = *Open(records);
    simulation.BeginUndoStep();
    Find(simulation, 2)->setVisible(false);
    simulation.EndUndoStep();
    records.grid.SetBlocks({1, 2});
    ASSERT_EQ(simulation.Load(records), "");
    simulation.Undo();
    EXPECT_EQ(Names(simulation), QStringList({"Block 2", "Block 3"}));
    EXPECT_TRUE(Find(simulation, 2)->isVisible());
}

TEST_F(Plot3DSimulation, BoundaryFilesGiveSurfacesOfTheirBlocks)
{
    WriteText("any.FVBND", m_boundaries);
    CLogCapture log;
    const CPlot3DSimulation& simulation = *Open(Records({WriteGrid()}));
    EXPECT_EQ(Names(simulation, KindBoundarySurface),
              QStringList({"Boundary 'wall' \u2014 Block 3", "Boundary 'wall' \u2014 Block 2",
                           "Boundary 'wall' \u2014 Block 3"}));
    const auto& boundary = static_cast<const CBoundaryItem&>(*simulation.GetItem(7));
    EXPECT_EQ(boundary.GetParentId(), 3);
    EXPECT_EQ(boundary.GetRecord().max, IVector3D({2, 3, 4}));
    EXPECT_EQ(boundary.GetRecord().nFace, 1);
    EXPECT_EQ(boundary.GetRecord().nDirection, -1);
    ASSERT_NE(Find(simulation, 7), nullptr);
    EXPECT_EQ(Find(simulation, 7)->typeId(), KindBoundarySurface);
    EXPECT_EQ(CSelectableManager::Instance().GetSelectables(VIEW, simulation.GetId()).size(), 7);
}

TEST_F(Plot3DSimulation, ABoundaryFileOfAnotherGridIsNotTaken)
{
    const auto count = [this](const QString& sGrid) {
        return Names(*Open(Records({sGrid})), KindBoundarySurface).size();
    };
    const QString sGrid = WriteGrid("wing.x");
    WriteText("other.fvbnd", m_boundaries);
    EXPECT_EQ(count(sGrid), 3) << "the only one beside the only grid";
    const QString sOther = Write("other.x", 2, KindGrid, FourBlocks().mid(0, 2));
    EXPECT_EQ(count(sGrid), 0);
    CLogCapture log;
    EXPECT_EQ(count(sOther), 0) << "its name fits, its blocks don't";
    EXPECT_TRUE(log.Lines().join('\n').contains("it names block 3, the grid has 2"));
    WriteText("wing.fvbnd", "FVBND 1 4\nwall\nBOUNDARIES\n1 1 1 1 1 $ 1 $\n1 2 1 1 1 4 1 $\n");
    EXPECT_EQ(count(sGrid), 0);
    EXPECT_TRUE(log.Lines().join('\n').contains("a boundary of 'wall' lies outside of block 2 (3 x 3 x 3)"));
}

TEST_F(Plot3DSimulation, ABadBoundaryFileIsLoggedAndTheCaseOpens)
{
    WriteText("case.fvbnd", "FVBND x\n");
    CLogCapture log;
    Open(Records({WriteGrid()}));
    EXPECT_TRUE(log.Lines().join('\n').contains("Invalid FVBND version: " + Path("case.fvbnd")));
}

TEST_F(Plot3DSimulation, UndoShowsAHiddenBlockAndBringsDeletedItemsBackWithTheirData)
{
    WriteText("case.fvbnd", m_boundaries);
    CPlot3DSimulation& simulation = *Open(Records({WriteGrid(), WriteQ()}));
    simulation.BeginUndoStep();
    Find(simulation, 2)->setVisible(false);
    simulation.EndUndoStep();
    simulation.Undo();
    EXPECT_TRUE(Find(simulation, 2)->isVisible());
    simulation.Redo();
    EXPECT_FALSE(Find(simulation, 2)->isVisible());

    Find(simulation, 3)->setSelected(true);
    CPromptScript user;
    user.Press("No");
    simulation.DeleteSelection(VIEW);
    EXPECT_EQ(simulation.GetItemCount(), 7);
    user.Press("Yes");
    simulation.BeginUndoStep();
    simulation.DeleteSelection(VIEW);
    simulation.EndUndoStep();
    EXPECT_EQ(user.Asked().last().sTitle, "Delete Items");
    EXPECT_EQ(user.Asked().last().sText,
              "Would you like to delete the selected items from the simulation? [1 items selected]");
    EXPECT_EQ(simulation.GetItemIds(), QVector<qint64>({1, 2, 4, 6})) << "its boundaries went along";
    EXPECT_EQ(FieldValue(simulation, "R", 3), NO_VALUE);
    simulation.Undo();
    EXPECT_EQ(simulation.GetItemIds(), QVector<qint64>({1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(FieldValue(simulation, "R", 3), Value(2, 0, 0));
    EXPECT_EQ(simulation.GetItem(3)->GetChildIds(), QVector<qint64>({5, 7}));
    ASSERT_NE(Find(simulation, 7), nullptr);
    EXPECT_FALSE(Find(simulation, 2)->isVisible());
    simulation.Redo();
    EXPECT_EQ(simulation.GetItemIds(), QVector<qint64>({1, 2, 4, 6}));
}

TEST_F(Plot3DSimulation, MirrorAndSectorsAreTakenBackAndTheTimeStaysWhereItIs)
{
    WriteGrid();
    WriteQ("flow10.q");
    WriteQ("flow20.q");
    CPlot3DSimulation& simulation = *Open(Records({Path("case.x"), Path("flow10.q")}));
    CSimulationManager& manager = CSimulationManager::Instance();
    simulation.BeginUndoStep();
    manager.SetMirror(VIEW, simulation.GetId(), {{true, false, false}, {2.0, 0.0, 0.0}});
    simulation.EndUndoStep();
    EXPECT_EQ(manager.GetDisplayTransforms(VIEW, simulation.GetId()).size(), 2);
    manager.SetTime(VIEW, simulation.GetId(), 20.0);
    simulation.Undo();
    EXPECT_EQ(manager.GetDisplayTransforms(VIEW, simulation.GetId()).size(), 1);
    EXPECT_EQ(manager.GetTime(VIEW, simulation.GetId()), 20.0);
    simulation.Redo();
    EXPECT_EQ(manager.GetMirror(VIEW, simulation.GetId()).dOffset[0], 2.0);
}

TEST_F(Plot3DSimulation, BoundariesAloneHaveAQuestionOfTheirOwn)
{
    WriteText("case.fvbnd", m_boundaries);
    CPlot3DSimulation& simulation = *Open(Records({WriteGrid()}));
    EXPECT_FALSE(simulation.CanDelete(VIEW));
    Find(simulation, 5)->setSelected(true);
    Find(simulation, 6)->setSelected(true);
    EXPECT_TRUE(simulation.CanDelete(VIEW));
    CPromptScript user;
    user.Press("Yes");
    simulation.DeleteSelection(VIEW);
    EXPECT_EQ(user.Asked().last().sTitle, "Delete Boundary Surfaces");
    EXPECT_EQ(user.Asked().last().sText,
              "Would you like to delete the selected boundary surfaces? [2 items selected]");
    EXPECT_EQ(Names(simulation, KindBoundarySurface).size(), 1);
}

TEST_F(Plot3DSimulation, TheKeyIsOfTheFilesWhereverTheCaseIsSaved)
{
    CCaseRecords records = Records({WriteGrid(), WriteQ()});
    CPlot3DSimulation& first = *Open(records);
    CPlot3DSimulation& second = *Open(records);
    second.SetFilePath("elsewhere.zento");
    EXPECT_NE(first.GetDataFileKey(), second.GetDataFileKey());
    EXPECT_TRUE(first.IsSameDataFile(second.GetDataFileKey()));
    records.grid.SetBlocks({1});
    CPlot3DSimulation& third = *Open(records);
    EXPECT_FALSE(third.IsSameDataFile(first.GetDataFileKey()));
    EXPECT_FALSE(Add()->IsSameDataFile(Add()->GetDataFileKey())) << "no files at all";
}

TEST_F(Plot3DSimulation, StoredBytesMakeTheCaseAgainWhereverItsFilesHaveMoved)
{
    WriteText("case.fvbnd", m_boundaries);
    CPlot3DSimulation& simulation = *Open(Records({WriteGrid(), WriteQ()}));
    simulation.DeleteItem(1);
    const QByteArray bytes = simulation.ToBytes();
    QTemporaryDir moved;
    for (const char* const sName : {"case.x", "case.q"})
        ASSERT_TRUE(QFile::rename(Path(sName), moved.filePath(sName)));
    CPlot3DSimulation& without = *Add();
    CLogCapture log;
    EXPECT_TRUE(without.FromBytes(bytes, 1.0));
    EXPECT_EQ(Names(without), Names(simulation)) << "blocks without data";
    EXPECT_EQ(without.ToBytes().size(), bytes.size());
    EXPECT_TRUE(log.Lines().join('\n').contains(QString("The file %1 is not valid").arg(Path("case.x"))));
    CPlot3DSimulation& again = *Add();
    again.SetFilePath(moved.filePath("case.zento"));
    ASSERT_TRUE(again.FromBytes(bytes, 1.0));
    EXPECT_EQ(Names(again), Names(simulation));
    EXPECT_EQ(FieldValue(again, "R", 3), Value(2, 0, 0));
    EXPECT_EQ(FieldValue(again, "R", 1), NO_VALUE) << "deleted before it was stored";
}

TEST_F(Plot3DSimulation, BlocksOfEqualPointsAreLinked)
{
    // A block's points count from its number, so the same file twice over makes the twin.
    WriteGrid("a.x");
    CPlot3DSimulation& simulation = *Open(Records({Path("a.x")}));
    EXPECT_EQ(simulation.GetLinkedItems(1), QVector<qint64>({1}));
    auto* const pTwin = static_cast<CBlock*>(simulation.CreateItem(KindBlock, 0, true, 4, -1, 0));
    pTwin->SetSource(Path("a.x"), "a.x", 1, {3, 3, 3});
    EXPECT_EQ(simulation.GetLinkedItems(2), QVector<qint64>({2, 5}));
    pTwin->CopyDataFrom(*simulation.GetItem(1));
    EXPECT_EQ(pTwin->GetFileIndex(), 1) << "settings are shared, not the place in the file";
}
