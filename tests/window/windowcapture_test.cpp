#include "window/windowcapture.h"

#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "tests/support/promptscript.h"
#include "tests/support/simulationfixture.h"
#include "view/dialogs/screenshotdialog.h"
#include "view/ui/oglviewer.h"
#include "view/ui/opengldrawer.h"
#include "window/mainwindow.h"
#include "window/viewarea.h"

#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr QRgb CUSTOM = 0xff123456;

class WindowPictures : public SimulationFixture
{
protected:
    void SetUp() override
    {
        CPreferences& preferences = CPreferences::Instance();
        Set(preferences, PreferenceKey::BACKGROUND_COLORS[3], QColor(CUSTOM));
        preferences.Apply();
        m_window.resize(900, 700);
        m_window.show();
        QTest::qWait(50);
        if (!Drawer().isValid())
            GTEST_SKIP() << "no OpenGL here";
    }

    CViewArea& Area() { return m_window.GetViewArea(); }
    COpenGLDrawer& Drawer() { return Area().GetOglViewer(Area().GetActiveViewId())->GetDrawer(); }

    CMainWindow m_window;
};

} // namespace

TEST_F(WindowPictures, AViewComesInAnySizeWithTheBackgroundAskedFor)
{
    const QSize size = Drawer().size();
    const SCamera camera = Drawer().GetCamera();
    SCapture capture{size * 2, {CaptureTransparent, false, false, false}, true};
    QImage image = m_window.captureImage(capture);
    EXPECT_EQ(image.size(), size * 2);
    EXPECT_EQ(image.pixel(5, 5), 0U);
    EXPECT_EQ(image.pixel(size.width(), size.height()), 0U) << "nothing is shown";
    capture.parts.bAxes = true;
    EXPECT_NE(m_window.captureImage(capture), image);
    capture.parts = {CaptureCustom, false, false, false};
    EXPECT_EQ(m_window.captureImage(capture).pixel(5, 5), CUSTOM);
    EXPECT_EQ(Drawer().size(), size) << "the view is as before";
    EXPECT_EQ(Drawer().GetCamera(), camera);

    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    capture = {size, {CaptureDisplayed, draw.bShowAxes, true, draw.bShowScaling}, true};
    EXPECT_EQ(m_window.captureImage(capture), Drawer().grabFramebuffer()) << "what is saved is what is seen";
    capture.size = {};
    EXPECT_TRUE(m_window.captureImage(capture).isNull());
    capture.size = QSize(1, 1) * 1'000'000;
    EXPECT_TRUE(m_window.captureImage(capture).isNull()) << "more than OpenGL can draw";
}

TEST_F(WindowPictures, TheWindowComesWithEachViewInItsPlace)
{
    Area().Split(Area().GetActiveViewId(), Qt::Horizontal);
    QTest::qWait(50);
    const QImage image =
        m_window.captureImage({m_window.size() * 2, {CaptureCustom, false, false, false}, false});
    ASSERT_EQ(image.size(), m_window.size() * 2);
    for (const qint64 nViewId : Area().GetViewIds()) {
        const COpenGLDrawer& drawer = Area().GetOglViewer(nViewId)->GetDrawer();
        const QRect place(drawer.mapTo(&m_window, QPoint()), drawer.size());
        EXPECT_EQ(image.pixel(place.center() * 2), CUSTOM);
        EXPECT_EQ(image.pixel(place.topLeft() * 2 + QPoint(2, 2)), CUSTOM);
        EXPECT_NE(image.pixel(place.topLeft() * 2 - QPoint(4, 4)), CUSTOM);
    }
    Area().SetExpanded(Area().GetActiveViewId(), true);
    QTest::qWait(50);
    EXPECT_EQ(WindowCapture::ViewSize(Area()), Drawer().size());
    EXPECT_EQ(m_window.captureImage({Drawer().size(), {CaptureCustom, false, false, false}, false}).size(),
              Drawer().size())
        << "a view that fills the area stands for the window";
}

TEST(ScreenshotDialog, SizesKeepTheAspectOfTheTarget)
{
    CScreenshotDialog dialog({{1000, 500}, {800, 600}}, false);
    const auto find = [&](const char* sName) { return dialog.findChild<QSpinBox*>(sName); };
    EXPECT_EQ(dialog.GetCapture().size, QSize(800, 600));
    EXPECT_TRUE(dialog.GetCapture().bActiveViewOnly);
    find("m_pImageWidthE")->setValue(401);
    EXPECT_EQ(dialog.GetCapture().size, QSize(401, 300));
    find("m_pImageHeightE")->setValue(100);
    EXPECT_EQ(dialog.GetCapture().size, QSize(133, 100));
    dialog.findChild<QComboBox*>("m_pScreenshotTargetCB")->setCurrentIndex(0);
    EXPECT_EQ(dialog.GetCapture().size, QSize(1000, 500));
    EXPECT_FALSE(dialog.GetCapture().bActiveViewOnly);
}

TEST(ScreenshotDialog, AViewThatCannotBeDrawnIsToldAndLeavesTheFile)
{
    CScreenshotDialog dialog({{1000, 500}, {800, 600}}, false); // no window to capture
    const QTemporaryDir folder;
    CPromptScript user;
    user.ChooseFile(folder.filePath("a"));
    user.Press("Ok");
    dialog.findChild<QPushButton*>("m_pSaveImageB")->click();
    EXPECT_TRUE(user.Asked().first().sText.startsWith("The view could not be captured."));
    EXPECT_EQ(user.AskedFiles().first().sFilter, "PNG Files (*.png)");
    EXPECT_FALSE(QFile::exists(folder.filePath("a.png")));
}
