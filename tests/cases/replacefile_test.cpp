// Replacing a file: the old one or the new one is there, whatever happens on the way.
#include "frame/replacefile.h"

#include "cases/files/casestorage.h"
#include "tests/support/files.h"
#include "tests/support/print.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int LARGE = 4 << 20; // [bytes] takes some milliseconds to write

/** Runs the function in a process of its own; gives its pid. */
template <class Function> pid_t Fork(const Function& function)
{
    const pid_t pid = fork();
    if (pid == 0) {
        function();
        _exit(0);
    }
    return pid;
}

} // namespace

TEST(ReplaceFile, AKillInTheMiddleLeavesAWholeFile)
{
    QTemporaryDir folder;
    const QString sFile = folder.filePath("case.zento");
    const QByteArray contents[] = {QByteArray(LARGE, 'a'), QByteArray(LARGE, 'b')};
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(ReplaceFile(sFile, contents[0]));
    const int nLongest = 4 * std::max(int(timer.nsecsElapsed() / 1000), 5000); // [us] a few times as long
    QRandomGenerator random(3);
    std::array<int, 2> found = {};
    for (int n = 0; n < 100; ++n) {
        const pid_t pid = Fork([&] {
            for (int nTurn = 0;; ++nTurn)
                ReplaceFile(sFile, contents[nTurn % 2]);
        });
        usleep(random.bounded(nLongest));
        kill(pid, SIGKILL);
        waitpid(pid, nullptr, 0);
        const QByteArray content = Files::Read(sFile);
        ASSERT_TRUE(content == contents[0] || content == contents[1])
            << "after kill " << n << ": " << content.size();
        ++found[content == contents[1]];
    }
    EXPECT_TRUE(found[0] > 0 && found[1] > 0) << "nothing was written";
}

TEST(ReplaceFile, AFullDiskLeavesTheOldFile)
{
    QTemporaryDir folder;
    const QString sFile = folder.filePath("case.zento");
    ASSERT_TRUE(ReplaceFile(sFile, "old"));
    // The limit holds for all files of the process: it is set in one of its own.
    const pid_t pid = Fork([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{LARGE / 4, LARGE / 4};
        setrlimit(RLIMIT_FSIZE, &limit);
        _exit(ReplaceFile(sFile, QByteArray(LARGE, 'a')) ? 1 : 2);
    });
    int nStatus = 0;
    waitpid(pid, &nStatus, 0);
    EXPECT_EQ(WEXITSTATUS(nStatus), 2) << "it says that it failed";
    EXPECT_EQ(Files::Read(sFile), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("case.zento")) << "and cleans up";
}

TEST(ReplaceFile, WhatCantBeWrittenIsLeft)
{
    QTemporaryDir folder;
    ASSERT_TRUE(ReplaceFile(folder.filePath("file"), "old"));
    EXPECT_FALSE(ReplaceFile(folder.filePath("file/below"), "new"));
    EXPECT_FALSE(ReplaceFile(folder.filePath("none/file"), "new"));
    EXPECT_FALSE(ReplaceFile(folder.path(), "new")) << "a folder";
    EXPECT_EQ(Files::Read(folder.filePath("file")), "old");
    const QByteArray pipe = folder.filePath("pipe").toLocal8Bit();
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    EXPECT_FALSE(ReplaceFile(folder.filePath("pipe"), "new"));
    QByteArray bytes;
    EXPECT_FALSE(ReadWholeFile(folder.filePath("pipe"), bytes)) << "without waiting for a writer";
    EXPECT_FALSE(QFileInfo(folder.filePath("pipe")).isFile()) << "still there";
}
