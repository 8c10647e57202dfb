#include "data/grids/searchtree.h"

#include "data/grids/flippedgrid.h"
#include "data/grids/gridpack.h"
#include "tests/support/testgrid.h"

#include <QThreadPool>

#include <gtest/gtest.h>

namespace {

constexpr IVector3D NOWHERE{-1, -1, -1};
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

/** The point of a cell at natural coordinates, in [-1, 1] along i, j, k. */
DVector3D PointOfCell(const IGrid& grid, const IVector3D& cell, const DVector3D& natural)
{
    DVector3D point;
    for (int n = 0; n < 8; ++n) {
        const IVector3D corner = cell + IVector3D{n & 1, (n >> 1) & 1, n >> 2};
        double dWeight = 1.0;
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            dWeight *= 0.5 * (1.0 + (n >> nAxis & 1 ? natural[nAxis] : -natural[nAxis]));
        if (dWeight != 0.0)
            point = point + dWeight * grid.GetPoint(grid.GetShape().Clamped(corner));
    }
    return point;
}

/** The search as it is defined: boxes by GetBoundingBox, all cells of a leaf in turn, nothing kept or coarse.
 */
IVector3D FindByDefinition(const IGrid& grid, const SIJKRange& range, const DVector3D& point)
{
    const auto [min, max] = grid.GetBoundingBox(range, 0.0);
    if (!SBox{min, max}.Contains(point))
        return NOWHERE;
    const IVector3D extent = range.max - range.min;
    int nAxis = extent.j > extent.i ? 1 : 0;
    nAxis = extent.k > extent[nAxis] ? 2 : nAxis;
    if (extent[nAxis] >= 5) {
        SIJKRange lower = range, upper = range;
        lower.max[nAxis] = upper.min[nAxis] = range.min[nAxis] + extent[nAxis] / 2;
        const IVector3D found = FindByDefinition(grid, lower, point);
        return found != NOWHERE ? found : FindByDefinition(grid, upper, point);
    }
    const auto end = [&](int n) { return range.min[n] + std::max<qint64>(extent[n], 1); };
    for (qint64 i = range.min.i; i < end(0); ++i)
        for (qint64 j = range.min.j; j < end(1); ++j)
            for (qint64 k = range.min.k; k < end(2); ++k)
                if (grid.IsPointInCell(point, {i, j, k}))
                    return {i, j, k};
    return NOWHERE;
}

/** Points all over a block, in cells, on faces, edges and corners of cells, and beside the block. */
std::vector<DVector3D> ProbesOf(const IGrid& grid, int nCount)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> natural(-1.1, 1.1);
    std::uniform_int_distribution<int> kind(0, 5);
    const SBlockShape shape = grid.GetShape();
    const auto [min, max] = grid.GetBoundingBox(shape.Range(), 0.0);
    std::vector<DVector3D> probes;
    while (int(probes.size()) < nCount) {
        IVector3D cell = shape.start;
        DVector3D place, share;
        for (int nAxis = 0; nAxis < 3; ++nAxis) {
            cell[nAxis] +=
                std::uniform_int_distribution<qint64>(0, shape.CellDimensions()[nAxis] - 1)(random);
            const int nKind = kind(random);
            place[nAxis] = nKind == 0 ? -1.0 : nKind == 1 ? 1.0 : natural(random);
            share[nAxis] = 0.5 + 0.5 * natural(random);
        }
        probes.push_back(PointOfCell(grid, cell, place));
        probes.push_back({min.x + share.x * (max.x - min.x), min.y + share.y * (max.y - min.y),
                          min.z + share.z * (max.z - min.z)});
    }
    return probes;
}

struct SBlockCase
{
    const char* sName;
    SBlockShape shape;
    PointFunction function;
    bool bFindsMost = true; ///< some probes must be found, so that the comparison isn't of nothing
};

void PrintTo(const SBlockCase& block, std::ostream* pOut) { *pOut << block.sName; }

using namespace TestBlock;

DVector3D Wall(const IVector3D& ijk) // cells a thousand times as long as they are thick, on a curved wall
{
    const double dAngle = 0.05 * double(ijk.i);
    const double dRadius = 1.0 + 2e-5 * (std::pow(1.3, double(ijk.k)) - 1.0);
    return {dRadius * std::cos(dAngle), dRadius * std::sin(dAngle), 0.04 * double(ijk.j)};
}

DVector3D Pole(const IVector3D& ijk) // the plane i = 1 falls together on the axis
{
    const double dRadius = double(ijk.i - 1);
    return {dRadius * std::cos(0.4 * double(ijk.j)), dRadius * std::sin(0.4 * double(ijk.j)), double(ijk.k)};
}

