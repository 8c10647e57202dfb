#include "view/camera/cameramath.h"
#include "view/camera/cameramoves.h"
#include "view/render/scalebar.h"

namespace {

constexpr double TOLERANCE = 1e-12; // of numbers of size 1 to 10

void ExpectNear(const DVector3D& got, const DVector3D& expected, double dTolerance = TOLERANCE)
{
    EXPECT_LT(Length(got - expected), dTolerance) << got.x << ' ' << got.y << ' ' << got.z;
}

void ExpectBox(const SOrthoBox& box, double dLeft, double dRight, double dBottom, double dTop)
{
    EXPECT_NEAR(box.dLeft, dLeft, TOLERANCE);
    EXPECT_NEAR(box.dRight, dRight, TOLERANCE);
    EXPECT_NEAR(box.dBottom, dBottom, TOLERANCE);
    EXPECT_NEAR(box.dTop, dTop, TOLERANCE);
}

COrthoCamera Camera(int nWidth = 800, int nHeight = 400)
{
    COrthoCamera camera; // 4 by 4 units
    camera.Resize({nWidth, nHeight});
    return camera;
}

SCamera Stored(double dWidth, double dHeight)
{
    SCamera camera;
    camera.viewCenter = {1.0, -1.0};
    camera.viewSize = {dWidth, dHeight};
    camera.rotationPoint = {7, 8, 9};
    return camera;
}

} // namespace

TEST(OrthoCamera, ResizingKeepsTheScaleAndTheFirstSizeCountsAsASquare)
{
    COrthoCamera camera = Camera(800, 400);
    ExpectBox(camera.Box(), -2, 2, -1, 1);
    camera.Resize({0, 400});
    camera.Resize({400, 600});
    ExpectBox(camera.Box(), -1, 1, -1.5, 1.5);
}

TEST(OrthoCamera, ZoomingKeepsTheCentreOfTheZoomInItsPixel)
{
    COrthoCamera camera = Camera();
    const SPickPoint centre = camera.ToWorld({600, 100});
    EXPECT_NEAR(centre.x, 1.0, TOLERANCE);
    EXPECT_NEAR(centre.y, 0.5, TOLERANCE);
    camera.Zoom(0.05, centre.x, centre.y);
    EXPECT_NEAR(camera.Box().Width(), 3.6, TOLERANCE);
    EXPECT_NEAR(camera.Box().Height(), 1.8, TOLERANCE);
    const QPointF pixel = camera.ToPixel({centre.x, centre.y, 5.0});
    EXPECT_NEAR(pixel.x(), 600, 1e-9);
    EXPECT_NEAR(pixel.y(), 100, 1e-9);
    camera = Camera();
    camera.Zoom(-0.05);
    ExpectBox(camera.Box(), -2.2, 2.2, -1.1, 1.1);
}

TEST(OrthoCamera, NoZoomTurnsTheBoxInsideOutOrMakesItTooSmallForItsPlace)
{
    COrthoCamera camera = Camera();
    camera.SetCamera(Stored(4.0, 2.0), FitAll);
    for (int n = 0; n < 3000; ++n)
        camera.Zoom(0.7);
    const double dSmallest = camera.Box().Width();
    EXPECT_GT(dSmallest, 0.0);
    camera.Zoom(-0.05);
    EXPECT_GT(camera.Box().Width(), dSmallest); // it can be left again
}

TEST(OrthoCamera, AZoomBoxFitsTheBandAndSmallOnesDoNothing)
{
    COrthoCamera camera = Camera();
    for (const QRect& band : {QRect(10, 10, 3, 100), QRect(10, 10, 100, 3), QRect(50, 50, -1, -1)})
        EXPECT_FALSE(camera.ZoomBox(band));
    ExpectBox(camera.Box(), -2, 2, -1, 1);
    // Drawn towards the upper left; 100 by 100 pixels once one is taken off: grows to the sides.
    ASSERT_TRUE(camera.ZoomBox(QRect(QPoint(500, 200), QPoint(400, 100))));
    ExpectBox(camera.Box(), 0.0 - 0.25, 0.5 + 0.25, 0.0, 0.5);
}

