#include "simulation/itemkeys.h"
#include "tests/support/simulationfixture.h"

using SimulationItems = SimulationFixture;

TEST_F(SimulationItems, ItemsStandByIdThenSubIdAndAreFoundByBoth)
{
    CTestSimulation simulation;
    for (const auto& [nId, nSubId] : {std::pair{5, 1}, {2, 0}, {5, 0}, {9, 3}, {5, 2}})
        simulation.Make(0, nId, nSubId);
    EXPECT_EQ(simulation.GetItemKeys(), QVector<QPoint>({{0, 2}, {0, 5}, {1, 5}, {2, 5}, {3, 9}}));
    EXPECT_EQ(simulation.FindItemIndex(5, 2), 3);
    EXPECT_EQ(simulation.FindItemIndex(5), 1) << "the first with the id";
    EXPECT_EQ(simulation.FindItemIndex(9), 4);
    for (const auto& [nId, nSubId] : {std::pair{5, 3}, {9, 0}, {1, -1}, {7, -1}, {10, -1}})
        EXPECT_EQ(simulation.FindItemIndex(nId, nSubId), -1) << nId << ' ' << nSubId;
    EXPECT_EQ(simulation.GetNextItemId(), 10);
    EXPECT_EQ(CTestSimulation().GetNextItemId(), 1);
}

TEST_F(SimulationItems, DeletingDropsTheIdFromAllOthersAndTellsDependants)
{
    CTestSimulation* const pSimulation = Add();
    CTestItem* const pParent = pSimulation->Make();
    CTestItem* const pItem = pSimulation->Make();
    CTestItem* const pChild = pSimulation->Make();
    CTestItem* const pDependant = pSimulation->Make();
    pItem->SetParentId(pParent->GetId(), true);
    pChild->SetParentId(pItem->GetId(), true);
    pItem->AddDependedItem(pDependant->GetId());
    pDependant->AddDependedItem(pItem->GetId());
    pSimulation->DeleteItem(pItem->GetId());
    EXPECT_EQ(pSimulation->GetItemIds(), QVector<qint64>({1, 3, 4}));
    EXPECT_TRUE(pParent->GetChildIds().isEmpty());
    EXPECT_EQ(pChild->GetParentId(), -1);
    EXPECT_TRUE(pDependant->GetDependedItems().isEmpty());
    EXPECT_EQ(pDependant->m_nDependedDeleted, 1);
}

TEST_F(SimulationItems, AnIdStaysKnownWhileAnotherItemBearsIt)
{
    CTestSimulation* const pSimulation = Add();
    CTestItem* const pParent = pSimulation->Make(0, 1);
    pSimulation->Make(0, 2, 0);
    pSimulation->Make(0, 2, 1);
    pParent->AddChild(2);
    pSimulation->DeleteItem(2, 0);
    EXPECT_EQ(pParent->GetChildIds(), QVector<qint64>({2}));
    pSimulation->DeleteItem(2);
    EXPECT_TRUE(pParent->GetChildIds().isEmpty());
}

TEST_F(SimulationItems, DeletingATypeLeavesTheOthers)
{
    CTestSimulation* const pSimulation = Add();
    for (int n = 0; n < 6; ++n)
        pSimulation->Make(n % 3);
    pSimulation->DeleteItems(1);
    EXPECT_EQ(pSimulation->GetItemIds(), QVector<qint64>({1, 3, 4, 6}));
    pSimulation->DeleteItems(-1);
    EXPECT_EQ(pSimulation->GetItemCount(), 0);
}

TEST_F(SimulationItems, DependantsAreDeletedByType)
{
    CTestSimulation* const pSimulation = Add();
    CTestItem* const pItem = pSimulation->Make();
    for (const qint64 nType : {1, 2, 1})
        pItem->AddDependedItem(pSimulation->Make(nType)->GetId());
    pItem->DeleteDependents(1);
    EXPECT_EQ(pSimulation->GetItemIds(), QVector<qint64>({1, 3}));
    EXPECT_EQ(pItem->GetDependedItems(), QVector<qint64>({3}));
}

TEST_F(SimulationItems, ADuplicateTakesItsSubtreeAlongUnderNewIds)
{
    CTestSimulation* const pSimulation = Add();
    CTestItem* const pRoot = pSimulation->Make(1);
    CTestItem* const pBody = pSimulation->Make(2);
    CTestItem* const pZone = pSimulation->Make(3);
    pBody->SetParentId(pRoot->GetId(), true);
    pZone->SetParentId(pBody->GetId(), true);
    pBody->SetName("Wing", 0);
    pZone->SetDouble("1D.CFLFactor", 0.5, 1.0);

    const qint64 nFree = pSimulation->DuplicateItem(pBody->GetId(), false);
    const qint64 nKept = pSimulation->DuplicateItem(pBody->GetId(), true);
    EXPECT_EQ(nFree, 4);
    EXPECT_EQ(nKept, 6);
    EXPECT_EQ(pRoot->GetChildIds(), QVector<qint64>({2, 6}));
    EXPECT_EQ(pSimulation->GetItem(4)->GetParentId(), -1);
    EXPECT_EQ(pSimulation->GetItem(4)->GetName(), "Wing");
    EXPECT_EQ(pSimulation->GetItem(4)->GetChildIds(), QVector<qint64>({5}));
    EXPECT_EQ(pSimulation->GetItem(7)->GetParentId(), 6);
    EXPECT_EQ(pSimulation->GetItem(7)->GetDouble("1D.CFLFactor", 1.0), 0.5);
    EXPECT_EQ(pBody->GetChildIds(), QVector<qint64>({3})) << "the original stays";
    EXPECT_EQ(pSimulation->DuplicateItem(99, true), -1);
}

