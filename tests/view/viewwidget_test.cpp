// The widget of a view: sizes that it may have, samples a pixel, data that go while they are shown.
#include "frame/memory/memorymanager.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "tests/support/casewindow.h"
#include "tests/support/displaycase.h"
#include "view/annotations/annotationcolormap.h"
#include "view/gl/shadermanager.h"
#include "view/pick/viewpicker.h"
#include "view/ui/opengldrawer.h"
#include "view/ui/surfaceformat.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QPainter>
#include <QTest>

namespace {

constexpr QSize SIZE(200, 160);

bool HasOpenGL()
{
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    return context.create() && context.makeCurrent(&surface);
}

/** A cube whose points stand at their addresses, with the function "Sum" of these. */
SPlot3DCase OpenCube(const QString& sFolder)
{
    const QString sGrid =
        Plot3DFixture::WriteValues(sFolder + "/case.x", KindGrid, {{3, 3, 2}}, 3,
                                   [](int, int nAxis, const IVector3D& ijk) { return double(ijk[nAxis]); });
    const QString sFunction =
        Plot3DFixture::WriteValues(sFolder + "/case.f", KindFunction, {{3, 3, 2}}, 1,
                                   [](int, int, const IVector3D& ijk) { return double(ijk.i + ijk.j); });
    SPlot3DCaseFiles files(sGrid, {}, {sFunction});
    files.functions[0].sNameList = QStringList{"Sum"};
    return RegisterPlot3DCase(1, files);
}

/** The plane K = 2 of a cube on disk, shaded in red over a white background. */
class ViewWidget : public DisplayCase
{
protected:
    ViewWidget() : DisplayCase(OpenCube) {}
    void SetUp() override
    {
        if (!HasOpenGL())
            GTEST_SKIP() << "no OpenGL here";
        CPreferences& preferences = CPreferences::Instance();
        for (const SKey<QColor>& key : PreferenceKey::BACKGROUND_COLORS)
            Set(preferences, key, QColor(Qt::white));
        Set(preferences, PreferenceKey::SHOW_AXES, false);
        Set(preferences, PreferenceKey::SHOW_SCALING, false);
        Set(preferences, PreferenceKey::ROTATION_AXIS_VISIBILITY, 0);
        Set(preferences, PreferenceKey::USE_OUTLINE_COLOR, false);
        preferences.Apply();
        Selectable(1)->setVisible(false);
        m_pSurface = AddSurface();
        m_pSurface->setDisplayType(DisplayShaded);
        m_pSurface->setShadeColor(QColor(240, 0, 0));
        Open(0);
    }
    ~ViewWidget() override
    {
        Close();
        CPreferences::Instance() = CPreferences();
        QSurfaceFormat::setDefaultFormat(QSurfaceFormat());
    }

    void Open(int nSamples)
    {
        Close();
        QSurfaceFormat::setDefaultFormat(ViewSurfaceFormat(nSamples));
        CShaderManager::Instance().CreatePrograms(); // each view is alone, and shares with none
        m_pDrawer = std::make_unique<COpenGLDrawer>(VIEW);
        m_pDrawer->setAttribute(Qt::WA_DontShowOnScreen);
        m_pDrawer->resize(SIZE);
        m_pDrawer->show();
        m_pDrawer->FitNextFrame();
    }
    void Close()
    {
        if (std::exchange(m_pDrawer, nullptr))
            CShaderManager::Instance().DeletePrograms();
    }
    QImage Grab()
    {
        const QImage image = m_pDrawer->grabFramebuffer();
        m_pDrawer->makeCurrent();
        EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
        m_pDrawer->doneCurrent();
        return image;
    }
    static bool IsRed(const QColor& color)
    {
        return color.red() > 200 && color.green() < 60 && color.blue() < 60;
    }
    /** Where a place of the plane is seen, looked at along its normal. */
    QPoint PixelOf(double x, double y) const
    {
        const SCamera camera = m_pDrawer->GetCamera();
        const QPointF off = QPointF(x, y) - camera.viewCenter;
        return {qRound((off.x() / camera.viewSize.width() + 0.5) * SIZE.width()),
                qRound((0.5 - off.y() / camera.viewSize.height()) * SIZE.height())};
    }
    void MovePointer(const QPoint& place, Qt::KeyboardModifiers modifiers)
    {
        QMouseEvent move(QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton, modifiers);
        QCoreApplication::sendEvent(m_pDrawer.get(), &move);
    }
    /** As a window system does: the event carries the state from before it. */
    void Send(QEvent::Type eType, int nKey, Qt::KeyboardModifiers before)
    {
        QKeyEvent event(eType, nKey, before);
        QCoreApplication::sendEvent(m_pDrawer.get(), &event);
    }
    /** A small one, away from the edges. */
    CAnnotationColormap& ShowLegend(CSurfaceSelectable& surface)
    {
        CAnnotationColormap& legend = *surface.annotationColormap();
        surface.setScalarVariable(Id("Sum"));
        surface.setGeometricColor(false);
        SLegendSettings settings = legend.settings();
        settings.colorbarSize = {20, 40};
        settings.title.bVisible = settings.subtitle.bVisible = false;
        legend.setSettings(settings);
        legend.setPosition({20, 20});
        legend.setVisible(true);
        return legend;
    }
    QImage Captured()
    {
        QImage image;
        m_pDrawer->renderToImage(image, 1.0, {CaptureDisplayed, false, true, false});
        return image;
    }
    static bool HasDark(const QImage& image)
    {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qGray(image.pixel(x, y)) < 20)
                    return true;
        return false;
    }
    static QColor Middle(const QImage& image) { return image.pixelColor(image.rect().center()); }
    std::unique_ptr<COpenGLDrawer> m_pDrawer;
    CSurfaceSelectable* m_pSurface = nullptr;
};

} // namespace