PointFunction WithHoles(const PointFunction& function)
{
    return [=](const IVector3D& ijk) {
        const DVector3D nothing{NaN, NaN, NaN};
        const DVector3D infinite{std::numeric_limits<double>::infinity(), 0.0, 0.0};
        return ijk == IVector3D{4, 4, 4} ? infinite : ijk.i == 9 && ijk.j == 3 ? nothing : function(ijk);
    };
}

PointFunction Moved(const PointFunction& function, const IVector3D& by)
{
    return [=](const IVector3D& ijk) { return function(ijk - by); };
}

class SearchTreeBlocks : public testing::TestWithParam<SBlockCase>
{};

/** A block whose first read finds out that the file has other dimensions, and fails. */
class CCorrectedGrid : public CTestGrid
{
public:
    CCorrectedGrid(const SBlockShape& expected, const SBlockShape& actual)
        : CTestGrid(expected, Box()), m_actual(actual, Box())
    {}
    LoadStatus_e FillPoints(const SIJKRange& range, const SPointBuffers& out) const override
    {
        if (GetShape() == m_actual.GetShape())
            return m_actual.FillPoints(range, out);
        const_cast<CCorrectedGrid*>(this)->SetShape(m_actual.GetShape());
        return LoadBadContent;
    }

private:
    CTestGrid m_actual; // asserts that it is asked for its own points alone
};

} // namespace

TEST_P(SearchTreeBlocks, TheCellIsTheOneThatTheDefinitionFinds)
{
    CTestGrid grid(GetParam().shape, GetParam().function);
    int nFound = 0;
    const std::vector<DVector3D> probes = ProbesOf(grid, 300);
    for (const DVector3D& probe : probes) {
        const IVector3D expected = FindByDefinition(grid, grid.GetShape().Range(), probe);
        nFound += expected != NOWHERE;
        ASSERT_EQ(grid.FindCell(probe), expected) << probe.x << ' ' << probe.y << ' ' << probe.z;
    }
    EXPECT_GE(nFound, GetParam().bFindsMost ? 75 : 1);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SearchTreeBlocks,
    testing::Values(SBlockCase{"box", {{7, 12, 18}}, Box()}, SBlockCase{"one cell", {{2, 2, 2}}, Sheared()},
                    SBlockCase{"sheared", {{14, 6, 9}}, Sheared()},
                    SBlockCase{"shell", {{20, 13, 8}}, Shell({20, 13, 8})},
                    SBlockCase{
                        "another start", {{20, 13, 8}, {-5, 0, 7}}, Moved(Shell({20, 13, 8}), {-6, -1, 6})},
                    SBlockCase{"thin cells on a wall", {{40, 4, 17}}, Wall},
                    SBlockCase{"collapsed axis", {{6, 9, 5}}, Pole},
                    SBlockCase{"shaken", {{9, 10, 11}}, Shaken(Sheared(), 0.2)},
                    SBlockCase{"folded", {{12, 10, 11}}, Shaken(Box(), 0.7)},
                    SBlockCase{"chaos", {{9, 8, 17}}, Shaken(Box(), 20.0)},
                    SBlockCase{"holes", {{12, 7, 9}}, WithHoles(Box())},
                    SBlockCase{"one cell thick", {{2, 33, 2}}, Wall}, SBlockCase{"long", {{70, 3, 2}}, Wall},
                    SBlockCase{"surface in k", {{20, 13, 1}}, Shell({20, 13, 1}), false},
                    SBlockCase{"surface in j", {{20, 1, 13}}, Shaken(Box(), 0.1), false},
                    SBlockCase{"surface in i", {{1, 20, 13}}, Box()},
                    SBlockCase{"plane", {{31, 22, 1}}, Box()}),
    [](const auto& info) { return QString(info.param.sName).replace(' ', '_').toStdString(); });

TEST(SearchTree, AWrappedBlockIsSearchedAsItIsSeen)
{
    const IVector3D dimensions{9, 12, 6};
    CTestGridOf<float> single({dimensions}, Shell(dimensions));
    CFlippedGrid flipped(&single);
    flipped.ToggleFlip(1);
    CTestGrid low({{5, 6, 4}, {1, 1, 1}}, Box()), high({{6, 6, 4}, {8, 1, 1}}, Box());
    CGridPack pack({&low, &high});
    for (IGrid* const pGrid : std::initializer_list<IGrid*>{&single, &flipped, &pack})
        for (const DVector3D& probe : ProbesOf(*pGrid, 200))
            ASSERT_EQ(pGrid->FindCell(probe), FindByDefinition(*pGrid, pGrid->GetShape().Range(), probe));
    EXPECT_EQ(pack.FindCell({3.5, 2.5, 1.5}), (IVector3D{3, 2, 1}));
    EXPECT_EQ(pack.FindCell({6.5, 2.5, 1.5}), NOWHERE) << "in the gap";
}

