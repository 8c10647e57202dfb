#include "data/variables/expressionvariable.h"
#include "data/variables/ivariablelistener.h"
#include "data/variables/vectorvariable.h"
#include "tests/support/plot3dcasefixture.h"
#include "tests/support/testcases.h"

namespace {

class Variables : public Plot3DCaseFixture
{
protected:
    ~Variables() override
    {
        for (const qint64 nSimulation : {1, 2, -1})
            m_manager.RemoveSimulationVariables(nSimulation);
        EXPECT_TRUE(m_manager.GetVariables().empty());
    }
    IVariable* File(const char* sName, qint64 nSimulation = 1, VariableLocation_e eLocation = LocationNode)
    {
        auto* const pVariable = new IVariable(nSimulation, true);
        pVariable->SetName(sName);
        pVariable->SetLocation(eLocation);
        return pVariable;
    }
    CExpressionVariable* Formula(const char* sName, const QString& sText, bool bSimulations = false,
                                 bool bTimes = false)
    {
        auto* const pVariable = new CExpressionVariable(1, true);
        pVariable->SetName(sName);
        QVector<qint64> scope;
        for (const auto& pOther : m_manager.GetVariables())
            scope.append(pOther->GetId());
        pVariable->SetScope(scope);
        pVariable->SetExpression(sText, bSimulations, bTimes);
        return pVariable;
    }

    CVariableManager& m_manager = CVariableManager::Instance();
};

} // namespace

TEST_F(Variables, IdsGoUpFromTheHighestInTheList)
{
    for (int n = 0; n < 6; ++n)
        EXPECT_EQ(File(qPrintable(QString::number(n)))->GetId(), n);
    m_manager.RemoveVariable(2);
    EXPECT_EQ(File("a")->GetId(), 6);
    m_manager.RemoveVariable(6);
    EXPECT_EQ(File("b")->GetId(), 6);
    EXPECT_EQ(m_manager.GetVariable(2), nullptr);
}

TEST_F(Variables, NamesCollideWithinAnOwnerAtOnePlaceOrWithConstants)
{
    const IVariable* const pNode = File("x");
    File("c", 1, LocationNone);
    EXPECT_FALSE(m_manager.IsNameValid(-1, "x", 1, LocationNode));
    EXPECT_TRUE(m_manager.IsNameValid(-1, "x", 1, LocationCell));
    EXPECT_FALSE(m_manager.IsNameValid(-1, "x", 1, LocationNone));
    EXPECT_FALSE(m_manager.IsNameValid(-1, "c", 1, LocationCell));
    EXPECT_TRUE(m_manager.IsNameValid(-1, "x", 2, LocationNode));
    EXPECT_TRUE(m_manager.IsNameValid(pNode->GetId(), "x", 1, LocationNode)) << "its own name";
    for (const char* const sBad : {"", "a.b", "a b", "a@b", "a<b", "a>b"})
        EXPECT_FALSE(m_manager.IsNameValid(-1, sBad, 1, LocationNode)) << sBad;
}

TEST_F(Variables, AComparisonIsListedUnderNoneAndWithEachItDrawsOn)
{
    const IVariable* const pFirst = File("R", 1);
    const IVariable* const pSecond = File("R", 2);
    const IVariable* const pDifference = Formula("d", "<1@R> - <2@R>", true);
    ASSERT_TRUE(pDifference->IsValid());
    EXPECT_EQ(m_manager.ListVariables(-1, false), QVector<qint64>({pDifference->GetId()}));
    EXPECT_EQ(m_manager.ListVariables(1, false), QVector<qint64>({pFirst->GetId()}));
    EXPECT_EQ(m_manager.ListVariables(1, true), QVector<qint64>({pFirst->GetId(), pDifference->GetId()}));
    EXPECT_EQ(m_manager.ListVariables(2, true), QVector<qint64>({pSecond->GetId(), pDifference->GetId()}));
    EXPECT_EQ(pDifference->GetExpressionText(true, false), "<1@R> - <2@R>");
}

