// Every layout of every code: written with known contents, detected, and read back exactly; and as a case,
// whose fields of the grid file are the grid's.
#include "data/io/plot3dprobe.h"
#include "data/io/plot3dread.h"
#include "tests/support/plot3dcasefixture.h"

#include <QTemporaryDir>

using Plot3DFixture::SBlock;

namespace {

/** A group of codes as its first code, and what its members have in common. */
struct SGroupCase
{
    int nFirstCode;
    FileKind_e eKind;
    int nDimensions;
    bool bBlank;
    int nRealSize; // 0: the first four codes have doubles, the others singles
};

constexpr SGroupCase s_groups[] = {
    {2, KindGrid, 3, false, 0},      {14, KindGrid, 2, false, 0},     {26, KindGrid, 3, true, 0},
    {34, KindGrid, 2, true, 0},      {49, KindQ, 3, false, 8},        {53, KindFunction, 3, false, 8},
    {57, KindXyzb, 3, true, 8},      {61, KindXyz, 3, false, 8},      {65, KindQ, 3, false, 4},
    {69, KindFunction, 3, false, 4}, {73, KindXyzb, 3, true, 4},      {77, KindXyz, 3, false, 4},
    {81, KindQ, 2, false, 8},        {85, KindFunction, 2, false, 8}, {89, KindXyzb, 2, true, 8},
    {93, KindXyz, 2, false, 8},      {97, KindQ, 2, false, 4},        {101, KindFunction, 2, false, 4},
    {105, KindXyzb, 2, true, 4},     {109, KindXyz, 2, false, 4},
};

struct SLayoutCase
{
    int nCode;
    FileKind_e eKind;
    SFileLayout layout;
};

/** The layouts of one code: markers, integers and byte order. */
void AppendLayouts(QVector<SLayoutCase>& cases, const SGroupCase& group, int nOffset)
{
    const bool bFortran = nOffset % 4 < 2;
    for (const int nMarkerSize : bFortran ? std::vector{4, 8} : std::vector{0})
        for (const int nIntSize : {4, 8})
            for (const bool bSwapped : {false, true}) {
                SFileLayout layout;
                layout.bIsValid = true;
                layout.bIsSwapped = bSwapped;
                layout.nIntSize = quint8(nIntSize);
                layout.nRealSize = quint8(group.nRealSize ? group.nRealSize : nOffset < 4 ? 8 : 4);
                layout.nMarkerSize = quint8(nMarkerSize);
                layout.bIsMultiBlock = nOffset % 2 == 0;
                layout.bIs3D = group.nDimensions == 3;
                layout.bHasBlank = group.bBlank;
                cases.append({group.nFirstCode + nOffset, group.eKind, layout});
            }
}

QVector<SLayoutCase> AllLayouts()
{
    QVector<SLayoutCase> cases;
    for (const SGroupCase& group : s_groups)
        for (int nOffset = 0; nOffset < (group.nRealSize ? 4 : 8); ++nOffset)
            AppendLayouts(cases, group, nOffset);
    return cases;
}

/**
 * The code that such a file is taken for. A point of two doubles has as many bytes as one of two singles and
 * an integer of 8 bytes; which of the two comes first in the order gets all these files.
 */
int CodeTakenFor(const SLayoutCase& layoutCase)
{
    const int nCode = layoutCase.nCode;
    if (layoutCase.layout.nIntSize != 8)
        return nCode;
    if (nCode >= 38 && nCode <= 41)
        return nCode - 24;
    if (nCode >= 106 && nCode <= 108)
        return nCode - 12;
    return nCode == 93 ? 105 : nCode;
}

/** The layouts that can be told from all others. */
QVector<SLayoutCase> ClearLayouts()
{
    QVector<SLayoutCase> cases = AllLayouts();
    const auto isTaken = [](const SLayoutCase& one) { return CodeTakenFor(one) != one.nCode; };
    cases.erase(std::remove_if(cases.begin(), cases.end(), isTaken), cases.end());
    return cases;
}

/** Blocks for the layout; those of function files differ in their number of variables. */
QVector<SBlock> BlocksFor(const SLayoutCase& layoutCase)
{
    const bool b3D = layoutCase.layout.bIs3D;
    QVector<SBlock> blocks = {{{5, 4, b3D ? 3 : 1}, 2}, {{3, 7, b3D ? 2 : 1}, 4}, {{6, 1, b3D ? 5 : 1}, 1}};
    if (!layoutCase.layout.bIsMultiBlock)
        blocks.resize(1);
    return blocks;
}

int ArraysOf(const SLayoutCase& layoutCase, const SBlock& block)
{
    const int nDimensions = layoutCase.layout.Dimensions();
    return layoutCase.eKind == KindFunction ? block.nVariables
           : layoutCase.eKind == KindQ      ? nDimensions + 2
                                            : nDimensions;
}

std::string Describe(const SLayoutCase& layoutCase)
{
    const SFileLayout& layout = layoutCase.layout;
    return QString("code %1, marker %2, integer %3, swapped %4")
        .arg(layoutCase.nCode)
        .arg(layout.nMarkerSize)
        .arg(layout.nIntSize)
        .arg(layout.bIsSwapped)
        .toStdString();
}

class Plot3DLayouts : public testing::Test
{
protected:
    SPlot3DFile Detect(const SLayoutCase& layoutCase, const QByteArray& bytes)
    {
        Files::Write(m_sFileName, bytes);
        EXPECT_TRUE(m_device.Open(m_sFileName));
        return layoutCase.eKind == KindGrid ? DetectPlot3DGrid(m_sFileName)
                                            : DetectPlot3DSolution(m_sFileName);
    }

