#include "data/grids/revolvedcopy.h"

#include "tests/support/testgrid.h"

#include <gtest/gtest.h>

namespace {

/** A profile in a plane through the axis, at an angle that is no multiple of anything. */
DVector3D Profile(const IVector3D& ijk)
{
    const double dRadius = double(ijk.i + ijk.j - 1);
    return {10.0 * double(ijk.k), dRadius * std::cos(0.3), dRadius * std::sin(0.3)};
}

} // namespace

TEST(RevolvedCopy, TheFlatDirectionGoesOnceRoundTheAxis)
{
    const IVector3D sizes[] = {{1, 3, 2}, {3, 1, 2}};
    for (const IVector3D& dimensions : sizes) {
        const CTestGrid grid({dimensions}, Profile);
        const auto pCopy = CRevolvedCopy::Build(grid, 0, 12, true);
        ASSERT_NE(pCopy, nullptr);
        const SBlockShape shape = pCopy->GetShape();
        const int nAngle = dimensions.i == 1 ? 0 : 1;
        EXPECT_EQ(shape.dimensions[nAngle], 13);
        for (qint64 n = 0; n < shape.PointCount(); ++n) {
            const IVector3D ijk = shape.Address(n);
            IVector3D source = ijk;
            source[nAngle] = 1;
            const double dRadius = double(source.i + source.j - 1);
            const double dAngle = 0.3 + 2.0 * M_PI * double(ijk[nAngle] - 1) / 12.0;
            EXPECT_EQ(pCopy->GetDouble(0)[n], 10.0 * double(ijk.k));
            EXPECT_NEAR(pCopy->GetDouble(1)[n], dRadius * std::cos(dAngle), 4e-15);
            EXPECT_NEAR(pCopy->GetDouble(2)[n], dRadius * std::sin(dAngle), 4e-15);
        }
    }
}

TEST(RevolvedCopy, QuarterTurnsAreExactAboutEachAxisSoThatTheCircleCloses)
{
    const CTestGrid grid({{1, 2, 2}}, [](const IVector3D& ijk) {
        return DVector3D{0.1 * double(ijk.j), 0.7 * double(ijk.k), -0.3 * double(ijk.j)};
    });
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const int nFirst = (nAxis + 1) % 3, nSecond = (nAxis + 2) % 3;
        const auto pCopy = CRevolvedCopy::Build(grid, nAxis, 8, true);
        ASSERT_NE(pCopy, nullptr);
        const double* const pFirst = pCopy->GetDouble(nFirst);
        const double* const pSecond = pCopy->GetDouble(nSecond);
        for (qint64 n = 0; n < pCopy->GetShape().PointCount(); n += 9) {
            for (qint64 s = 0; s <= 6; ++s) {
                EXPECT_EQ(pFirst[n + s + 2], -pSecond[n + s]);
                EXPECT_EQ(pSecond[n + s + 2], pFirst[n + s]);
            }
            EXPECT_EQ(pFirst[n + 8], pFirst[n]);
            EXPECT_EQ(pSecond[n + 8], pSecond[n]);
            EXPECT_EQ(pFirst[n], grid.GetPoint(n / 9)[nFirst]) << "the first angle is the block itself";
        }
    }
}

TEST(RevolvedCopy, SectorsAreRoundedUpToFullQuarters)
{
    const CTestGrid grid({{3, 1, 2}}, Profile);
    for (const auto& [nSectors, nPoints] : {std::pair(1, 5), {4, 5}, {5, 9}, {13, 17}})
        EXPECT_EQ(CRevolvedCopy::Build(grid, 0, nSectors, false)->GetShape().dimensions.j, nPoints);
}

TEST(RevolvedCopy, OnlyTheFirstFlatDirectionGrows)
{
    const CTestGrid grid({{3, 1, 1}}, Profile);
    EXPECT_EQ(CRevolvedCopy::Build(grid, 0, 4, false)->GetShape().dimensions, (IVector3D{3, 5, 1}));
}

TEST(RevolvedCopy, WhatCantBeRevolvedGivesNothing)
{
    const auto builds = [](const SBlockShape& shape, qint64 nSectors) {
        return CRevolvedCopy::Build(CTestGrid(shape, Profile), 0, nSectors, true) != nullptr;
    };
    EXPECT_TRUE(builds({{3, 1, 2}}, 4));
    EXPECT_FALSE(builds({{3, 2, 2}}, 4)) << "no flat direction";
    EXPECT_FALSE(builds({{3, 1, 2}, {1, 2, 1}}, 4)) << "another start";
    EXPECT_FALSE(builds({{3, 1, 2}}, 0));
    EXPECT_FALSE(builds({{3, 1, 2}}, CRevolvedCopy::MAX_SECTORS + 1));
    EXPECT_FALSE(builds({{0, 1, 2}}, 4));
}

TEST(RevolvedCopy, MemoryThatIsShortGivesNothing)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "a sanitizer ends the program at such a size";
#endif
    // A profile that no machine can revolve; its points are never read.
    CTestGrid grid({{3, 1, 2}}, Profile);
    grid.SetDimensions({qint64(1) << 32, 1, 1});
    EXPECT_FALSE(grid.BuildRevolvedCoordinates(0, CRevolvedCopy::MAX_SECTORS, true));
    EXPECT_EQ(grid.GetRevolvedDouble(0), nullptr);
}

TEST(RevolvedCopy, AGridKeepsItInThePrecisionAskedForUntilCopiesAreReleased)
{
    CTestGrid grid({{3, 1, 2}}, Profile);
    EXPECT_EQ(grid.GetRevolvedSingle(1), nullptr);
    ASSERT_TRUE(grid.BuildRevolvedCoordinates(0, 4, false));
    EXPECT_EQ(grid.GetRevolvedDouble(1), nullptr);
    EXPECT_EQ(grid.GetRevolvedSingle(1)[0], float(std::cos(0.3)));
    grid.ReleaseCoordinateCopies();
    EXPECT_EQ(grid.GetRevolvedSingle(1), nullptr);
}