TEST_F(ViewWidget, WithoutSamplesThePictureIsTheSameButForItsEdges)
{
    SCamera camera = m_pDrawer->GetCamera(); // no edge along the pixels
    camera.view.rotate(20.0F, 0.0F, 0.0F, 1.0F);
    const auto draw = [&] {
        m_pDrawer->SetCamera(camera, FitAll);
        m_pDrawer->FitNextFrame();
        return Grab();
    };
    const QImage sharp = draw();
    ASSERT_EQ(sharp.size(), SIZE);
    EXPECT_TRUE(IsRed(Middle(sharp))) << Middle(sharp).name().toStdString();
    EXPECT_EQ(sharp.pixelColor(1, 1), QColor(Qt::white));
    Open(4);
    const QImage smooth = draw();
    EXPECT_NE(smooth, sharp) << "its edges aren't smoothed";
    EXPECT_EQ(Middle(smooth), Middle(sharp));
    EXPECT_EQ(smooth.pixelColor(1, 1), QColor(Qt::white));
    qint64 nDifferent = 0;
    for (int y = 0; y < SIZE.height(); ++y)
        for (int x = 0; x < SIZE.width(); ++x)
            nDifferent += smooth.pixel(x, y) != sharp.pixel(x, y);
    EXPECT_LT(nDifferent, SIZE.width() * SIZE.height() / 20);
}

TEST_F(ViewWidget, AViewOfNoSizeDrawsNothingAndOneThatGetsItDrawsRight)
{
    const QImage before = Grab();
    m_pSurface->setSelected(true); // the silhouette has buffers of the view's size
    Set(CPreferences::Instance(), PreferenceKey::HIGHLIGHT_OUTLINE, true);
    CPreferences::Instance().Apply();
    for (const QSize& size : {QSize(0, 0), QSize(0, 50), QSize(50, 0), QSize(1, 1), QSize(1, 300)}) {
        m_pDrawer->resize(size);
        Grab();
        m_pDrawer->resize(SIZE);
        m_pDrawer->ZoomToFit();
        EXPECT_TRUE(IsRed(Middle(Grab()))) << size.width() << " x " << size.height();
    }
    m_pSurface->setSelected(false);
    EXPECT_EQ(Grab(), before);

    // One that never had a size until now.
    Close();
    CShaderManager::Instance().CreatePrograms();
    m_pDrawer = std::make_unique<COpenGLDrawer>(VIEW);
    m_pDrawer->setAttribute(Qt::WA_DontShowOnScreen);
    m_pDrawer->resize(0, 0);
    m_pDrawer->show();
    m_pDrawer->FitNextFrame();
    Grab();
    m_pDrawer->resize(SIZE);
    m_pDrawer->FitNextFrame();
    EXPECT_EQ(Grab(), before);
}