    /** Writes the case, and expects that it is detected as what it is. */
    SPlot3DFile DetectAsItself(const SLayoutCase& layoutCase, const QVector<SBlock>& blocks)
    {
        const SPlot3DFile file =
            Detect(layoutCase, Plot3DFixture::MakeFile(layoutCase.layout, layoutCase.eKind, blocks));
        EXPECT_EQ(file.nCode, layoutCase.nCode);
        EXPECT_EQ(file.eKind, layoutCase.eKind);
        EXPECT_EQ(file.layout, layoutCase.layout);
        EXPECT_EQ(file.blocks.size(), blocks.size());
        for (int n = 0; n < std::min(file.blocks.size(), blocks.size()); ++n) {
            EXPECT_EQ(file.blocks[n].size, blocks[n].size);
            EXPECT_EQ(file.blocks[n].nVariables, ArraysOf(layoutCase, blocks[n]));
        }
        return file;
    }

    template <class Real> QVector<Real> Coordinates(const SPlot3DFile& file, qint64 nBlock, int nAxis)
    {
        const qint64 nPoints = file.blocks[nBlock].PointCount();
        std::array<QVector<Real>, 3> xyz;
        std::array<std::span<Real>, 3> spans;
        for (int n = 0; n < 3; ++n) {
            xyz[n].fill(Real(-7), int(nPoints));
            spans[n] = xyz[n];
        }
        EXPECT_TRUE(ReadGridBlock(m_device, file, nBlock, spans, {0, nPoints}).IsOk());
        return xyz[nAxis];
    }

    template <class Real> QVector<Real> Variable(const SPlot3DFile& file, qint64 nBlock, int nVariable)
    {
        QVector<Real> values(int(file.blocks[nBlock].PointCount()), Real(-7));
        const SLoadResult result = ReadVariable(m_device, file, nBlock, nVariable, std::span<Real>(values),
                                                WholeRun(file.blocks[nBlock]));
        EXPECT_TRUE(result.IsOk()) << result.sMessage.toStdString();
        return values;
    }

    template <class Real> static QVector<Real> Expected(qint64 nBlock, int nArray, qint64 nPoints)
    {
        QVector<Real> values;
        for (qint64 n = 0; n < nPoints; ++n)
            values.append(Real(Plot3DFixture::Value(nBlock, nArray, n)));
        return values;
    }

    template <class Real> static QVector<Real> ExpectedHole(qint64 nBlock, qint64 nPoints)
    {
        QVector<Real> values;
        for (qint64 n = 0; n < nPoints; ++n)
            values.append(Real(Plot3DFixture::Blank(nBlock, n) != 0));
        return values;
    }

    /** All arrays of reals, whichever way the kind is read. */
    template <class Real> void ExpectArrays(const SPlot3DFile& file)
    {
        for (int nBlock = 0; nBlock < file.blocks.size(); ++nBlock) {
            const qint64 nPoints = file.blocks[nBlock].PointCount();
            for (int n = 0; n < file.blocks[nBlock].nVariables; ++n)
                EXPECT_EQ(file.eKind == KindGrid ? Coordinates<Real>(file, nBlock, n)
                                                 : Variable<Real>(file, nBlock, n),
                          Expected<Real>(nBlock, n, nPoints))
                    << "block " << nBlock << ", array " << n;
        }
    }

