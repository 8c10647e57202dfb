// main of the tests that make widgets; they run on the offscreen platform unless another is asked for.
#include "tests/support/testsettings.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const CTestSettings settings;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
