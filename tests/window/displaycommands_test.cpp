// How items are shown, changed through the actions and boxes of the main window.
#include "data/variables/variablemanager.h"
#include "tests/support/displaycase.h"
#include "tests/support/ownmodules.h"
#include "tests/support/promptscript.h"
#include "tests/support/testsettings.h"
#include "view/annotations/annotationcolormap.h"
#include "view/colormaps/colormapedit.h"
#include "view/iviewer.h"
#include "window/commands/displaycommandtable.h"
#include "window/commands/firstcolors.h"
#include "window/commands/windowactions.h"
#include "window/mainwindow.h"
#include "window/variabletoolbar.h"
#include "window/windowtoolbars.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

namespace {

class DisplayCommands : public DisplayCase
{
protected:
    DisplayCommands() { Select({1}); }

    void Select(const QSet<qint64>& itemIds)
    {
        for (ISelectable* const p : CSelectableManager::Instance().GetSelectables(VIEW, SIMULATION))
            p->setSelected(itemIds.contains(p->itemId()));
        CSelectableManager::Instance().NotifySelectionChanged(VIEW, SIMULATION);
    }
    QAction* Action(ActionId_e eId) { return m_window.GetActions().Get(eId); }
    QComboBox* Box(const char* sName) { return m_window.findChild<QComboBox*>(sName); }
    /** Types a text over what the box shows, and Enter. */
    void Enter(QLineEdit* pEdit, const QString& sText)
    {
        pEdit->clear();
        pEdit->setModified(true);
        QTest::keyClicks(pEdit, sText);
        QTest::keyClick(pEdit, Qt::Key_Return);
    }
    void Enter(const char* sBox, const QString& sText) { Enter(Box(sBox)->lineEdit(), sText); }

    const COwnModules m_modules;
    const CFreshPreferences m_fresh;
    CMainWindow m_window;
};

} // namespace

TEST_F(DisplayCommands, EachIsOneStepThatUndoTakesBack)
{
    for (const SDisplayCommand& command : DisplayCommandTable()) {
        SCOPED_TRACE(Action(command.eAction)->text().toStdString());
        ISelectable* const pBlock = Selectable(1);
        // A state that every command changes one way or the other.
        pBlock->setScalarVariable(Id("X"));
        pBlock->setVectorVariable(Id("Momentum"));
        pBlock->setDisplayType(DisplayShadedWireframe);
        const bool bOpposite = command.eAction == ActionGridOnNodes || command.eAction == ActionShowHoles;
        pBlock->setDisplayOnNodes(!bOpposite);
        pBlock->setShowHoles(!bOpposite);
        pBlock->setNodeVisible(command.eAction == ActionHideNodes);
        pBlock->setGeometricColor(command.eAction != ActionGeometryColor);
        pBlock->setShadeColor(Qt::black);
        pBlock->setAlphaValue(1.0);
        if (command.eAction == ActionShadedWireframe)
            pBlock->setDisplayType(DisplayShaded);
        CPromptScript user;
        const bool bNumber =
            command.Ask && command.eAction != ActionWireframeColor && command.eAction != ActionShadeColor;
        if (bNumber)
            user.EnterNumber(25.0);
        else if (command.Ask)
            user.ChooseColor(Qt::yellow);
        const QByteArray before = Display();
        const QByteArray other = Selectable(2)->toBinary();
        const qint64 nSteps = m_pSimulation->GetUndoCount();
        ASSERT_TRUE(Action(command.eAction)->isEnabled());
        Action(command.eAction)->trigger();
        EXPECT_NE(Display(), before);
        EXPECT_EQ(Selectable(2)->toBinary(), other) << "isn't selected";
        EXPECT_EQ(m_pSimulation->GetUndoCount(), nSteps + 1);
        m_pSimulation->Undo();
        EXPECT_EQ(Display(), before);
    }
}

TEST_F(DisplayCommands, WhatTheUserCancelsOrCantHaveChangesNothing)
{
    const QByteArray before = Display();
    CPromptScript user;
    user.EnterNumber({});
    user.EnterNumber({});
    user.ChooseColor({});
    Action(ActionLineThickness)->trigger();
    Action(ActionTransparency)->trigger();
    Action(ActionShadeColor)->trigger();
    Action(ActionContour)->trigger(); // without a scalar
    EXPECT_EQ(Display(), before);
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 0);
    EXPECT_EQ(user.AskedNumbers().first().sTitle, "Line Thickness");
    EXPECT_EQ(user.AskedNumbers().first().sLabel, "Enter line thickness:");
}

