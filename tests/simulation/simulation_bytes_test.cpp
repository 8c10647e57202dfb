#include "frame/packs/bytestream.h"
#include "tests/support/testsimulation.h"

namespace {

/** Three items, a tree and settings. */
void Fill(CTestSimulation& simulation)
{
    simulation.SetString("Name", "Case", "");
    for (int n = 0; n < 3; ++n)
        simulation.Make(n)->SetName(QString("Item %1").arg(n + 1), 0);
    simulation.GetItem(2)->SetParentId(1, true);
    simulation.GetItem(3)->SetDouble("Width", 1.5, 0.0);
    simulation.GetItem(3)->AddDependedItem(2);
}

} // namespace

TEST(SimulationBytes, AreThePackTheCountAndEachItemWithItsAddressAhead)
{
    CTestSimulation simulation;
    simulation.Make(4, 7, 2);
    QByteArray expected;
    QDataStream stream(&expected, QIODevice::WriteOnly);
    stream << simulation.CDataPack::ToBytes() << qint64(1) << qint64(7) << qint64(2) << qint64(4) << qint64(0)
           << simulation.GetItem(7)->ToBytes();
    EXPECT_EQ(simulation.ToBytes(), expected);
}

TEST(SimulationBytes, ARoundTripKeepsObjectsOfTheSameTypeAndDropsTheRest)
{
    CTestSimulation source;
    Fill(source);
    CTestSimulation target;
    CItem* const pKept = target.Make(0); // id 1, type as in the source
    target.Make(5)->AddChild(1);         // id 2, of another type
    target.Make(2, 40);                  // not in the source
    ASSERT_TRUE(target.FromBytes(source.ToBytes(), 1.0));
    EXPECT_EQ(target.ToBytes(), source.ToBytes());
    EXPECT_EQ(target.GetItem(1), pKept);
    EXPECT_EQ(target.GetItemIds(), QVector<qint64>({1, 2, 3}));
    EXPECT_EQ(target.GetItem(2)->GetType(), 1);
    EXPECT_EQ(static_cast<CTestItem*>(target.GetItem(2))->m_nAttached, 1);
}

TEST(SimulationBytes, AnAppendedCaseJoinsUnderShiftedIdsAndLeavesTheSettings)
{
    CTestSimulation source;
    Fill(source);
    CTestSimulation target;
    target.SetString("Name", "Target", "");
    target.Make();
    target.Make();
    target.SetIdOffset(2);
    target.SetAppending(true);
    ASSERT_TRUE(target.FromBytes(source.ToBytes(), 1.0));
    EXPECT_EQ(target.GetName(), "Target");
    EXPECT_EQ(target.GetItemIds(), QVector<qint64>({1, 2, 3, 4, 5}));
    EXPECT_EQ(target.GetItem(4)->GetParentId(), 3);
    EXPECT_EQ(target.GetItem(3)->GetChildIds(), QVector<qint64>({4}));
    EXPECT_EQ(target.GetItem(5)->GetDependedItems(), QVector<qint64>({4}));
    EXPECT_EQ(target.GetItem(3)->GetParentId(), -1) << "no parent stays no parent";
}

TEST(SimulationBytes, BytesThatEndEarlyAreRefusedAndWhatWasReadStays)
{
    CTestSimulation source;
    Fill(source);
    const QByteArray bytes = source.ToBytes();
    for (int n = 0; n < bytes.size(); n += 7) {
        CTestSimulation target;
        EXPECT_FALSE(target.FromBytes(bytes.left(n), 1.0)) << "cut at " << n;
    }
    CTestSimulation target;
    target.FromBytes(bytes.left(bytes.size() - 1), 1.0);
    EXPECT_EQ(target.GetItem(2)->GetName(), "Item 2");
}

TEST(SimulationBytes, ACountBeyondTheBytesAndUnknownTypesDoNoHarm)
{
    CByteWriter writer;
    writer.Write(CDataPack().ToBytes());
    writer.Write(qint64(1) << 40);
    EXPECT_FALSE(CTestSimulation().FromBytes(writer.Take(), 1.0));

    CTestSimulation source;
    source.Make();
    QByteArray bytes = source.ToBytes();
    const int nType = bytes.size() - source.GetItem(1)->ToBytes().size() - 4 - 16;
    bytes[nType + 7] = 77; // the item's type, of a later version
    CTestSimulation target;
    EXPECT_TRUE(target.FromBytes(bytes, 1.0));
    EXPECT_EQ(target.GetItemCount(), 0);
}