    /** "Z" and "Hole" of files of coordinates, which the file may have or not. */
    template <class Real> void ExpectCoordinateFields(const SPlot3DFile& file)
    {
        for (int nBlock = 0; nBlock < file.blocks.size(); ++nBlock) {
            const int nPoints = int(file.blocks[nBlock].PointCount());
            if (!file.layout.bIs3D) {
                EXPECT_EQ(Variable<Real>(file, nBlock, 2), QVector<Real>(nPoints, 0));
            }
            EXPECT_EQ(Variable<Real>(file, nBlock, 3), file.eKind == KindXyzb
                                                           ? ExpectedHole<Real>(nBlock, nPoints)
                                                           : QVector<Real>(nPoints, 1));
        }
    }

    void ExpectQHeaders(const SPlot3DFile& file)
    {
        for (int nBlock = 0; nBlock < file.blocks.size(); ++nBlock) {
            const auto header = ReadQHeader(m_device, file, nBlock);
            ASSERT_TRUE(header.has_value());
            for (int n = 0; n < Q_HEADER_REALS; ++n)
                EXPECT_EQ((*header)[n], Plot3DFixture::HeaderReal(nBlock, n));
        }
    }

    template <class Real> void ExpectContents(const SPlot3DFile& file)
    {
        ExpectArrays<Real>(file);
        if (file.eKind == KindXyz || file.eKind == KindXyzb)
            ExpectCoordinateFields<Real>(file);
        if (file.eKind == KindQ)
            ExpectQHeaders(file);
    }

    QTemporaryDir m_folder;
    const QString m_sFileName = m_folder.filePath("case");
    CReadFile m_device;
};

} // namespace

TEST_F(Plot3DLayouts, EachIsDetectedAsItselfAndReadBackExactly)
{
    EXPECT_EQ(AllLayouts().size(), 32 * 6 + 64 * 6);
    for (const SLayoutCase& layoutCase : ClearLayouts()) {
        SCOPED_TRACE(Describe(layoutCase));
        const SPlot3DFile file = DetectAsItself(layoutCase, BlocksFor(layoutCase));
        if (HasFailure())
            return;
        if (layoutCase.layout.nRealSize == 8)
            ExpectContents<double>(file);
        else
            ExpectContents<float>(file);
    }
}

TEST_F(Plot3DLayouts, AnyRunOfPointsIsReadFromItsPlace)
{
    for (const SLayoutCase& layoutCase : ClearLayouts()) {
        if (layoutCase.layout.nRealSize != 8 || layoutCase.eKind == KindGrid)
            continue;
        SCOPED_TRACE(Describe(layoutCase));
        const SPlot3DFile file = DetectAsItself(layoutCase, BlocksFor(layoutCase));
        const SPlot3DBlock& block = file.blocks.last();
        const SPointRun run = {2, block.PointCount() - 3};
        for (int nVariable = 0; nVariable < VariableCount(file, file.blocks.size() - 1); ++nVariable) {
            QVector<double> values(int(run.nCount));
            EXPECT_TRUE(ReadVariable(m_device, file, file.blocks.size() - 1, nVariable,
                                     std::span<double>(values), run)
                            .IsOk());
            EXPECT_EQ(values, Variable<double>(file, file.blocks.size() - 1, nVariable)
                                  .mid(int(run.nFirst), int(run.nCount)));
        }
    }
}

/** Layouts of a few codes, with this machine's integers of 4 bytes. */
static QVector<SLayoutCase> LayoutsForPadding()
{
    QVector<SLayoutCase> cases = AllLayouts();
    const auto isOther = [](const SLayoutCase& one) {
        static const QVector<int> s_codes = {2, 3, 9, 26, 49, 51, 65, 68, 81};
        return !s_codes.contains(one.nCode) || one.layout.nIntSize == 8;
    };
    cases.erase(std::remove_if(cases.begin(), cases.end(), isOther), cases.end());
    return cases;
}

