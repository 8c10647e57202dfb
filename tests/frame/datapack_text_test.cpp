#include "frame/packs/datapack.h"

namespace {
/** Writes one value into a pack in text mode and shows the text; "<none>" if the key isn't there. */
template <class Write> QString Spelled(const Write& write)
{
    CDataPack pack(true);
    write(pack);
    return pack.GetString("x", "<none>");
}

/** A pack in text mode with the text under "x". */
CDataPack WithText(const QString& sText)
{
    CDataPack pack(true);
    pack.SetString("x", sText, "<none>");
    return pack;
}

const DMatrix4x4 MATRIX{{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 0.5}};
const QString MATRIX_TEXT = "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,0.5";
} // namespace

TEST(TextMode, EachTypeHasItsSpelling)
{
    using P = CDataPack&;
    EXPECT_EQ(Spelled([](P p) { p.SetDouble("x", 1.0 / 3.0, 0.0); }), "0.3333333333");
    EXPECT_EQ(Spelled([](P p) { p.SetInt("x", -9223372036854775807, 0); }), "-9223372036854775807");
    EXPECT_EQ(Spelled([](P p) { p.SetBool("x", true, false); }), "1");
    EXPECT_EQ(Spelled([](P p) { p.SetBool("x", false, true); }), "0");
    EXPECT_EQ(Spelled([](P p) { p.SetColor("x", QColor(255, 128, 0, 7), QColor()); }), "#ff8000");
    EXPECT_EQ(Spelled([](P p) { p.SetFont("x", QFont("Ab", 12), QFont()); }), "Ab,12,-1,5,50,0,0,0,0,0");
    EXPECT_EQ(Spelled([](P p) { p.SetPoint("x", {3, -4}, {}); }), "3,-4");
    EXPECT_EQ(Spelled([](P p) { p.SetPointF("x", {0.5, 1e-20}, {}); }), "0.5,1e-20");
    EXPECT_EQ(Spelled([](P p) { p.SetIVector("x", {1, -2, 3}, {}); }), "1,-2,3");
    EXPECT_EQ(Spelled([](P p) { p.SetDVector("x", {1.25, 0, -3}, {}); }), "1.25,0,-3");
    EXPECT_EQ(Spelled([](P p) { p.SetIntList("x", {7, -8}, {}); }), "7,-8");
    EXPECT_EQ(Spelled([](P p) { p.SetStringList("x", {"a", "b c", ""}, {}); }), "a,b c,");
    EXPECT_EQ(Spelled([](P p) { p.SetMatrix("x", MATRIX, {}); }), MATRIX_TEXT);
    EXPECT_EQ(Spelled([](P p) { p.SetTransform("x", STransform(MATRIX), {}); }), MATRIX_TEXT);
}

TEST(TextMode, TheDefaultLeavesNoKeyExceptForARealNumber)
{
    EXPECT_EQ(Spelled([](CDataPack& p) { p.SetDouble("x", 2.5, 2.5); }), "Default");
    EXPECT_EQ(Spelled([](CDataPack& p) { p.SetInt("x", 2, 2); }), "<none>");
    CDataPack pack = WithText("5");
    pack.SetInt("x", 2, 2);
    EXPECT_TRUE(pack.IsEmpty());

    pack.SetDouble("A.x", 2.5, 2.5);
    EXPECT_EQ(pack.GetDouble("A.x", 3.0), 3.0) << "each reader of \"Default\" has its own";
    EXPECT_EQ(pack.SubPackNames(""), QStringList("A"));
}

TEST(TextMode, TextThatSpellsNoValueGivesTheDefault)
{
    for (const char* sText : {"", "Default", "x", "1,", "1,x", "1.5.2"}) {
        const CDataPack pack = WithText(sText);
        EXPECT_EQ(pack.GetDouble("x", 3.5), 3.5) << sText;
        EXPECT_EQ(pack.GetInt("x", 3), 3) << sText;
        EXPECT_EQ(pack.GetBool("x", true), true) << sText;
        EXPECT_EQ(pack.GetPoint("x", {3, 4}), QPoint(3, 4)) << sText;
        EXPECT_EQ(pack.GetPointF("x", {3, 4}), QPointF(3, 4)) << sText;
        EXPECT_EQ(pack.GetColor("x", Qt::red), QColor(Qt::red)) << sText;
        EXPECT_EQ(pack.GetIVector("x", {3, 4, 5}), (IVector3D{3, 4, 5})) << sText;
        EXPECT_EQ(pack.GetDVector("x", {3, 4, 5}), (DVector3D{3, 4, 5})) << sText;
        EXPECT_EQ(pack.GetMatrix("x", MATRIX), MATRIX) << sText;
    }
    EXPECT_EQ(WithText("2").GetBool("x", true), true);
    EXPECT_EQ(WithText("1,2").GetDVector("x", {3, 4, 5}), (DVector3D{3, 4, 5}));
    EXPECT_EQ(WithText(",1,,2").GetPoint("x", {}), QPoint(1, 2)) << "points skip empty parts";
    EXPECT_EQ(WithText("99999999999,2").GetPoint("x", {3, 4}), QPoint(3, 4)) << "more than a point can hold";
    EXPECT_EQ(WithText("1,x").GetIntList("x", {3}), QVector<qint64>({3}));
    EXPECT_EQ(WithText("").GetFont("x", QFont("Ab", 9)), QFont("Ab", 9));
}

TEST(TextMode, ListsReadBackAsTheyWere)
{
    const QStringList lists[] = {
        {"a,b", "c\\"}, {"\\,", ",\\"}, {"", ""}, {""}, {}, {"\\"}, {"a", ""}, {"", "a"}, {"\\\\,,"},
    };
    for (const QStringList& list : lists) {
        CDataPack pack(true);
        pack.SetStringList("x", list, {"default"});
        EXPECT_EQ(pack.GetStringList("x", {"default"}), list);
    }
    EXPECT_EQ(Spelled([](CDataPack& p) { p.SetStringList("x", {"a,b", "c\\"}, {}); }), "a\\,b,c\\\\");
    CDataPack pack(true);
    pack.SetIntList("x", {}, {1});
    EXPECT_TRUE(pack.GetIntList("x", {1}).isEmpty());
}

TEST(TextMode, AValueThatRoundsToTheSameTextIsNoChange)
{
    CDataPack pack(true);
    pack.SetDouble("A.x", 1.0 / 3.0, 0.0);
    EXPECT_TRUE(pack.LastSetChanged());
    pack.SetDouble("A.x", 1.0 / 3.0, 0.0);
    EXPECT_FALSE(pack.LastSetChanged());
    pack.SetDouble("A.x", 0.0, 0.0);
    EXPECT_TRUE(pack.LastSetChanged());
}

TEST(TextMode, ChildrenOfAPackInTextModeHoldTextToo)
{
    CDataPack pack(true);
    pack.SetInt("A.B.x", 5, 0);
    EXPECT_EQ(pack.GetString("A.B.x", ""), "5");
    EXPECT_TRUE(pack.GetSubPack("A.B").TextMode());

    CDataPack read(true);
    ASSERT_TRUE(read.FromBytes(pack.ToBytes(), -1.0));
    EXPECT_EQ(read.GetSubPack("A").GetInt("B.x", 0), 5);
}
