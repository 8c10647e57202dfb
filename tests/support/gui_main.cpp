// main of the tests that make widgets; they run on the offscreen platform unless another is asked for.
#include "tests/support/testsettings.h"

#include <QApplication>
#include <QScreen>

#include <gtest/gtest.h>

// Qt's offscreen platform leaves its screen behind; while this points to it, the leak check doesn't mind.
static QScreen* volatile s_pScreen = nullptr;

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    s_pScreen = QGuiApplication::primaryScreen();
    const CTestSettings settings;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