TEST_F(DisplayCommands, WithNothingSelectedNoCommandChangesOrAsksAnything)
{
    Selectable(1)->setScalarVariable(Id("X"));
    QVector<ActionId_e> commands = {
        ActionShow,   ActionHide,      ActionSelectAdjacent, ActionZoomToSelection,
        ActionDelete, ActionDuplicate, ActionDeselectAll,    ActionColormapDialog};
    for (const SDisplayCommand& command : DisplayCommandTable())
        commands.append(command.eAction);
    Select({});
    for (const bool bCase : {true, false}) {
        if (!bCase)
            CSimulationManager::Instance().RemoveSimulationFromView(SIMULATION, VIEW);
        const QByteArray before = bCase ? Display() : QByteArray();
        for (const ActionId_e eAction : commands) {
            SCOPED_TRACE(Action(eAction)->text().toStdString());
            const CPromptScript user; // fails the test if it is asked
            EXPECT_FALSE(Action(eAction)->isEnabled());
            Action(eAction)->setEnabled(true); // the state of an action can lag behind
            Action(eAction)->trigger();
            m_window.UpdateActions();
            if (bCase) {
                EXPECT_EQ(Display(), before);
                EXPECT_EQ(m_pSimulation->GetUndoCount(), 0);
            }
        }
    }
}

TEST_F(DisplayCommands, UnifyLinksItemsOfOneGridAndAsksWhoseSettingsAllTake)
{
    const auto item = [this](qint64 nId) { return static_cast<CTestItem*>(m_pSimulation->GetItem(nId)); };
    const auto setting = [&](qint64 nId) { return item(nId)->GetInt("Setting", 0); };
    CPromptScript user;
    Action(ActionUnify)->trigger(); // nothing else has its grid: nothing is asked
    for (const qint64 nId : {1, 2}) {
        item(nId)->m_linkKey = "grid";
        item(nId)->SetType(KindBlock);
        item(nId)->SetInt("Setting", nId, 0);
    }
    user.Press("Cancel link");
    Action(ActionUnify)->trigger();
    EXPECT_FALSE(item(1)->IsLinked());
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 0);
    user.Press("Unify group to items");
    Action(ActionUnify)->trigger();
    EXPECT_EQ(user.Asked().last().sTitle, "Link Items: Block 1");
    EXPECT_TRUE(item(1)->IsLinked() && item(2)->IsLinked());
    EXPECT_EQ(setting(1), 2);
    item(1)->SetInt("Setting", 7, 0);
    user.Press("Unify items to group");
    Action(ActionUnify)->trigger();
    EXPECT_EQ(setting(2), 7);
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 2);
}

TEST_F(DisplayCommands, ChildrenFollowOnlyWhileTheyAreAskedFor)
{
    const CSurfaceSelectable* const pSurface = AddSurface();
    Action(ActionWireframe)->trigger();
    EXPECT_EQ(pSurface->displayType(), DisplayShaded);
    Action(ActionApplyToChildren)->setChecked(true);
    Action(ActionNodes)->trigger();
    EXPECT_EQ(pSurface->displayType(), DisplayNodes);
    EXPECT_EQ(Selectable(2)->displayType(), DisplayShaded);
}

TEST_F(DisplayCommands, ANewCaseShowsItsPressureWithOneLegend)
{
    Selectable(1)->setVisible(false);
    FirstColors::Show(VIEW, SIMULATION);
    const IVariable* const pScalar =
        CVariableManager::Instance().GetVariable(Selectable(1)->scalarVariable());
    ASSERT_NE(pScalar, nullptr);
    EXPECT_EQ(pScalar->GetName(), "P[Q]");
    EXPECT_EQ(Selectable(2)->scalarVariable(), pScalar->GetId());
    EXPECT_EQ(Selectable(1)->colormap().dMaximum, Selectable(2)->colormap().dMaximum);
    EXPECT_FALSE(Selectable(1)->annotationColormap()->isVisible());
    EXPECT_TRUE(Selectable(2)->annotationColormap()->isVisible());
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 0);
}

TEST_F(DisplayCommands, TheLegendOfAHiddenItemPassesToOneThatIsColouredAlike)
{
    FirstColors::Show(VIEW, SIMULATION);
    CAnnotationColormap& first = *Selectable(1)->annotationColormap();
    CAnnotationColormap& second = *Selectable(2)->annotationColormap();
    first.setPosition({70, 90});
    Select({1});
    Action(ActionHide)->trigger();
    EXPECT_FALSE(first.isVisible());
    EXPECT_TRUE(second.isVisible());
    EXPECT_EQ(second.position(), QPoint(70, 90));
    Action(ActionShow)->trigger();
    EXPECT_FALSE(first.isVisible()) << "two legends in one place";
    Selectable(1)->setColormapValues(1.0, 2.0);
    Select({2});
    Action(ActionHide)->trigger();
    EXPECT_FALSE(first.isVisible()) << "it would say something else";
    EXPECT_TRUE(second.isVisible());
}

