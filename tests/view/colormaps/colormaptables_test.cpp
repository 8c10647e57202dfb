#include "view/colormaps/colormaptables.h"

namespace {

QColor Texel(const SColormap& map, int n)
{
    const auto* const p = reinterpret_cast<const uchar*>(map.texels.constData()) + 3 * n;
    return {p[0], p[1], p[2]};
}

} // namespace

TEST(ColormapTables, TheEndsOfTheTexelsAreTheEndsOfTheControlList)
{
    ASSERT_EQ(colormapTables().size(), 18);
    for (const SColormap& map : colormapTables()) {
        EXPECT_EQ(map.texels.size(), 3 * SColormap::TEXELS) << map.sName.toStdString();
        EXPECT_EQ(Texel(map, 0), map.ControlColor(0)) << map.sName.toStdString();
        EXPECT_EQ(Texel(map, 1023), map.ControlColor(map.ControlCount() - 1)) << map.sName.toStdString();
    }
    EXPECT_EQ(Texel(colormapTables()[ColormapId("GRAY")], 512), QColor(128, 128, 128));
}

TEST(ColormapTables, StopsAreJoinedByStraightLines)
{
    struct
    {
        const char* sMap;
        int nCount, nEntry;
        QColor color;
    } const rows[] = {{"NASA1", 67, 7, {0, 73, 255}},        {"NASA2", 81, 78, {255, 204, 255}},
                      {"HOT", 64, 35, {255, 128, 0}},        {"BTY", 256, 255, {254, 254, 13}},
                      {"ZEBRA", 20, 19, {255, 255, 255}},    {"RGB LINEAR", 101, 62, {120, 255, 0}},
                      {"Magma", 255, 254, {251, 250, 189}},  {"Inferno", 255, 254, {250, 253, 160}},
                      {"Plasma", 255, 254, {240, 246, 35}},  {"Viridis", 255, 128, {32, 144, 140}},
                      {"RAINBOW", 255, 254, {255, 255, 255}}};
    for (const auto& row : rows) {
        const SColormap* const pMap = FindColormap(ColormapId(row.sMap));
        ASSERT_TRUE(pMap) << row.sMap;
        EXPECT_EQ(pMap->ControlCount(), row.nCount) << row.sMap;
        EXPECT_EQ(pMap->ControlColor(row.nEntry).name().toStdString(), row.color.name().toStdString())
            << row.sMap;
    }
}

TEST(ColormapTables, ColorsOfChartsRunFromTheFarEnd)
{
    SColormapRecord record; // RGB LINEAR, 0 to 1
    EXPECT_EQ(colormapColor(record, 1.0), QColor(0, 0, 255));
    EXPECT_EQ(colormapColor(record, 0.0), QColor(255, 10, 0)); // the last entry but one
    EXPECT_EQ(colormapColor(record, -5.0), colormapColor(record, 0.0));
    EXPECT_EQ(colormapColor(record, 7.0), colormapColor(record, 1.0));
    record.dMaximum = record.dMinimum; // no range: everything is its minimum
    EXPECT_EQ(colormapColor(record, 0.0), QColor(255, 10, 0));
    record.nId = 18;
    EXPECT_FALSE(colormapColor(record, 0.0).isValid());
    EXPECT_TRUE(LegendStops(-1).isEmpty());
}