// Blocks of a few thousand points: a tiny file can be a padded one of another layout that comes first.
TEST_F(Plot3DLayouts, PaddingIsTakenIfItIsShortAndZero)
{
    for (const SLayoutCase& layoutCase : LayoutsForPadding()) {
        SCOPED_TRACE(Describe(layoutCase));
        const int nK = layoutCase.layout.bIs3D ? 3 : 1;
        const QVector<SBlock> blocks = {{{51, 27, nK}, 3}, {{44, 13, nK}, 4}};
        const QByteArray bytes = Plot3DFixture::MakeFile(
            layoutCase.layout, layoutCase.eKind, layoutCase.layout.bIsMultiBlock ? blocks : blocks.mid(0, 1));
        const auto code = [&](const QByteArray& tail) { return Detect(layoutCase, bytes + tail).nCode; };
        EXPECT_EQ(code(QByteArray(1, '\0')), layoutCase.nCode);
        EXPECT_EQ(code(QByteArray(4096, '\0')), layoutCase.nCode);
        EXPECT_EQ(code(QByteArray(4097, '\0')), 0);
        EXPECT_EQ(code(QByteArray(483, '\0') + '\1'), 0);
    }
}

TEST_F(Plot3DLayouts, PaddingBehindRecordsWithWrongMarkersIsNotTaken)
{
    for (const SLayoutCase& layoutCase : LayoutsForPadding()) {
        if (layoutCase.layout.nMarkerSize == 0)
            continue;
        SCOPED_TRACE(Describe(layoutCase));
        QByteArray bytes =
            Plot3DFixture::MakeFile(layoutCase.layout, layoutCase.eKind, {{{51, 27, 3}, 3}}) + '\0';
        const int nLastMarker = bytes.size() - 1 - layoutCase.layout.nMarkerSize;
        bytes[nLastMarker] = char(bytes[nLastMarker] + 1);
        EXPECT_EQ(Detect(layoutCase, bytes).nCode, 0);
    }
}

// Cut in the right place it may be a whole file of another layout; that can't be told.
TEST_F(Plot3DLayouts, ACutFileIsNotTakenForWhatItWas)
{
    for (const SLayoutCase& layoutCase : AllLayouts()) {
        SCOPED_TRACE(Describe(layoutCase));
        const QByteArray bytes =
            Plot3DFixture::MakeFile(layoutCase.layout, layoutCase.eKind, BlocksFor(layoutCase));
        for (int nLength = 0; nLength < bytes.size(); nLength += nLength < 100 ? 7 : 331)
            EXPECT_NE(Detect(layoutCase, bytes.left(nLength)).nCode, layoutCase.nCode) << nLength;
        EXPECT_NE(Detect(layoutCase, bytes.left(bytes.size() - 1)).nCode, layoutCase.nCode);
    }
}

namespace {

/** Cases of one grid file in each layout, with small and odd sizes of blocks. */
class GridFields : public Plot3DCaseFixture
{
protected:
    static QVector<SBlock> BlocksOf(const SFileLayout& layout, int nVariant)
    {
        const IVector3D sizes[][2] = {
            {{5, 4, 3}, {3, 7, 2}}, {{2, 2, 2}, {1, 3, 2}}, {{33, 17, 9}, {21, 5, 4}}};
        QVector<SBlock> blocks;
        for (const IVector3D& size : sizes[nVariant])
            blocks.append({{size.i, size.j, layout.bIs3D ? size.k : 1}, 2});
        if (!layout.bIsMultiBlock)
            blocks.resize(1);
        return blocks;
    }

    QString WriteLayout(const char* sName, const SFileLayout& layout, FileKind_e eKind,
                        const QVector<SBlock>& blocks, int nPadding = 0)
    {
        return Files::Write(m_folder.filePath(sName),
                            Plot3DFixture::MakeFile(layout, eKind, blocks) + QByteArray(nPadding, '\0'));
    }

    /** As bits: a file taken for another may hold NaN. */
    static std::vector<quint64> Bits(const std::vector<double>& values)
    {
        std::vector<quint64> bits;
        for (const double dValue : values)
            bits.push_back(std::bit_cast<quint64>(dValue));
        return bits;
    }

    std::vector<double> Values(const char* sName, qint64 nItemId)
    {
        const auto pField = Field(sName, nItemId);
        std::vector<double> values(pField ? pField->GetShape().PointCount() : 0);
        if (pField) {
            EXPECT_EQ(pField->FillValues(pField->GetShape().Range(), values), LoadOk);
        }
        return values;
    }

