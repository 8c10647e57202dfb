#include "data/cases/casedata.h"
#include "data/solutions/bytesolution.h"
#include "data/solutions/interpsolution.h"
#include "data/solutions/solutiongrid.h"
#include "data/solutions/solutionpack.h"
#include "data/variables/expressionvariable.h"
#include "data/variables/vectorvariable.h"
#include "tests/support/plot3dcasefixture.h"
#include "tests/support/testcases.h"

#include <random>

namespace {

/** A stored field of its own, without a file. */
CLease<IStructredSolution> Stored(const IVector3D& size, const std::function<double(qint64)>& value,
                                  const IVector3D& start = {1, 1, 1})
{
    class COwned : public CSolution
    {
    public:
        void Dispose() override { delete this; }
        using IStructredSolution::GetValue;
        double GetValue(const IVector3D& ijk) const override
        {
            return m_values[GetShape().PointIndex(GetShape().Clamped(ijk))];
        }
        LoadStatus_e FillValues(const SIJKRange& range, std::span<double> out) const override
        {
            qint64 n = 0;
            for (qint64 k = range.min.k; k <= range.max.k; ++k)
                for (qint64 j = range.min.j; j <= range.max.j; ++j)
                    for (qint64 i = range.min.i; i <= range.max.i; ++i)
                        out[n++] = m_values[GetShape().PointIndex({i, j, k})];
            return LoadOk;
        }
        LoadStatus_e GatherValues(std::span<const qint64> points, std::span<double> out) const override
        {
            std::transform(points.begin(), points.end(), out.begin(),
                           [this](qint64 n) { return m_values[n]; });
            return LoadOk;
        }
        std::vector<double> m_values;
    };
    auto* const pField = new COwned;
    pField->Init("", 0, 0, size, start);
    for (qint64 n = 0; n < size.i * size.j * size.k; ++n)
        pField->m_values.push_back(value(n));
    return CLease<IStructredSolution>(pField);
}

/** All roads give the same bits over random sub-ranges. */
void ExpectEqualRoads(const IStructredSolution& field, const char* sWhat)
{
    std::mt19937 random(3);
    const SBlockShape shape = field.GetShape();
    for (int nRange = 0; nRange < 20; ++nRange) {
        SIJKRange range = shape.Range();
        for (int nAxis = 0; nAxis < 3 && nRange > 0; ++nAxis) {
            range.min[nAxis] = shape.start[nAxis] + random() % shape.dimensions[nAxis];
            range.max[nAxis] = range.min[nAxis] + random() % (shape.End()[nAxis] - range.min[nAxis] + 1);
        }
        const qint64 nCount = range.Count();
        std::vector<double> values(nCount), x(nCount), y(nCount), z(nCount);
        ASSERT_EQ(field.FillValues(range, values), LoadOk);
        ASSERT_EQ(field.FillVectors(range, {x, y, z}), LoadOk);
        std::vector<qint64> points(nCount);
        for (qint64 n = 0; n < nCount; ++n)
            points[n] = shape.PointIndex(SBlockShape{range.Extent(), range.min}.Address(n));
        std::vector<size_t> order(nCount);
        std::iota(order.begin(), order.end(), 0);
        std::shuffle(order.begin(), order.end(), random);
        std::vector<qint64> scattered(nCount);
        std::transform(order.begin(), order.end(), scattered.begin(), [&](size_t n) { return points[n]; });
        std::vector<double> gathered(nCount), gatheredX(nCount), gatheredY(nCount), gatheredZ(nCount);
        ASSERT_EQ(field.GatherValues(scattered, gathered), LoadOk);
        ASSERT_EQ(field.GatherVectors(scattered, {gatheredX, gatheredY, gatheredZ}), LoadOk);
        for (qint64 n = 0; n < nCount; ++n) {
            ASSERT_EQ(gathered[n], values[order[n]]) << sWhat;
            ASSERT_EQ(gatheredX[n], x[order[n]]) << sWhat;
            ASSERT_EQ(gatheredZ[n], z[order[n]]) << sWhat;
        }
        for (qint64 n = 0; n < nCount; ++n) {
            const IVector3D ijk = SBlockShape{range.Extent(), range.min}.Address(n);
            ASSERT_EQ(values[n], field.GetValue(ijk)) << sWhat;
            ASSERT_EQ((DVector3D{x[n], y[n], z[n]}), field.GetVector(ijk)) << sWhat;
            ASSERT_EQ(values[n], field.GetValue(shape.PointIndex(ijk))) << sWhat;
        }
    }
}

class Solutions : public Plot3DCaseFixture
{
protected:
    /** A formula over the case's variables. */
    qint64 Define(const char* sName, const char* sFormula)
    {
        auto* const pVariable = new CExpressionVariable(SIMULATION, true);
        pVariable->SetName(sName);
        pVariable->SetScope(CVariableManager::Instance().ListVariables(SIMULATION, false));
        EXPECT_TRUE(pVariable->SetExpression(sFormula, false, false)) << sFormula;
        return pVariable->GetId();
    }
};

} // namespace

