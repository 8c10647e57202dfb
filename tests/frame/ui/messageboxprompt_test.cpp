#include "frame/ui/messageboxprompt.h"

#include "frame/ui/waitcursor.h"

#include <QApplication>
#include <QTimer>

TEST(MessageBoxPrompt, NoQuestionStandsUnderTheWaitCursor)
{
    const CWaitCursor wait;
    const auto shape = [] { return QGuiApplication::overrideCursor()->shape(); };
    Qt::CursorShape eMeanwhile = Qt::WaitCursor;
    QTimer::singleShot(0, [&] {
        eMeanwhile = shape();
        QApplication::activeModalWidget()->close();
    });
    EXPECT_EQ(CMessageBoxPrompt().Ask({PromptQuestion, "Title", "Well?", {"Yes", "No"}, 0, 1}), 1);
    EXPECT_EQ(eMeanwhile, Qt::ArrowCursor);
    EXPECT_EQ(shape(), Qt::WaitCursor);
}
