#include "frame/ui/messageboxprompt.h"

#include "frame/ui/waitcursor.h"

#include <QApplication>
#include <QTimer>

TEST(MessageBoxPrompt, NoQuestionStandsUnderACursorThatWaits)
{
    const CWaitCursor outer, inner;
    bool bWaitsMeanwhile = true;
    QTimer::singleShot(0, [&] {
        bWaitsMeanwhile = QGuiApplication::overrideCursor() != nullptr;
        QApplication::activeModalWidget()->close();
    });
    EXPECT_EQ(CMessageBoxPrompt().Ask({PromptQuestion, "Title", "Well?", {"Yes", "No"}, 0, 1}), 1);
    EXPECT_FALSE(bWaitsMeanwhile);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
}