TEST_F(Solutions, BothRoadsAgreeForEveryClass)
{
    OpenTwoBlocks();
    Define("nested", "sqrt(<P[Q]> * <P[Q]>) + <M[Q]> / <R>");
    Define("vector", "2 * <Momentum>");
    auto* const pBroken = new CExpressionVariable(SIMULATION, true);
    pBroken->SetName("broken");
    pBroken->SetLocation(LocationNode);
    pBroken->SetScope({Id("R")});
    EXPECT_FALSE(pBroken->SetExpression("<R> + * 2", false, false));
    Define("overBroken", "<broken> + <R>");
    for (const char* const sName : {"broken", "overBroken", "R", "X", "Hole", "Vmag[Q]", "P[Q]", "M[Q]",
                                    "Cp[Q]", "Velocity", "Momentum", "nested", "vector"}) {
        const auto pField = Field(sName, 1);
        ASSERT_TRUE(pField) << sName;
        ExpectEqualRoads(*pField, sName);
    }
    ExpectEqualRoads(*CLease<IStructredSolution>(new CSolutionGrid(Grid(1).release())), "grid");
    const auto value = [](qint64 n) { return n % 7 == 3 ? NO_VALUE : std::sin(double(n)); };
    ExpectEqualRoads(*CLease<IStructredSolution>(new CInterpSolution(
                         Field("R", 2).release(), Stored({3, 3, 3}, value).release(), 0.3)),
                     "blend");
    ExpectEqualRoads(
        *CLease<IStructredSolution>(new CSolutionPack(
            {Stored({3, 2, 2}, value).release(), Stored({4, 4, 3}, value, {2, 2, 1}).release()})),
        "pack");
}

TEST_F(Solutions, IntegersAreReadByTheirBits)
{
    CSolutionByteSinglePrecision single;
    single.Init("", 0, 0, {2, 1, 1}, {1, 1, 1});
    ASSERT_TRUE(single.Allocate(2));
    const qint32 values[] = {7, -3};
    single.StoreIntegers(values, 2);
    EXPECT_EQ(single.GetValue(IVector3D{1, 1, 1}), 7.0);
    EXPECT_EQ(single.GetIntegerValue({2, 1, 1}), -3);
    ExpectEqualRoads(single, "integers");
    single.Unload();
}

TEST_F(Solutions, ABlendHasNoValueWhereEitherLevelHasNone)
{
    const CInterpSolution* const pBlend = new CInterpSolution(
        Stored({3, 1, 1}, [](qint64 n) { return n == 0 ? NO_VALUE : 10.0; }).release(),
        Stored({3, 1, 1}, [](qint64 n) { return n == 1 ? NO_VALUE : 20.0; }).release(), 0.25);
    EXPECT_EQ(pBlend->GetValue(qint64(0)), NO_VALUE);
    EXPECT_EQ(pBlend->GetValue(qint64(1)), NO_VALUE);
    EXPECT_EQ(pBlend->GetValue(qint64(2)), 17.5);
    delete pBlend;
}

