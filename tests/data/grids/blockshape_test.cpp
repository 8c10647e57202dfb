#include "data/values/blockshape.h"

#include <gtest/gtest.h>

TEST(BlockShape, AddressesRunThroughTheBlockWithIFastest)
{
    const SBlockShape shape{{4, 3, 2}, {-1, 0, 7}};
    qint64 n = 0;
    for (qint64 k = 7; k <= 8; ++k) {
        for (qint64 j = 0; j <= 2; ++j) {
            for (qint64 i = -1; i <= 2; ++i, ++n) {
                EXPECT_EQ(shape.PointIndex({i, j, k}), n);
                EXPECT_EQ(shape.Address(n), (IVector3D{i, j, k}));
                EXPECT_TRUE(shape.Contains({i, j, k}));
            }
        }
    }
    EXPECT_EQ(n, shape.PointCount());
    EXPECT_EQ(shape.End(), (IVector3D{2, 2, 8}));
    EXPECT_FALSE(shape.Contains({3, 2, 8}));
    EXPECT_FALSE(shape.Contains({-1, 0, 6}));
    EXPECT_EQ(shape.CellIndex({0, 1, 7}), 4);
}

TEST(BlockShape, EdgesAndFacesAreThoseOfTheCells)
{
    const SBlockShape cube{{2, 2, 2}};
    EXPECT_EQ(cube.CellCount(), 1);
    EXPECT_EQ(cube.FaceCount(), 6);
    EXPECT_EQ(cube.EdgeCount(), 12);
    const SBlockShape slab{{3, 2, 2}}; // two cubes with a face in common
    EXPECT_EQ(slab.CellCount(), 2);
    EXPECT_EQ(slab.FaceCount(), 11);
    EXPECT_EQ(slab.EdgeCount(), 20);
}

TEST(BlockShape, ADirectionOfOnePointHasOneCell)
{
    const SBlockShape plane{{5, 4, 1}, {1, 1, 9}};
    EXPECT_EQ(plane.CellDimensions(), (IVector3D{4, 3, 1}));
    EXPECT_EQ(plane.CellCount(), 12);
    EXPECT_TRUE(plane.IsPlanar());
    EXPECT_FALSE((SBlockShape{{2, 2, 2}, {2, 2, 2}}.IsPlanar())) << "a count, not an address";
}

TEST(BlockShape, AMirroredIndexCountsFromTheOtherEnd)
{
    const SBlockShape shape{{5, 4, 3}, {1, 3, -2}};
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        EXPECT_EQ(shape.Mirrored(nAxis, shape.start[nAxis]), shape.End()[nAxis]);
        EXPECT_EQ(shape.Mirrored(nAxis, shape.Mirrored(nAxis, shape.start[nAxis] + 1)),
                  shape.start[nAxis] + 1);
    }
}

TEST(BlockShape, AnAddressOutsideIsClampedEachIndexForItself)
{
    const SBlockShape shape{{5, 4, 3}};
    EXPECT_EQ(shape.Clamped({0, 2, 9}), (IVector3D{1, 2, 3}));
    EXPECT_EQ(shape.Clamped({5, 4, 3}), (IVector3D{5, 4, 3}));
}

TEST(BlockShape, RangesThatDontMeetHaveAnEmptyIntersection)
{
    const SIJKRange a{{1, 1, 1}, {4, 5, 6}};
    EXPECT_EQ(Intersection(a, {{3, 0, 6}, {9, 2, 9}}), (SIJKRange{{3, 1, 6}, {4, 2, 6}}));
    EXPECT_TRUE(Intersection(a, {{5, 1, 1}, {9, 9, 9}}).IsEmpty());
    EXPECT_EQ(Intersection(a, {{5, 1, 1}, {9, 9, 9}}).Count(), 0);
    EXPECT_TRUE(SIJKRange().IsEmpty());
    EXPECT_EQ((SIJKRange{{2, 2, 2}, {4, 3, 2}}.IndexOf({3, 3, 2})), 4);
}
