// A mesh and its fields take the road of blocks: registered, held, read by range and at scattered points,
// computed with.
#include "data/variables/expressionvariable.h"
#include "tests/support/plot3dcasefixture.h"
#include "tests/support/testcases.h"
#include "tests/support/testgrid.h"

namespace {

constexpr qint64 NODES = 40;

/** Nodes of a mesh, without (i, j, k). */
class CMeshNodes : public CTestGrid
{
public:
    CMeshNodes()
        : CTestGrid({{NODES, 1, 1}}, [](const IVector3D& ijk) {
              return DVector3D{double(ijk.i), 2.0 * double(ijk.i), -1.0};
          })
    {}
    GridKind_e GetGridKind() const override { return GridKindUnstructured; }
    void Dispose() override { CGrid::Dispose(); } // to the manager, uncounted
};

/** A value a node: its square, and none at the eighth. */
class CMeshField : public CSolution
{
public:
    IStructredSolution* AsStructured() override { return nullptr; }
    using IStructredSolution::GetValue;
    double GetValue(const IVector3D& ijk) const override
    {
        return ijk.i == 8 ? NO_VALUE : double(ijk.i * ijk.i);
    }
    LoadStatus_e FillValues(const SIJKRange& range, std::span<double> out) const override
    {
        for (qint64 n = 0; n < range.Count(); ++n)
            out[n] = GetValue({range.min.i + n, 1, 1});
        return LoadOk;
    }
    LoadStatus_e GatherValues(std::span<const qint64> points, std::span<double> out) const override
    {
        std::transform(points.begin(), points.end(), out.begin(), [this](qint64 n) {
            return GetValue(IVector3D{n + 1, 1, 1});
        });
        return LoadOk;
    }
};

class Mesh : public Plot3DCaseFixture
{
protected:
    Mesh()
    {
        const SBlockShape shape{{NODES, 1, 1}};
        CGridManager::Instance().AddGrid(
            SIMULATION, 1, -1, shape, [] { return std::make_unique<CMeshNodes>(); }, STEADY_TIME);
        CSolutionManager::Instance().AddSolution(
            SIMULATION, 1, NewVariable("square")->GetId(), -1, shape,
            [] { return std::make_unique<CMeshField>(); }, STEADY_TIME);
        NewVariable("X")->SetGridVariable(true);
        auto* const pFormula = new CExpressionVariable(SIMULATION, true);
        pFormula->SetName("sum");
        pFormula->SetScope({Id("square"), Id("X")});
        EXPECT_TRUE(pFormula->SetExpression("max(<square>, 0) + <X>", false, false));
    }
    IVariable* NewVariable(const char* sName)
    {
        auto* const pVariable = new IVariable(SIMULATION, true);
        pVariable->SetName(sName);
        return pVariable;
    }
    CLease<ISolution> MeshField(const char* sName)
    {
        return CSolutionManager::Instance().GetSolution(Id(sName), SIMULATION, 1, -1, STEADY_TIME);
    }
    const CTestCases m_cases;
};

} // namespace

TEST_F(Mesh, AFormulaOverItHasValuesRangesAndGathersAsOverABlock)
{
    EXPECT_EQ(Grid(1)->GetGridKind(), GridKindUnstructured);
    const auto pSum = MeshField("sum");
    ASSERT_TRUE(pSum);
    EXPECT_EQ(pSum->AsStructured(), nullptr);
    EXPECT_EQ(pSum->GetShape(), (SBlockShape{{NODES, 1, 1}}));
    std::vector<double> all(NODES);
    ASSERT_EQ(pSum->FillValues(pSum->GetShape().Range(), all), LoadOk);
    const std::vector<qint64> points{39, 7, 0, 7, 12};
    std::vector<double> gathered(points.size()), x(points.size()), y = x, z = x;
    ASSERT_EQ(pSum->GatherValues(points, gathered), LoadOk);
    ASSERT_EQ(Grid(1)->GatherPoints(points, {x, y, z}), LoadOk);
    for (size_t n = 0; n < points.size(); ++n) {
        const double dNode = double(points[n] + 1);
        EXPECT_EQ(gathered[n], dNode == 8.0 ? NO_VALUE : dNode * dNode + dNode);
        EXPECT_EQ(gathered[n], all[points[n]]);
        EXPECT_EQ(y[n], 2.0 * dNode);
    }
    CGridManager::Instance().RemoveItem(SIMULATION, 1);
    EXPECT_FALSE(MeshField("sum")) << "its coordinates are gone";
    EXPECT_EQ(pSum->GetValue(qint64(39)), 1640.0) << "held";
}

TEST_F(Mesh, TheRangeOfAFormulaIsThatOfItsNodes)
{
    const auto range = [this](const char* sName) {
        return CVariableManager::Instance().GetVariable(Id(sName))->GetGlobalRange(1, SIMULATION, 1);
    };
    EXPECT_EQ(range("X"), (SValueRange{1, NODES}));
    EXPECT_EQ(range("square"), (SValueRange{1, NODES * NODES}));
    EXPECT_EQ(range("sum"), (SValueRange{2, NODES * NODES + NODES}));
}