TEST_F(DisplayCommands, ALegendIsCalledByTheBlockThatItIsOf)
{
    for (const qint64 nBlock : {1, 2}) {
        Selectable(nBlock)->setScalarVariable(Id("R"));
        Selectable(nBlock)->setColormapValues(0.0, 1.0);
    }
    const qint64 nSurface = AddSurface()->itemId();
    const CAnnotationColormap& legend = *Selectable(1)->annotationColormap();
    const auto isNamed = [&](const QSet<qint64>& itemIds) {
        Select(itemIds);
        if (legend.isVisible())
            Action(ActionToggleLegend)->trigger(); // hides it
        Action(ActionToggleLegend)->trigger();
        return legend.settings().subtitle.bVisible;
    };
    EXPECT_FALSE(isNamed({1, 2}));
    EXPECT_TRUE(isNamed({1}));
    EXPECT_TRUE(isNamed({1, nSurface})) << "both of one block";
}

TEST_F(DisplayCommands, ALargeNewCaseIsColouredOverWhatItShows)
{
    FirstColors::Show(VIEW, SIMULATION, 10);
    const SColormapRecord first = Selectable(1)->colormap();
    EXPECT_EQ(first.dMaximum, Selectable(2)->colormap().dMaximum);
    EXPECT_EQ(first.dMaximum, std::max(first.dLocalMaximum, Selectable(2)->colormap().dLocalMaximum));
    EXPECT_EQ(first.dMinimum, std::min(first.dLocalMinimum, Selectable(2)->colormap().dLocalMinimum));
    const IVariable* const pScalar =
        CVariableManager::Instance().GetVariable(Selectable(1)->scalarVariable());
    ASSERT_NE(pScalar, nullptr);
    EXPECT_EQ(pScalar->GetName(), "P[Q]");
}

TEST_F(DisplayCommands, RainbowColoursAllDiffer)
{
    for (int n = 0; n < 5; ++n)
        AddSurface();
    Action(ActionSelectAll)->trigger();
    Action(ActionRainbowColor)->trigger();
    QSet<QRgb> colors;
    for (const ISelectable* const p : CSelectableManager::Instance().GetSelectables(VIEW, SIMULATION))
        colors.insert(p->shadeColor().rgb());
    EXPECT_EQ(colors.size(), 7);
}

TEST_F(DisplayCommands, TheSelectedItemsTakeTheRangeThatTheyHaveTogether)
{
    Action(ActionSelectAll)->trigger();
    for (const qint64 nBlock : {1, 2}) {
        Selectable(nBlock)->setScalarVariable(Id("R"));
        Selectable(nBlock)->setColormapValues(-50.0, 50.0);
    }
    const SValueRange second = ColormapEdit::ItemsRange({Selectable(2)});
    const SValueRange both = ColormapEdit::ItemsRange({Selectable(1), Selectable(2)});
    ASSERT_FALSE(second == both);
    Selectable(1)->setColormapBindToLocal(true);
    Action(ActionLocalRange)->trigger();
    for (const qint64 nBlock : {1, 2})
        EXPECT_EQ(Selectable(nBlock)->drawables().first()->colormapRange(), QPointF(both.dMin, both.dMax));
    Select({2});
    Action(ActionLocalRange)->trigger();
    EXPECT_EQ(Selectable(2)->colormap().dMinimum, second.dMin);
    EXPECT_EQ(Selectable(1)->colormap().dMinimum, both.dMin);
    Selectable(2)->setColormapBindToLocal(true);
    Action(ActionGlobalRange)->trigger();
    EXPECT_FALSE(Selectable(2)->colormapBindToLocal()) << "the local range would go ahead";
}

TEST_F(DisplayCommands, BindToLocalIsCheckedWhileAllThatIsSelectedIsBound)
{
    Action(ActionBindToLocal)->trigger();
    EXPECT_TRUE(Selectable(1)->colormapBindToLocal());
    Select({1, 2});
    EXPECT_FALSE(Action(ActionBindToLocal)->isChecked());
    Select({1});
    EXPECT_TRUE(Action(ActionBindToLocal)->isChecked());
    m_pSimulation->Undo();
    m_window.UpdateActions();
    EXPECT_FALSE(Action(ActionBindToLocal)->isChecked());
}

