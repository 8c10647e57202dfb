#include "data/io/plot3dprobe.h"
#include "data/io/plot3dread.h"
#include "data/io/plot3dwrite.h"
#include "tests/support/files.h"
#include "tests/support/plot3dfile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

double Coordinate(qint64 nBlock, int nAxis, qint64 nPoint)
{
    return Plot3DFixture::Value(nBlock, nAxis, nPoint);
}

/** Blocks in memory, the odd ones in single precision; counts how many are held. */
class CSource : public IGridSource
{
public:
    explicit CSource(const QVector<SBlockPart>& parts) : m_parts(parts) {}

    qint64 GetBlockCount() const override { return m_parts.size(); }
    SBlockPart GetPart(qint64 nBlock) const override { return m_parts[int(nBlock)]; }
    SBlockCoordinates Acquire(qint64 nBlock) override
    {
        ++m_nHeld;
        SBlockCoordinates coordinates;
        const IVector3D size = m_parts[int(nBlock)].size;
        for (int nAxis = 0; nAxis < 3; ++nAxis) {
            m_singles[nAxis].clear();
            m_doubles[nAxis].clear();
            for (qint64 n = 0; n < size.i * size.j * size.k && nBlock != m_nBroken; ++n)
                if (nBlock % 2 == 1)
                    m_singles[nAxis].push_back(float(Coordinate(nBlock, nAxis, n)));
                else
                    m_doubles[nAxis].push_back(Coordinate(nBlock, nAxis, n));
            coordinates.singles[nAxis] = m_singles[nAxis];
            coordinates.doubles[nAxis] = m_doubles[nAxis];
        }
        return coordinates;
    }
    void Release(qint64) override { --m_nHeld; }

    int m_nHeld = 0;
    qint64 m_nBroken = -1; // can't be loaded

private:
    QVector<SBlockPart> m_parts;
    std::array<std::vector<float>, 3> m_singles;
    std::array<std::vector<double>, 3> m_doubles;
};

/** Stops after some steps. */
class CStopper : public IProgress
{
public:
    explicit CStopper(int nSteps) : m_nSteps(nSteps) {}
    bool Step(double dDone) override
    {
        EXPECT_GE(dDone, m_dLast);
        EXPECT_LE(dDone, 1.0);
        m_dLast = dDone;
        return m_nSteps-- > 0;
    }
    double m_dLast = 0.0;

private:
    int m_nSteps;
};

class Plot3DWrite : public testing::Test
{
protected:
    SSaveResult Write(CSource& source, int nCode = 2, IProgress* pProgress = nullptr)
    {
        const SSaveResult result = WritePlot3DGrid(m_sFileName, nCode, source, pProgress);
        EXPECT_EQ(source.m_nHeld, 0);
        EXPECT_EQ(result.eStatus == SaveFailed, !result.sMessage.isEmpty());
        return result;
    }

    /** Nothing is left but the file that was there before. */
    void ExpectFormerFile()
    {
        EXPECT_EQ(Files::Read(m_sFileName), "former");
        EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("case"));
    }

    template <class Real> void ExpectCoordinates(const SPlot3DFile& file, int nBlock, const SBlockPart& part)
    {
        CReadFile device;
        ASSERT_TRUE(device.Open(m_sFileName));
        const SPointRun run = WholeRun(file.blocks[nBlock]);
        std::array<std::vector<Real>, 3> xyz;
        for (auto& axis : xyz)
            axis.resize(run.nCount);
        ASSERT_TRUE(ReadGridBlock<Real>(device, file, nBlock, {xyz[0], xyz[1], xyz[2]}, run).IsOk());
        for (int nAxis = 0; nAxis < 3; ++nAxis)
            for (qint64 n = 0; n < run.nCount; ++n) {
                const IVector3D ijk = {n % part.count.i, n / part.count.i % part.count.j,
                                       n / part.count.i / part.count.j};
                const IVector3D at = ijk + part.first;
                const qint64 nPoint = (at.k * part.size.j + at.j) * part.size.i + at.i;
                ASSERT_EQ(double(xyz[nAxis][n]), Coordinate(nBlock, nAxis, nPoint)) << nAxis << ' ' << n;
            }
    }

    QTemporaryDir m_folder;
    const QString m_sFileName = m_folder.filePath("case");
};

