#include "modules/plot3d/fvbnd.h"

#include "tests/support/print.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace {

SFvbndFile Read(const QByteArray& text)
{
    QByteArray bytes = text;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return ReadFvbnd(buffer);
}

SBoundaryRecord Record(const QByteArray& version, const QByteArray& line)
{
    const SFvbndFile file = Read("FVBND " + version + "\nwall\nfar field\nBOUNDARIES\n" + line + "\n");
    return file.records.value(0);
}

} // namespace

TEST(Fvbnd, HeadersThatAreNoneGiveTheirMessage)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", "Empty FVBND file"},
        {"## only\n\n  ## comments\n", "Empty FVBND file"},
        {"FVBOUND 1 4\n", "Missing FVBND header token"},
        {"FVBND 1\n", "Invalid FVBND version"},
        {"FVBND one four\n", "Invalid FVBND version"},
        {"## first\nfvbnd 1 4 ## header\n", ""},
    };
    for (const auto& [sText, sError] : cases)
        EXPECT_EQ(Read(sText).sError, sError) << sText;
    EXPECT_EQ(ReadFvbnd(QString("none.fvbnd")).sError, "File does not exist: none.fvbnd");
}

TEST(Fvbnd, NamesAreJoinedAndLinesThatAreNoRecordsSkipped)
{
    const SFvbndFile file = Read("FVBND 1 4\nwall ##a\n\n far   field \nboundaries\n"
                                 "2 3  1 1  1 $  1 4 T -1\n1 1 1 1\n3 1 1 1 1 2 1 2\n1 1 1 x 1 2 1 2\n"
                                 "1 1 1 1 1 2 1 2 T up\n1 1  1 2  0 0  4 4");
    EXPECT_EQ(file.sTypeNameList, QStringList({"wall", "far field"}));
    ASSERT_EQ(file.records.size(), 2);
    EXPECT_EQ(file.nSkipped, 4) << "too short, no such type, no number, no direction";
    EXPECT_EQ(file.records[0].sTypeName, "far field");
    EXPECT_EQ(file.records[0].nBlock, 3);
    EXPECT_TRUE(file.records[0].toEnd[1]);
}

TEST(Fvbnd, FlagAndDirectionFollowTheVersion)
{
    struct SCase
    {
        const char* sVersion;
        const char* sTail;
        bool bFlip;
        int nDirection;
    };
    for (const SCase& c : {SCase{"1 4", "true -3", true, -1},
                           {"1 4", "F 5", false, 1},
                           {"1 4", "1 0", true, 1},
                           {"1 3", "-2 7", false, -1},
                           {"1 4", "-2", false, -1},
                           {"1 4", "", false, 1},
                           {"2 0", "T -1", true, -1}}) {
        const SBoundaryRecord record = Record(c.sVersion, QByteArray("1 1 1 1 1 2 1 2 ") + c.sTail);
        EXPECT_EQ(record.nBlock, 1) << c.sTail;
        EXPECT_EQ(record.bFlip, c.bFlip) << c.sVersion << ' ' << c.sTail;
        EXPECT_EQ(record.nDirection, c.nDirection) << c.sVersion << ' ' << c.sTail;
    }
}

TEST(Fvbnd, TheFaceIsTheFirstAxisWithEqualLimits)
{
    struct SCase
    {
        const char* sLimits;
        bool bInside;
        int nFace;
        IVector3D max;
    };
    for (const SCase& c : {SCase{"1 1 1 $ 1 $", true, 0, {1, 6, 7}},
                           {"5 $ 1 2 1 2", true, 1, {5, 2, 2}},
                           {"3 3 1 2 1 2", true, 1, {3, 2, 2}},
                           {"1 4 1 1 0 0", true, 2, {4, 1, 7}},
                           {"0 0 6 6 1 2", true, 3, {5, 6, 2}},
                           {"1 2 1 2 1 1", true, 4, {2, 2, 1}},
                           {"2 1 1 2 7 7", true, 5, {2, 2, 7}},
                           {"1 2 1 2 1 2", true, -1, {2, 2, 2}},
                           {"1 1 1 7 1 2", false, -1, {}},
                           {"-1 2 1 1 1 2", false, -1, {}}}) {
        SBoundaryRecord record = Record("1 4", QByteArray("1 1 ") + c.sLimits);
        ASSERT_EQ(ResolveBoundary(record, {5, 6, 7}), c.bInside) << c.sLimits;
        if (!c.bInside)
            continue;
        EXPECT_EQ(record.nFace, c.nFace) << c.sLimits;
        EXPECT_EQ(record.bIsFace, c.nFace >= 0) << c.sLimits;
        EXPECT_EQ(record.max, c.max) << c.sLimits;
    }
}
