// The commands of the main window, seen through its actions.
#include "frame/applicationinfo.h"
#include "frame/preferences/preferencekeys.h"
#include "scene/imouseclickreceiver.h"
#include "scene/selectablemanager.h"
#include "tests/support/promptscript.h"
#include "tests/support/simulationfixture.h"
#include "tests/support/testsettings.h"
#include "view/ui/oglviewer.h"
#include "view/ui/opengldrawer.h"
#include "window/commands/windowactions.h"
#include "window/dropdownbutton.h"
#include "window/mainwindow.h"
#include "window/picksession.h"
#include "window/recentfiles.h"
#include "window/sectordisplay.h"
#include "window/viewarea.h"

#include <QMenu>
#include <QMenuBar>
#include <QSpinBox>
#include <QTabBar>
#include <QToolBar>

namespace {

class WindowCommands : public SimulationFixture
{
protected:
    /** A case on top of view 1 with items of the ids 1 to nItems. */
    CTestSimulation* AddCase(int nItems)
    {
        CTestSimulation* const pSimulation = Add();
        for (int n = 0; n < nItems; ++n)
            pSimulation->Make()->CreateSelectable(1);
        m_manager.SetActiveSimulation(1, pSimulation->GetId());
        return pSimulation;
    }
    QAction* Action(ActionId_e eId) { return m_window.GetActions().Get(eId); }
    bool IsEnabled(ActionId_e eId) { return Action(eId)->isEnabled(); }
    ISelectable* Selectable(qint64 nItemId) { return CSelectableManager::Instance().Find(1, 1, nItemId); }
    QVector<qint64> ItemsThat(bool (ISelectable::*is)() const)
    {
        QVector<qint64> ids;
        for (const ISelectable* const pSelectable : CSelectableManager::Instance().GetSelectables(1, 1))
            if ((pSelectable->*is)())
                ids.append(pSelectable->itemId());
        return ids;
    }

    const CFreshPreferences m_fresh;
    CTestSelectableFactory m_factory;
    CMainWindow m_window;
};

void CollectActions(const QMenu* pMenu, QSet<QAction*>& found)
{
    for (QAction* const pAction : pMenu->actions()) {
        found.insert(pAction);
        if (pAction->menu())
            CollectActions(pAction->menu(), found);
    }
}

} // namespace

TEST_F(WindowCommands, EveryActionStandsInAMenuAndNoShortcutHasTwo)
{
    QSet<QAction*> inMenus;
    for (const QAction* const pTop : m_window.menuBar()->actions())
        CollectActions(pTop->menu(), inMenus);
    QSet<QString> shortcuts;
    for (int n = 0; n < ACTION_COUNT; ++n) {
        QAction* const pAction = Action(static_cast<ActionId_e>(n));
        const bool bToolBarOnly = n == ActionBrowseScalar || n == ActionBrowseVector ||
                                  n == ActionBrowseThreshold || n == ActionGlobalTransparency;
        const bool bNowAndThen = n == ActionClearRecentFiles; // while there are files
        EXPECT_TRUE(inMenus.contains(pAction) || bToolBarOnly || bNowAndThen)
            << pAction->text().toStdString();
        for (const QKeySequence& shortcut : pAction->shortcuts()) {
            EXPECT_FALSE(shortcuts.contains(shortcut.toString())) << shortcut.toString().toStdString();
            shortcuts.insert(shortcut.toString());
        }
    }
}

TEST_F(WindowCommands, ActionsFollowTheActiveCaseItsSelectionAndItsStacks)
{
    EXPECT_FALSE(IsEnabled(ActionSelectAll));
    EXPECT_TRUE(IsEnabled(ActionPreferences));
    EXPECT_FALSE(IsEnabled(ActionNewSimulation)) << "no module makes cases";
    EXPECT_FALSE(IsEnabled(ActionExportComplete)) << "bound to nothing";
    EXPECT_TRUE(IsEnabled(ActionScreenshot)) << "an empty view is a picture too";
    CTestSimulation* const pSimulation = AddCase(3);
    EXPECT_TRUE(IsEnabled(ActionSelectAll));
    EXPECT_FALSE(IsEnabled(ActionDelete));
    Action(ActionSelectAll)->trigger();
    EXPECT_TRUE(IsEnabled(ActionDelete));
    Selectable(2)->setSelected(false);
    Action(ActionToggleSelection)->trigger();
    EXPECT_EQ(ItemsThat(&ISelectable::isSelected), QVector<qint64>({2}));
    EXPECT_FALSE(IsEnabled(ActionUndo));
    Action(ActionDelete)->trigger();
    EXPECT_EQ(pSimulation->GetItemIds(), QVector<qint64>({1, 3}));
    EXPECT_FALSE(IsEnabled(ActionRedo));
    Action(ActionUndo)->trigger();
    EXPECT_EQ(pSimulation->GetItemCount(), 3);
    EXPECT_FALSE(IsEnabled(ActionUndo));
    EXPECT_TRUE(IsEnabled(ActionRedo));
    Action(ActionRedo)->trigger();
    EXPECT_EQ(pSimulation->GetItemCount(), 2);
}