    /** "X", "Y", "Z" are the points of the grid to the bit, "Hole" its IBlank, or 1. */
    void ExpectFieldsOfGrid(const SPlot3DCase& opened, const SFileLayout& written)
    {
        for (int n = 0; n < opened.blocks.size(); ++n) {
            const auto pGrid = Grid(n + 1);
            const qint64 nPoints = pGrid->GetPointCount();
            std::array<std::vector<double>, 3> points;
            for (std::vector<double>& axis : points)
                axis.resize(nPoints);
            EXPECT_EQ(pGrid->FillPoints(pGrid->GetShape().Range(), {points[0], points[1], points[2]}),
                      LoadOk);
            EXPECT_EQ(Bits(Values("X", n + 1)), Bits(points[0]));
            EXPECT_EQ(Bits(Values("Y", n + 1)), Bits(points[1]));
            EXPECT_EQ(Bits(Values("Z", n + 1)), Bits(points[2]));
            if (opened.gridFile.layout != written)
                continue; // too small to be told from another layout: its integers are something else
            std::vector<double> holes(nPoints, 1.0);
            for (qint64 k = 0; opened.gridFile.layout.bHasBlank && k < nPoints; ++k)
                holes[k] = Plot3DFixture::Blank(n, k) != 0;
            EXPECT_EQ(Values("Hole", n + 1), holes);
        }
    }
};

} // namespace

TEST_F(GridFields, AreTheGridsOwnInEveryLayout)
{
    for (const SLayoutCase& layoutCase : AllLayouts()) {
        for (int nVariant = 0; nVariant < 6 && layoutCase.eKind == KindGrid; ++nVariant) {
            SCOPED_TRACE(Describe(layoutCase) + ", variant " + std::to_string(nVariant));
            const QVector<SBlock> blocks = BlocksOf(layoutCase.layout, nVariant % 3);
            const QString sGrid =
                WriteLayout("case.x", layoutCase.layout, KindGrid, blocks, nVariant < 3 ? 0 : 300);
            const SPlot3DCase opened = RegisterPlot3DCase(SIMULATION, {sGrid, {}, {}});
            EXPECT_EQ(opened.sError, "");
            ExpectFieldsOfGrid(opened, layoutCase.layout);
            RemoveCaseData(SIMULATION);
            if (HasFailure())
                return;
        }
    }
}

TEST_F(GridFields, AFileThatFitsSeveralLayoutsIsReadAsWhatGoesWithItsPartner)
{
    const auto isSolution = [](FileKind_e eKind) { return eKind == KindQ || eKind == KindFunction; };
    for (const SLayoutCase& layoutCase : AllLayouts()) {
        for (int nVariant = 0; nVariant < 3 && isSolution(layoutCase.eKind); ++nVariant) {
            SCOPED_TRACE(Describe(layoutCase) + ", variant " + std::to_string(nVariant));
            const QVector<SBlock> blocks = BlocksOf(layoutCase.layout, nVariant);
            const QString sGrid = WriteLayout("case.x", layoutCase.layout, KindGrid, blocks);
            const QString sSolution = WriteLayout("case.q", layoutCase.layout, layoutCase.eKind, blocks);
            const bool bQ = layoutCase.eKind == KindQ;
            const SPlot3DCase opened =
                RegisterPlot3DCase(SIMULATION, {sGrid, bQ ? QStringList{sSolution} : QStringList(),
                                                bQ ? QStringList() : QStringList{sSolution}});
            EXPECT_EQ(opened.sError, "");
            const bool bAsWritten = opened.fields.back().file.layout == layoutCase.layout;
            EXPECT_TRUE(bAsWritten || nVariant == 1) << "only the smallest can't be told from others";
            for (int n = 0; n < blocks.size() && bAsWritten; ++n) {
                const IVector3D size = blocks[n].size;
                EXPECT_EQ(opened.blocks.value(n), size);
                std::vector<double> expected;
                for (qint64 k = 0; k < size.i * size.j * size.k; ++k)
                    expected.push_back(Plot3DFixture::Value(n, 1, k));
                EXPECT_EQ(Values(bQ ? "RU" : "F1.2", n + 1), expected);
            }
            RemoveCaseData(SIMULATION);
            if (HasFailure())
                return;
        }
    }
}
