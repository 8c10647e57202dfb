#include "frame/transform.h"

namespace {
constexpr double PI = 3.14159265358979323846;
constexpr double TOLERANCE = 1e-14; // a few roundings of numbers of size 1

void ExpectNear(const DVector3D& a, const DVector3D& b)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        EXPECT_NEAR(a[nAxis], b[nAxis], TOLERANCE) << "axis " << nAxis;
}
} // namespace

TEST(Matrix, ARotationTurnsEachAxisIntoTheNextRightHanded)
{
    const DVector3D axes[] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const DMatrix4x4 turn = DMatrix4x4::Rotation(nAxis, PI / 2);
        ExpectNear(turn.MapPoint(axes[nAxis]), axes[nAxis]);
        ExpectNear(turn.MapPoint(axes[(nAxis + 1) % 3]), axes[(nAxis + 2) % 3]);
    }
}

TEST(Matrix, AProductAppliesTheRightFactorFirst)
{
    const DMatrix4x4 move = DMatrix4x4::Translation({1, 2, 3});
    const DMatrix4x4 scale = DMatrix4x4::Scaling({2, 2, 2});
    ExpectNear((scale * move).MapPoint({0, 0, 0}), {2, 4, 6});
    ExpectNear((move * scale).MapPoint({1, 1, 1}), {3, 4, 5});
}

TEST(Transform, TheCopiesForDrawingFollowTheMatrix)
{
    const STransform move(DMatrix4x4::Translation({1, 2, 3}));
    EXPECT_FALSE(move.IsIdentity());
    EXPECT_EQ(move.GlMatrix()(3, 1), 2.0); // OpenGL keeps the translation in the last four numbers
    EXPECT_EQ(move.FloatMatrix().map(QVector3D(1, 1, 1)), QVector3D(2, 3, 4));

    DMatrix4x4 nearly;
    nearly(0, 1) = 1e-300;
    EXPECT_FALSE(STransform(nearly).IsIdentity()) << "identity is exact";
    EXPECT_TRUE(STransform(DMatrix4x4()).IsIdentity());
}