TEST_F(WindowCommands, HidingReachesTheChildrenWhereThatIsWanted)
{
    CTestSimulation* const pSimulation = AddCase(4);
    pSimulation->GetItem(2)->SetParentId(1, true);
    pSimulation->GetItem(3)->SetParentId(2, true);
    Selectable(1)->setSelected(true);
    m_window.UpdateActions();
    Action(ActionHide)->trigger();
    EXPECT_EQ(ItemsThat(&ISelectable::isVisible), QVector<qint64>({2, 3, 4}));
    Action(ActionApplyToChildren)->setChecked(true);
    Action(ActionHide)->trigger();
    EXPECT_EQ(ItemsThat(&ISelectable::isVisible), QVector<qint64>({4}));
    Action(ActionShow)->trigger();
    EXPECT_EQ(ItemsThat(&ISelectable::isVisible), QVector<qint64>({1, 2, 3, 4}));
}

TEST_F(WindowCommands, ZoomBoxIsPressedWhileTheViewsAreInThatMode)
{
    CViewArea& area = m_window.GetViewArea();
    const auto drawer = [&area](qint64 nId) { return &area.GetOglViewer(nId)->GetDrawer(); };
    const QAction* const pZoomBox = Action(ActionZoomBox);
    const QSignalSpy modes(&m_window, &CMainWindow::SignalMouseMode);
    Action(ActionZoomBox)->trigger();
    EXPECT_EQ(drawer(1)->GetMode(), MouseZoomBox);
    area.SetActive(area.Split(1, Qt::Horizontal));
    EXPECT_EQ(drawer(2)->GetMode(), MouseZoomBox) << "a new view is as the others";
    EXPECT_TRUE(pZoomBox->isChecked());
    QTest::keyClick(drawer(1), Qt::Key_Escape);
    for (const qint64 nId : {1, 2}) {
        EXPECT_EQ(drawer(nId)->GetMode(), MouseNormal);
        EXPECT_NE(drawer(nId)->cursor().shape(), Qt::CrossCursor);
    }
    EXPECT_FALSE(pZoomBox->isChecked());
    drawer(2)->SlotMode(MouseZoomBox);
    EXPECT_TRUE(pZoomBox->isChecked()) << "whoever has set it";
    EXPECT_EQ(drawer(1)->GetMode(), MouseZoomBox);
    Action(ActionZoomBox)->trigger();
    EXPECT_EQ(drawer(2)->GetMode(), MouseNormal);
    EXPECT_EQ(modes.count(), 4) << "each change once";
    EXPECT_EQ(modes.last().value(0).value<OglMouseMode_e>(), MouseNormal);
}

TEST_F(WindowCommands, PointsOfAnyViewGoToTheOneWhoAskedUntilHeOrTheUserEndsIt)
{
    struct SReceiver : IMouseClickReceiver
    {
        void PointPicked(DVector3D xyz, IVector3D ijk, ISelectable*) override { picked.append({xyz, ijk}); }
        void PickEnded() override { ++nEnded; }
        QVector<std::pair<DVector3D, IVector3D>> picked;
        int nEnded = 0;
    } first, second;
    CViewArea& area = m_window.GetViewArea();
    const auto drawer = [&area](qint64 nId) { return &area.GetOglViewer(nId)->GetDrawer(); };
    area.Split(1, Qt::Horizontal);
    SPickedPoint point;
    point.bHasPoint = true;
    point.xyz = {1, 2, 3};
    point.ijk = {4, 5, 6};
    const auto pick = [&] { emit drawer(2)->SignalPointSelected(point, nullptr); };
    pick(); // nobody asked
    CPickSession& picks = m_window.GetPicks();
    picks.Begin(&first);
    EXPECT_EQ(drawer(1)->GetMode(), MousePointPick);
    EXPECT_EQ(drawer(2)->GetMode(), MousePointPick);
    pick();
    ASSERT_EQ(first.picked.size(), 1);
    EXPECT_EQ(first.picked[0].first, point.xyz);
    EXPECT_EQ(first.picked[0].second, point.ijk);
    picks.Begin(&second);
    EXPECT_EQ(first.nEnded, 1);
    pick();
    EXPECT_EQ(first.picked.size(), 1);
    EXPECT_EQ(second.picked.size(), 1);
    QTest::keyClick(drawer(1), Qt::Key_Escape);
    EXPECT_EQ(second.nEnded, 1);
    EXPECT_EQ(drawer(2)->GetMode(), MouseNormal);
    picks.Begin(&first);
    picks.End();
    EXPECT_EQ(first.nEnded, 1) << "it knows";
    EXPECT_EQ(drawer(2)->GetMode(), MouseNormal);
    picks.Begin(&first);
    Action(ActionZoomBox)->trigger();
    EXPECT_EQ(first.nEnded, 2);
    EXPECT_TRUE(Action(ActionZoomBox)->isChecked());
}

