// What a load says when it can't be done; what it reads is tested for every layout.
#include "data/io/plot3dprobe.h"
#include "data/io/plot3dread.h"
#include "tests/support/plot3dfile.h"

#include <QFile>
#include <QTemporaryDir>

#include <atomic>
#include <thread>

using Plot3DFixture::Blocks;
using Plot3DFixture::MakeFile;

namespace {

class Plot3DRead : public testing::Test
{
protected:
    SPlot3DFile Grid(const SFileLayout& layout, const QVector<IVector3D>& sizes)
    {
        Files::Write(m_sFileName, MakeFile(layout, KindGrid, Blocks(sizes)));
        return DetectPlot3DGrid(m_sFileName);
    }
    SPlot3DFile Solution(const SFileLayout& layout, FileKind_e eKind,
                         const QVector<Plot3DFixture::SBlock>& blocks)
    {
        Files::Write(m_sFileName, MakeFile(layout, eKind, blocks));
        return DetectPlot3DSolution(m_sFileName);
    }

    QTemporaryDir m_folder;
    const QString m_sFileName = m_folder.filePath("case");
    CReadFile m_device;
};

void ExpectFailure(const SLoadResult& result, const QString& sMessage)
{
    EXPECT_EQ(result.eStatus, LoadFailed);
    EXPECT_EQ(result.sMessage, sMessage);
    EXPECT_EQ(result.nLevel, 0);
}

} // namespace

TEST_F(Plot3DRead, AGridThatDoesntFitSaysWhy)
{
    const SPlot3DFile file = Grid(LayoutOfCode(2), {{7, 5, 3}, {4, 3, 2}});
    EXPECT_TRUE(CheckGrid(file, "a.xyz", {true, 1, {4, 3, 2}}).IsOk());
    ExpectFailure(CheckGrid(file, "a.xyz", {false, 1, {4, 3, 2}}), "Invalid grid precision");
    ExpectFailure(CheckGrid(file, "a.xyz", {true, 2, {4, 3, 2}}), "Invalid File Index: 3 of 2)");
    ExpectFailure(CheckGrid(file, "a.xyz", {true, -1, {4, 3, 2}}), "Invalid File Index: 0 of 2)");
    ExpectFailure(CheckGrid(file, "a.xyz", {true, 0, {4, 3, 2}}), "Grid Dimensions dont match a.xyz 4 3 2");
    ExpectFailure(CheckGrid(SPlot3DFile(), "a.xyz", {true, 0, {4, 3, 2}}), "");
}

TEST_F(Plot3DRead, TextIsRefusedWithoutAMessage)
{
    Files::Write(m_sFileName, "1\n1 1 1\n1 2 3 end");
    const SPlot3DFile file = DetectPlot3DGrid(m_sFileName);
    ASSERT_EQ(file.nCode, 10);
    ExpectFailure(CheckGrid(file, m_sFileName, {true, 0, {1, 1, 1}}), "");
}

TEST_F(Plot3DRead, ASolutionThatDoesntFitSaysWhy)
{
    const SPlot3DFile file = Solution(LayoutOfCode(49), KindQ, Blocks({{7, 5, 3}, {4, 3, 2}}));
    EXPECT_TRUE(CheckSolution(file, {true, 1, {4, 3, 2}}).IsOk());
    ExpectFailure(CheckSolution(file, {false, 1, {4, 3, 2}}), "Invalid solution precision");
    ExpectFailure(CheckSolution(file, {true, 2, {4, 3, 2}}), "Invalid File Index: 3 of 2");
    ExpectFailure(CheckSolution(file, {true, 1, {4, 3, 1}}), "Warning: Solution Dimensions dont match");
    ExpectFailure(CheckSolution(SPlot3DFile(), {true, 1, {4, 3, 2}}), "");
}

TEST_F(Plot3DRead, AVariableThatABlockHasntGotIsRefused)
{
    const SPlot3DFile file = Solution(LayoutOfCode(53), KindFunction, {{{7, 5, 3}, 3}, {{4, 3, 2}, 1}});
    ASSERT_EQ(file.nCode, 53);
    ASSERT_TRUE(m_device.Open(m_sFileName));
    EXPECT_EQ(VariableCount(file), 3);
    QVector<double> values(24);
    const auto read = [&](int nVariable) {
        return ReadVariable(m_device, file, 1, nVariable, std::span<double>(values),
                            WholeRun(file.blocks[1]));
    };
    EXPECT_TRUE(read(0).IsOk());
    ExpectFailure(read(1), "Invalid Solution Index: 2 of 1");
    ExpectFailure(read(-1), "Invalid Solution Index: 0 of 1");
}

