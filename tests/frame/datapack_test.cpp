#include "frame/novalue.h"
#include "frame/packs/bytestream.h"
#include "frame/packs/datapack.h"

namespace {
/** The keys of the string table in their order. */
QStringList StringKeys(const CDataPack& pack)
{
    const QByteArray bytes = pack.ToBytes();
    CByteReader reader(bytes);
    QStringList keys;
    reader.Read(keys);
    return keys;
}

/** The real child at the path, by way of a copy of its own child "Leaf". */
CDataPack* Child(const CDataPack& pack, const QString& sPath)
{
    return pack.GetSubPack(sPath + ".Leaf").GetParent();
}

/** Whether the parents of "A.Leaf", upwards, are the packs that hold it in this very pack. */
bool HasRightParents(const CDataPack& pack)
{
    const CDataPack* const pA = Child(pack, "A");
    return pA && pA->GetParent() == &pack && pack.GetSubPack("A").GetParent() == &pack && pA != &pack;
}

CDataPack MakeFamily()
{
    CDataPack pack;
    pack.SetInt("A.Leaf.X", 1, 0);
    pack.SetInt("B.Leaf.X", 2, 0);
    return pack;
}

CDataPack MakeBoundaries()
{
    CDataPack pack;
    pack.SetInt("BC.1.IStart", 5, 1);
    pack.SetInt("BC.1.IEnd", 40, 0);
    pack.SetInt("BC.2.IEnd", -3, 0);
    pack.SetInt("BC.3.JEnd", 99, 0);
    return pack;
}
} // namespace

TEST(DataPack, OnlyWhatDiffersFromTheDefaultIsStored)
{
    CDataPack pack;
    pack.SetDouble("A.B", 1.0, 1.0);
    EXPECT_TRUE(pack.IsEmpty());

    pack.SetInt("A.B", 5, 0);
    EXPECT_EQ(pack.GetInt("A.B", 7), 5);
    pack.SetInt("A.C", 6, 0);
    pack.SetInt("A.B", 0, 0);
    EXPECT_EQ(pack.GetInt("A.B", 7), 7) << "a reader's own default counts, not the writer's";
    pack.SetInt("A.C", 0, 0);
    EXPECT_TRUE(pack.IsEmpty());
    EXPECT_TRUE(pack.SubPackNames("").isEmpty());

    pack.SetInt("A.B.C.D", 5, 0);
    pack.SetInt("A.B.C.D", 0, 0);
    EXPECT_TRUE(pack.IsEmpty()) << "a chain of children vanishes as a whole";
}

TEST(DataPack, EmptyComponentsOfAPathAreSkipped)
{
    CDataPack pack;
    pack.SetInt(".A..B.", 5, 0);
    EXPECT_EQ(pack.GetInt("A.B", 0), 5);
    EXPECT_EQ(pack.GetInt("A...B", 0), 5);
    pack.SetInt("..", 5, 0); // no component, no key
    EXPECT_EQ(pack.GetInt("", 3), 3);
    EXPECT_EQ(pack.SubPackNames(""), QStringList("A"));
}

TEST(DataPack, EachTypeHasKeysOfItsOwn)
{
    CDataPack pack;
    pack.SetString("X", "2.5", "");
    EXPECT_EQ(pack.GetDouble("X", 1.0), 1.0);
    pack.SetDouble("X", 7.0, 0.0);
    EXPECT_EQ(pack.GetString("X", ""), "2.5");
    EXPECT_EQ(pack.GetDouble("X", 0.0), 7.0);
}

TEST(DataPack, KeysKeepTheOrderInWhichTheyCame)
{
    CDataPack pack;
    for (const char* sKey : {"a", "b", "c"})
        pack.SetString(sKey, "1", "");
    pack.SetString("b", "2", "");
    EXPECT_EQ(StringKeys(pack), QStringList({"a", "b", "c"})) << "an overwritten value stays in place";
    pack.SetString("a", "", "");
    pack.SetString("a", "3", "");
    EXPECT_EQ(StringKeys(pack), QStringList({"b", "c", "a"}));
    EXPECT_EQ(pack.GetString("b", "") + pack.GetString("c", "") + pack.GetString("a", ""), "213");
}

TEST(DataPack, ComparisonIsExact)
{
    CDataPack pack;
    pack.SetPointF("Near", {1.0, 2.0 + 1e-15}, {1.0, 2.0}); // equal to Qt's comparison
    EXPECT_EQ(pack.GetPointF("Near", {}).y(), 2.0 + 1e-15);
    DMatrix4x4 nearlyUnit;
    nearlyUnit(2, 3) = 1e-300;
    pack.SetTransform("Turn", STransform(nearlyUnit), STransform());
    EXPECT_FALSE(pack.GetTransform("Turn", STransform()).IsIdentity());
}

