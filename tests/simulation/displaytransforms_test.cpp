#include "simulation/displaytransforms.h"

namespace {

constexpr double TOLERANCE = 1e-12; // of points of size 10

QVector<DVector3D> Images(const DVector3D& point, const QVector<STransform>& transforms)
{
    QVector<DVector3D> images;
    for (const STransform& transform : transforms)
        images.append(transform.Matrix().MapPoint(point));
    return images;
}

void ExpectPoints(const QVector<DVector3D>& got, const QVector<DVector3D>& expected)
{
    ASSERT_EQ(got.size(), expected.size());
    for (int n = 0; n < got.size(); ++n)
        EXPECT_LT(Length(got[n] - expected[n]), TOLERANCE)
            << n << ": " << got[n].x << ' ' << got[n].y << ' ' << got[n].z;
}

} // namespace

TEST(DisplayTransforms, EachMirrorDoublesWhatStandsAboutItsOwnPlane)
{
    SMirrorSetting mirror;
    mirror.bActive = {true, true, false};
    mirror.dOffset = {10.0, 0.0, 5.0}; // the offset of an axis that is off counts for nothing
    ExpectPoints(Images({1, 2, 3}, BuildDisplayTransforms(mirror, {}, {})),
                 {{1, 2, 3}, {19, 2, 3}, {1, -2, 3}, {19, -2, 3}});
}

TEST(DisplayTransforms, SectorsTurnAllThatStandsBeforeAboutTheCentre)
{
    SMirrorSetting mirror;
    mirror.bActive = {true, false, false};
    SSectorSetting sectors;
    sectors.bActive = {false, false, true};
    sectors.nCount = {7, 1, 4};
    const DVector3D centre{0, 1, 0};
    ExpectPoints(
        Images({2, 1, 5}, BuildDisplayTransforms(mirror, sectors, centre)),
        {{2, 1, 5}, {-2, 1, 5}, {0, 3, 5}, {0, -1, 5}, {-2, 1, 5}, {2, 1, 5}, {0, -1, 5}, {0, 3, 5}});
}

TEST(DisplayTransforms, CountsBelowTwoAddNothingAndTheCountTellsTheSizeOfTheList)
{
    struct
    {
        std::array<bool, 3> bMirror, bSector;
        std::array<qint64, 3> nCount;
        double dExpected;
    } cases[] = {
        {{}, {}, {1, 1, 1}, 1},
        {{}, {true, true, true}, {1, 0, -3}, 1},
        {{true, true, false}, {false, false, true}, {9, 9, 4}, 16},
        {{true, true, true}, {true, true, false}, {2, 3, 1}, 48},
    };
    for (const auto& test : cases) {
        const SMirrorSetting mirror{test.bMirror, {}};
        const SSectorSetting sectors{test.bSector, test.nCount};
        EXPECT_EQ(CountDisplayTransforms(mirror, sectors), test.dExpected);
        const QVector<STransform> transforms = BuildDisplayTransforms(mirror, sectors, {});
        EXPECT_EQ(transforms.size(), test.dExpected);
        EXPECT_TRUE(transforms.first().IsIdentity());
    }
    // Far too many to build, and beyond what an integer holds.
    const SSectorSetting huge{{true, true, true}, {1LL << 40, 1LL << 40, 1LL << 40}};
    EXPECT_GT(CountDisplayTransforms({}, huge), 1e36);
}