TEST(SearchTree, EachCellOfACurvedBlockHoldsItsMiddleAtAnySize)
{
    const IVector3D dimensions{17, 11, 14};
    for (const double dSize : {1.0, 1e8, 1e-8}) {
        CTestGrid grid({dimensions}, Shell(dimensions, dSize));
        for (qint64 n = 0; n < grid.GetCellCount(); ++n) {
            const IVector3D cell = SBlockShape{grid.GetCellDimensions()}.Address(n);
            ASSERT_EQ(grid.FindCell(PointOfCell(grid, cell, {0.1, -0.2, 0.3})), cell) << dSize;
        }
    }
}

TEST(SearchTree, APointOnASharedFaceIsInTheFirstCellInTreeOrder)
{
    CTestGrid grid({{11, 11, 11}}, Box());
    EXPECT_EQ(grid.FindCell({3.0, 1.5, 1.5}), (IVector3D{2, 1, 1})) << "within a leaf the lower one";
    EXPECT_EQ(grid.FindCell({6.0, 6.0, 6.0}), (IVector3D{5, 5, 5})) << "between the halves the lower one";
    EXPECT_EQ(grid.FindCell({1.0, 1.0, 1.0}), (IVector3D{1, 1, 1}));
    EXPECT_EQ(grid.FindCell({11.0, 11.0, 11.0}), (IVector3D{10, 10, 10}));
}

TEST(SearchTree, APointBesideTheBlockIsNowhere)
{
    CTestGrid grid({{11, 11, 11}}, Box());
    for (const DVector3D& point : {DVector3D{0.999999, 5, 5}, DVector3D{5, std::nextafter(11.0, 12.0), 5},
                                   DVector3D{5, 5, NaN}, DVector3D{1e300, -1e300, 0}})
        EXPECT_EQ(grid.FindCell(point), NOWHERE);
    CTestGrid empty({{0, 0, 0}}, Box());
    EXPECT_EQ(empty.FindCell({0, 0, 0}), NOWHERE);
    CTestGrid line({{9, 1, 1}}, Box());
    EXPECT_EQ(line.FindCell({2.5, 1, 1}), NOWHERE) << "cells of one direction hold nothing";
}

TEST(SearchTree, TheTreeIsSmallBesideTheBlockWhateverTheDimensions)
{
    for (const IVector3D& dimensions : {IVector3D{65, 65, 65}, IVector3D{57, 57, 57}, IVector3D{200, 300, 1},
                                        IVector3D{113, 1, 113}, IVector3D{41, 51, 61}}) {
        const CTestGrid grid({dimensions}, Box());
        const double dShare = double(CSearchTree(grid).GetBytes()) / double(12 * grid.GetPointCount());
        EXPECT_LT(dShare, 0.2) << dimensions.i << ' ' << dimensions.j << ' ' << dimensions.k;
    }
}

TEST(SearchTree, TheBuildReadsInBulkAndMakesTheSameTreeWithAnyNumberOfThreads)
{
    const IVector3D dimensions{70, 60, 50};
    const CTestGrid grid({dimensions}, Shell(dimensions));
    const std::vector<DVector3D> probes = ProbesOf(grid, 500);
    QThreadPool& pool = *QThreadPool::globalInstance();
    const int nThreads = pool.maxThreadCount();
    std::vector<qint64> reads; // a tree that differs has other cells read
    for (const int nMax : {1, 2, 7}) {
        pool.setMaxThreadCount(nMax);
        grid.m_nPointCalls = grid.m_nFillCalls = 0;
        const CSearchTree tree(grid);
        EXPECT_EQ(grid.m_nPointCalls, 0);
        EXPECT_LT(grid.m_nFillCalls, 100);
        for (const DVector3D& probe : probes)
            tree.FindCell(grid, probe);
        reads.push_back(grid.m_nFillCalls);
    }
    pool.setMaxThreadCount(nThreads);
    EXPECT_EQ(reads[1], reads[0]);
    EXPECT_EQ(reads[2], reads[0]);
}

TEST(SearchTree, ALoadThatCorrectsTheDimensionsOnTheWayIsFollowed)
{
    CCorrectedGrid grid({{60, 60, 60}}, {{9, 40, 7}});
    EXPECT_EQ(grid.FindCell({5.5, 30.5, 2.5}), (IVector3D{5, 30, 2}));
    EXPECT_EQ(grid.FindCell({50.5, 5.5, 2.5}), NOWHERE);
}

TEST(SearchTree, ABlockOfOtherDimensionsIsSearchedAnew)
{
    CTestGrid grid({{11, 11, 11}}, Box());
    EXPECT_NE(grid.FindCell({5.5, 5.5, 5.5}), NOWHERE);
    grid.SetDimensions({11, 11, 3});
    EXPECT_EQ(grid.FindCell({5.5, 5.5, 5.5}), NOWHERE);
    EXPECT_EQ(grid.FindCell({5.5, 5.5, 2.5}), (IVector3D{5, 5, 2}));
}
