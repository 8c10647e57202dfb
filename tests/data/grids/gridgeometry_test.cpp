#include "data/grids/gridpack.h"
#include "tests/support/testgrid.h"

#include <gtest/gtest.h>

namespace {

using namespace TestBlock;
using Points = QVector<DVector3D>;
using Indices = QVector<IVector3D>;

constexpr double HIGH = std::numeric_limits<double>::max();

DVector3D MirroredBox(const IVector3D& ijk) { return {-double(ijk.i), double(ijk.j), double(ijk.k)}; }

/** A wedge: the two corners of the edge along k at j = 1 fall together on those at i = 1. */
DVector3D Wedge(const IVector3D& ijk)
{
    return ijk.j == 1 ? DVector3D{0.0, 0.0, double(ijk.k)} : AsPoint(ijk);
}

} // namespace

TEST(GridGeometry, ABlockIsRightHandedByItsMiddle)
{
    const auto isRightHanded = [](const SBlockShape& shape, const PointFunction& function) {
        return CTestGrid(shape, function).IsRightHanded();
    };
    EXPECT_TRUE(isRightHanded({{5, 4, 3}}, Box()));
    EXPECT_FALSE(isRightHanded({{5, 4, 3}}, MirroredBox));
    EXPECT_FALSE(isRightHanded({{2, 2, 2}}, MirroredBox));
    EXPECT_TRUE(isRightHanded({{5, 4, 1}}, MirroredBox)) << "planar";
    EXPECT_TRUE(isRightHanded({{2, 2, 2}}, [](const IVector3D&) { return DVector3D(); })) << "no volume";
    const auto turnsInTheMiddle = [](const IVector3D& ijk) {
        return DVector3D{ijk.i <= 5 ? -double(ijk.i) : double(ijk.i), double(ijk.j), double(ijk.k)};
    };
    EXPECT_TRUE(isRightHanded({{9, 3, 3}}, turnsInTheMiddle)) << "sampled at i = 5 and 6";
}

TEST(GridGeometry, ABlockWithAnotherStartIsRightHandedWithoutALook)
{
    const CTestGrid grid({{5, 4, 3}, {1, 2, 1}}, MirroredBox);
    EXPECT_TRUE(grid.IsRightHanded());
    EXPECT_EQ(grid.m_nPointCalls + grid.m_nFillCalls, 0);
}

TEST(GridGeometry, SamplesLieAtTheEndsInTheMiddleAndAskew)
{
    EXPECT_EQ(CTestGrid({{9, 8, 3}}, Box()).GetSamplePoints(),
              (Points{{1, 1, 1}, {5, 5, 1}, {9, 8, 3}, {3, 5, 1}}));
    EXPECT_EQ(CTestGrid({{2, 4, 12}}, Box()).GetSamplePoints(),
              (Points{{1, 1, 1}, {1, 3, 7}, {2, 4, 12}, {1, 3, 10}}));
    EXPECT_EQ(CTestGrid({{9, 8, 3}}, Box()).GetSamplePoint(4), DVector3D());
    EXPECT_EQ(CTestGrid({{9, 8, 3}, {11, 1, 1}}, Box()).GetSamplePoint(2), (DVector3D{19, 8, 3}));
}

TEST(GridGeometry, SampleIndicesAreTheNeighbourTheCornersAndALattice)
{
    const Indices neighbourAndCorners = {{1, 1, 2}, {5, 1, 1}, {1, 2, 1}, {1, 1, 2}, {5, 2, 2}};
    Indices lattice;
    for (const qint64 i : {1, 3, 5})
        lattice += Indices{{i, 1, 1}, {i, 1, 2}, {i, 2, 1}, {i, 2, 2}};
    EXPECT_EQ(CTestGrid({{5, 2, 2}}, Box()).GetSampleIndices(), neighbourAndCorners + lattice);
    EXPECT_EQ(CTestGrid({{4, 3, 1}}, Box()).GetSampleIndices().first(), (IVector3D{1, 2, 1}));
    EXPECT_EQ(
        CTestGrid({{8, 1, 1}}, Box()).GetSampleIndices(),
        (Indices{{8, 1, 1}, {1, 1, 1}, {1, 1, 1}, {8, 1, 1}, {1, 1, 1}, {3, 1, 1}, {5, 1, 1}, {7, 1, 1}}));
}

TEST(GridGeometry, TheCentreOfACellIsTheMeanOfItsDifferentCorners)
{
    const CTestGrid box({{3, 3, 3}}, Box());
    EXPECT_EQ(box.GetCellCentre({2, 1, 2}, 0.0), (DVector3D{2.5, 1.5, 2.5}));
    EXPECT_EQ(box.GetCellCentre({3, 1, 2}, 0.0), (DVector3D{3, 1.5, 2.5})) << "beyond the end";
    EXPECT_EQ(box.GetCellCentre({9, 9, 9}, 0.0), DVector3D());
    EXPECT_EQ(CTestGrid({{3, 3, 1}}, Box()).GetCellCentre({1, 1, 1}, 0.0), (DVector3D{1.5, 1.5, 1}));
    const DVector3D centre = CTestGrid({{2, 2, 2}}, Wedge).GetCellCentre({1, 1, 1}, 1e-6);
    EXPECT_DOUBLE_EQ(centre.x, 1.0) << "six corners: 0 0 1 1 2 2";
    EXPECT_DOUBLE_EQ(centre.y, 4.0 / 3.0);
    EXPECT_EQ(box.GetCellCentre({1, 1, 1}, 1.5), (DVector3D{1, 1, 1})) << "all within the tolerance";
}

