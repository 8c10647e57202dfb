#include "data/grids/gridpack.h"
#include "data/grids/interpgrid.h"
#include "data/io/filefaults.h"
#include "data/variables/expressionvariable.h"
#include "frame/memory/memorymanager.h"
#include "tests/support/logcapture.h"
#include "tests/support/plot3dcasefixture.h"

#include <QElapsedTimer>
#include <QFile>

#include <thread>

using Plot3DFixture::Blocks;
using Plot3DFixture::Value;

namespace {

class Managers : public Plot3DCaseFixture
{
protected:
    ~Managers() override { CMemoryManager::Instance().SetLimit(0); }

    /** Registers block 0 of a file as item 1. */
    qint64 Add(const QString& sFileName, double dTime, const IVector3D& size,
               const IVector3D& start = {1, 1, 1}, qint64 nItemId = 1, qint64 nBlock = 0)
    {
        return m_grids.AddGrid(SIMULATION, nItemId, -1, {sFileName, nBlock, size, start}, dTime);
    }
    void AddFormula(const QString& sName, const QString& sText)
    {
        QVector<qint64> scope;
        for (const auto& pOther : CVariableManager::Instance().GetVariables())
            scope.append(pOther->GetId());
        auto* const pVariable = new CExpressionVariable(SIMULATION, true);
        pVariable->SetName(sName);
        pVariable->SetScope(scope);
        EXPECT_TRUE(pVariable->SetExpression(sText, false, false)) << qPrintable(sText);
    }
    CGridManager& m_grids = CGridManager::Instance();
};

} // namespace

TEST_F(Managers, AGridLoadsAtItsFirstPointAndStaysWhileItIsHeld)
{
    OpenTwoBlocks();
    CMemoryManager& memory = CMemoryManager::Instance();
    const qint64 nBefore = memory.GetTotalBytes();
    auto pGrid = Grid(2);
    ASSERT_TRUE(pGrid);
    EXPECT_EQ(memory.GetTotalBytes(), nBefore) << "nothing is read ahead of use";
    EXPECT_EQ(pGrid->GetPoint(2, 1, 1), (DVector3D{Value(1, 0, 1), Value(1, 1, 1), Value(1, 2, 1)}));
    EXPECT_EQ(memory.GetTotalBytes(), nBefore + 27 * 24);
    memory.FreeAll();
    EXPECT_EQ(memory.GetTotalBytes(), nBefore + 27 * 24) << "held";
    pGrid.reset();
    memory.FreeAll();
    EXPECT_EQ(memory.GetTotalBytes(), nBefore);
    EXPECT_EQ(Grid(2)->GetPoint(3, 3, 3), (DVector3D{Value(1, 0, 26), Value(1, 1, 26), Value(1, 2, 26)}))
        << "loaded anew";
}

TEST_F(Managers, AFileThatCantBeReadAnyMoreIsToldOnceForEachChange)
{
    OpenTwoBlocks();
    const QString sQ = m_folder.filePath("case.q");
    const QByteArray bytes = Files::Read(sQ);
    CLogCapture log;
    const auto told = [&] {
        for (const char* const sName : {"R", "RU"})
            for (const qint64 nItem : {1, 2})
                EXPECT_EQ(Field(sName, nItem)->GetValue(IVector3D{1, 1, 1}), NO_VALUE);
        return log.Lines().filter("Can't read " + sQ);
    };
    EXPECT_EQ(FileFaults::Last(), "");
    QFile::remove(sQ);
    ASSERT_EQ(told().size(), 1);
    EXPECT_TRUE(told().last().contains("it is not there any more"));
    RegisterPlot3DCase(SIMULATION, {m_folder.filePath("case.x"), {Files::Write(sQ, bytes)}, {}});
    EXPECT_EQ(FileFaults::Last(), "") << "registered anew";
    Files::Write(sQ, bytes.left(bytes.size() - 1000));
    ASSERT_EQ(told().size(), 2);
    EXPECT_TRUE(told().last().contains("it was cut short or replaced"));
    EXPECT_EQ(FileFaults::Last(), told().last());
}