TEST_F(ViewWidget, DataThatGoWhileTheyAreShownLeaveWhatIsThereAndFailNothing)
{
    m_pSurface->setScalarVariable(Id("X"));
    m_pSurface->setGeometricColor(false);
    m_pSurface->setColormapValues(0.0, 2.0);
    const QImage before = Grab();
    EXPECT_GT(Middle(before).green(), 150);
    ASSERT_TRUE(QFile::remove(m_folder.filePath("case.f")));
    EXPECT_EQ(Grab(), before) << "what is built stays";
    m_pSurface->setScalarVariable(Id("Sum")); // never read, and no longer there
    EXPECT_EQ(Middle(Grab()), QColor(255, 102, 178)) << "no value";
    m_pSurface->setThresholdVariable(Id("Sum"));
    m_pSurface->setThresholdRange({0.0, 4.0});
    m_pSurface->setThresholdEnable(true);
    EXPECT_EQ(Middle(Grab()), QColor(255, 102, 178)) << "no threshold without its values";
    ASSERT_TRUE(QFile::remove(m_folder.filePath("case.x")));
    EXPECT_EQ(Middle(Grab()), QColor(255, 102, 178));
    CMemoryManager::Instance().FreeAll();
    for (IDrawable* const pDrawable : m_pSurface->drawables())
        pDrawable->invalidateAll();
    EXPECT_EQ(Middle(Grab()), QColor(Qt::white)) << "nothing is left";
    EXPECT_TRUE(ViewPicker::Hits({VIEW, {}, {-1e9, -1e9, 1e9, 1e9}}).isEmpty());
}

TEST_F(ViewWidget, AGridOnCellsShowsEachCellAtItsCentre)
{
    CVariableManager::Instance().GetVariable(Id("Sum"))->SetLocation(LocationCell);
    const qint64 nSum = CVariableManager::Instance().FindByName(SIMULATION, "Sum", LocationCell);
    m_pSurface->setScalarVariable(nSum); // 0, 1, 1 and 2 in the four cells
    m_pSurface->setGeometricColor(false);
    m_pSurface->setColormapValues(0.0, 2.0);
    m_pSurface->setDisplayOnNodes(
        false); // the field of the test holds nodes: too many for cells, which does no harm
    const QImage image = Grab();
    EXPECT_GT(image.pixelColor(24, 155).blue(), 200) << "the cell with the lowest value, at the lower left";
    EXPECT_GT(image.pixelColor(175, 4).red(), 200);
    const IDrawable& drawable = *m_pSurface->drawables().first();
    EXPECT_EQ(drawable.boundsMinimum(), (DVector3D{0.5, 0.5, 0.5}));
    EXPECT_EQ(drawable.boundsMaximum(), (DVector3D{1.5, 1.5, 0.5}));
    EXPECT_GT(Middle(image).green(), 200) << "the mean of the four";
    const auto pick = [&](double x, double y) {
        return ViewPicker::PointAt({VIEW, {}, {x - 0.01, y - 0.01, x + 0.01, y + 0.01}}).point;
    };
    for (const IVector3D& cell : {IVector3D{1, 1, 1}, {2, 1, 1}, {1, 2, 1}, {2, 2, 1}}) {
        const SPickedPoint point = pick(double(cell.i) - 0.5, double(cell.j) - 0.5);
        EXPECT_EQ(point.ijk, cell);
        EXPECT_EQ(point.dValue, double(cell.i + cell.j - 2));
    }
    EXPECT_FALSE(pick(1.0, 1.0).bHasPoint) << "a node of the grid";
    m_pSurface->setDisplayOnNodes(true);
    Grab();
    EXPECT_EQ(pick(1.0, 1.0).ijk, (IVector3D{2, 2, 2}));
}

TEST_F(ViewWidget, WithoutSamplesNoBackgroundStandsBesideLinesOnAShadedSurface)
{
    m_pSurface->setDisplayType(DisplayShadedWireframe);
    m_pSurface->setWireframeColor(Qt::black);
    SCamera camera = m_pDrawer->GetCamera();
    camera.view.rotate(20.0F, 0.0F, 0.0F, 1.0F);
    m_pDrawer->SetCamera(camera, FitAll);
    m_pDrawer->FitNextFrame();
    const QImage image = Grab();
    const QRect inside(image.rect().center() - QPoint(30, 30), QSize(60, 60));
    EXPECT_TRUE(HasDark(image.copy(inside)));
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            ASSERT_LT(image.pixelColor(x, y).green(), 60) << "at " << x << ", " << y;
}