const QVector<SBlockPart> s_parts = {
    SBlockPart::Whole({7, 5, 3}),      SBlockPart::Whole({4, 3, 2}), {{7, 5, 3}, {2, 1, 0}, {3, 4, 2}},
    {{6, 5, 4}, {0, 2, 3}, {6, 1, 1}}, SBlockPart::Whole({1, 1, 1}),
};

} // namespace

TEST_F(Plot3DWrite, BlocksAndPartsOfThemReadBackInEveryForm)
{
    for (const int nCode : {2, 4, 6, 8}) {
        SCOPED_TRACE(nCode);
        CSource source(s_parts);
        ASSERT_TRUE(Write(source, nCode).IsOk());
        const SPlot3DFile file = DetectPlot3DGrid(m_sFileName);
        ASSERT_EQ(file.nCode, nCode);
        ASSERT_EQ(file.layout, LayoutOfCode(nCode));
        for (int n = 0; n < s_parts.size(); ++n) {
            ASSERT_EQ(file.blocks[n].size, s_parts[n].count);
            if (IsDoublePrecisionFormat(nCode))
                ExpectCoordinates<double>(file, n, s_parts[n]);
            else
                ExpectCoordinates<float>(file, n, s_parts[n]);
        }
    }
}

TEST_F(Plot3DWrite, TheFileIsTheSameToTheByteAsOneWrittenItemByItem)
{
    const QVector<IVector3D> sizes = {{7, 5, 3}, {4, 3, 2}};
    for (const int nCode : {2, 4, 6, 8}) {
        CSource source({SBlockPart::Whole(sizes[0]), SBlockPart::Whole(sizes[1])});
        ASSERT_TRUE(Write(source, nCode).IsOk());
        EXPECT_EQ(Files::Read(m_sFileName),
                  Plot3DFixture::MakeFile(LayoutOfCode(nCode), KindGrid, Plot3DFixture::Blocks(sizes)))
            << nCode;
    }
}

TEST_F(Plot3DWrite, ACancelledExportLeavesTheFormerFile)
{
    for (const int nSteps : {0, 1, 5}) { // at the start, between blocks, within a block
        Files::Write(m_sFileName, "former");
        CSource source({SBlockPart::Whole({2, 2, 2}), SBlockPart::Whole({100, 100, 30})});
        CStopper stopper(nSteps);
        EXPECT_EQ(Write(source, 2, &stopper).eStatus, SaveCancelled) << nSteps;
        ExpectFormerFile();
    }
}

TEST_F(Plot3DWrite, AFailedExportLeavesTheFormerFile)
{
    Files::Write(m_sFileName, "former");
    CSource broken(s_parts);
    broken.m_nBroken = 3;
    EXPECT_EQ(Write(broken).sMessage, "Block 4: the grid could not be loaded");
    CSource outside(QVector<SBlockPart>{{{7, 5, 3}, {2, 1, 0}, {6, 4, 2}}});
    EXPECT_EQ(Write(outside).eStatus, SaveFailed);
    ExpectFormerFile();
    CSource source(s_parts);
    EXPECT_EQ(WritePlot3DGrid(m_folder.filePath("missing/case"), 2, source, nullptr).eStatus, SaveFailed);
}

TEST_F(Plot3DWrite, ABlockThatIsTooLongForARecordIsRefusedUnlessTheFileIsRaw)
{
    // 89478486 points of three doubles are 2147483664 bytes; a point less are 2147483640, one byte too many.
    for (const qint64 nPoints : {89478486, 89478485}) {
        CSource source({SBlockPart::Whole({nPoints, 1, 1})});
        CStopper stopper(0);
        EXPECT_EQ(Write(source, 2, &stopper).eStatus, SaveFailed) << nPoints;
        EXPECT_EQ(Write(source, 4, &stopper).eStatus, SaveCancelled) << nPoints;
    }
    CSource source({SBlockPart::Whole({89478484, 1, 1})});
    CStopper stopper(0);
    EXPECT_EQ(Write(source, 2, &stopper).eStatus, SaveCancelled);
    EXPECT_FALSE(QFile::exists(m_sFileName));
}