TEST_F(DisplayCommands, ABoxTakesAVariableByNameAndShowsTheCommonOne)
{
    Enter("Scalar", "R");
    const ISelectable& block = *Selectable(1);
    EXPECT_EQ(block.scalarVariable(), Id("R"));
    EXPECT_FALSE(block.geometricColor());
    const auto range =
        CVariableManager::Instance().GetVariable(Id("R"))->GetGlobalRange(VIEW, SIMULATION, -1);
    ASSERT_TRUE(range);
    EXPECT_EQ(block.drawables().first()->colormapRange(), QPointF(range->dMin, range->dMax));
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 1);
    Selectable(1)->setColormapValues(0.25, 0.5);
    Enter("Scalar", "R");
    EXPECT_EQ(block.drawables().first()->colormapRange(), QPointF(0.25, 0.5))
        << "shown already: its range stays";
    Select({1, 2});
    EXPECT_EQ(Box("Scalar")->currentText(), "-Multiple-");
    Select({2});
    EXPECT_EQ(Box("Scalar")->currentText(), "");
    Select({1});
    EXPECT_EQ(Box("Scalar")->currentText(), "R");
    Action(ActionContour)->trigger();
    Enter("Scalar", "");
    EXPECT_EQ(block.scalarVariable(), -1);
    EXPECT_TRUE(block.geometricColor());
    EXPECT_EQ(block.displayType(), DisplayShaded) << "contours of nothing can't be seen";
    Enter("Vector", "Momentum");
    EXPECT_EQ(block.vectorVariable(), Id("Momentum"));
    EXPECT_GE(Box("Vector")->findText("Velocity"), 0);
    EXPECT_EQ(Box("Vector")->findText("R"), -1);
    CSimulationManager::Instance().RemoveSimulationFromView(SIMULATION, VIEW);
    EXPECT_EQ(Box("Scalar")->currentText(), "No Simulation");
}

TEST_F(DisplayCommands, KeysGoToTheViewOnceAVariableIsChosen)
{
    m_window.show();
    QApplication::setActiveWindow(&m_window);
    QLineEdit* const pEdit = Box("Scalar")->lineEdit();
    QWidget* const pView = m_window.GetViewerById(VIEW)->GetWidget();
    pEdit->setFocus();
    QTest::keyClicks(pEdit, "R");
    QTest::keyClick(pEdit, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(pEdit->text(), "") << "what was typed is taken back";
    EXPECT_TRUE(Box("Scalar")->hasFocus());
    Enter("Scalar", "R");
    EXPECT_TRUE(pView->hasFocus());
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Selectable(1)->scalarVariable(), -1) << "the choice is taken back";
}

TEST_F(DisplayCommands, AWrongNameIsToldAndTakenBack)
{
    Enter("Scalar", "R");
    CPromptScript user;
    user.Press("Ok");
    user.Press("Ok");
    Enter("Scalar", "Momentum");
    Enter("Vector", "nonsense");
    ASSERT_EQ(user.Asked().size(), 2);
    EXPECT_EQ(user.Asked()[0].sTitle, "Invalid Value");
    EXPECT_EQ(user.Asked()[0].sText, "This is not a valid value for the scalar.");
    EXPECT_EQ(user.Asked()[1].sText, "This is not a valid value for the vector.");
    EXPECT_EQ(Box("Scalar")->currentText(), "R");
    EXPECT_EQ(Selectable(1)->scalarVariable(), Id("R"));
}

TEST_F(DisplayCommands, AThresholdStartsWithAllValuesAndNarrows)
{
    auto* const pMinimum = m_window.findChild<QLineEdit*>("Threshold minimum");
    auto* const pMaximum = m_window.findChild<QLineEdit*>("Threshold maximum");
    EXPECT_FALSE(pMinimum->isEnabled());
    Enter("Threshold", "X");
    const ISelectable& block = *Selectable(1);
    EXPECT_TRUE(block.thresholdEnable());
    const SValueRange range = block.rangeOfVariable(Id("X"));
    EXPECT_LE(block.thresholdRange().x(), range.dMin);
    EXPECT_GE(block.thresholdRange().y(), range.dMax);
    ASSERT_TRUE(pMinimum->isEnabled());
    Enter(pMinimum, "0.5");
    Enter(pMaximum, "2.5");
    EXPECT_EQ(block.thresholdRange(), QPointF(0.5, 2.5));
    Enter(pMinimum, "3");
    EXPECT_EQ(block.thresholdRange(), QPointF(0.5, 2.5)) << "above the maximum";
    Enter("Threshold", "");
    EXPECT_FALSE(block.thresholdEnable());
}

TEST_F(DisplayCommands, BrowsingChoosesAndCancellingChangesNothing)
{
    qint64 nAnswer = -1;
    for (CVariableToolBar* const pToolBar : m_window.GetToolBars().GetVariableToolBars())
        pToolBar->SetBrowser([&](VariableKind_e, qint64) { return nAnswer; });
    m_window.UpdateActions();
    nAnswer = Id("P[Q]");
    Action(ActionBrowseScalar)->trigger();
    EXPECT_EQ(Selectable(1)->scalarVariable(), nAnswer);
    const qint64 nSteps = m_pSimulation->GetUndoCount();
    Action(ActionBrowseScalar)->trigger(); // gives the current one
    EXPECT_EQ(m_pSimulation->GetUndoCount(), nSteps);
}