TEST_F(ViewWidget, AMeasuredLineFollowsThePointerUntilItsKeyIsReleased)
{
    Grab();
    const Qt::KeyboardModifiers alt = Qt::AltModifier;
    Send(QEvent::KeyPress, Qt::Key_Alt, Qt::NoModifier);
    QTest::mouseClick(m_pDrawer.get(), Qt::LeftButton, alt, PixelOf(0.0, 0.0));
    EXPECT_FALSE(HasDark(Grab()));
    MovePointer(PixelOf(2.0, 2.0), alt);
    EXPECT_TRUE(HasDark(Grab())) << "to the point under the pointer";
    Send(QEvent::KeyRelease, Qt::Key_Alt, alt);
    EXPECT_FALSE(HasDark(Grab()));
    Send(QEvent::KeyPress, Qt::Key_Alt, Qt::NoModifier);
    EXPECT_FALSE(HasDark(Grab()));
    QTest::mouseClick(m_pDrawer.get(), Qt::LeftButton, alt, PixelOf(2.0, 0.0));
    EXPECT_TRUE(HasDark(Grab())) << "from the point that was pressed before";
    Send(QEvent::KeyPress, Qt::Key_Escape, alt);
    EXPECT_FALSE(HasDark(Grab()));
}

TEST_F(ViewWidget, APickedPointIsToldWithTheItemThatItIsOn)
{
    const CCaseWindow window;
    CSurfaceSelectable* const pOther = AddSurface();
    pOther->setDisplayType(DisplayShaded);
    pOther->setConstantValue(1);
    pOther->setStartIndices({2, 1, 1});
    pOther->apply();
    m_pSurface->setEndIndices({2, 3, 2});
    m_pSurface->apply();
    m_pDrawer->SetActive(true);
    Grab();
    MovePointer(PixelOf(0.3, 0.4), Qt::NoModifier);
    ASSERT_TRUE(m_pSurface->isHover());
    MovePointer(PixelOf(2.0, 2.0), Qt::AltModifier);
    EXPECT_EQ(window.m_sStatus, pOther->name() + ": IJK: (3, 3, 1), XYZ: (2, 2, 0)");
}

TEST_F(ViewWidget, InTheModeThatPicksPointsAClickTellsThePointOfTheBlock)
{
    QVector<SPickedPoint> picked;
    QVector<ISelectable*> on;
    QObject::connect(m_pDrawer.get(), &COpenGLDrawer::SignalPointSelected,
                     [&](const SPickedPoint& point, ISelectable* pSelectable) {
                         picked.append(point);
                         on.append(pSelectable);
                     });
    Grab();
    const auto click = [&](const QPoint& place) {
        QTest::mouseClick(m_pDrawer.get(), Qt::LeftButton, {}, place);
    };
    click(PixelOf(2.0, 1.0));
    EXPECT_TRUE(picked.isEmpty());
    m_pSurface->setSelected(false);
    m_pDrawer->SlotMode(MousePointPick);
    MovePointer({1, 1}, Qt::NoModifier);
    click({1, 1}); // beside everything
    EXPECT_TRUE(picked.isEmpty());
    MovePointer(PixelOf(2.0, 1.0), Qt::NoModifier);
    click(PixelOf(2.0, 1.0));
    ASSERT_EQ(picked.size(), 1);
    EXPECT_EQ(picked[0].ijk, (IVector3D{3, 2, 2}));
    EXPECT_EQ(picked[0].nBlockId, 1);
    EXPECT_FALSE(picked[0].secondIjk);
    EXPECT_EQ(on, QVector<ISelectable*>{m_pSurface});
    EXPECT_FALSE(m_pSurface->isSelected());
}

TEST_F(ViewWidget, ALegendUnderThePointerIsFramedButNotInAPicture)
{
    CAnnotationColormap& legend = ShowLegend(*m_pSurface);
    const QImage plain = Grab();
    MovePointer(legend.rect().center(), Qt::NoModifier);
    EXPECT_TRUE(legend.isHot());
    EXPECT_NE(Grab(), plain);
    EXPECT_EQ(Captured(), plain);
    MovePointer({SIZE.width() - 2, 2}, Qt::NoModifier);
    EXPECT_FALSE(legend.isHot());
    EXPECT_EQ(Grab(), plain);
}