TEST(OrthoCamera, ZoomToBoundsFillsTheViewUnlessTheyAreEmptyOrFlat)
{
    COrthoCamera camera = Camera(); // 4 by 2
    EXPECT_FALSE(camera.ZoomToBounds({}));
    EXPECT_FALSE(camera.ZoomToBounds({{-3, 1, -1}, {5, 1, 1}}));
    ExpectBox(camera.Box(), -2, 2, -1, 1);
    EXPECT_TRUE(camera.ZoomToBounds({{-3, 1, -1}, {5, 2, 1}}));
    ExpectBox(camera.Box(), -3, 5, 1.5 - 2, 1.5 + 2);
}

TEST(OrthoCamera, StoredCamerasFitWidgetsOfAnyShape)
{
    struct
    {
        QSize widget;
        int nFit;
        double dWidth, dHeight;
    } cases[] = {
        {{800, 400}, FitAll, 8, 4},    {{400, 400}, FitAll, 6, 6},   {{800, 400}, FitWidth, 6, 3},
        {{400, 400}, FitHeight, 4, 4}, {{400, 400}, FitWidth, 6, 6}, {{400, 400}, 17, 6, 6},
    };
    for (const auto& test : cases) {
        COrthoCamera early, late;
        early.SetCamera(Stored(6.0, 4.0), test.nFit); // waits for the size
        EXPECT_EQ(early.Camera(), Stored(6.0, 4.0));
        early.Resize(test.widget);
        late.Resize(test.widget);
        late.SetCamera(Stored(6.0, 4.0), test.nFit);
        for (const COrthoCamera* const pCamera : {&early, &late}) {
            ExpectBox(pCamera->Box(), 1 - test.dWidth / 2, 1 + test.dWidth / 2, -1 - test.dHeight / 2,
                      -1 + test.dHeight / 2);
            EXPECT_EQ(pCamera->RotationPoint(), (DVector3D{7, 8, 9}));
        }
    }
}

TEST(OrthoCamera, ACameraIsStoredAndComesBackAndBrokenOnesKeepTheBox)
{
    COrthoCamera camera = Camera();
    camera.Rotate({1, 2, 3}, 40.0, {1, 0, 0});
    camera.Pan(0.3, -0.2, 1.0);
    COrthoCamera other = Camera();
    other.SetCamera(camera.Camera(), FitAll);
    EXPECT_EQ(other.Camera(), camera.Camera());
    SCamera broken = Stored(-6.0, std::numeric_limits<double>::quiet_NaN());
    broken.view(0, 0) = std::numeric_limits<float>::infinity();
    other.SetCamera(broken, FitAll);
    EXPECT_EQ(other.Box(), camera.Box());
    EXPECT_EQ(other.FloatView(), camera.FloatView());
}

TEST(OrthoCamera, WhatIsDrawnIsNeverCutInDepth)
{
    COrthoCamera camera = Camera();
    for (const auto& [dNear, dFar] : {std::pair{-5e5, 3e6}, std::pair{1e-7, 3e-7}, std::pair{9e4, 9e4}}) {
        const QMatrix4x4 drawn = camera.DrawProjection({{-1, -1, dNear}, {1, 1, dFar}});
        for (const double dZ : {dNear, dFar})
            EXPECT_LT(std::abs((drawn * QVector4D(0, 0, float(dZ), 1)).z()), 1.0F) << dZ;
        EXPECT_LT((drawn * QVector4D(0, 0, 1, 0)).z(), 0.0F); // what is nearer to the user is in front
    }
    EXPECT_EQ(camera.DrawProjection({}), camera.Projection());
}

TEST(OrthoCamera, TurnsKeepTheirPointInPlaceAndStayTurnsForever)
{
    COrthoCamera camera = Camera();
    const DVector3D point{300, -200, 100};
    camera.SetRotationPoint(point);
    const DVector3D seen = camera.View().MapPoint(point);
    for (int n = 0; n < 20000; ++n)
        camera.Apply(CameraRotate, CameraMoves::Rotate({0.13, -0.07}, 0.06, point)->values, 1.0);
    ExpectNear(camera.View().MapPoint(point), seen, 1e-8);
    for (int nRow = 0; nRow < 3; ++nRow)
        for (int n = 0; n < 3; ++n)
            EXPECT_NEAR(Dot(camera.ViewRow(nRow), camera.ViewRow(n)), nRow == n, 1e-11);
}

