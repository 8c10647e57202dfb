// Files that other people's programs wrote, against what independent readers found in them. They aren't part
// of the source; where the folder is absent these tests are skipped.
#include "data/io/plot3dprobe.h"
#include "data/io/plot3dread.h"
#include "data/kernels/range.h"

#include <QDir>

namespace {

struct SSample
{
    const char* sFile;
    bool bGrid;
    int nCode;
    bool bSwapped;
    const char* sSizes;
    double dFirstMin, dFirstMax; // of the first array over all blocks, to nine digits
    double dLastMin, dLastMax;   // of the last array of reals
};

const SSample s_samples[] = {
    {"combxyz.bin", true, 9, true, "57x33x25", 0, 16.5100002, 23.3311691, 36.1949997},
    {"bluntfinxyz.bin", true, 9, true, "40x32x32", -7.81574726, 14.3622036, 0, 5.72425127},
    {"multi-bin-C.xyz", true, 4, false, "8x12x12 8x12x12", -7.81574726, 14.3622036, 0, 5.72425127},
    {"multi-bin-2D.xyz", true, 16, false, "11x17x1 11x17x1", -7.81574726, 14.3622036, 0, 8.32755852},
    {"tiny.xyz", true, 6, false, "2x2x2 2x2x2 2x2x2 2x2x2 2x2x2", 1, 6, 1, 2},
    {"backstep5_4levdn.p3dbin", true, 2, true, "2x33x33 2x13x33 2x49x57 2x17x57", -130, 50, 0, 9},
    {"pitch0012/plot3dg.bin", true, 34, false, "257x129x1", -48.2315877, 51.8915599, -51.182273, 51.0132458},
    {"nacelle/grid.in", true, 3, false, "249x41x3", 358.104856, 511.905208, 3.52709029, 26.4876284},
    {"nacelle/powered_grid.ibi", true, 26, false, "3x141x1 3x9x1 3x39x1 3x9x1 41x3x1 41x3x1 41x3x1 41x3x1",
     365.1674, 457.4533, 0, 18.5183633},
    {"nozzle/nozzle.x", true, 2, false, "2x31x41 2x31x71 2x101x121", -0.25, 0.875, 0, 0.176773772},
    {"combq.bin", false, 68, true, "57x33x25", 0.197813094, 0.710419238, 0, 0},
    {"multi-bin-C.q", false, 51, false, "8x12x12 8x12x12", 0.198960006, 4.8283, 0.78863734, 24.0777302},
    {"multi-bin-2D.q", false, 83, false, "11x17x1 11x17x1", 0.266229987, 2.69400001, 1.07446992, 14.198},
    {"tiny.q", false, 65, false, "2x2x2 2x2x2 2x2x2 2x2x2 2x2x2", 0.899999976, 0.899999976, 7.70300007,
     7.70300007},
};

class Plot3DSamples : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_folder.exists())
            GTEST_SKIP() << "no sample files";
    }

    static QString FolderName()
    {
        const QString sByUser = qEnvironmentVariable("ZENTO_SAMPLE_DATA");
        return (sByUser.isEmpty() ? QString(ZENTO_SAMPLE_DATA) : sByUser) + "/plot3d";
    }

    SPlot3DFile Detect(const QString& sFile, bool bGrid)
    {
        const QString sPath = m_folder.filePath(sFile);
        EXPECT_TRUE(m_device.Open(sPath));
        return bGrid ? DetectPlot3DGrid(sPath) : DetectPlot3DSolution(sPath);
    }

    template <class Real> SPlacedRange BlockRange(const SPlot3DFile& file, qint64 nBlock, int nArray)
    {
        const SPointRun run = WholeRun(file.blocks[nBlock]);
        std::array<std::vector<Real>, 3> arrays;
        for (auto& values : arrays)
            values.resize(run.nCount);
        if (file.eKind == KindGrid)
            EXPECT_TRUE(
                ReadGridBlock<Real>(m_device, file, nBlock, {arrays[0], arrays[1], arrays[2]}, run).IsOk());
        else
            EXPECT_TRUE(ReadVariable<Real>(m_device, file, nBlock, nArray, arrays[0], run).IsOk());
        return FindRange<Real>(arrays[file.eKind == KindGrid ? nArray : 0]);
    }

    /** Over all blocks; the indices mean nothing. */
    SPlacedRange Range(const SPlot3DFile& file, int nArray)
    {
        SPlacedRange all;
        for (qint64 n = 0; n < file.blocks.size(); ++n)
            all = JoinRanges(all,
                             file.layout.nRealSize == 8 ? BlockRange<double>(file, n, nArray)
                                                        : BlockRange<float>(file, n, nArray),
                             0);
        return all;
    }

    const QDir m_folder = QDir(FolderName());
    CReadFile m_device;
};