TEST_F(ViewWidget, WhatIsPaintedOverTheSceneIsWholeInFramesOfAllKinds)
{
    const CAnnotationColormap& legend = ShowLegend(*m_pSurface);
    SCamera camera = m_pDrawer->GetCamera();
    camera.viewSize *= 20.0; // the surface is not behind the legend
    camera.viewCenter = {-15.0, 15.0};
    const auto draw = [&](bool bOutline) {
        Set(CPreferences::Instance(), PreferenceKey::HIGHLIGHT_OUTLINE, bOutline);
        CPreferences::Instance().Apply();
        m_pDrawer->SetCamera(camera, FitAll);
        return Grab().copy(legend.rect());
    };
    const QImage whole = draw(false);
    EXPECT_TRUE(HasDark(whole)) << "no texts";
    EXPECT_EQ(draw(true), whole) << "nothing is selected: no silhouette is drawn";
    EXPECT_EQ(Captured().copy(legend.rect()), whole);
    m_pDrawer->SetDemotion(DemotionBoundingBox);
    QWheelEvent wheel(QPointF(100, 80), QPointF(100, 80), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_pDrawer.get(), &wheel);
    EXPECT_EQ(Grab().copy(legend.rect()), whole) << "boxes stand in for the items";
}

TEST_F(ViewWidget, LegendsStandBesideEachOtherAndStayInTheView)
{
    m_pDrawer->resize(500, 300);
    CSurfaceSelectable* const pOther = AddSurface();
    CAnnotationColormap &first = ShowLegend(*m_pSurface), &second = ShowLegend(*pOther);
    for (CAnnotationColormap* const pLegend : {&first, &second})
        pLegend->setPosition(CAnnotation::DEFAULT_POSITION);
    Grab();
    EXPECT_FALSE(first.rect().intersects(second.rect()));
    EXPECT_EQ(first.rect().top(), second.rect().top());
    EXPECT_EQ(first.shownPosition(), CAnnotation::DEFAULT_POSITION);
    const QPoint place = second.shownPosition();
    first.setVisible(false);
    Grab();
    EXPECT_EQ(second.shownPosition(), place) << "it keeps its place";

    const QPoint grip = second.rect().center();
    QTest::mousePress(m_pDrawer.get(), Qt::LeftButton, {}, grip);
    for (const QPoint& way : {QPoint(3000, 2000), QPoint(-3000, -2000), QPoint(3000, 40)}) {
        QMouseEvent move(QEvent::MouseMove, grip + way, Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_pDrawer.get(), &move);
        EXPECT_TRUE(m_pDrawer->rect().contains(second.rect())) << way.x() << ", " << way.y();
    }
    QTest::mouseRelease(m_pDrawer.get(), Qt::LeftButton, {}, grip);
    const QPoint dragged = second.position();
    EXPECT_EQ(dragged, second.shownPosition());
    m_pDrawer->resize(200, 160);
    Grab();
    EXPECT_TRUE(m_pDrawer->rect().contains(second.rect()));
    m_pDrawer->resize(500, 300);
    Grab();
    EXPECT_EQ(second.shownPosition(), dragged);
}

TEST_F(ViewWidget, AnItemUnderThePointerIsNamedUntilThePointerHasLeft)
{
    const CCaseWindow window;
    m_pDrawer->SetActive(true);
    Grab();
    MovePointer(PixelOf(0.3, 0.4), Qt::NoModifier);
    EXPECT_EQ(window.m_sStatus, "Surface K = 2 [Block 1]");
    MovePointer(PixelOf(2.0, 2.0), Qt::AltModifier);
    EXPECT_TRUE(window.m_sStatus.contains("IJK: (3, 3, 2)"));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_pDrawer.get(), &leave);
    EXPECT_EQ(window.m_sStatus, "");
    MovePointer(PixelOf(0.3, 0.4), Qt::NoModifier);
    CWidgetManager::Instance().SetStatusText("Saved");
    QCoreApplication::sendEvent(m_pDrawer.get(), &leave);
    EXPECT_EQ(window.m_sStatus, "Saved") << "of somebody else";
}