TEST(OrthoCamera, ADragToTheRightTurnsTheFrontToTheRightAndOneDownTurnsItDown)
{
    const DVector3D front{0, 0, 1};
    COrthoCamera camera = Camera();
    camera.RotateRow(2, 50.0, {}); // axes of the screen, not of the world
    COrthoCamera down = camera;
    camera.Apply(CameraRotate, CameraMoves::Rotate({0.1, 0.0}, 0.06, {})->values, 1.0);
    const double dAngle = 0.01 * 0.06 * 100.0 * M_PI / 180.0;
    ExpectNear(camera.View().MapPoint(front), {std::sin(dAngle), 0.0, std::cos(dAngle)});
    down.Apply(CameraRotate, CameraMoves::Rotate({0.0, 0.1}, 0.06, {})->values, 1.0);
    ExpectNear(down.View().MapPoint(front), {0.0, -std::sin(dAngle), std::cos(dAngle)});
}

TEST(OrthoCamera, LinkedViewsPanByTheSameShareOfTheirOwnWidth)
{
    COrthoCamera wide = Camera(800, 400), narrow = Camera(200, 400);
    narrow.Zoom(0.2);
    for (const SCameraMove& move : {CameraMoves::Pan({0.5, 0.25}), CameraMoves::PanByKey(1, 1, 0.3, 0.06)})
        for (COrthoCamera* const pCamera : {&wide, &narrow}) {
            const SOrthoBox before = pCamera->Box();
            EXPECT_EQ(pCamera->Apply(move.eOperator, move.values, 0.06), FollowDone);
            const double dX = move.values.dX * 0.06 * 0.1, dY = move.values.dY * 0.06 * 0.1;
            // What is shown goes along with the drag: right and down, so the box goes left and up.
            EXPECT_NEAR(pCamera->Box().dLeft, before.dLeft - dX * before.Width(), TOLERANCE);
            EXPECT_NEAR(pCamera->Box().dTop, before.dTop + dY * before.Height(), TOLERANCE);
            EXPECT_NEAR(pCamera->Box().Width(), before.Width(), TOLERANCE);
        }
    EXPECT_EQ(wide.Apply(CameraZoomFit, {}, 1.0), FollowZoomFit);
    EXPECT_EQ(wide.Apply(CameraZoomSelection, {}, 1.0), FollowZoomSelection);
}

TEST(OrthoCamera, LookingAlongAnAxisPutsTheOthersUprightAndKeepsTheRotationPoint)
{
    struct
    {
        int nAxis;
        bool bPositive;
        DVector3D right, up;
    } cases[] = {{0, true, {0, -1, 0}, {0, 0, 1}},
                 {1, false, {-1, 0, 0}, {0, 0, 1}},
                 {2, true, {-1, 0, 0}, {0, 1, 0}}};
    for (const auto& test : cases) {
        COrthoCamera camera = Camera();
        camera.Rotate({3, 2, 1}, 77.0, {5, 5, 5});
        camera.SetRotationPoint({1, 2, 3});
        const QPointF pixel = camera.ToPixel({1, 2, 3});
        camera.LookAlong(test.nAxis, test.bPositive);
        EXPECT_EQ(camera.ViewRow(0), test.right);
        EXPECT_EQ(camera.ViewRow(1), test.up);
        EXPECT_LT((camera.ToPixel({1, 2, 3}) - pixel).manhattanLength(), 1e-9);
        camera.QuarterTurn(true);
        EXPECT_EQ(camera.ViewRow(1), test.right); // exactly, time and again
    }
}

TEST(ScaleBar, MarksStandAtPowersOfTen)
{
    struct
    {
        double dBoxWidth;
        int nMarks;
        double dSpan; // share of half the widget's width
        const char* sLast;
    } cases[] = {{2.0, 2, 1.0, "1"},
                 {20.0, 10, 0.9, "9"},
                 {50.0, 3, 0.8, "20"},
                 {0.07, 4, 6.0 / 7.0, "0.03"},
                 {3e7, 2, 2.0 / 3.0, "1e+07"}};
    for (const auto& test : cases) {
        const SScaleBar bar = MakeScaleBar({800, 450}, test.dBoxWidth);
        ASSERT_EQ(bar.marks.size(), test.nMarks) << test.dBoxWidth;
        EXPECT_EQ(bar.marks.first().dX, 200.0);
        EXPECT_EQ(bar.marks.first().sLabel, "0");
        EXPECT_NEAR(bar.marks.last().dX, 200.0 + test.dSpan * 400.0, 1e-9);
        EXPECT_EQ(bar.marks.last().sLabel, test.sLast);
        EXPECT_EQ(bar.dY, 450 - 30 - 10);
    }
    EXPECT_TRUE(MakeScaleBar({800, 450}, 0.0).marks.isEmpty());
}