TEST_F(Variables, AFormulaRestsOnItsInputsAndACycleIsRefused)
{
    File("R");
    CExpressionVariable* const pFirst = Formula("a", "<R> + 1");
    CExpressionVariable* const pSecond = Formula("b", "2 * <a>");
    EXPECT_TRUE(pSecond->DependsOn(m_manager.FindByName(1, "R", LocationNode)));
    EXPECT_EQ(pFirst->GetDependants(false), QVector<qint64>({pSecond->GetId()}));
    pFirst->SetScope({0, pFirst->GetId(), pSecond->GetId()});
    EXPECT_FALSE(pFirst->SetExpression("<b>", false, false));
    EXPECT_FALSE(pFirst->SetExpression("<a>", false, false));
    EXPECT_TRUE(pFirst->IsValid());
    EXPECT_EQ(pFirst->GetExpressionText(false, false), "<R> + 1") << "the former text stands";
}

TEST_F(Variables, AnErrorIsToldAtItsPlaceInTheTextAsTyped)
{
    File("R");
    File("RU");
    const std::pair<const char*, int> cases[] = {
        {"<R> * <RU> * * 2", 14}, {"<R> + <none>", 7}, {"(<R>", 5}, {"", 1},
        {"Sqrt(<R>)", 1},         {"<R> / <RU>", 0}};
    for (const auto& [sText, nPosition] : cases) {
        CExpressionVariable* const pFormula = Formula("a", sText);
        EXPECT_EQ(pFormula->GetErrorPosition(), nPosition) << sText;
        EXPECT_EQ(pFormula->IsValid(), nPosition == 0);
        m_manager.RemoveVariable(pFormula->GetId());
    }
}

TEST_F(Variables, LocationAndKindFollowTheInputsAndAFixedTimeIsTold)
{
    File("R", 1, LocationCell);
    Formula("c", "7");
    EXPECT_EQ(Formula("d", "<c> * <R>")->GetLocation(), LocationCell) << "not the constant's";
    EXPECT_EQ(Formula("e", "2 + 3")->GetLocation(), LocationNone);
    EXPECT_TRUE(Formula("e2", "2 + 3")->IsConstant());
    EXPECT_FALSE(Formula("f", "<R>")->IsTimeDependent());
    const CExpressionVariable* const pTimes = Formula("g", "<R> - <R@0.5>", false, true);
    EXPECT_TRUE(pTimes->IsValid());
    EXPECT_TRUE(pTimes->IsTimeDependent());
    EXPECT_EQ(pTimes->GetExpressionText(false, true), "<R> - <R@0.5>");
}

TEST_F(Variables, ARemovedInputLeavesWhatStillReads)
{
    const IVariable* const pInput = File("a");
    File("b");
    CExpressionVariable* const pConstant = Formula("c", "<a>+2");
    CExpressionVariable* const pMixed = Formula("d", "<a>*<b>");
    const std::array<qint64, 3> ids = {pInput->GetId(), -1, m_manager.FindByName(1, "b", LocationNode)};
    auto* const pVector = new CVectorVariable(1, ids, true);
    EXPECT_EQ(pVector->GetPosition(2), 1) << "a missing y takes no place";
    m_manager.RemoveVariable(pInput->GetId());
    EXPECT_EQ(pConstant->GetExpressionText(false, false), "+2");
    EXPECT_EQ(pConstant->EvaluateScalarConstant(), 2.0);
    EXPECT_FALSE(pMixed->IsValid());
    EXPECT_EQ(pMixed->EvaluateScalarConstant(), NO_VALUE);
    EXPECT_FALSE(pVector->IsValid());
    const double values[] = {5.0, 6.0};
    EXPECT_EQ(pVector->EvaluateVector(values, 2, false), (DVector3D{5.0, 0.0, 6.0}))
        << "the place keeps its number";
}