TEST_F(WindowCommands, TheRotationAxisIsMarkedAsThePreferencesHaveIt)
{
    const auto shown = [this] {
        for (const CDropDownButton* const pButton : m_window.findChildren<CDropDownButton*>())
            if (pButton->text() == "Rotation Axis")
                return pButton->GetLastAction();
        return static_cast<QAction*>(nullptr);
    };
    EXPECT_EQ(shown(), Action(ActionRotationAxisAlways));
    Set(CPreferences::Instance(), PreferenceKey::ROTATION_AXIS_VISIBILITY, 2);
    m_window.SlotUpdatePreferences();
    EXPECT_TRUE(Action(ActionRotationAxisOnRotation)->isChecked());
    EXPECT_EQ(shown(), Action(ActionRotationAxisOnRotation));
}

TEST_F(WindowCommands, TheAngleLimitIsAskedForInDegrees)
{
    CPromptScript user;
    user.EnterNumber(45.0);
    Action(ActionAngleLimit)->trigger();
    EXPECT_NEAR(user.AskedNumbers()[0].dValue, 30.0, 1e-12);
    EXPECT_NEAR(Get(CPreferences::Instance(), PreferenceKey::ANGLE_LIMIT), 0.7853981633974483, 1e-15);
    user.EnterNumber({});
    Action(ActionAngleLimit)->trigger();
    EXPECT_NEAR(Get(CPreferences::Instance(), PreferenceKey::ANGLE_LIMIT), 0.7853981633974483, 1e-15);
}

TEST_F(WindowCommands, TabsAreTheCasesOfTheActiveViewAndCloseThem)
{
    auto* const pTabs = m_window.findChild<QTabBar*>("m_pSimulationTabList");
    CTestSimulation* const pFirst = AddCase(0);
    CTestSimulation* const pSecond = AddCase(0);
    pFirst->SetName("R&D");
    EXPECT_EQ(pTabs->tabText(0), "R&&D") << "a name, no mnemonic";
    EXPECT_EQ(pTabs->currentIndex(), 1);
    pTabs->setCurrentIndex(0);
    EXPECT_EQ(m_manager.GetSimulationOfView(1), pFirst);

    m_window.GetViewArea().SetActive(m_window.GetViewArea().Split(1, Qt::Horizontal));
    EXPECT_EQ(pTabs->count(), 0);
    m_window.GetViewArea().SetActive(1);
    EXPECT_EQ(pTabs->count(), 2);

    pFirst->m_sCloseWarning = "Really?";
    CPromptScript user;
    user.Press("No");
    emit pTabs->tabCloseRequested(0);
    EXPECT_EQ(pTabs->count(), 2);
    user.Press("Yes");
    emit pTabs->tabCloseRequested(0);
    EXPECT_EQ(pTabs->count(), 1);
    EXPECT_EQ(m_manager.GetSimulationOfView(1), pSecond) << "what remains is on top";
}

TEST_F(WindowCommands, ATabThatStaysInAnotherViewIsNotAskedAbout)
{
    CTestSimulation* const pSimulation = AddCase(0);
    m_manager.AddSimulationToView(pSimulation->GetId(), 2);
    pSimulation->m_sCloseWarning = "Really?";
    const CPromptScript nobodyAsks;
    emit m_window.findChild<QTabBar*>("m_pSimulationTabList")->tabCloseRequested(0);
    EXPECT_EQ(m_manager.GetViewIds(pSimulation->GetId()), QVector<qint64>({2}));
}

