// main of the tests that need no display.
#include "tests/support/testsettings.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const CTestSettings settings;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