TEST_F(Solutions, RangesLeaveOutWhatIsNoValueAndTellTheFirstPlace)
{
    const double values[] = {5, NO_VALUE, 2, 9, std::nan(""), 9, 2, HUGE_VAL};
    const auto pField = Stored({2, 2, 2}, [&](qint64 n) { return values[n]; });
    EXPECT_FALSE(pField->GetRange(0, false)) << "not computed yet";
    EXPECT_EQ(pField->GetRange(0, true), (SValueRange{2.0, 9.0}));
    EXPECT_EQ(pField->GetMinimumLocation(0), (IVector3D{1, 2, 1})) << "i outermost: (1,2,1) ahead of (1,2,2)";
    EXPECT_EQ(pField->GetMaximumLocation(0), (IVector3D{2, 1, 2}));
    QVector<IVector3D> found;
    EXPECT_EQ(pField->CollectInRanges({{2, 2}, {9, 100}}, found), 4);
    EXPECT_EQ(found, QVector<IVector3D>({{1, 2, 1}, {1, 2, 2}, {2, 1, 2}, {2, 2, 1}}));
}

TEST_F(Solutions, ChunksShareTheirBoundariesAndAnEmptyOneIsNeverFound)
{
    const auto pField = Stored(
        {5, 3, 1}, [](qint64 n) { return n % 5 == 0 || n % 5 == 1 || n % 5 == 2 ? NO_VALUE : double(n); });
    pField->BuildChunks({2, 2, 2});
    EXPECT_EQ(pField->GetChunkMinimum(0), (IVector3D{1, 1, 1}));
    EXPECT_EQ(pField->GetChunkMaximum(0), (IVector3D{3, 3, 1})) << "one past its size";
    EXPECT_EQ(pField->GetChunkMaximum(1), (IVector3D{5, 3, 1}));
    EXPECT_EQ(pField->GetChunkMinimum(99), (IVector3D{1, 1, 1}));
    EXPECT_EQ(pField->GetChunkMaximum(99), (IVector3D{0, 0, 0}));
    EXPECT_EQ(pField->FindChunks(4.0), QVector<qint64>({1, 2})) << "i 3 to 5 and 5, j 1 to 3";
    EXPECT_TRUE(pField->FindChunks(0.5).isEmpty());
}

TEST_F(Solutions, InterpolationAtANodeGivesItsValueAndElsewhereTheWeightedMean)
{
    OpenTwoBlocks();
    const auto pGrid = Grid(2);
    const auto pField = Field("R", 2);
    EXPECT_EQ(pField->InterpolateAt(pGrid->GetPoint(3, 2, 2), {2, 2, 2}, *pGrid),
              pField->GetValue(IVector3D{3, 2, 2}));
    const auto pConstant = Stored({3, 3, 3}, [](qint64) { return 4.0; });
    EXPECT_DOUBLE_EQ(pConstant->InterpolateAt({0.1, 0.2, 0.3}, {2, 2, 2}, *pGrid), 4.0);
    const DVector3D place = pGrid->GetPoint(2, 2, 2) + DVector3D{0.1, 0.2, 0.3};
    EXPECT_EQ(Field("Momentum", 2)->InterpolateVectorAt(place, {2, 2, 2}, *pGrid).y,
              Field("RV", 2)->InterpolateAt(place, {2, 2, 2}, *pGrid));
}

TEST_F(Solutions, AComputedFieldCoversWhatItsInputsShareAndConstantsTakeNoPart)
{
    OpenTwoBlocks();
    EXPECT_EQ(Field("P[Q]", 1)->GetDimensions(), (IVector3D{5, 4, 3}));
    const qint64 nConstant = CVariableManager::Instance().FindByName(SIMULATION, "gamma", LocationNone);
    const auto pConstant =
        AsStructured(CSolutionManager::Instance().GetSolution(nConstant, SIMULATION, 1, -1, -1.0));
    EXPECT_EQ(pConstant->GetDimensions(), (IVector3D{2, 2, 2}));
    EXPECT_EQ(pConstant->GetValue(IVector3D{1, 1, 1}), 1.4);
}

