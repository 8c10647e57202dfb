#include "data/io/partialreads.h"
#include "frame/memory/memorymanager.h"
#include "tests/support/plot3dcasefixture.h"

using Plot3DFixture::Blocks;
using Plot3DFixture::Value;

namespace {

constexpr IVector3D SIZE = {70, 64, 66}; // a quarter of an array is some reads
constexpr SIJKRange LAST_PLANE = {{1, 1, 66}, {70, 64, 66}};

class PartialReads : public Plot3DCaseFixture
{
protected:
    static qint64 Loaded() { return CMemoryManager::Instance().GetTotalBytes(); }
    void Open(int nGridCode, int nQCode)
    {
        const auto blocks = Blocks({{3, 3, 3}, SIZE});
        RegisterPlot3DCase(
            SIMULATION,
            {Write("case.x", nGridCode, KindGrid, blocks), {Write("case.q", nQCode, KindQ, blocks)}, {}});
    }
    /** Whether the points are those of block 1 in the file. */
    static void ExpectPoints(const IGrid& grid, const SIJKRange& range)
    {
        std::vector<double> x(range.Count()), y(range.Count()), z(range.Count());
        EXPECT_EQ(grid.FillPoints(range, {x, y, z}), LoadOk);
        for (qint64 n = 0; n < range.Count(); ++n) {
            const qint64 nPoint =
                grid.GetShape().PointIndex(SBlockShape{range.Extent(), range.min}.Address(n));
            ASSERT_EQ((DVector3D{x[n], y[n], z[n]}),
                      (DVector3D{Value(1, 0, nPoint), Value(1, 1, nPoint), Value(1, 2, nPoint)}));
        }
    }
};

} // namespace

TEST_F(PartialReads, APlaneOfALargeBlockIsReadAloneInBothPrecisions)
{
    for (const auto& [nGrid, nQ] :
         {std::pair(26, 49), std::pair(4, 51), std::pair(6, 65), std::pair(8, 67)}) {
        Open(nGrid, nQ);
        const qint64 nBefore = Loaded();
        ExpectPoints(*Grid(2), LAST_PLANE);
        std::vector<double> plane(LAST_PLANE.Count());
        EXPECT_EQ(Field("RE", 2)->FillValues(LAST_PLANE, plane), LoadOk);
        const qint64 nFirst = SBlockShape{SIZE}.PointIndex(LAST_PLANE.min);
        for (size_t n = 0; n < plane.size(); ++n)
            ASSERT_EQ(plane[n], Value(1, 4, nFirst + qint64(n)));
        EXPECT_EQ(Loaded(), nBefore) << nGrid << ": nothing stays behind";
        RemoveCaseData(SIMULATION);
    }
}

TEST_F(PartialReads, AFormulaReadsThePlaneOfItsInputsAlone)
{
    Open(26, 49);
    const qint64 nBefore = Loaded();
    const auto pPressure = Field("P[Q]", 2);
    std::vector<double> plane(LAST_PLANE.Count());
    EXPECT_EQ(pPressure->FillValues(LAST_PLANE, plane), LoadOk);
    EXPECT_EQ(Loaded(), nBefore);
    for (const qint64 n : {qint64(0), qint64(71), LAST_PLANE.Count() - 1})
        EXPECT_EQ(plane[n], pPressure->GetValue(SBlockShape{SIZE}.Address(65 * 70 * 64 + n)));
    EXPECT_GT(Loaded(), nBefore) << "a single value loads the block";
}

TEST_F(PartialReads, WhoReadsABlockPieceByPieceSoonHasAllOfIt)
{
    Open(26, 49);
    const qint64 nBefore = Loaded();
    const auto pGrid = Grid(2);
    int nParts = 0;
    for (qint64 k = 1; k <= SIZE.k && Loaded() == nBefore; ++k, ++nParts)
        ExpectPoints(*pGrid, {{1, 1, k}, {SIZE.i, SIZE.j, k}});
    EXPECT_GT(nParts, 1);
    EXPECT_LT(nParts, SIZE.k / 4 + 1);
    ExpectPoints(*pGrid, pGrid->GetShape().Range());
}

TEST_F(PartialReads, WhatIsScatteredOverTheFileOrSmallIsLoaded)
{
    CPartialReads reads;
    EXPECT_TRUE(reads.Allows({SIZE}, LAST_PLANE, 8));
    EXPECT_FALSE(reads.Allows({SIZE}, {{1, 1, 1}, {1, 64, 66}}, 8)) << "an i-plane: each value by itself";
    EXPECT_FALSE(reads.Allows({{17, 17, 17}}, {{1, 1, 1}, {17, 17, 1}}, 8)) << "one read gives it all";
    EXPECT_FALSE(reads.Allows({SIZE}, {{1, 1, 60}, {70, 64, 67}}, 8)) << "not within the block";
    EXPECT_FALSE(reads.Allows({SIZE}, {}, 8));
    const CRangeRuns rows({SIZE}, {{2, 3, 4}, {69, 5, 6}});
    EXPECT_EQ(rows.Count(), 9);
    EXPECT_EQ(rows.Run(4).nFirst, SBlockShape{SIZE}.PointIndex({2, 4, 5}));
    EXPECT_EQ(rows.Run(4).nCount, 68);
}

TEST_F(PartialReads, AFileThatIsGoneGivesWhatALoadWouldGive)
{
    Open(26, 49);
    const auto pGrid = Grid(2);
    QFile::remove(m_folder.filePath("case.x"));
    std::vector<double> x(LAST_PLANE.Count(), 1.0), y = x, z = x;
    EXPECT_EQ(pGrid->FillPoints(LAST_PLANE, {x, y, z}), LoadFailed);
}
