#include "simulation/item.h"

#include "scene/selectablemanager.h"
#include "simulation/itemkeys.h"
#include "tests/support/promptscript.h"
#include "tests/support/simulationfixture.h"

using ItemTree = SimulationFixture;
using ItemViews = SimulationFixture;

TEST(Item, TheDisplayNameEndsAtTheFirstEmptyPart)
{
    CTestItem item;
    EXPECT_EQ(item.GetDisplayName(), "");
    item.SetName("Wing", 0);
    item.SetName("grid.x", 1);
    item.SetName("later", 3); // index 2 grows as an empty one
    EXPECT_EQ(item.GetDisplayName(), "Wing") << "the name count says how many parts are shown";
    item.SetNameCount(9);
    EXPECT_EQ(item.GetDisplayName(), "Wing @ grid.x");
    EXPECT_EQ(item.GetName(7), "");
}

TEST(Item, BytesHoldThePackTheIdsTheNamesAndTheSize)
{
    CTestItem item;
    item.SetSimulationId(3);
    item.SetId(11);
    item.SetSubId(2);
    item.SetType(4);
    item.SetKind(5);
    item.SetDisplayFlag(6);
    item.SetName("a", 0);
    item.SetName("b", 1);
    item.SetNameCount(2);
    item.SetSize({7, 8, 9});
    item.SetDouble("Zone.Width", 2.5, 0.0);

    CTestItem copy;
    ASSERT_TRUE(copy.FromBytes(item.ToBytes(), -1.0));
    EXPECT_EQ(copy.ToBytes(), item.ToBytes());
    EXPECT_EQ(copy.GetDisplayName(), "a @ b");
    EXPECT_EQ(copy.GetSize(), (IVector3D{7, 8, 9}));
    EXPECT_EQ(copy.GetDouble("Zone.Width", 0.0), 2.5);
    for (int n = 0; n < item.ToBytes().size(); ++n)
        EXPECT_FALSE(CTestItem().FromBytes(item.ToBytes().left(n), -1.0)) << "cut at " << n;
}

TEST(Item, ConvertingAppliesToTheMarkedAxesOnlyWhenAsked)
{
    CTestItem item;
    item.SetConvert({1, 0, 1}, false);
    EXPECT_TRUE(item.m_converted.isEmpty());
    item.SetConvert({0, 1, 1}, true);
    EXPECT_EQ(item.m_converted, QVector<int>({1, 2}));
    EXPECT_EQ(item.GetConvert(), (IVector3D{0, 1, 1}));
}

TEST(Item, OutsideOfASimulationTheTreeStaysAsItIs)
{
    CTestItem item;
    const std::function<void()> edits[] = {[&] { item.SetParentId(2, true); },
                                           [&] { item.RemoveFromParent(); }, [&] { item.AddChild(2); },
                                           [&] { item.RemoveChild(2); }};
    for (const auto& edit : edits) {
        CPromptScript user;
        user.Press("Ok");
        edit();
        EXPECT_EQ(user.Asked().value(0).sTitle, "Item Error");
        EXPECT_EQ(user.Asked().value(0).sText, "Item is not inside any simulation");
        EXPECT_TRUE(item.IsEmpty());
    }
}

TEST_F(ItemTree, AMoveLeavesTheOldParentAndJoinsTheNewOne)
{
    CTestSimulation* const pSimulation = Add();
    CItem* const pFirst = pSimulation->Make();
    CItem* const pSecond = pSimulation->Make();
    CItem* const pChild = pSimulation->Make();
    pChild->SetParentId(pFirst->GetId(), true);
    EXPECT_EQ(pFirst->GetChildIds(), QVector<qint64>({3}));
    pChild->SetParentId(pSecond->GetId(), true);
    EXPECT_TRUE(pFirst->GetChildIds().isEmpty());
    EXPECT_EQ(pSecond->GetChildIds(), QVector<qint64>({3}));
    pChild->RemoveFromParent();
    EXPECT_EQ(pChild->GetParentId(), -1);
    EXPECT_TRUE(pSecond->IsEmpty()) << "no list is left behind";
}

TEST_F(ItemTree, DescendantsComeDepthFirstWithTheItemItselfAndARingEnds)
{
    CTestSimulation* const pSimulation = Add();
    for (int n = 0; n < 5; ++n)
        pSimulation->Make(n % 2); // ids 1 to 5, types 0 1 0 1 0
    pSimulation->GetItem(2)->SetParentId(1, true);
    pSimulation->GetItem(3)->SetParentId(2, true);
    pSimulation->GetItem(4)->SetParentId(1, true);
    pSimulation->GetItem(3)->AddChild(1); // a damaged file
    const CItem* const pRoot = pSimulation->GetItem(1);
    EXPECT_EQ(pRoot->GetChildIds(-1, true), QVector<qint64>({1, 2, 3, 4}));
    EXPECT_EQ(pRoot->GetChildIds(1, true), QVector<qint64>({2, 4}));
    EXPECT_EQ(pRoot->GetChildIds(1), QVector<qint64>({2, 4}));
    EXPECT_TRUE(pRoot->GetChildIds(0).isEmpty());
}

