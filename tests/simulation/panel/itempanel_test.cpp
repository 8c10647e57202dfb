#include "tests/simulation/panel/panelfixture.h"
#include "tests/support/files.h"
#include "tests/support/promptscript.h"

#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"

#include "simulation/itemkeys.h"

#include <QContextMenuEvent>
#include <QRandomGenerator>
#include <QTemporaryDir>

namespace {

/** Two bodies with zones, and a log. */
class ItemPanel : public PanelFixture
{
protected:
    ItemPanel()
    {
        m_pWing = m_pSimulation->MakeShown(1, "Wing");
        m_pTail = m_pSimulation->MakeShown(1, "Tail");
        m_pInner = m_pSimulation->MakeShown(0, "inner", m_pWing->GetId());
        m_pOuter = m_pSimulation->MakeShown(0, "outer", m_pWing->GetId());
        m_pSimulation->MakeShown(2, "");
        QCoreApplication::processEvents();
    }

    CItem* m_pWing;
    CItem* m_pTail;
    CItem* m_pInner;
    CItem* m_pOuter;
};

} // namespace

TEST_F(ItemPanel, ShowsItemsByCategoryAndByParent)
{
    EXPECT_EQ(Categories(), "Zone (2 / 2)\n inner\n outer\nBody (2 / 2)\n Wing\n Tail\n"
                            "Log Files (1 / 1)\n Unnamed\n");
    EXPECT_EQ(Hierarchy(), "Wing\n inner\n outer\nTail\nUnnamed\n");
}

TEST_F(ItemPanel, FollowsHidingDeletingAndMoving)
{
    Selectable(m_pInner)->setVisible(false);
    CSelectableManager::Instance().NotifyMaskChanged(Selectable(m_pInner));
    m_pOuter->SetParentId(m_pTail->GetId(), true);
    QCoreApplication::processEvents();
    EXPECT_EQ(Categories(), "Zone (1 / 2)\n inner\n outer\nBody (2 / 2)\n Wing\n Tail\n"
                            "Log Files (1 / 1)\n Unnamed\n");
    EXPECT_EQ(Hierarchy(), "Wing\n inner\nTail\n outer\nUnnamed\n");
    EXPECT_TRUE(Node(m_pHierarchy, "inner")->data(0, TreeShadeRole).toBool());

    m_pSimulation->DeleteItem(m_pTail->GetId()); // its zone stays
    m_pSimulation->DeleteItem(m_pInner->GetId());
    m_pPanel->UpdateCategoryText();
    EXPECT_EQ(Categories(), "Zone (1 / 1)\n outer\nBody (1 / 1)\n Wing\nLog Files (1 / 1)\n Unnamed\n");
    EXPECT_EQ(Hierarchy(), "Wing\nouter\nUnnamed\n");
}

TEST_F(ItemPanel, WhatMovesStaysSelected)
{
    m_pOuter->SelectInView(1);
    QSignalSpy spy(&CSelectableManager::Instance(), &CSelectableManager::SignalSelectionChanged);
    m_pOuter->SetParentId(m_pTail->GetId(), true);
    m_pSimulation->DeleteItem(m_pInner->GetId());
    QCoreApplication::processEvents();
    EXPECT_EQ(Hierarchy(), "Wing\nTail\n outer*\nUnnamed\n");
    EXPECT_TRUE(Selectable(m_pOuter)->isSelected());
    EXPECT_EQ(spy.size(), 0);
}

TEST_F(ItemPanel, AParentThatComesLaterGathersItsChildren)
{
    m_pWing->DeleteSelectable(-1);
    EXPECT_EQ(Hierarchy(), "Tail\ninner\nouter\nUnnamed\n");
    m_pWing->CreateSelectable(-1);
    EXPECT_EQ(Hierarchy(), "Wing\n inner\n outer\nTail\nUnnamed\n");
    Set(*m_pWing, ItemKey::PARENT_ID, m_pInner->GetId()); // a damaged file: a ring
    m_pPanel->SlotRefreshAll();
    EXPECT_EQ(m_pHierarchy->findItems("*", Qt::MatchWildcard | Qt::MatchRecursive).size(), 5);
}

TEST_F(ItemPanel, OtherSelectablesOfAnItemStandBelowItAndThoseOfNoneAtTheTop)
{
    CSelectableManager& manager = CSelectableManager::Instance();
    QVector<CTestSelectable*> added;
    for (const qint64 nItemId : {m_pInner->GetId(), m_pInner->GetId(), qint64(-1), qint64(-1)}) {
        added.append(new CTestSelectable(1, m_pSimulation->GetId(), nItemId));
        added.last()->m_sName = QString("extra %1").arg(added.size());
        added.last()->m_nTypeId = 99; // no category
        Set(*added.last(), SelectableKey::IS_MAIN, added.size() == 2);
        manager.Add(added.last());
    }
    EXPECT_EQ(Hierarchy(), "extra 3\nextra 4\nWing\n inner\n  extra 1\n extra 2\n outer\nTail\nUnnamed\n");
    m_pInner->DeleteSelectable(-1); // the next one stands for the item now
    EXPECT_EQ(Hierarchy(), "extra 3\nextra 4\nWing\n extra 2\n extra 1\n outer\nTail\nUnnamed\n");
}