TEST(DataPack, LastSetChangedTellsWhetherAReadWithTheSameDefaultGivesSomethingElse)
{
    CDataPack pack;
    EXPECT_TRUE(pack.LastSetChanged());
    const struct
    {
        const char* sPath;
        qint64 nValue, nDefault;
        bool bChanged;
    } steps[] = {
        {"A.B.C", 1, 1, false}, {"A.B.C", 2, 1, true}, {"A.B.C", 2, 1, false}, {"A.B.C", 2, 2, false},
        {"A.B.C", 3, 2, true},  {"X", 2, 2, false},    {"X", 0, 2, true},      {"X", 2, 2, true},
    };
    for (const auto& step : steps) {
        pack.SetInt(step.sPath, step.nValue, step.nDefault);
        EXPECT_EQ(pack.LastSetChanged(), step.bChanged)
            << step.sPath << " = " << step.nValue << ", default " << step.nDefault;
    }
}

TEST(DataPack, ChildrenKnowThePackThatHoldsThemWhereverItGoes)
{
    CDataPack pack = MakeFamily();
    ASSERT_TRUE(HasRightParents(pack));
    CDataPack copy(pack);
    EXPECT_TRUE(HasRightParents(copy));
    EXPECT_TRUE(HasRightParents(pack)) << "copying leaves the source alone";
    copy.SetInt("A.Leaf.X", 9, 0);
    EXPECT_EQ(pack.GetInt("A.Leaf.X", 0), 1);

    CDataPack moved(std::move(copy));
    EXPECT_TRUE(HasRightParents(moved));
    CDataPack assigned;
    assigned = moved;
    EXPECT_TRUE(HasRightParents(assigned));
    assigned = std::move(moved);
    EXPECT_TRUE(HasRightParents(assigned));

    pack.SwapSubPacks("", 0, 1, true);
    EXPECT_TRUE(HasRightParents(pack));
    pack.RemoveSubPack("B");
    EXPECT_TRUE(HasRightParents(pack));

    QVector<CDataPack> packs;
    for (int n = 0; n < 20; ++n)
        packs.append(assigned);
    packs.removeFirst();
    EXPECT_TRUE(std::all_of(packs.cbegin(), packs.cend(), HasRightParents));
}

TEST(DataPack, APackMayBeAssignedItselfOrAPartOfItself)
{
    CDataPack pack = MakeFamily();
    CDataPack& self = pack;
    pack = self;
    pack.Assign(self);
    EXPECT_EQ(pack.ToBytes(), MakeFamily().ToBytes());

    pack.SetInt("B.Leaf.Deep.Y", 3, 0);
    pack.Assign(*Child(pack, "B"));
    EXPECT_EQ(pack.SubPackNames(""), QStringList("Leaf"));
    EXPECT_EQ(pack.GetInt("Leaf.X", 0), 2);
    EXPECT_EQ(pack.GetParent(), nullptr) << "a pack isn't its own parent";

    pack.SetSubPack("Leaf.Copy", pack);
    EXPECT_EQ(pack.GetInt("Leaf.Copy.Leaf.Deep.Y", 0), 3);
    EXPECT_TRUE(pack.SubPackNames("Leaf.Copy.Leaf") == QStringList("Deep")) << "the source, as it was before";
}

TEST(DataPack, AssigningTakesTheParentOverButSettingASubPackDoesNot)
{
    CDataPack owner;
    CDataPack source(true);
    source.SetParent(&owner);
    source.SetInt("X", 1, 0);
    CDataPack target;
    target.Assign(source);
    EXPECT_EQ(target.GetParent(), &owner);
    EXPECT_TRUE(target.TextMode());

    CDataPack holder;
    holder.SetSubPack("A.B", source);
    holder.SetSubPack("A.C", CDataPack());
    EXPECT_EQ(holder.GetSubPack("A").GetParent(), &holder);
    EXPECT_EQ(holder.GetSubPack("A.B").GetParent()->GetParent(), &holder);
    EXPECT_EQ(holder.GetInt("A.B.X", 0), 1) << "the child is in text mode like its source";
    EXPECT_EQ(holder.SubPackNames("A"), QStringList({"B", "C"})) << "an empty child that was set stays";
    EXPECT_TRUE(holder.GetSubPack("A.Z").IsEmpty());
}

TEST(DataPack, NamesOfChildrenAreGivenAsTheyAreAndAsIds)
{
    CDataPack pack;
    for (const char* sName : {"7", "x", "-2", "0x3", ""})
        pack.AddSubPack(sName);
    pack.SetInt("7.1.A", 1, 0);
    EXPECT_EQ(pack.SubPackNames(""), QStringList({"7", "x", "-2", "0x3", ""}));
    EXPECT_EQ(pack.SubPackIds(""), QVector<qint64>({7, -2}));
    EXPECT_EQ(pack.SubPackIds("7"), QVector<qint64>({1}));
    EXPECT_TRUE(pack.SubPackNames("7.2").isEmpty());
}

