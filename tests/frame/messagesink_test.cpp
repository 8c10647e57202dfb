#include "frame/messagesink.h"
#include "tests/support/files.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

/** Sends the sink's lines to a file and gives them back. */
class MessageSink : public testing::Test
{
protected:
    MessageSink() { EXPECT_TRUE(CMessageSink::Instance().OpenLogFile(m_sFileName)); }
    ~MessageSink() override
    {
        CMessageSink::Instance().SetDebugLevel(0);
        CMessageSink::Instance().CloseLogFile();
    }

    QStringList Lines() const
    {
        QStringList sLineList = QString::fromUtf8(Files::Read(m_sFileName)).split('\n');
        EXPECT_EQ(sLineList.takeLast(), "") << "the last line isn't ended";
        return sLineList;
    }

    QTemporaryDir m_folder;
    QString m_sFileName = m_folder.filePath("zento.log");
    CMessageSink& m_sink = CMessageSink::Instance();
};

} // namespace

TEST_F(MessageSink, DetailPassesOnlyFromItsLevelUp)
{
    m_sink.Log("always");
    m_sink.Log("detail", 2);
    m_sink.SetDebugLevel(1);
    m_sink.Log("still too detailed", 2);
    m_sink.SetDebugLevel(2);
    m_sink.Log("detail now", 2);
    EXPECT_EQ(Lines(), QStringList({"always", "detail now"}));
}

TEST_F(MessageSink, EveryLineIsInTheFileAtOnce)
{
    m_sink.Log("before a crash");
    EXPECT_EQ(Lines(), QStringList("before a crash"));
}

TEST_F(MessageSink, TheDeltaCountsFromTheLastMessageThatAskedForIt)
{
    m_sink.Log("first", 0, false, true); // may be the first of the process or not
    QTest::qSleep(30);
    m_sink.Log("not timed");
    m_sink.Log("second", 0, true, true);
    const QRegularExpression pattern("^second T: (\\d{13}) DT: (\\d+)$");
    const QRegularExpressionMatch match = pattern.match(Lines().last());
    ASSERT_TRUE(match.hasMatch()) << Lines().last().toStdString();
    EXPECT_GE(match.captured(2).toLongLong(), 30);
}

TEST_F(MessageSink, AFileThatCannotBeOpenedLeavesTheFormerOneOpen)
{
    EXPECT_FALSE(m_sink.OpenLogFile(m_folder.filePath("missing/zento.log")));
    m_sink.Log("still here");
    EXPECT_EQ(Lines(), QStringList("still here"));
}