TEST(GridGeometry, FaceCornersAreFlatIndices)
{
    const CTestGrid grid({{4, 3, 2}, {2, 1, 1}}, Box());
    const IVector3D cell{3, 2, 1}; // flat index 5
    using Corners = std::array<qint64, 4>;
    EXPECT_EQ(grid.GetFaceCorners(cell, 0), (Corners{5, 9, 17, 21}));
    EXPECT_EQ(grid.GetFaceCorners(cell, 1), (Corners{6, 10, 18, 22}));
    EXPECT_EQ(grid.GetFaceCorners(cell, 2), (Corners{5, 17, 6, 18}));
    EXPECT_EQ(grid.GetFaceCorners(cell, 3), (Corners{9, 21, 10, 22}));
    EXPECT_EQ(grid.GetFaceCorners(cell, 4), (Corners{5, 6, 9, 10}));
    EXPECT_EQ(grid.GetFaceCorners(cell, 5), (Corners{17, 18, 21, 22}));
}

TEST(GridGeometry, BoxesAndProjectionsSeeTheOuterFacesOnly)
{
    const auto withASpike = [](const IVector3D& ijk) {
        return ijk == IVector3D{3, 3, 3} ? DVector3D{100, 100, 100} : AsPoint(ijk);
    };
    const CTestGrid grid({{5, 6, 7}}, withASpike);
    using Corners = QPair<DVector3D, DVector3D>;
    EXPECT_EQ(grid.GetBoundingBox(grid.GetShape().Range(), 0.5), (Corners{{0.5, 0.5, 0.5}, {5.5, 6.5, 7.5}}));
    EXPECT_EQ(grid.GetProjectedRange({1, -1, 0}, grid.GetShape().Range()), (SValueRange{-5, 4}));
    EXPECT_EQ(grid.GetBoundingBox({{3, 3, 3}, {4, 5, 6}}, 0.0).second.x, 100.0) << "now it is on a face";
    EXPECT_EQ(grid.GetProjectedRange({0, 0, 2}, {{1, 2, 5}, {4, 4, 5}}), (SValueRange{10, 10}));
    EXPECT_EQ(grid.m_nPointCalls, 0);
}

TEST(GridGeometry, OfARangeThatReachesOutOnlyWhatIsThereCounts)
{
    const CTestGrid grid({{5, 6, 7}}, Box());
    // The low i face lies outside; the faces of the other directions are there from 1 on.
    EXPECT_EQ(grid.GetBoundingBox({{-3, 2, 2}, {3, 4, 9}}, 0.0),
              qMakePair(DVector3D{1, 2, 2}, DVector3D{3, 4, 7}));
    const auto nothing = grid.GetBoundingBox({{6, 1, 1}, {9, 6, 7}}, 1.0);
    EXPECT_EQ(nothing.first.x, HIGH);
    EXPECT_EQ(nothing.second.x, -HIGH);
    EXPECT_TRUE(grid.GetProjectedRange({1, 0, 0}, {{2, 2, 2}, {1, 1, 1}}).IsEmpty());
    CTestGrid low({{3, 3, 3}}, Box(-1.0)), high({{2, 3, 3}, {6, 1, 1}}, Box(-1.0));
    const CGridPack pack({&low, &high});
    EXPECT_EQ(pack.GetBoundingBox(pack.GetShape().Range(), 0.0),
              qMakePair(DVector3D{-7, -3, -3}, DVector3D{-1, -1, -1}))
        << "no zeros of the gap";
    EXPECT_EQ(pack.GetProjectedRange({1, 0, 0}, pack.GetShape().Range()), (SValueRange{-7, -1}));
}

TEST(GridGeometry, PointNormalsGoOnceRoundThePoint)
{
    const CTestGrid box({{3, 3, 3}}, Box(1e-8));
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        DVector3D normal;
        normal[nAxis] = 1.0;
        EXPECT_EQ(box.GetPointNormals({2, 2, 2}, nAxis), Points(4, normal)) << nAxis;
        EXPECT_EQ(box.GetPointNormals({1, 1, 1}, nAxis), Points(1, normal)) << "at a corner";
    }
    EXPECT_EQ(box.GetPointNormals({3, 1, 2}, 2).size(), 1) << "only (-v, +u) of a walk that is open here";
    EXPECT_EQ(box.GetPointNormals({2, 1, 2}, 2).size(), 2);
    EXPECT_TRUE(box.GetPointNormals({0, 1, 1}, 2).isEmpty());
}

TEST(GridGeometry, ANormalWithoutLengthIsLeftOut)
{
    const auto roof = [](const IVector3D& ijk) { // the quadrilaterals with j = 3 are folded flat
        return DVector3D{double(ijk.i), ijk.j == 3 ? 2.0 : double(ijk.j), std::abs(double(ijk.i) - 2.0)};
    };
    const Points normals = CTestGrid({{3, 3, 1}}, roof).GetPointNormals({2, 2, 1}, 2);
    const double s = std::sqrt(0.5);
    ASSERT_EQ(normals.size(), 2); // left and right of the ridge, in the order of the walk
    EXPECT_NEAR(normals[0].x, s, 1e-15);
    EXPECT_NEAR(normals[1].x, -s, 1e-15);
    EXPECT_NEAR(normals[1].z, s, 1e-15);
}