TEST(DataPack, SwappedChildrenTakeTheirNamesAlongUnlessOnlyTheContentIsMeant)
{
    CDataPack pack;
    for (const char* sName : {"A", "B", "C"})
        pack.SetString(QString("List.%1.Was").arg(sName), sName, "");
    const QByteArray before = pack.ToBytes();
    pack.SwapSubPacks("List", 0, 3, false);
    pack.SwapSubPacks("List", -1, 1, false);
    pack.SwapSubPacks("None", 0, 1, false);
    EXPECT_EQ(pack.ToBytes(), before) << "out of range";

    pack.SwapSubPacks("List", 0, 2, false);
    EXPECT_EQ(pack.SubPackNames("List"), QStringList({"C", "B", "A"}));
    EXPECT_EQ(pack.GetString("List.A.Was", ""), "A");
    pack.SwapSubPacks("List", 0, 1, true);
    EXPECT_EQ(pack.SubPackNames("List"), QStringList({"C", "B", "A"}));
    EXPECT_EQ(pack.GetString("List.C.Was", ""), "B");
}

TEST(DataPack, AStarStandsForAllChildrenOfItsLevel)
{
    CDataPack pack;
    for (const char* sPath : {"A.1.x.V", "A.2.x.V", "A.2.y.V", "B.1.x.V"})
        pack.SetInt(sPath, 1, 0);
    pack.RemoveSubPack("A.*.x");
    EXPECT_TRUE(pack.SubPackNames("A.1").isEmpty());
    EXPECT_EQ(pack.SubPackNames("A.2"), QStringList("y"));
    pack.RemoveSubPack("*.1");
    EXPECT_EQ(pack.SubPackNames("A"), QStringList("2"));
    EXPECT_EQ(pack.SubPackNames(""), QStringList({"A", "B"}));
    pack.RemoveSubPack("*");
    EXPECT_TRUE(pack.IsEmpty());
}

TEST(DataPack, ShiftedIdsMoveByTheStepAndOtherNamesStay)
{
    CDataPack pack;
    for (const char* sName : {"3", "x", "-1", "9223372036854775807"})
        pack.SetInt(QString("BC.%1.V").arg(sName), 1, 0);
    pack.ShiftSubPackIds("BC.*", 10);
    EXPECT_EQ(pack.SubPackNames("BC"), QStringList({"13", "x", "9", "9223372036854775807"}));
    pack.ShiftSubPackIds("BC.13", -20);
    EXPECT_EQ(pack.SubPackNames("BC"), QStringList({"-7", "x", "9", "9223372036854775807"}));
}

TEST(DataPack, ClampingTouchesOnlyKeysThatAreThereAndOutOfRange)
{
    CDataPack pack = MakeBoundaries();
    pack.ClampInt("BC.*.IStart", 5, 9, 5);
    EXPECT_EQ(pack.GetInt("BC.1.IStart", NO_INT), 5)
        << "in range: not written, so it doesn't fall to the default";
    pack.ClampInt("BC.*.IEnd", 1, 10, 10);
    EXPECT_EQ(pack.GetInt("BC.1.IEnd", NO_INT), NO_INT) << "40 became the default, 10";
    EXPECT_EQ(pack.GetInt("BC.2.IEnd", NO_INT), 1);
    EXPECT_EQ(pack.GetInt("BC.3.IEnd", NO_INT), NO_INT);
    pack.ClampInt("BC.*.JEnd", 20, 10, 0);
    EXPECT_EQ(pack.GetInt("BC.3.JEnd", NO_INT), 10) << "the upper limit wins";
    pack.ClampInt("BC.3.JEnd", 1, 4, 4);
    EXPECT_EQ(pack.SubPackNames("BC"), QStringList({"1", "2"})) << "a child that lost its last key goes";
}

TEST(DataPack, ClampingATripleGivesUnsetComponentsTheDefault)
{
    CDataPack pack;
    pack.SetIVector("BC.1.Size", {50, NO_INT, 3}, {});
    pack.SetInt("BC.2.Other", 1, 0);
    pack.ClampIVector("BC.*.Size", {1, 1, 1}, {10, 10, 10}, {7, 8, 9});
    EXPECT_EQ(pack.GetIVector("BC.1.Size", {}), (IVector3D{10, 8, 3}));
    EXPECT_EQ(pack.GetIVector("BC.2.Size", {}), IVector3D());
}

TEST(DataPack, TriplesFlattenAndGroupInOrder)
{
    const CDataPack pack;
    const QVector<IVector3D> triples = {{1, 2, 3}, {4, 5, 6}};
    EXPECT_EQ(pack.FlattenIVectors(triples), QVector<qint64>({1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(pack.GroupIVectors({1, 2, 3, 4, 5, 6, 7, 8}), triples) << "an incomplete triple is left out";
    const QVector<DVector3D> points = {{0.5, -1, 2}};
    EXPECT_EQ(pack.GroupDVectors(pack.FlattenDVectors(points)), points);
}
