// What decides between codes, and what is no Plot3D file: limits, order, text, files that can't be read.
#include "data/io/plot3dprobe.h"
#include "tests/support/plot3dfile.h"

#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

using Plot3DFixture::Blocks;
using Plot3DFixture::MakeFile;

namespace {

class Plot3DProbe : public testing::Test
{
protected:
    QString Stored(const QByteArray& bytes)
    {
        Files::Write(m_sFileName, bytes);
        return m_sFileName;
    }
    int GridCode(const QByteArray& bytes) { return DetectPlot3DGrid(Stored(bytes)).nCode; }
    int SolutionCode(const QByteArray& bytes) { return DetectPlot3DSolution(Stored(bytes)).nCode; }

    /** Makes the file longer, the rest is never written. */
    QString StoredWithSize(const QByteArray& bytes, qint64 nSize)
    {
        Stored(bytes);
        EXPECT_TRUE(QFile::resize(m_sFileName, nSize));
        return m_sFileName;
    }

    QTemporaryDir m_folder;
    const QString m_sFileName = m_folder.filePath("case");
};

/** Integers of 4 bytes in this machine's order. */
QByteArray Words(std::initializer_list<qint32> words)
{
    return QByteArray(reinterpret_cast<const char*>(words.begin()), int(words.size() * sizeof(qint32)));
}

qint64 BytesReadByProcess()
{
    QFile file("/proc/self/io");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readLine().mid(6).trimmed().toLongLong();
}

} // namespace

TEST_F(Plot3DProbe, OfTwoLayoutsThatFitTheLowerCodeWins)
{
    // As a multi-block file: 1 block, 2 x 3 x 1. As a single block: 1 x 2 x 3, and a value more.
    const QByteArray multi = Words({1, 2, 3, 1}) + QByteArray(6 * 3 * 8, '\1');
    EXPECT_EQ(GridCode(multi), 4);
    // Two-dimensional, a block of 2 x 6; as 3-D the first value's bytes are a third dimension.
    const QByteArray flat = Words({2, 6}) + Words({4}) + QByteArray(2 * 6 * 2 * 4 - 4, '\1');
    EXPECT_EQ(GridCode(flat), 21);
    const QByteArray solid = Words({2, 6, 1}) + QByteArray(2 * 6 * 3 * 4, '\1');
    EXPECT_EQ(GridCode(solid), 9);
}

TEST_F(Plot3DProbe, CountsBehindTheLimitsAreNotTaken)
{
    struct SCase
    {
        QByteArray header;
        qint64 nPoints;
        int nCode;
    };
    const auto many = [](int nBlocks) {
        QByteArray header = Words({nBlocks});
        for (int n = 0; n < nBlocks; ++n)
            header += Words({1, 1, 1});
        return header;
    };
    for (const SCase& one :
         {SCase{many(10000), 10000, 8}, SCase{many(10001), 10001, 0},
          SCase{Words({1, 32000, 1, 1}), 32000, 8}, SCase{Words({1, 32001, 1, 1}), 32001, 0},
          SCase{Words({1, 0, 1, 1}), 0, 0}, SCase{Words({1, -2, -3, 1}), 6, 0}})
        EXPECT_EQ(GridCode(one.header + QByteArray(int(one.nPoints * 12), '\7')), one.nCode)
            << one.nPoints << " points";
    EXPECT_EQ(SolutionCode(Words({3, 5, 7, 100}) + QByteArray(105 * 400, '\7')), 72);
    EXPECT_EQ(SolutionCode(Words({3, 5, 7, 101}) + QByteArray(105 * 404, '\7')), 0);
}

TEST_F(Plot3DProbe, SizesThatDontFitInAnIntegerAreComparedAsTheyAre)
{
    // 32000^3 points: the sizes wrap to something small in 32 bits, and the sum of many in 64 bits.
    EXPECT_EQ(GridCode(Words({32000, 32000, 32000}) + QByteArray(100, '\1')), 0);
    QByteArray header = Words({9000});
    for (int n = 0; n < 9000; ++n)
        header += Words({32000, 32000, 32000, 100});
    EXPECT_EQ(SolutionCode(header), 0);
    // 1500^3 points of three doubles are 75 GiB, of which the file holds the header only.
    const QString sFileName = StoredWithSize(Words({1500, 1500, 1500}), 12 + 1500LL * 1500 * 1500 * 24);
    const SPlot3DFile file = DetectPlot3DGrid(sFileName);
    EXPECT_EQ(file.nCode, 5);
    EXPECT_EQ(ArrayOffset(file, file.blocks[0], 2), 12 + 2 * 1500LL * 1500 * 1500 * 8);
}

TEST_F(Plot3DProbe, MarkersAreCheckedRoundTheHeaderOnly)
{
    SFileLayout layout = LayoutOfCode(2);
    const QByteArray bytes = MakeFile(layout, KindGrid, Blocks({{7, 5, 3}, {4, 3, 2}}));
    const auto withByte = [&bytes](int nPlace, char nValue) {
        return QByteArray(bytes).replace(nPlace, 1, &nValue, 1);
    };
    EXPECT_EQ(GridCode(bytes), 2);
    for (const int nPlace : {0, 8, 12, 12 + 4 + 24}) // round the block count, round the dimensions
        EXPECT_NE(GridCode(withByte(nPlace, 5)), 2) << nPlace;
    EXPECT_EQ(GridCode(withByte(12 + 4 + 24 + 4, 5)), 2); // of the first block's data
}