TEST_F(WindowCommands, SectorsBeyondTheLimitAreRefusedAndManyAreAskedAbout)
{
    const qint64 nId = AddCase(0)->GetId();
    const SMirrorSetting mirrorXY{{true, true, false}, {}};
    const auto sectors = [](qint64 nX, qint64 nY, qint64 nZ) {
        return SSectorSetting{{true, true, true}, {nX, nY, nZ}};
    };
    struct SCase
    {
        SMirrorSetting mirror;
        SSectorSetting sectors;
        const char* sButton; // empty: no question
        bool bApplied;
    };
    const SCase cases[] = {
        {mirrorXY, sectors(100, 100, 1), "Ok", false}, // 40000
        {mirrorXY, sectors(64, 64, 1), "Yes", true},   // 16384
        {mirrorXY, sectors(64, 65, 1), "Ok", false},   // 16640
        {{}, sectors(512, 1, 1), "", true},            // 512
        {{}, sectors(513, 1, 1), "No", false},
    };
    for (const SCase& c : cases) {
        const SSectorSetting stored = m_manager.GetSectors(1, nId);
        CPromptScript user;
        if (*c.sButton)
            user.Press(c.sButton);
        EXPECT_EQ(SectorDisplay::Apply(1, nId, c.mirror, c.sectors), c.bApplied);
        EXPECT_EQ(m_manager.GetSectors(1, nId), c.bApplied ? c.sectors : stored);
        for (const SPrompt& prompt : user.Asked())
            EXPECT_EQ(prompt.sTitle, "Periodic Mirror");
    }
}

TEST_F(WindowCommands, RefusedSectorsPutTheControlsBack)
{
    const qint64 nId = AddCase(0)->GetId();
    auto* const pToolBar = m_window.findChild<QToolBar*>("Mirror Toolbar");
    QSpinBox* const pSectorsX = pToolBar->findChildren<QSpinBox*>()[0];
    Action(ActionPeriodicX)->trigger();
    pSectorsX->setValue(4);
    EXPECT_EQ(m_manager.GetDisplayTransforms(1, nId).size(), 4);
    CPromptScript user;
    user.Press("No");
    pSectorsX->setValue(600);
    EXPECT_EQ(pSectorsX->value(), 4);
    EXPECT_EQ(m_manager.GetDisplayTransforms(1, nId).size(), 4);

    Action(ActionMirrorY)->trigger();
    EXPECT_EQ(m_manager.GetDisplayTransforms(1, nId).size(), 8);
    m_manager.SetMirror(1, nId, {}); // as an undo does
    m_window.RefreshDocks(1, false, false);
    EXPECT_FALSE(Action(ActionMirrorY)->isChecked());
}

TEST_F(WindowCommands, RecentFilesKeepTenNewestFirst)
{
    auto* const pMenu = m_window.findChild<QMenu*>("m_pRecentFilesMenu");
    EXPECT_EQ(pMenu->actions().size(), 1);
    EXPECT_EQ(pMenu->actions()[0]->text(), "None");
    EXPECT_FALSE(pMenu->actions()[0]->isEnabled());
    QMenu menu;
    CRecentFiles recent(&menu, m_window.GetActions());
    for (int n = 0; n < 12; ++n)
        recent.Add(QString("/cases/%1 & more.zento").arg(n));
    recent.Add("/cases/5 & more.zento");
    ASSERT_EQ(menu.actions().size(), 12) << "ten files, a line, \"Clear Menu\"";
    EXPECT_EQ(menu.actions()[0]->text(), "&1 /cases/5 && more.zento");
    EXPECT_EQ(menu.actions()[1]->text(), "&2 /cases/11 && more.zento");
    EXPECT_EQ(menu.actions()[9]->data().toString(), "/cases/2 & more.zento");
    QSignalSpy spy(&recent, &CRecentFiles::SignalOpen);
    menu.actions()[9]->trigger();
    EXPECT_EQ(spy.value(0).value(0).toString(), "/cases/2 & more.zento");
    CPreferences stored;
    stored.Load(ApplicationInfo::ORGANISATION, ApplicationInfo::NAME);
    EXPECT_EQ(Get(stored, PreferenceKey::RECENT_FILES).size(), 10) << "saved at once";
    recent.SlotClearRecentFiles();
    EXPECT_EQ(menu.actions()[0]->text(), "None");
}

TEST_F(WindowCommands, HelpTellsTheVersionAndNamesNoProduct)
{
    CPromptScript user;
    for (const ActionId_e eId : {ActionWhatsNew, ActionAbout}) {
        user.Press("Ok");
        Action(eId)->trigger();
        const SPrompt& shown = user.Asked().last();
        EXPECT_EQ(shown.sTitle, Action(eId)->text());
        EXPECT_TRUE(shown.sText.contains(ApplicationInfo::VERSION));
        EXPECT_FALSE(shown.sText.contains(ApplicationInfo::NAME, Qt::CaseInsensitive));
    }
}