TEST_F(ItemPanel, WhateverHappensItIsAsOneMadeAnew)
{
    QRandomGenerator random(7);
    const auto pick = [&] {
        return m_pSimulation->GetItems()[random.bounded(int(m_pSimulation->GetItemCount()))];
    };
    const std::function<void()> deeds[] = {
        [&] { m_pSimulation->MakeShown(random.bounded(4), "new", pick()->GetId()); },
        [&] { m_pSimulation->MakeShown(random.bounded(4), "single"); },
        [&] {
            if (CItem* const pItem = pick(), * const pParent = pick(); pParent->GetId() < pItem->GetId())
                pItem->SetParentId(pParent->GetId(), true);
        },
        [&] { pick()->RemoveFromParent(); },
        [&] { pick()->DeleteSelectable(-1); },
        [&] { pick()->CreateSelectable(-1); },
        [&] {
            if (m_pSimulation->GetItemCount() > 5)
                m_pSimulation->DeleteItem(pick()->GetId());
        },
        [&] {
            if (ISelectable* const pSelectable = Selectable(pick())) {
                pSelectable->setVisible(random.bounded(2));
                CSelectableManager::Instance().NotifyMaskChanged(pSelectable);
                pick()->SelectInView(1);
            }
        },
    };
    for (int n = 0; n < 1000; ++n) {
        deeds[random.bounded(int(std::size(deeds)))]();
        if (n % 50 != 0)
            continue;
        QCoreApplication::processEvents();
        CItemPanel fresh(1, m_pSimulation->GetId());
        EXPECT_EQ(Categories(), Shown(*fresh.GetCategoryTree()->invisibleRootItem()));
        EXPECT_EQ(Hierarchy(), Shown(*fresh.GetHierarchyTree()->invisibleRootItem()));
    }
}

TEST_F(ItemPanel, OrdersByTheKindAndShowsItsColumns)
{
    Set(*Selectable(m_pWing), SelectableKey::ITEM_ORDER, 7);
    Set(*Selectable(m_pWing), SelectableKey::COLUMN_COUNT, 2);
    Set(*Selectable(m_pWing), SelectableKey::COLUMN, 1, "swept");
    CSelectableManager::Instance().NotifyUpdated(Selectable(m_pWing));
    EXPECT_EQ(Hierarchy(), "Tail\nUnnamed\nWing\n inner\n outer\n");
    EXPECT_EQ(Node(m_pCategories, "Wing")->text(1), "swept");
    Filter("SWEPT");
    EXPECT_EQ(Categories(), "Body (2 / 2)\n Wing\n");
}

TEST_F(ItemPanel, TheFilterKeepsTheWayToWhatPasses)
{
    const struct
    {
        const char* sFilter;
        const char* sCategories;
        const char* sHierarchy;
    } rows[] = {
        {"INN", "Zone (2 / 2)\n inner\n", "Wing\n inner\n"},
        {"wing", "Body (2 / 2)\n Wing\n", "Wing\n inner\n outer\n"},
        {"zone", "Zone (2 / 2)\n inner\n outer\n", ""},
        {"2", "", ""}, // counts aren't names
    };
    for (const auto& row : rows) {
        Filter(row.sFilter);
        EXPECT_EQ(Categories(), row.sCategories) << row.sFilter;
        EXPECT_EQ(Hierarchy(), row.sHierarchy) << row.sFilter;
    }
    Filter("new");
    m_pSimulation->MakeShown(0, "new zone", m_pTail->GetId());
    m_pSimulation->MakeShown(0, "other");
    QCoreApplication::processEvents();
    EXPECT_EQ(Hierarchy(), "Tail\n new zone\n");
}

TEST_F(ItemPanel, OneSelectionInBothTreesAndTheSelectables)
{
    QSignalSpy spy(&CSelectableManager::Instance(), &CSelectableManager::SignalSelectionChanged);
    m_pCategories->setFocus();
    m_pCategories->setCurrentItem(Node(m_pCategories, "inner"));
    QTest::keyClick(m_pCategories, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Hierarchy(), "Wing\n inner*\n outer*\nTail\nUnnamed\n");
    EXPECT_TRUE(Selectable(m_pInner)->isSelected() && Selectable(m_pOuter)->isSelected());
    EXPECT_EQ(spy.size(), 2) << "one for each change";

    Selectable(m_pInner)->setSelected(false);
    Selectable(m_pOuter)->setSelected(false);
    m_pTail->SelectInView(1); // as a click in the view does
    EXPECT_EQ(spy.size(), 3);
    EXPECT_EQ(Hierarchy(), "Wing\n inner\n outer\nTail*\nUnnamed\n");
    EXPECT_EQ(m_pCategories->selectedItems(), QList{Node(m_pCategories, "Tail")});
    QTest::keyClick(m_pCategories, Qt::Key_Up);
    EXPECT_TRUE(Selectable(m_pWing)->isSelected()) << "keys go on from what was picked";
}