TEST_F(SimulationItems, CommonValuesAreMixedAsSoonAsOneDiffers)
{
    CTestSimulation simulation;
    for (int n = 0; n < 3; ++n)
        simulation.Make()->SetName("Zone", 0);
    simulation.SetDoubleOnItems({1, 2, 3, 77}, "Width", 2.0, 0.0);
    simulation.SetIntOnItems({1, 2}, "Level", 4, 0);
    simulation.SetBoolOnItems({3}, "Active", true, false);
    simulation.SetStringOnItems({1, 2, 3}, "Kind", "wall", "");
    EXPECT_EQ(simulation.GetCommonDouble({1, 2, 3}, "Width", 0.0, -9.0), 2.0);
    EXPECT_EQ(simulation.GetCommonInt({1, 2}, "Level", 0, -9), 4);
    EXPECT_EQ(simulation.GetCommonInt({1, 2, 3}, "Level", 0, -9), -9);
    EXPECT_EQ(simulation.GetCommonBool({1, 2}, "Active", false), 0);
    EXPECT_EQ(simulation.GetCommonBool({3}, "Active", false), 1);
    EXPECT_EQ(simulation.GetCommonBool({2, 3}, "Active", false), 2);
    EXPECT_EQ(simulation.GetCommonString({1, 2, 3}, "Kind", "", "-Multiple-"), "wall");
    EXPECT_EQ(simulation.GetCommonName({1, 2, 3}, 0), "Zone");
    simulation.SetItemNames({2}, 0, "Other");
    EXPECT_EQ(simulation.GetCommonName({1, 2, 3}, 0), "-Multiple-");
    EXPECT_EQ(simulation.GetCommonDouble({77}, "Width", 3.0, -9.0), 3.0) << "no item: the default";
}

TEST_F(SimulationItems, LinkedItemsShareSettingsAndKeepTheirPlace)
{
    CTestSimulation simulation;
    for (int n = 0; n < 4; ++n)
        simulation.Make(n == 3 ? 1 : 0)->m_linkKey = "grid";
    CTestItem* const pFirst = static_cast<CTestItem*>(simulation.GetItem(1));
    CTestItem* const pSecond = static_cast<CTestItem*>(simulation.GetItem(2));
    EXPECT_EQ(simulation.GetLinkedItems(1), QVector<qint64>({1, 2, 3})) << "the same type alone";

    pFirst->SetDouble("1D.CFLFactor", 0.5, 1.0);
    pSecond->SetTransform(STransform(DMatrix4x4::Translation({1, 2, 3})));
    pSecond->SetInt("BC.1.FaceIndex", 3, 0);
    simulation.GetItem(3)->SetDouble("1D.CFLFactor", 7.0, 1.0);
    simulation.MakeLinks({1, 2}, true);
    EXPECT_EQ(pSecond->GetDouble("1D.CFLFactor", 1.0), 0.5);
    EXPECT_EQ(pSecond->GetInt("BC.1.FaceIndex", 0), 0) << "what the first doesn't have goes";
    EXPECT_FALSE(pSecond->GetTransform().IsIdentity()) << "placement is the item's own";
    EXPECT_EQ(simulation.GetItem(3)->GetDouble("1D.CFLFactor", 1.0), 7.0) << "not linked";

    simulation.BreakLinks({2});
    pFirst->SetDouble("1D.CFLFactor", 0.25, 1.0);
    simulation.UnifyLinks();
    EXPECT_EQ(pSecond->GetDouble("1D.CFLFactor", 1.0), 0.5);
    pFirst->m_linkKey.clear();
    EXPECT_EQ(simulation.GetLinkedItems(1), QVector<qint64>({1})) << "no grid links to nothing";
}

TEST_F(SimulationItems, AStoredIdentityFindsItsItem)
{
    CTestSimulation simulation;
    simulation.Make()->m_linkKey = "a";
    simulation.Make()->m_linkKey = "b";
    const QByteArray identity = simulation.GetItem(2)->GetIdentity();
    EXPECT_EQ(simulation.FindItemByData(identity), 2);
    static_cast<CTestItem*>(simulation.GetItem(2))->m_linkKey = "c";
    EXPECT_EQ(simulation.FindItemByData(identity), -1) << "another grid";
    EXPECT_EQ(simulation.FindItemByData(identity.left(5)), -1);
}