TEST_F(Managers, BothRoadsToThePointsOfAFileAgreeInBothPrecisions)
{
    for (const int nCode : {2, 7}) {
        Add(Write("a.x", nCode, KindGrid, Blocks({{5, 4, 3}})), -1.0, {5, 4, 3});
        const auto pGrid = Grid(1);
        const SIJKRange range{{2, 1, 2}, {4, 4, 3}};
        std::vector<double> x(range.Count()), y(range.Count()), z(range.Count());
        EXPECT_EQ(pGrid->FillPoints(range, {x, y, z}), LoadOk);
        for (qint64 n = 0; n < range.Count(); ++n) {
            const IVector3D ijk = SBlockShape{range.Extent(), range.min}.Address(n);
            ASSERT_EQ((DVector3D{x[n], y[n], z[n]}), pGrid->GetPoint(ijk)) << nCode;
            ASSERT_EQ(y[n], Value(0, 1, pGrid->GetShape().PointIndex(ijk))) << nCode;
        }
        EXPECT_EQ(pGrid->GetCoordinatesSingle(2)[7], float(pGrid->GetPoint(qint64(7)).z));
        EXPECT_EQ(pGrid->GetCoordinatesDouble(2)[7], pGrid->GetPoint(qint64(7)).z);
        pGrid->ReleaseCoordinateCopies();
    }
}

TEST_F(Managers, TimesBetweenLevelsAreBlendedAndAnEqualTimeReplaces)
{
    const QString sFirst = Write("a.x", 4, KindGrid, Blocks({{2, 2, 2}}));
    const QString sSecond = Write("b.x", 4, KindGrid, Blocks({{3, 3, 3}, {2, 2, 2}}));
    Add(sFirst, 1.0, {2, 2, 2});
    Add(sSecond, 3.0, {2, 2, 2}, {1, 1, 1}, 1, 1);
    {
        const auto pGrid = Grid(1, 1.5);
        ASSERT_TRUE(dynamic_cast<CInterpGrid*>(pGrid.get()));
        EXPECT_EQ(pGrid->GetPoint(2, 1, 1).x, 0.75 * Value(0, 0, 1) + 0.25 * Value(1, 0, 1));
    }
    EXPECT_EQ(Grid(1, 99.0)->GetPoint(1, 1, 1).x, Value(1, 0, 0));
    EXPECT_EQ(Grid(1)->GetPoint(1, 1, 1).x, Value(0, 0, 0)) << "no time: the first level";
    EXPECT_EQ(m_grids.GetTimes(SIMULATION, 1), QVector<double>({1.0, 3.0}));
    EXPECT_FALSE(m_grids.GetGridAtTime(SIMULATION, 1, -1, 2.0));

    auto pHeld = Grid(1, 3.0);
    Add(sFirst, 3.0, {2, 2, 2});
    EXPECT_EQ(m_grids.CountGrids(), 3) << "the replaced one is still held";
    EXPECT_EQ(pHeld->GetPoint(1, 1, 1).x, Value(1, 0, 0));
    pHeld.reset();
    EXPECT_EQ(m_grids.CountGrids(), 2);
    EXPECT_EQ(Grid(1, 3.0)->GetPoint(1, 1, 1).x, Value(0, 0, 0));
}

TEST_F(Managers, SubBoxesOfAnItemAreSeenAsOneWithItsGaps)
{
    const QString sFile = Write("a.x", 2, KindGrid, Blocks({{2, 2, 2}, {3, 2, 2}}));
    Add(sFile, -1.0, {2, 2, 2});
    Add(sFile, -1.0, {3, 2, 2}, {4, 1, 1}, 1, 1);
    const auto pGrid = Grid(1);
    ASSERT_TRUE(dynamic_cast<CGridPack*>(pGrid.get()));
    EXPECT_EQ(pGrid->GetDimensions(), (IVector3D{6, 2, 2}));
    EXPECT_FALSE(pGrid->HasPoint({3, 1, 1}));
    EXPECT_TRUE(pGrid->IsInRange(3, 1, 1));
    EXPECT_EQ(pGrid->GetPoint(3, 1, 1), DVector3D());
    EXPECT_EQ(pGrid->GetPoint(5, 1, 1).x, Value(1, 0, 1));
}