TEST_F(ItemTree, ATransformGoesToAllBelow)
{
    CTestSimulation* const pSimulation = Add();
    CItem* const pParent = pSimulation->Make();
    CItem* const pChild = pSimulation->Make();
    pChild->SetParentId(pParent->GetId(), true);
    const STransform move(DMatrix4x4::Translation({1, 0, 0}));
    const STransform scale(DMatrix4x4::Scaling({2, 2, 2}));
    pParent->SetTransformRecursive(move, false);
    pParent->SetTransformRecursive(scale, true);
    EXPECT_EQ(pChild->GetTransform().Matrix().MapPoint({1, 1, 1}), (DVector3D{4, 2, 2}));
}

TEST_F(ItemTree, ASimilarKeyTellsWhetherTheSameGridsStandBelow)
{
    CTestSimulation* const pSimulation = Add();
    CTestItem* const pBodies[] = {pSimulation->Make(1), pSimulation->Make(1), pSimulation->Make(1)};
    const char* const linkKeys[] = {"left", "left", "right"};
    for (int n = 0; n < 3; ++n) {
        CTestItem* const pZone = pSimulation->Make();
        pZone->m_linkKey = linkKeys[n];
        pZone->SetParentId(pBodies[n]->GetId(), true);
    }
    EXPECT_EQ(pSimulation->GetSimilarItems(1, false), QVector<qint64>({1, 2}));
    pSimulation->GetItem(2)->SetLinked(true);
    EXPECT_EQ(pSimulation->GetSimilarItems(1, true), QVector<qint64>({2}));
    EXPECT_EQ(pSimulation->GetSimilarItems(3, false), QVector<qint64>({3}));
    pSimulation->GetItem(5)->SetParentId(3, true); // body 3 now holds both grids, body 2 none
    EXPECT_EQ(pSimulation->GetSimilarItems(1, false), QVector<qint64>({1}));
    EXPECT_TRUE(pSimulation->GetItem(2)->GetSimilarKey().isEmpty());
}

TEST_F(ItemViews, SelectablesFollowTheTreeInEveryView)
{
    const CTestSelectableFactory factory;
    CTestSimulation* const pSimulation = Add(1);
    m_manager.AddSimulationToView(pSimulation->GetId(), 2);
    CItem* const pFirst = pSimulation->Make();
    CItem* const pSecond = pSimulation->Make();
    CItem* const pChild = pSimulation->Make();
    pChild->SetParentId(pFirst->GetId(), true);
    pFirst->CreateSelectable(-1);
    pSecond->CreateSelectable(2);
    EXPECT_EQ(pSecond->GetSelectable(1), nullptr);

    const auto children = [](CItem* pItem, qint64 nViewId) {
        return static_cast<CTestSelectable*>(pItem->GetSelectable(nViewId))->m_children;
    };
    for (const qint64 nViewId : {1, 2})
        EXPECT_EQ(children(pFirst, nViewId), QVector<ISelectable*>({pChild->GetSelectable(nViewId)}));
    pChild->SetParentId(pSecond->GetId(), true);
    EXPECT_TRUE(children(pFirst, 1).isEmpty());
    EXPECT_TRUE(children(pFirst, 2).isEmpty());
    EXPECT_EQ(children(pSecond, 2), QVector<ISelectable*>({pChild->GetSelectable(2)}));

    const ISelectable* const pGone = pChild->GetSelectable(2);
    pSimulation->DeleteItem(pChild->GetId());
    EXPECT_FALSE(CSelectableManager::Instance().Exists(pGone));
}

TEST_F(ItemViews, ANewDescriptionIsShownAtOnceAndTheSameOneIsNot)
{
    const CTestSelectableFactory factory;
    CTestSimulation* const pSimulation = Add();
    CItem* const pItem = pSimulation->Make();
    pItem->CreateSelectable(-1);
    QSignalSpy updates(&CSelectableManager::Instance(), &CSelectableManager::SignalUpdateSelectable);
    pItem->SetDescription("2 Item(s)");
    pItem->SetDescription("2 Item(s)");
    EXPECT_EQ(updates.count(), 1);
}

TEST_F(ItemViews, TheDimensionIsThatOfTheItemsGrid)
{
    const CTestSelectableFactory factory;
    CTestSimulation* const pSimulation = Add();
    CItem* const pItem = pSimulation->Make();
    pItem->CreateSelectable(1);
    auto* const pSelectable = static_cast<CTestSelectable*>(pItem->GetSelectable(1));
    pSimulation->SetSelectableDimension(pSelectable);
    EXPECT_EQ(pSelectable->m_nDimension, 2);
    Set(*pItem, ItemKey::IS_2D, true);
    pSimulation->SetSelectableDimension(pSelectable);
    EXPECT_EQ(pSelectable->m_nDimension, 1);
}
