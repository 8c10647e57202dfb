#include "data/grids/searchtree.h"
#include "tests/support/testgrid.h"

#include <gtest/gtest.h>

namespace {

/** A cell of its own. */
class CCell
{
public:
    explicit CCell(const PointFunction& function, const IVector3D& dimensions = {2, 2, 2})
        : m_grid({dimensions}, function)
    {}
    SCellPlace At(const DVector3D& point, double dTolerance = -1.0) const
    {
        return LocateInCell(m_grid, {1, 1, 1}, point, dTolerance);
    }

private:
    CTestGrid m_grid;
};

void ExpectNear(const DVector3D& found, const DVector3D& expected, double dTolerance)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        EXPECT_NEAR(found[nAxis], expected[nAxis], dTolerance) << "axis " << nAxis;
}

DVector3D Twisted(const IVector3D& ijk) // its upper face is turned by 40 degrees against the lower one
{
    const double dAngle = 0.7 * double(ijk.k - 1);
    const double x = double(ijk.i) - 1.5, y = double(ijk.j) - 1.5;
    return {x * std::cos(dAngle) - y * std::sin(dAngle), x * std::sin(dAngle) + y * std::cos(dAngle),
            double(ijk.k)};
}

} // namespace

TEST(CellMap, NaturalCoordinatesOfAShearedCellAreExactAtAnySizeAndPlace)
{
    for (const double dStep : {1.0, 1e8, 1e-8}) {
        const CCell cell(TestBlock::Sheared(dStep));
        const DVector3D natural{0.25, -0.5, 0.75};
        const DVector3D ijk = DVector3D{1.5, 1.5, 1.5} + 0.5 * natural;
        const DVector3D point =
            dStep * DVector3D{ijk.x + 0.7 * ijk.y, ijk.y - 0.4 * ijk.z, ijk.z + 0.3 * ijk.x};
        const SCellPlace place = cell.At(point);
        EXPECT_TRUE(place.bInside);
        ExpectNear(place.natural, natural, 1e-14);
    }
}

TEST(CellMap, ATwistedCellIsInverted)
{
    const CCell cell(Twisted);
    const SCellPlace place = cell.At({0.1, 0.2, 1.5}); // half of the corners' sum lies half way round
    ASSERT_TRUE(place.bInside);
    const double c = 0.5 * (1.0 + std::cos(0.7)), s = 0.5 * std::sin(0.7);
    const double x = 0.5 * place.natural.x, y = 0.5 * place.natural.y;
    ExpectNear({x * c - y * s, x * s + y * c, place.natural.z}, {0.1, 0.2, 0.0}, 1e-15);
}

struct SPlaceCase
{
    const char* sName;
    PointFunction function;
    IVector3D dimensions;
    DVector3D point;
    double dTolerance;
    bool bInside;
};

TEST(CellMap, WhetherAPointIsInside)
{
    using namespace TestBlock;
    const auto collapsed = [](const IVector3D& ijk) { return DVector3D{double(ijk.i), double(ijk.j), 1.0}; };
    const auto wedge = [](const IVector3D& ijk) { // the edge i = 1 is one line
        return DVector3D{double(ijk.i - 1), double((ijk.i - 1) * (ijk.j - 1)), double(ijk.k)};
    };
    const auto tilted = [](const IVector3D& ijk) {
        return DVector3D{double(ijk.i), double(ijk.j), double(ijk.i + ijk.j)};
    };
    const auto upright = [](const IVector3D& ijk) { return DVector3D{5.0, double(ijk.i), double(ijk.j)}; };
    const double dDefault = -1.0;
    const SPlaceCase cases[] = {
        {"corner", Box(), {2, 2, 2}, {2, 2, 2}, dDefault, true},
        {"face", Box(), {2, 2, 2}, {1, 1.5, 1.5}, dDefault, true},
        {"a thousand epsilons outside", Box(), {2, 2, 2}, {1.0 - 1e-13, 1.5, 1.5}, dDefault, true},
        {"more outside", Box(), {2, 2, 2}, {1.0 - 2e-13, 1.5, 1.5}, dDefault, false},
        {"far outside", Box(), {2, 2, 2}, {100, 1.5, 1.5}, 1e9, false},
        {"no volume", collapsed, {2, 2, 2}, {1.5, 1.5, 1.0}, dDefault, false},
        {"on a collapsed edge", wedge, {2, 2, 2}, {0.0, 0.0, 1.25}, dDefault, true},
        {"beside a collapsed edge", wedge, {2, 2, 2}, {1e-9, 0.5e-9, 1.25}, dDefault, true},
        {"on a surface", tilted, {2, 2, 1}, {1.25, 1.5, 2.75}, dDefault, true},
        {"off a surface by the default", tilted, {2, 2, 1}, {1.25, 1.5, 2.75 + 1e-6}, dDefault, true},
        {"off a surface by more", tilted, {2, 2, 1}, {1.25, 1.5, 2.75 + 3e-6}, dDefault, false},
        {"off a surface by the tolerance", tilted, {2, 2, 1}, {1.25, 1.5, 2.85}, 0.11, true},
        {"off a surface by more than it", tilted, {2, 2, 1}, {1.25, 1.5, 2.85}, 0.09, false},
        {"on an upright surface", upright, {2, 2, 1}, {5.0, 1.25, 1.75}, dDefault, true},
        {"beside an upright surface", upright, {2, 2, 1}, {5.0, 2.25, 1.75}, dDefault, false},
        {"surface in i", Box(), {1, 2, 2}, {1.0, 1.25, 1.75}, dDefault, true},
        {"surface in j", Box(), {2, 1, 2}, {1.25, 1.0, 1.75}, dDefault, true},
        {"a line has no inside", Box(), {2, 1, 1}, {1.25, 1.0, 1.0}, dDefault, false},
    };
    for (const SPlaceCase& test : cases)
        EXPECT_EQ(CCell(test.function, test.dimensions).At(test.point, test.dTolerance).bInside, test.bInside)
            << test.sName;
}

TEST(CellMap, TheFlatDirectionHasNaturalCoordinateZero)
{
    const SCellPlace place = CCell(TestBlock::Box(), {2, 1, 2}).At({1.25, 1.0, 1.75});
    ExpectNear(place.natural, {-0.5, 0.0, 0.5}, 1e-15);
}

TEST(CellMap, AnAddressWithoutACellHoldsNothing)
{
    const CTestGrid grid({{3, 3, 3}}, TestBlock::Box());
    const DVector3D point{3.0, 2.5, 2.5};
    EXPECT_TRUE(LocateInCell(grid, {2, 2, 2}, point).bInside);
    for (const IVector3D& ijk : {IVector3D{3, 2, 2}, IVector3D{0, 2, 2}, IVector3D{2, 2, -1}})
        EXPECT_FALSE(LocateInCell(grid, ijk, point).bInside);
}