TEST_F(Plot3DProbe, FilesThatCantBeReadAreNotDetected)
{
    EXPECT_EQ(GridCode({}), 0);
    EXPECT_EQ(SolutionCode({}), 0);
    EXPECT_EQ(DetectPlot3DGrid(m_folder.filePath("missing")).nCode, 0);
    EXPECT_EQ(DetectPlot3DGrid(m_folder.path()).nCode, 0);
    const QString sPipe = m_folder.filePath("pipe"); // opening it would wait for a writer
    ASSERT_EQ(::mkfifo(QFile::encodeName(sPipe).constData(), 0600), 0);
    EXPECT_EQ(DetectPlot3DSolution(sPipe).nCode, 0);
}

TEST_F(Plot3DProbe, DetectingManyBlocksReadsTheirHeaderAndNoMore)
{
    constexpr int BLOCKS = 2000;
    QByteArray header = Words({BLOCKS});
    for (int n = 0; n < BLOCKS; ++n)
        header += Words({17, 17, 17});
    const QString sFileName = StoredWithSize(header, header.size() + BLOCKS * 17LL * 17 * 17 * 12);
    const qint64 nBefore = BytesReadByProcess();
    const SPlot3DFile file = DetectPlot3DGrid(sFileName);
    EXPECT_LT(BytesReadByProcess() - nBefore, header.size() + 20000);
    EXPECT_EQ(file.nCode, 8);
    EXPECT_EQ(BlockDimensions(file), QVector<IVector3D>(BLOCKS, {17, 17, 17}));
}

TEST_F(Plot3DProbe, ABlockFollowsWhereTheLastOneEnds)
{
    SFileLayout layout = LayoutOfCode(49);
    const QByteArray bytes = MakeFile(layout, KindQ, Blocks({{7, 5, 3}, {4, 3, 2}}));
    const SPlot3DFile file = DetectPlot3DSolution(Stored(bytes));
    ASSERT_EQ(file.blocks.size(), 2);
    const qint64 nHeader = (4 + 4 + 4) + (4 + 24 + 4);
    EXPECT_EQ(file.blocks[0].nOffset, nHeader);
    EXPECT_EQ(file.blocks[1].nOffset, nHeader + (4 + 32 + 4) + (4 + 105 * 5 * 8 + 4));
    EXPECT_EQ(ArrayOffset(file, file.blocks[0], 0), nHeader + 40 + 4);
    EXPECT_EQ(QHeaderOffset(file.layout, file.blocks[1]), file.blocks[1].nOffset + 4);
}

struct STextCase
{
    const char* sName;
    QByteArray text;
    int nCode;
};

TEST_F(Plot3DProbe, TextIsTakenIfSomethingThatIsNoNumberFollows)
{
    const QByteArray six = " 1.5 -2 3e+2\n.5 +6.E-1\t7 ";
    const QByteArray twelve = six + six;
    for (const STextCase& one : {
             STextCase{"multi-block", "1\n 2 1 1\n" + six + "end", 10},
             STextCase{"single block", "2 1 1\n" + six + "#", 11},
             STextCase{"two-dimensional, multi-block", "2  2 1  2 2\n" + twelve + "end", 22},
             STextCase{"two-dimensional, single block", "3 1\n" + six + "end", 23},
             STextCase{"not-a-number and infinity count", "1 1 1 nan -inf +NAN x", 11},
             STextCase{"a half number follows", "1 1 1 1 2 3 4e", 11},
             STextCase{"ends behind the last number", "1\n 2 1 1\n" + six, 0},
             STextCase{"too many numbers", "1\n 2 1 1\n" + six + "8 end", 0},
             STextCase{"too few numbers", "1\n 3 1 1\n" + six + "end", 0},
             STextCase{"repeat count", "1\n 2 1 1\n 6*1.5 end", 0},
             STextCase{"comma", "2,1,1\n" + six + "end", 0},
             STextCase{"negative dimension", "2 -1 1\n" + six + "end", 0},
             STextCase{"more blocks than may be", "10001\n 2 1 1\n" + six + "end", 0},
             STextCase{"a count of many digits", "99999999999999999999 2 1 1\n" + six + "end", 0},
             STextCase{"dimensions without the points", "1\n32000 32000 32000\n1 2 3 end", 0},
             STextCase{"words", "Once upon a time", 0},
         })
        EXPECT_EQ(GridCode(one.text), one.nCode) << one.sName;
}

TEST_F(Plot3DProbe, LongTextIsReadToItsEnd)
{
    QByteArray text = "1\n200 200 1\n";
    for (int n = 0; n < 200 * 200 * 3; ++n)
        text += QByteArray::number(n * 0.37, 'g', 17) + (n % 7 == 0 ? "\n" : " ");
    EXPECT_EQ(GridCode(text + "end"), 10);
    EXPECT_EQ(GridCode(text), 0);
    const SPlot3DFile file = DetectPlot3DGrid(Stored(text + "end"));
    EXPECT_EQ(file.layout, LayoutOfCode(10));
    EXPECT_EQ(BlockDimensions(file), QVector<IVector3D>({{200, 200, 1}}));
}
