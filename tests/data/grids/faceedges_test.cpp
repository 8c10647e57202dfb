#include "data/grids/faceedges.h"

#include "tests/support/testgrid.h"

#include <gtest/gtest.h>

namespace {

using namespace TestBlock;
using Points = QVector<DVector3D>;

constexpr double LIMIT = 0.5235987755982988; // 30 degrees

/** A strip of 5 x 3 points whose edge 0 of face 4 runs along x from dBegin in unit steps. */
struct SStrip
{
    double dBegin = 0.0;
    double dLength = 4.0;
    double dAngle = 0.0; ///< of the strip about the edge, from the direction +y [degrees]

    CFaceEdges::SEdge Edge() const
    {
        const double dRadians = dAngle * M_PI / 180.0;
        const CTestGrid grid({{5, 3, 1}}, [&](const IVector3D& ijk) {
            const double dAway = double(ijk.j - 1);
            return DVector3D{dBegin + dLength * double(ijk.i - 1) / 4.0, dAway * std::cos(dRadians),
                             dAway * std::sin(dRadians)};
        });
        CFaceEdges edges;
        return edges.Get(grid, 4, 0);
    }
};

bool Match(const SStrip& first, const SStrip& second)
{
    const CFaceEdges::SEdge a = first.Edge(), b = second.Edge();
    const bool bMatch = EdgesMatch(a, b, LIMIT);
    EXPECT_EQ(EdgesMatch(b, a, LIMIT), bMatch) << "from the other side";
    return bMatch;
}

} // namespace

TEST(FaceEdges, EachOfTheTwentyFourEdgesLiesWhereItsNumbersSay)
{
    const IVector3D dimensions{3, 4, 5};
    for (const double dSize : {1.0, 1e8, 1e-8}) {
        CTestGrid grid({dimensions}, Box(dSize));
        for (int nFace = 0; nFace < 6; ++nFace) {
            for (int nEdge = 0; nEdge < 4; ++nEdge) {
                const int nAxis = nFace / 2;
                const int nAlong = (nAxis + (nEdge % 2 ? 2 : 1)) % 3,
                          nFixed = (nAxis + (nEdge % 2 ? 1 : 2)) % 3;
                DVector3D point{1, 1, 1}, step, inward, normal;
                point[nAxis] = nFace % 2 ? double(dimensions[nAxis]) : 1.0;
                point[nFixed] = nEdge >= 2 ? double(dimensions[nFixed]) : 1.0;
                step[nAlong] = 1.0;
                inward[nFixed] = nEdge >= 2 ? -dSize : dSize;
                normal[nAxis] = 1.0;
                const Points points = grid.GetFaceEdgePoints(nFace, nEdge);
                ASSERT_EQ(points.size(), dimensions[nAlong]);
                for (int n = 0; n < points.size(); ++n) {
                    EXPECT_EQ(points[n], dSize * (point + double(n) * step));
                    const DVector3D off = grid.GetFaceEdgeInward(nFace, nEdge)[n] - inward;
                    EXPECT_LT(Length(off), 1e-14 * dSize);
                    EXPECT_LT(Length(grid.GetFaceEdgeNormals(nFace, nEdge)[n] - normal), 1e-6);
                }
                EXPECT_EQ(grid.GetFaceEdgeBoxMin(nFace, nEdge), points.first());
                EXPECT_EQ(grid.GetFaceEdgeBoxMax(nFace, nEdge), points.last());
            }
        }
        EXPECT_EQ(grid.m_nPointCalls, 0);
    }
}

TEST(FaceEdges, AnEdgeIsBuiltOnceUntilTheEdgesAreReset)
{
    CTestGrid grid({{3, 4, 5}}, Box());
    grid.BuildFaceEdge(2, 1);
    const qint64 nReads = grid.m_nFillCalls;
    grid.GetFaceEdgePoints(2, 1);
    EXPECT_EQ(grid.m_nFillCalls, nReads);
    grid.ResetFaceEdges();
    grid.GetFaceEdgePoints(2, 1);
    EXPECT_GT(grid.m_nFillCalls, nReads);
}

TEST(FaceEdges, AFaceWithoutWidthHasNoNormals)
{
    CTestGrid grid({{3, 4, 1}}, Box());
    EXPECT_EQ(grid.GetFaceEdgeNormals(0, 0), Points(4, DVector3D())); // runs along j, nothing along k
    EXPECT_EQ(grid.GetFaceEdgeInward(0, 0), Points(4, DVector3D()));
    EXPECT_EQ(grid.GetFaceEdgeNormals(4, 0).size(), 3);
    CTestGrid point({{1, 1, 1}}, Box());
    EXPECT_EQ(point.GetFaceEdgePoints(3, 2), Points(1, DVector3D{1, 1, 1}));
}