QString SizesOf(const SPlot3DFile& file)
{
    QStringList sSizeList;
    for (const IVector3D& size : BlockDimensions(file))
        sSizeList.append(QString("%1x%2x%3").arg(size.i).arg(size.j).arg(size.k));
    return sSizeList.join(' ');
}

void ExpectNear(double dValue, double dExpected)
{
    EXPECT_NEAR(dValue, dExpected, 1e-8 * std::max(1.0, std::abs(dExpected)));
}

} // namespace

TEST_F(Plot3DSamples, HaveTheCodesSizesAndRangesThatOthersFound)
{
    for (const SSample& sample : s_samples) {
        SCOPED_TRACE(sample.sFile);
        const SPlot3DFile file = Detect(sample.sFile, sample.bGrid);
        ASSERT_EQ(file.nCode, sample.nCode);
        EXPECT_EQ(file.layout.bIsSwapped, sample.bSwapped);
        EXPECT_EQ(file.layout.nIntSize, 4);
        EXPECT_EQ(SizesOf(file), sample.sSizes);
        const SPlacedRange first = Range(file, 0);
        ExpectNear(first.dMin, sample.dFirstMin);
        ExpectNear(first.dMax, sample.dFirstMax);
        const SPlacedRange last = Range(file, file.blocks[0].nVariables - 1);
        ExpectNear(last.dMin, sample.dLastMin);
        ExpectNear(last.dMax, sample.dLastMax);
    }
}

TEST_F(Plot3DSamples, APaddedFileAndADoubleFortranOneInTwoDimensionsAreRecognised)
{
    const SPlot3DFile padded = Detect("bluntfinq.bin", false);
    EXPECT_EQ(padded.nCode, 68);
    EXPECT_EQ(BlockDimensions(padded), QVector<IVector3D>({{40, 32, 32}}));
    const SPlot3DFile flat = Detect("pitch0012/plot3dq.bin", false);
    EXPECT_EQ(flat.nCode, 81);
    EXPECT_EQ(BlockDimensions(flat), QVector<IVector3D>({{257, 129, 1}}));
    EXPECT_GT(Range(flat, 0).dMin, 0.0); // density
}

TEST_F(Plot3DSamples, TextThatEndsBehindItsLastNumberOrHasRepeatCountsIsNotTaken)
{
    for (const char* const sFile :
         {"multi-ascii.xyz", "n0012_113-33.p2dfmt", "shear_4levelsdown.p3dfmt", "nozzle/nozzle.p3dfmt"})
        EXPECT_EQ(Detect(sFile, true).nCode, 0) << sFile;
}

TEST_F(Plot3DSamples, GridsServeAsFieldsWithTheirHoles)
{
    const SPlot3DFile file = Detect("nacelle/powered_grid.ibi", false);
    ASSERT_EQ(file.nCode, 57);
    qint64 nHoles = 0;
    for (qint64 nBlock = 0; nBlock < file.blocks.size(); ++nBlock) {
        std::vector<double> values(file.blocks[nBlock].PointCount());
        EXPECT_TRUE(
            ReadVariable<double>(m_device, file, nBlock, 3, values, WholeRun(file.blocks[nBlock])).IsOk());
        nHoles += std::count(values.begin(), values.end(), 0.0);
    }
    EXPECT_EQ(nHoles, 33);
}

TEST_F(Plot3DSamples, QHeadersAreRead)
{
    const SPlot3DFile file = Detect("multi-bin-C.q", false);
    const auto header = ReadQHeader(m_device, file, 1);
    ASSERT_TRUE(header.has_value());
    ExpectNear((*header)[0], 2.95000005);
    EXPECT_EQ((*header)[1], 0.0);
    EXPECT_EQ((*header)[2], 2100000.0);
    ExpectNear((*header)[3], 1.39110005);
}