TEST_F(Plot3DRead, AFileThatShrankGivesAShortRead)
{
    const SPlot3DFile file = Grid(LayoutOfCode(4), {{60, 60, 60}, {100, 100, 30}});
    ASSERT_EQ(file.nCode, 4);
    ASSERT_TRUE(QFile::resize(m_sFileName, file.blocks[1].nOffset + 8 * 300000 + 5));
    ASSERT_TRUE(m_device.Open(m_sFileName));
    QVector<double> x(300000), y(300000), z(300000);
    const std::array<std::span<double>, 3> xyz = {x, y, z};
    EXPECT_TRUE(ReadGridBlock(m_device, file, 0, xyz, WholeRun(file.blocks[0])).IsOk());
    ExpectFailure(ReadGridBlock(m_device, file, 1, xyz, WholeRun(file.blocks[1])),
                  "Failed to read from file");
    QFile::resize(m_sFileName, 0);
    ExpectFailure(ReadGridBlock(m_device, file, 0, xyz, WholeRun(file.blocks[0])),
                  "Failed to read from file");
}

TEST_F(Plot3DRead, OnlyARegularFileIsOpened)
{
    ExpectFailure(OpenForLoad(m_folder.filePath("missing"), m_device), "Unable to open file");
    ExpectFailure(OpenForLoad(m_folder.path(), m_device), "Unable to open file");
}

TEST_F(Plot3DRead, QHeadersAreThereForQFilesOnly)
{
    const SPlot3DFile file = Solution(LayoutOfCode(67), KindQ, Blocks({{7, 5, 3}, {4, 3, 2}}));
    ASSERT_TRUE(m_device.Open(m_sFileName));
    EXPECT_TRUE(ReadQHeader(m_device, file, 1).has_value());
    EXPECT_FALSE(ReadQHeader(m_device, file, 2).has_value());
    EXPECT_FALSE(ReadQHeader(m_device, file, -1).has_value());
    QFile::resize(m_sFileName, file.blocks[1].nOffset + 15);
    EXPECT_FALSE(ReadQHeader(m_device, file, 1).has_value());
    const SPlot3DFile other = Solution(LayoutOfCode(71), KindFunction, {{{7, 5, 3}, 2}});
    EXPECT_FALSE(ReadQHeader(m_device, other, 0).has_value());
}

TEST_F(Plot3DRead, HolesAreOneAndZeroWhateverTheirSizeAndOrder)
{
    for (const int nIntSize : {4, 8})
        for (const bool bSwapped : {false, true}) {
            SFileLayout layout = LayoutOfCode(26);
            layout.nIntSize = quint8(nIntSize);
            layout.bIsSwapped = bSwapped;
            const SPlot3DFile file = Grid(layout, {{7, 5, 3}, {5, 4, 2}});
            ASSERT_EQ(file.nCode, 26);
            ASSERT_TRUE(m_device.Open(m_sFileName));
            QVector<qint32> holes(20, 7);
            const SPointRun plane = PlaneRun(file.blocks[1], 1, 1);
            EXPECT_TRUE(ReadHoles(m_device, file, 1, holes, plane).IsOk());
            for (int n = 0; n < 20; ++n)
                EXPECT_EQ(holes[n], Plot3DFixture::Blank(1, plane.nFirst + n) != 0);
        }
}

// Several pieces for several threads, and a rest.
TEST_F(Plot3DRead, ALargeBlockIsReadWhole)
{
    for (const bool bSwapped : {false, true}) {
        SFileLayout layout = LayoutOfCode(5);
        layout.bIsSwapped = bSwapped;
        const SPlot3DFile file = Grid(layout, {{101, 103, 79}});
        ASSERT_TRUE(m_device.Open(m_sFileName));
        const SPointRun run = WholeRun(file.blocks[0]);
        std::array<QVector<double>, 3> xyz;
        for (QVector<double>& axis : xyz)
            axis.resize(int(run.nCount));
        EXPECT_TRUE(ReadGridBlock<double>(m_device, file, 0, {xyz[0], xyz[1], xyz[2]}, run).IsOk());
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            for (qint64 n = 0; n < run.nCount; ++n)
                ASSERT_EQ(xyz[nAxis][int(n)], Plot3DFixture::Value(0, nAxis, n)) << nAxis << ' ' << n;
    }
}

TEST_F(Plot3DRead, SeveralThreadsReadFromTheSameFile)
{
    const QVector<Plot3DFixture::SBlock> blocks(8, {{31, 29, 23}, 4});
    const SPlot3DFile file = Solution(LayoutOfCode(69), KindFunction, blocks);
    ASSERT_EQ(file.nCode, 69);
    ASSERT_TRUE(m_device.Open(m_sFileName));
    std::atomic<int> nRight = 0;
    std::vector<std::thread> threads;
    for (int nVariable = 0; nVariable < 4; ++nVariable)
        threads.emplace_back([&, nVariable] {
            for (int nBlock = 0; nBlock < file.blocks.size(); ++nBlock) {
                std::vector<float> values(file.blocks[nBlock].PointCount());
                const SPointRun run = WholeRun(file.blocks[nBlock]);
                if (ReadVariable<float>(m_device, file, nBlock, nVariable, values, run).IsOk() &&
                    values.back() == float(Plot3DFixture::Value(nBlock, nVariable, run.nCount - 1)))
                    ++nRight;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(nRight, 32);
}