TEST_F(Managers, FlipsAndTransformsAreOfAnItem)
{
    const QString sFile = Write("a.x", 2, KindGrid, Blocks({{3, 2, 2}, {3, 2, 2}}));
    Add(sFile, -1.0, {3, 2, 2});
    Add(sFile, -1.0, {3, 2, 2}, {1, 1, 1}, 2, 1);
    m_grids.FlipAxis(SIMULATION, 1, 0);
    EXPECT_EQ(Grid(1)->GetPoint(1, 1, 1).x, Value(0, 0, 2));
    EXPECT_EQ(Grid(2)->GetPoint(1, 1, 1).x, Value(1, 0, 0));
    m_grids.SetTransform(SIMULATION, 1, STransform(DMatrix4x4::Translation({100, 0, 0})));
    EXPECT_EQ(Grid(1)->GetPoint(1, 1, 1).x, Value(0, 0, 2)) << "a common transform is left to the caller";
    EXPECT_EQ(m_grids.GetTransform(SIMULATION, 1, -1.0).Matrix()(0, 3), 100.0);
    const auto pAll = CGridManager::Instance().GetGrid(SIMULATION, -1, -1, -1.0);
    EXPECT_EQ(pAll->GetPoint(1, 1, 1).x, Value(0, 0, 2) + 100.0) << "each block keeps its own";
}

TEST_F(Managers, AFlipIsSeenByTheTransformedGridAroundIt)
{
    Add(Write("a.x", 2, KindGrid, Blocks({{3, 2, 2}})), -1.0, {3, 2, 2});
    m_grids.SetTransform(SIMULATION, 1, STransform(DMatrix4x4::Translation({100, 0, 0})));
    const auto pGrid = CGridManager::Instance().GetGrid(SIMULATION, -1, -1, -1.0);
    const IVector3D before = pGrid->GetMinimumLocation(0);
    m_grids.FlipAxis(SIMULATION, 1, 0);
    EXPECT_EQ(pGrid->GetMinimumLocation(0), (IVector3D{4 - before.i, before.j, before.k}));
}

TEST_F(Managers, AFileThatCannotBeIdentifiedHasAShapeAndASizeIsCorrectedByALoad)
{
    const QString sFile = Write("a.x", 2, KindGrid, Blocks({{3, 2, 2}}));
    Add(m_folder.filePath("missing.x"), -1.0, {4, 4, 4});
    const auto pMissing = Grid(1);
    ASSERT_TRUE(pMissing);
    EXPECT_EQ(pMissing->GetPoint(1, 1, 1), DVector3D());
    EXPECT_EQ(pMissing->GetPointCount(), 64);
    EXPECT_EQ(pMissing->GetGridKind(), GridKindUnknown);

    Add(sFile, -1.0, {9, 9, 9}, {1, 1, 1}, 2); // registered with another size than the file has
    const auto pOther = Grid(2);
    std::vector<double> x(729), y = x, z = x;
    EXPECT_EQ(pOther->FillPoints({{1, 1, 1}, {9, 9, 9}}, {x, y, z}), LoadBadContent) << "it has less";
    EXPECT_EQ(pOther->GetDimensions(), (IVector3D{3, 2, 2}));
    const std::vector<qint64> points{0, 700};
    EXPECT_EQ(pOther->GatherPoints(points, {x, y, z}), LoadBadContent);
    EXPECT_EQ(pOther->GetPoint(1, 1, 1).x, Value(0, 0, 0));
}

TEST_F(Managers, FieldsAreFoundByVariableItemAndTime)
{
    OpenTwoBlocks();
    EXPECT_EQ(Field("RU", 2)->GetValue(IVector3D{2, 1, 1}), Value(1, 1, 1));
    EXPECT_EQ(Field("X", 1)->GetValue(IVector3D{2, 1, 1}), Value(0, 0, 1));
    EXPECT_EQ(Field("RE", 2)->GetValue(IVector3D{9, 9, 9}), Value(1, 4, 26)) << "outside: the nearest value";
    EXPECT_EQ(Field("RE", 2)->GetValue(IVector3D{0, 1, 1}), Value(1, 4, 0));
    EXPECT_FALSE(Field("RU", 3)) << "no such item";
    EXPECT_FALSE(CSolutionManager::Instance().GetSolution(Id("RU"), 2, 1, -1, -1.0))
        << "another simulation's";
    for (qint64 n = 0; n < 27; ++n)
        EXPECT_EQ(Field("Hole", 2)->GetValue(n), Plot3DFixture::Blank(1, n) != 0) << n;
}

