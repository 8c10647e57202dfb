#include "cases/files/movedfiles.h"

#include "tests/support/files.h"
#include "tests/support/print.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class MovedFiles : public testing::Test
{
protected:
    void Make(const QString& sName)
    {
        QDir(m_folder.path()).mkpath(QFileInfo(sName).path());
        Files::Write(m_folder.filePath(sName));
    }
    QString Found(const QString& sFormerName, const QString& sCaseFolder) const
    {
        const QString sFile = FindMovedFile(sFormerName, m_folder.filePath(sCaseFolder));
        return sFile.isEmpty() ? sFile : QDir(m_folder.path()).relativeFilePath(sFile);
    }
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(MovedFiles, ThePlaceInTheProjectGoesAheadOfTheBareName)
{
    Make("project/data/fine/wing.x");
    Make("project/data/coarse/wing.x");
    Make("project/cases/wing.x");
    Make("project/cases/a/b/case.zento");
    EXPECT_EQ(Found("/home/old/project/data/fine/wing.x", "project/cases"), "project/data/fine/wing.x");
    EXPECT_EQ(Found("/home/old/data/coarse/wing.x", "project/cases/a/b"), "project/data/coarse/wing.x");
    EXPECT_EQ(Found("/home/old/other/wing.x", "project/cases"), "project/cases/wing.x") << "beside the case";
    EXPECT_EQ(Found("/home/old/other/wing.x", "project/cases/a"), "")
        << "a bare name from above says nothing";
    EXPECT_EQ(Found("/home/old/none.x", "project/cases"), "");
    EXPECT_EQ(FindMovedFile("/home/old/wing.x", ""), "");
}

TEST_F(MovedFiles, AFolderThatTheUserNamesIsSearchedByTheEndOfThePathToo)
{
    Make("data/fine/wing.x");
    Make("data/wing.x");
    EXPECT_EQ(FindFileBelow("/old/fine/wing.x", m_folder.filePath("data")),
              m_folder.filePath("data/fine/wing.x"));
    EXPECT_EQ(FindFileBelow("/old/coarse/wing.x", m_folder.filePath("data")),
              m_folder.filePath("data/wing.x"));
    EXPECT_EQ(FindFileBelow("/old/wing.q", m_folder.filePath("data")), "");
    EXPECT_EQ(FindFileBelow("/old/wing.x", ""), "");
}