TEST_F(Solutions, AFormulaOverADividedZeroHasNoValue)
{
    OpenTwoBlocks();
    const qint64 nId = Define("nan", "(<R> - <R>) / (<R> - <R>)");
    const auto pField = AsStructured(CSolutionManager::Instance().GetSolution(nId, SIMULATION, 1, -1, -1.0));
    EXPECT_EQ(pField->GetValue(IVector3D{2, 2, 2}), NO_VALUE);
    EXPECT_FALSE(pField->GetRange(0, true));
}

TEST_F(Solutions, AComparisonTakesEachInputFromItsOwnSimulation)
{
    CTestCases cases;
    OpenTwoBlocks();
    const auto blocks = Plot3DFixture::Blocks({{3, 3, 3}, {3, 3, 3}});
    RegisterPlot3DCase(2,
                       {Write("other.x", 26, KindGrid, blocks), {Write("other.q", 49, KindQ, blocks)}, {}});
    auto* const pVariable = new CExpressionVariable(SIMULATION, true);
    pVariable->SetName("difference");
    pVariable->SetScope({Id("RE"), CVariableManager::Instance().FindByName(2, "RU", LocationNode)});
    ASSERT_TRUE(pVariable->SetExpression("<1@RE> - <2@RU>", true, false));
    const qint64 nId = pVariable->GetId();
    {
        const auto pField =
            AsStructured(CSolutionManager::Instance().GetSolution(nId, SIMULATION, 2, -1, STEADY_TIME));
        ASSERT_TRUE(pField);
        EXPECT_EQ(pField->GetValue(qint64(5)), Plot3DFixture::Value(1, 4, 5) - Plot3DFixture::Value(1, 1, 5));
        ExpectEqualRoads(*pField, "comparison");
    }
    cases.m_nKnown = 7;
    EXPECT_FALSE(CSolutionManager::Instance().GetSolution(nId, SIMULATION, 2, -1, STEADY_TIME))
        << "no such item";
    RemoveCaseData(2);
    CVariableManager::Instance().RemoveVariable(nId);
}

TEST_F(Solutions, AFormulaMayNameATimeOfASeries)
{
    const auto blocks = Plot3DFixture::Blocks({{3, 3, 3}});
    const QString sGrid = Write("c.x", 2, KindGrid, blocks);
    const QString sFirst = Write("flow_010.q", 49, KindQ, blocks);
    // The second level holds what the second block of such a file would.
    const QByteArray two =
        Plot3DFixture::MakeFile(LayoutOfCode(49), KindQ, Plot3DFixture::Blocks({{3, 3, 3}, {3, 3, 3}}));
    QByteArray second = Plot3DFixture::MakeFile(LayoutOfCode(49), KindQ, blocks);
    const int nBlock = 4 + 32 + 4 + 4 + 27 * 5 * 8 + 4; // Q header record and data record, with their markers
    second.replace(second.size() - nBlock, nBlock, two.right(nBlock));
    Files::Write(m_folder.filePath("flow_020.q"), second);
    ASSERT_EQ(RegisterPlot3DCase(SIMULATION, {sGrid, {sFirst, m_folder.filePath("flow_020.q")}, {}}).sError,
              "");
    EXPECT_EQ(CSolutionManager::Instance().GetTimes(SIMULATION, 1), QVector<double>({-1.0, 10.0, 20.0}));

    auto* const pVariable = new CExpressionVariable(SIMULATION, true);
    pVariable->SetName("change");
    pVariable->SetScope({Id("RU")});
    ASSERT_TRUE(pVariable->SetExpression("<RU> - <RU@10>", false, true));
    const auto at = [&](double dTime) {
        return CSolutionManager::Instance()
            .GetSolution(pVariable->GetId(), SIMULATION, 1, -1, dTime)
            ->GetValue(qint64(5));
    };
    const double dFirst = Plot3DFixture::Value(0, 1, 5), dSecond = Plot3DFixture::Value(1, 1, 5);
    EXPECT_EQ(at(10.0), 0.0);
    EXPECT_EQ(at(20.0), dSecond - dFirst);
    EXPECT_EQ(at(15.0), 0.5 * dFirst + 0.5 * dSecond - dFirst);
}
