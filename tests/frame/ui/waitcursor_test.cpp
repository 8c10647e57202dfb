#include "frame/ui/waitcursor.h"

TEST(WaitCursor, AQuestionLiftsAllThatWaitAndLeavesThemBehind)
{
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    {
        const CWaitCursor wait;
        {
            const CAskingCursor asking;
            EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        }
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BusyCursor);
    QGuiApplication::restoreOverrideCursor();
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}