TEST_F(ItemPanel, KeysActOnTheSelectionInAnUndoStep)
{
    m_pWing->SelectInView(1);
    QTest::keyClick(m_pCategories, Qt::Key_Return);
    EXPECT_EQ(m_pSimulation->m_nActivated, 1);
    QTest::keyClick(m_pCategories, Qt::Key_Delete);
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 1);
    EXPECT_EQ(Hierarchy(), "Tail\ninner\nouter\nUnnamed\n");

    m_pSimulation->m_bCanEdit = false;
    m_pTail->SelectInView(1);
    QTest::keyClick(m_pCategories, Qt::Key_Delete);
    QTest::keyClick(m_pCategories, Qt::Key_Return);
    EXPECT_EQ(Hierarchy(), "Tail*\ninner\nouter\nUnnamed\n");
    EXPECT_EQ(m_pSimulation->m_nActivated, 1);
}

TEST_F(ItemPanel, TheMouseOpensMenusDocksAndHovers)
{
    QSignalSpy menu(m_pPanel, &CItemPanel::SignalPopupMenu);
    QVector<ISelectable*> opened;
    QObject::connect(&CSelectableManager::Instance(),
                     qOverload<ISelectable*>(&CSelectableManager::SignalSelectableDoubleClicked), m_pPanel,
                     [&](ISelectable* pSelectable) { opened.append(pSelectable); });
    QWidget* const pViewport = m_pCategories->viewport();
    const QPoint outer = m_pCategories->visualItemRect(Node(m_pCategories, "outer")).center();
    QTest::mouseMove(pViewport, outer);
    EXPECT_TRUE(Selectable(m_pOuter)->isHover());
    QTest::mouseMove(pViewport, m_pCategories->visualItemRect(Node(m_pCategories, "Tail")).center());
    EXPECT_FALSE(Selectable(m_pOuter)->isHover());
    EXPECT_TRUE(Selectable(m_pTail)->isHover());

    QTest::mouseClick(pViewport, Qt::RightButton, {}, outer);
    EXPECT_EQ(menu.size(), 1);
    EXPECT_TRUE(Selectable(m_pOuter)->isSelected());
    QContextMenuEvent key(QContextMenuEvent::Keyboard, {}, {3, 4});
    QCoreApplication::sendEvent(m_pCategories, &key);
    EXPECT_EQ(menu.size(), 2);
    EXPECT_EQ(m_pPanel->GetPopupPosition(), QPoint(3, 4));
    QTest::mouseDClick(pViewport, Qt::LeftButton, {}, outer);
    EXPECT_EQ(opened, QVector<ISelectable*>{Selectable(m_pOuter)});
}

TEST_F(ItemPanel, ButtonsAskTheModuleAndTheUser)
{
    Click("m_pRefreshSimulationB");
    EXPECT_EQ(CPanelModule::s_refreshed, QVector<qint64>{m_pSimulation->GetId()});

    CPromptScript user;
    QTemporaryDir folder;
    user.ChooseFile(folder.filePath("any.disp")); // no directory yet
    Click("m_pDispFilesB");
    EXPECT_EQ(m_pSimulation->m_sDisplayFile, folder.filePath("any.disp"));
    EXPECT_EQ(Get(CPreferences::Instance(), PreferenceKey::RECENT_DIRECTORY), folder.path());

    Set(*m_pSimulation, SimulationKey::DIRECTORY, folder.path());
    for (const char* const pName : {"a.disp", "b.disp", "c.txt"})
        Files::Write(folder.filePath(pName));
    user.ChooseEntry("b.disp");
    Click("m_pDispFilesB");
    EXPECT_EQ(m_pSimulation->m_sDisplayFile, folder.filePath("b.disp"));
    EXPECT_EQ(user.AskedChoices()[0].sEntryList, QStringList({"Skip", "a.disp", "b.disp"}));
    m_pSimulation->m_sDisplayFile.clear();
    user.ChooseEntry("Skip");
    Click("m_pDispFilesB");
    EXPECT_EQ(m_pSimulation->m_sDisplayFile, "");
}

TEST_F(ItemPanel, EachPairHasItsOwnAndNoneIsDeletedTwice)
{
    m_manager.AddSimulationToView(m_pSimulation->GetId(), 2);
    QPointer<CItemPanel> pSecond = m_manager.GetItemPanel(2, m_pSimulation->GetId());
    m_pWing->CreateSelectable(2);
    EXPECT_EQ(m_pCategories->findItems("Wing", Qt::MatchRecursive).size(), 1);
    EXPECT_EQ(pSecond->GetCategoryTree()->findItems("Wing", Qt::MatchRecursive).size(), 1);

    delete m_pPanel; // closed by itself
    EXPECT_EQ(m_manager.GetItemPanel(1, m_pSimulation->GetId()), nullptr);
    const qint64 nId = m_pSimulation->GetId();
    m_manager.RemoveSimulationFromView(nId, 1);
    m_manager.RemoveSimulationFromView(nId, 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(pSecond.isNull());
}