TEST_F(Variables, AKeyFindsTheVariableAgainWhateverItsId)
{
    File("spare");
    File("R");
    const QByteArray formula = Formula("a", "2 * <R>")->ToBytes();
    const QByteArray other = Formula("a", "3 * <R>")->ToBytes();
    EXPECT_NE(formula, other) << "the formula is part of the key";
    m_manager.RemoveSimulationVariables(1);
    File("R");
    const IVariable* const pAgain = Formula("a", "2 * <R>");
    EXPECT_EQ(m_manager.FindByBytes(formula), pAgain->GetId());
    EXPECT_EQ(m_manager.FindByBytes(other), -1);
}

TEST_F(Variables, ChangesAreToldToWhoShowsThemAndTheirReaders)
{
    struct CListener : IVariableListener
    {
        void VariableChanged(qint64 nId) override { changed.append(nId); }
        void VariableRemoved(qint64 nId) override { removed.append(nId); }
        QVector<qint64> changed, removed;
    } listener;
    const IVariable* const pInput = File("R");
    CExpressionVariable* const pFormula = Formula("a", "<R>");
    const IVariable* const pReader = Formula("b", "<a>");
    m_manager.AddListener(&listener);
    pFormula->SetExpression("2 * <R>", false, false);
    EXPECT_EQ(listener.changed, QVector<qint64>({pFormula->GetId(), pReader->GetId()}));
    m_manager.RemoveWithDependants(pInput->GetId());
    EXPECT_EQ(listener.removed, QVector<qint64>({0, 1, 2}));
    m_manager.RemoveListener(&listener);
}

TEST_F(Variables, TheBuiltInOnesHaveTheirValues)
{
    OpenTwoBlocks();
    const auto value = [&](const char* sName) { return Field(sName, 1)->GetValue(IVector3D{3, 2, 2}); };
    const double r = value("R"), ru = value("RU"), rv = value("RV"), rw = value("RW"), re = value("RE");
    const double gamma = 1.4, gas = 287.22;
    const double dMomentum = ru * ru + rv * rv + rw * rw;
    const double p = (gamma - 1) * (re - 0.5 * dMomentum / r);
    const double t = p / (gas * r);
    const double vmag = std::sqrt(dMomentum) / r;
    const auto expectNear = [&](const char* sName, double dExpected) {
        const double dValue = value(sName);
        if (std::isnan(dExpected))
            EXPECT_EQ(dValue, NO_VALUE) << sName;
        else
            EXPECT_NEAR(dValue, dExpected, 1e-12 * std::abs(dExpected)) << sName;
    };
    expectNear("U[Q]", ru / r);
    expectNear("Vmag[Q]", vmag);
    expectNear("P[Q]", p);
    expectNear("T[Q]", t);
    expectNear("IntE[Q]", re / r - 0.5 * vmag * vmag);
    expectNear("H[Q]", re / r - 0.5 * vmag * vmag + p / r);
    expectNear("Qd[Q]", 0.5 * r * vmag * vmag);
    const double mach = Plot3DFixture::HeaderReal(0, 0);
    const double velocity = mach > 0 && mach < 100 ? mach : 1.0;
    expectNear("Cp[Q]", (p - 1 / 1.4) / (0.5 * 1.0 * velocity * velocity));
    EXPECT_EQ(Field("Velocity", 1)->GetVector(IVector3D{3, 2, 2}).z, value("W[Q]"));
    EXPECT_FALSE(m_manager.GetVariable(Id("P[Q]"))->IsUserVariable());
}

TEST_F(Variables, ATwoDimensionalCaseHasNoThirdVelocity)
{
    const auto blocks = Plot3DFixture::Blocks({{5, 4, 1}});
    const SPlot3DCase opened = RegisterPlot3DCase(
        SIMULATION, {Write("c.x", 16, KindGrid, blocks), {Write("c.q", 83, KindQ, blocks)}, {}});
    ASSERT_EQ(opened.sError, "");
    EXPECT_EQ(Id("W[Q]"), -1);
    EXPECT_EQ(Id("RW"), -1);
    const double u = Field("U[Q]", 1)->GetValue(qint64(7)), v = Field("V[Q]", 1)->GetValue(qint64(7));
    EXPECT_NEAR(Field("Vmag[Q]", 1)->GetValue(qint64(7)), std::hypot(u, v), 1e-12 * std::hypot(u, v));
    EXPECT_EQ(Field("Velocity", 1)->GetVector(qint64(7)), (DVector3D{u, v, 0.0}));
}