TEST_F(Managers, ManyThreadsUnderASmallLimitReadTheRightValues)
{
    OpenTwoBlocks();
    CMemoryManager::Instance().SetLimit(2000); // below what the two blocks take
    std::vector<std::thread> threads;
    std::atomic<int> nWrong = 0;
    for (int nThread = 0; nThread < 4; ++nThread) {
        threads.emplace_back([&, nThread] {
            for (int n = 0; n < 200; ++n) {
                const qint64 nItem = 1 + (n + nThread) % 2;
                const auto pGrid = CGridManager::Instance().GetGrid(SIMULATION, nItem, -1, -1.0);
                const qint64 nVariable =
                    CVariableManager::Instance().FindByName(SIMULATION, n % 3 ? "RE" : "R", LocationNode);
                const auto pField =
                    CSolutionManager::Instance().GetSolution(nVariable, SIMULATION, nItem, -1, -1.0);
                nWrong += pGrid->GetPoint(qint64(n % 27)).y != Value(nItem - 1, 1, n % 27);
                nWrong += pField->GetValue(qint64(n % 27)) != Value(nItem - 1, n % 3 ? 4 : 0, n % 27);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(nWrong, 0);
}

TEST_F(Managers, AChainOfFormulasIsMadeOnceAndHasNoValuesWhereItsStartHasNone)
{
    OpenTwoBlocks();
    // Each rests on the two before it: as many ways lead down as the Fibonacci numbers count.
    double dFirst = 1.0, dSecond = 1.0;
    AddFormula("f0", "<R>");
    AddFormula("f1", "min(<R>, <R>)");
    for (int n = 2; n < 60; ++n, std::swap(dFirst, dSecond)) {
        AddFormula(QString("f%1").arg(n), QString("max(<f%1> + <f%2>, 0)").arg(n - 1).arg(n - 2));
        dFirst += dSecond;
    }
    QElapsedTimer timer;
    timer.start();
    const auto pField = Field("f59", 2);
    ASSERT_TRUE(pField);
    EXPECT_EQ(pField->GetLeafSolutions().size(), 1);
    EXPECT_NEAR(pField->GetValue(IVector3D{1, 1, 1}), Value(1, 0, 0) * dSecond, 1e-9 * dSecond);
    EXPECT_LT(timer.elapsed(), 500) << "[ms]";
    // The first one becomes not a number: so does all that rests on it, through max and min.
    static_cast<CExpressionVariable*>(CVariableManager::Instance().GetVariable(Id("f0")))
        ->SetExpression("sqrt(-1) * <R>", false, false);
    EXPECT_EQ(Field("f59", 2)->GetValue(IVector3D{1, 1, 1}), NO_VALUE);
    EXPECT_NEAR(pField->GetValue(IVector3D{1, 1, 1}), Value(1, 0, 0) * dSecond, 1e-9 * dSecond)
        << "a field that is out keeps its recipe";
}

TEST_F(Managers, FormulasAreFilledWhileVariablesComeAndGo)
{
    OpenTwoBlocks();
    AddFormula("outer", "<R> * 2 + <RE>");
    const qint64 nOuter = Id("outer");
    std::atomic<bool> bGoOn = true;
    std::atomic<int> nWrong = 0, nRead = 0;
    std::vector<std::thread> threads;
    for (int nThread = 0; nThread < 3; ++nThread)
        threads.emplace_back([&] {
            double values[27];
            while (bGoOn) {
                const auto pField = CSolutionManager::Instance().GetSolution(nOuter, SIMULATION, 2, -1, -1.0);
                if (!pField || pField->FillValues({{1, 1, 1}, {3, 3, 3}}, values) != LoadOk) {
                    ++nWrong;
                    continue;
                }
                const double dRest = values[4] - Value(1, 4, 4);
                const auto isAbout = [&](double d) { return std::abs(dRest - d) < 1e-9; };
                nWrong += !isAbout(2.0 * Value(1, 0, 4)) && !isAbout(3.0 * Value(1, 0, 4));
                ++nRead;
            }
        });
    for (int n = 0; n < 200 || nRead < 50; ++n) {
        auto* const pOuter =
            static_cast<CExpressionVariable*>(CVariableManager::Instance().GetVariable(nOuter));
        pOuter->SetExpression(n % 2 ? "<R> * 2 + <RE>" : "3 * <R> + <RE>", false, false);
        AddFormula("passing", "<outer> + 1");
        CVariableManager::Instance().RemoveVariable(Id("passing"));
    }
    bGoOn = false;
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(nWrong, 0);
}
