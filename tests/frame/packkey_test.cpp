#include "frame/packs/packkey.h"

namespace {
constexpr SKey<const char*> TITLE{"Plot.Title", "none"};
constexpr SNumberedKey<double> WIDTH{"Zone.%1.Width", 0.5};
constexpr SNumberedKey<qint64> PIECE{"Zone.%1.Piece.%2", 3};
} // namespace

TEST(PackKey, AKeyReadsAndWritesAtItsPathWithItsDefault)
{
    CDataPack pack;
    EXPECT_EQ(Get(pack, TITLE), "none");
    Set(pack, TITLE, "Lift");
    EXPECT_EQ(pack.GetString("Plot.Title", ""), "Lift");
    Set(pack, TITLE, "none");
    EXPECT_TRUE(pack.IsEmpty());
}

TEST(PackKey, ANumberedKeyPutsTheNumberIntoItsPath)
{
    CDataPack pack;
    Set(pack, WIDTH, 12, 2.0);
    EXPECT_EQ(pack.GetDouble("Zone.12.Width", 0.0), 2.0);
    EXPECT_EQ(Get(pack, WIDTH, 12), 2.0);
    EXPECT_EQ(Get(pack, WIDTH, 1), 0.5);
    EXPECT_EQ(PIECE.Path(4, 5), "Zone.4.Piece.5");
}