TEST_F(Variables, AFileThatDoesNotFitRegistersNothing)
{
    const QString sGrid = Write("c.x", 2, KindGrid, Plot3DFixture::Blocks({{5, 4, 3}}));
    const QString sOther = Write("c.q", 49, KindQ, Plot3DFixture::Blocks({{5, 4, 2}}));
    EXPECT_EQ(RegisterPlot3DCase(SIMULATION, {sGrid, {sOther}, {}}).sError,
              QString("Q file %1 does not match its grid file").arg(sOther));
    EXPECT_EQ(RegisterPlot3DCase(SIMULATION, {sGrid, {m_folder.filePath("none.q")}, {}}).sError,
              QString("The file %1 is not valid").arg(m_folder.filePath("none.q")));
    EXPECT_TRUE(m_manager.GetVariables().empty());
    EXPECT_EQ(CGridManager::Instance().CountGrids(), 0);
}

TEST_F(Variables, AMeanFlowGivesWhatItDoesNotSupplyItself)
{
    for (const char* const sName : {"u@meanflow; velocity", "v@meanflow; velocity", "w@meanflow; velocity",
                                    "p@mf", "T-static@meanflow", "mach@turbulence", "u@other"})
        File(sName);
    CreateMeanflowVariables(1, {});
    const auto formula = [&](const char* sName) {
        const IVariable* const pVariable =
            m_manager.GetVariable(m_manager.FindByName(1, sName, LocationNode));
        return pVariable ? pVariable->GetExpressionText(false, false) : QString("missing");
    };
    EXPECT_EQ(formula("C[Q]"), "sqrt(<gamma> * <Rgas> * <T-static@meanflow>)");
    EXPECT_EQ(formula("Rho[Q]"), "<p@mf> / (<Rgas> * <T-static@meanflow>)");
    EXPECT_EQ(formula("M[Q]"), "<Vmag[Q]> / <C[Q]>") << "the Mach number of another group isn't taken";
}

TEST_F(Variables, TheGlobalRangeCoversTheLivePointsOfAllBlocksUntilTheVariableChanges)
{
    const CTestCases cases;
    OpenTwoBlocks();
    SValueRange expected;
    for (const auto& [nBlock, nPoints] : {std::pair{0, 60}, {1, 27}})
        for (qint64 n = 0; n < nPoints; ++n)
            if (Plot3DFixture::Blank(nBlock, n) != 0)
                expected.Add(Plot3DFixture::Value(nBlock, 0, n));
    IVariable& variable = *m_manager.GetVariable(Id("R"));
    EXPECT_EQ(variable.GetGlobalRange(1, SIMULATION, -1), expected);
    auto* const pDouble = Formula("double", "2 * <R>");
    EXPECT_EQ(pDouble->GetGlobalRange(1, SIMULATION, -1),
              (SValueRange{2 * expected.dMin, 2 * expected.dMax}));
    pDouble->SetExpression("3 * <R>", false, false);
    EXPECT_EQ(pDouble->GetGlobalRange(1, SIMULATION, -1),
              (SValueRange{3 * expected.dMin, 3 * expected.dMax}));
    EXPECT_FALSE(variable.GetGlobalRange(1, 9, 1)) << "no such case";
}

TEST_F(Variables, FileVariablesWithoutFilesGoWithWhatIsBuiltOnThem)
{
    OpenTwoBlocks();
    CSolutionManager::Instance().RemoveItem(SIMULATION, 1);
    m_manager.RemoveUnusedFileVariables(SIMULATION);
    EXPECT_NE(Id("R"), -1) << "block 2 still has it";
    CSolutionManager::Instance().RemoveItem(SIMULATION, 2);
    m_manager.RemoveUnusedFileVariables(SIMULATION);
    for (const char* const sName : {"R", "X", "P[Q]", "M[Q]", "Velocity"})
        EXPECT_EQ(Id(sName), -1) << sName;
}