TEST(FaceEdges, APointIsFoundOnASegmentByItsFirstVertex)
{
    const Points polyline = {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {10, 10, 3}};
    const struct
    {
        DVector3D point;
        int nExpected;
    } cases[] = {
        {{0, 0, 0}, 0},   {{4, 0, 0}, 0},    {{10.0 / 3.0, 0, 0}, 0}, {{10, 7, 0}, 1},
        {{10, 10, 1}, 2}, {{10, 10, 3}, 2},  {{4, 1e-10, 0}, 0},      {{4, 2e-9, 0}, -1},
        {{-1, 0, 0}, -1}, {{10, 10, 4}, -1}, {{5, 5, 0}, -1},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FindOnPolyline(test.point, polyline), test.nExpected)
            << test.point.x << ' ' << test.point.y << ' ' << test.point.z;
    EXPECT_EQ(FindOnPolyline({1, 2, 3}, {}), -1);
    EXPECT_EQ(FindOnPolyline({1, 2, 3}, {{1, 2, 3}}), 0);
    EXPECT_EQ(FindOnPolyline({1, 2, 3}, {{1, 2, 3}, {1, 2, 3}}), 0) << "a segment without length";
}

TEST(FaceEdges, FacesOnOppositeSidesOfOneCurveMatchUpToTheAngle)
{
    EXPECT_TRUE(Match({0, 4, 0}, {0, 4, 180}));
    EXPECT_TRUE(Match({0, 4, 0}, {4, -4, 180})) << "run the other way";
    EXPECT_TRUE(Match({0, 4, 0}, {0, 4, 155}));
    EXPECT_TRUE(Match({0, 4, 0}, {0, 4, 205}));
    EXPECT_FALSE(Match({0, 4, 0}, {0, 4, 145}));
    EXPECT_FALSE(Match({0, 4, 0}, {0, 4, 0})) << "on the same side";
    EXPECT_FALSE(Match({0, 4, 0}, {0, 4, 20})) << "on the same side";
    EXPECT_FALSE(Match({0, 4, 0}, {0, 4, 90}));
}

TEST(FaceEdges, EdgesMatchWhereTheyOverlap)
{
    EXPECT_TRUE(Match({0, 4, 0}, {0, 8, 180})) << "two cells to one";
    EXPECT_TRUE(Match({0, 8, 0}, {3, 2, 180})) << "one within the other";
    EXPECT_TRUE(Match({0, 4, 0}, {2, 4, 180})) << "a half";
    EXPECT_TRUE(Match({0, 4, 0}, {1.5, 4, 180})) << "the ends between vertices";
    EXPECT_TRUE(Match({0, 4, 0}, {6, -4, 180})) << "a half, run the other way";
    EXPECT_FALSE(Match({0, 4, 0}, {2, 4, 0})) << "a half on the same side";
    EXPECT_FALSE(Match({0, 4, 0}, {4, 4, 180})) << "only an end";
    EXPECT_FALSE(Match({0, 4, 0}, {5, 4, 180})) << "apart on one line";
}

TEST(FaceEdges, CurvesThatPartDontMatch)
{
    CTestGrid straight({{5, 3, 1}}, Box());
    CTestGrid bent({{5, 3, 1}}, [](const IVector3D& ijk) { // the ends on the other's edge, the middle off it
        return DVector3D{double(ijk.i), 2.0 - double(ijk.j), ijk.i == 3 ? 1.1 : 1.0};
    });
    CTestGrid like({{5, 3, 1}}, [](const IVector3D& ijk) {
        return DVector3D{double(ijk.i), 2.0 - double(ijk.j), 1.0};
    });
    EXPECT_TRUE(straight.FaceEdgesMatch(4, 0, like, 4, 0));
    EXPECT_FALSE(straight.FaceEdgesMatch(4, 0, bent, 4, 0));
    EXPECT_FALSE(straight.FaceEdgesMatch(4, 1, like, 4, 0));
}

TEST(FaceEdges, BoxesTouchWithinATinyTolerance)
{
    CTestGrid grid({{2, 2, 2}}, Box()); // the edge runs from (1, 1, 1) to (2, 1, 1)
    EXPECT_TRUE(grid.FaceEdgeBoxesTouch(4, 0, {2, 1, 1}, {3, 3, 3}));
    EXPECT_TRUE(grid.FaceEdgeBoxesTouch(4, 0, {2.0 + 5e-10, 1, 1}, {3, 3, 3}));
    EXPECT_FALSE(grid.FaceEdgeBoxesTouch(4, 0, {2.0 + 5e-9, 1, 1}, {3, 3, 3}));
    EXPECT_FALSE(grid.FaceEdgeBoxesTouch(4, 0, {0, 0, 0}, {3, 3, 0.9}));
}
