#include "modules/plot3d/transientseries.h"
#include "tests/modules/plot3d/plot3dcasetest.h"

using FileRecords = Plot3DCaseTest;

TEST_F(FileRecords, WhatIsWrongIsToldInTheFixedOrder)
{
    const QString sOther = Write("other.q", 49, KindQ, Plot3DFixture::Blocks({{5, 4, 3}, {3, 3, 3}}));
    CCaseRecords records;
    EXPECT_EQ(records.Validate().sText, "Please select a valid grid file");
    records = Records({WriteGrid(), WriteQ(), WriteFunction()});
    EXPECT_TRUE(records.Validate().IsNone());

    CCaseRecords bad = records;
    bad.grid.SetBlocks({0, 4});
    EXPECT_EQ(bad.Validate().sText, "Block index exceeds grid size in " + Path("case.x"));
    bad = records;
    bad.grid.SetBlocks({});
    EXPECT_EQ(bad.Validate().sText, "Please select the blocks for " + Path("case.x"));
    ASSERT_TRUE(bad.SetFile(sOther, RoleQ).IsNone());
    bad.grid.SetBlocks({0, 1, 2});
    EXPECT_EQ(bad.Validate().sTitle, "Dimensions Mismatch");
    EXPECT_EQ(bad.Validate().sText, QString("Q file %1 does not match its grid file").arg(sOther));
    bad.grid.SetBlocks({0, 1});
    EXPECT_TRUE(bad.Validate().IsNone()) << "as many blocks as are chosen, of their sizes";
    bad.grid.SetBlocks({1, 0});
    EXPECT_EQ(bad.Validate().sTitle, "Dimensions Mismatch");
}

TEST_F(FileRecords, AFileGoesWhereItsContentBelongs)
{
    const QString sGrid = Write("a.dat", 2, KindGrid);
    const QString sQ = Write("b.dat", 49, KindQ);
    const QString sFunction = Write("c.dat", 53, KindFunction);
    CCaseRecords records = Records({sFunction, sQ, sGrid});
    EXPECT_EQ(records.grid.FileName(), sGrid);
    EXPECT_EQ(records.q.FileName(), sQ);
    EXPECT_EQ(records.functions.value(0).FileName(), sFunction);
    EXPECT_EQ(records.AddFile(sFunction).sTitle, "Function Exists");
    WriteText("d.dat", "neither");
    EXPECT_EQ(records.AddFile(Path("d.dat")).sText, "The selected file could not be identified");
}

TEST_F(FileRecords, CompanionsComeByNameIfTheyFit)
{
    CCaseRecords records = Records({WriteGrid()});
    Write("other.q", 49, KindQ);
    WriteQ();
    Write("only.f", 53, KindFunction);
    records.AddCompanions();
    EXPECT_EQ(records.q.FileName(), Path("case.q")) << "of two the one of the same stem";
    EXPECT_EQ(records.functions.value(0).FileName(), Path("only.f"));

    QFile::remove(Path("case.q"));
    CCaseRecords solution = Records({Path("other.q")});
    solution.AddCompanions();
    EXPECT_EQ(solution.grid.FileName(), Path("case.x"));
    CCaseRecords words = Records({Write("wingxyz.bin", 2, KindGrid)});
    const QString sWordQ = Write("wingq.bin", 49, KindQ);
    words.AddCompanions();
    EXPECT_EQ(words.q.FileName(), sWordQ);
    Write("other.q", 49, KindQ, Plot3DFixture::Blocks({{2, 2, 2}}));
    ForgetDetectedFiles();
    CCaseRecords unfit = Records({Path("case.x")});
    unfit.AddCompanions();
    EXPECT_TRUE(unfit.q.IsEmpty());
}

TEST_F(FileRecords, ASeriesDiffersInOneNumberAndIsSortedByIt)
{
    for (const char* const sName : {"w2_10.q", "w2_9.q", "w2_100.q", "w3_9.q", "w2_9.qq", "w2_x.q"})
        WriteText(sName, "x");
    const STransientSeries series = FindTransientSeries(Path("w2_9.q"));
    EXPECT_EQ(series.times, QVector<double>({9, 10, 100}));
    EXPECT_EQ(series.sFileList.last(), Path("w2_100.q"));
    EXPECT_FALSE(FindTransientSeries(Path("w2_x.q")).IsSeries());
}

TEST_F(FileRecords, RowsTellBlocksAndSeriesAndNumberedMeshesAreNoLevels)
{
    WriteGrid("mesh1.x");
    WriteGrid("mesh2.x");
    for (const char* const sName : {"flow10.q", "flow20.q", "flow30.q"})
        WriteQ(sName);
    Write("flow40.q", 49, KindQ, Plot3DFixture::Blocks({{2, 2, 2}}));
    CCaseRecords records = Records({Path("mesh1.x"), Path("flow20.q")});
    EXPECT_EQ(records.grid.RowText(true, true), "mesh1.x\t(4 grids, 2 transient files)");
    records.grid.SetBlocks({0, 2});
    EXPECT_EQ(records.grid.RowText(false, true), "mesh1.x\t(2 / 4 grids)");
    EXPECT_EQ(records.TransientCount(), 3) << "flow40 has other blocks";
    EXPECT_EQ(records.ChosenTime(), 20.0);
    EXPECT_TRUE(records.ToCaseFiles(true).grid.levels.isEmpty()) << "they count otherwise than the Q files";
    records.q = {};
    EXPECT_EQ(records.ToCaseFiles(true).grid.levels.size(), 2);
}

TEST_F(FileRecords, FilesAreReadInTheLayoutInWhichTheyGoTogether)
{
    const QVector<Plot3DFixture::SBlock> blocks = {{{33, 17, 1}, 3}};
    const QString sGrid = Write("flat.x", 17, KindGrid, blocks), sQ = Write("flat.q", 84, KindQ, blocks),
                  sFunction = Write("flat.f", 88, KindFunction, blocks);
    for (const bool bGridFirst : {true, false}) {
        CCaseRecords records;
        if (bGridFirst) {
            EXPECT_TRUE(records.SetFile(sGrid, RoleGrid).IsNone());
        }
        EXPECT_TRUE(records.SetFile(sQ, RoleQ).IsNone());
        EXPECT_TRUE(records.SetFunction(sFunction).IsNone());
        if (!bGridFirst) {
            EXPECT_TRUE(records.SetFile(sGrid, RoleGrid).IsNone());
        }
        EXPECT_EQ(records.Validate().sText, "");
        EXPECT_EQ(records.q.Kind(), KindQ);
        EXPECT_EQ(records.functions.first().Kind(), KindFunction);
        EXPECT_EQ(records.functions.first().BlockSizes(), QVector<IVector3D>({{33, 17, 1}}));
    }
    CCaseRecords alone;
    EXPECT_TRUE(alone.SetFile(sGrid, RoleGrid).IsNone());
    alone.AddCompanions();
    EXPECT_EQ(alone.q.FileName(), sQ);
    ASSERT_EQ(alone.functions.size(), 1);
    EXPECT_EQ(alone.functions.first().FileName(), sFunction);
}
