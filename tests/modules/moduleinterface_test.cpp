#include "frame/moduleregistry.h"
#include "simulation/panel/dockwidget.h"
#include "tests/support/casewindow.h"
#include "tests/support/simulationfixture.h"
#include "tests/support/testmodule.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

namespace {

/** A module with one widget of each kind, in a window. */
class CWidgetModule : public CTestModule
{
public:
    explicit CWidgetModule(QMainWindow& window) : CTestModule(1, "Plot3D")
    {
        m_menus = {window.menuBar()->addMenu("Create")};
        m_toolBars = {window.addToolBar("Create")};
        m_actions = {new QAction("Create surface", &window)};
        m_docks = {new CDockWidget("Surface", &window)};
    }
    QVector<bool> Shown() const
    {
        return {m_menus[0]->menuAction()->isVisible(), !m_toolBars[0]->isHidden(), m_actions[0]->isVisible(),
                !m_docks[0]->isHidden()};
    }
};

} // namespace

using ModuleInterface = SimulationFixture;

TEST(ModuleRegistry, KeepsTheFixedOrderWithGapsAndCreatesOnce)
{
    CModuleRegistry registry;
    for (const auto& [nId, sName] : {std::pair{7, "CGNS Structured"}, {0, "Velor"}, {1, "Plot3D"}})
        registry.SetFactory(nId, [=] { return std::make_unique<CTestModule>(nId, sName); });
    registry.CreateModules();
    const IModuleInterface* const pVelor = registry.FindById(0);
    registry.CreateModules();
    EXPECT_EQ(registry.FindById(0), pVelor);
    EXPECT_EQ(registry.FindByName("CGNS Structured")->GetId(), 7);
    EXPECT_EQ(registry.FindByName("velor"), nullptr) << "exact, with its case";
    for (const qint64 nGap : {2, 4, 5, 8, 9, -1})
        EXPECT_EQ(registry.FindById(nGap), nullptr) << nGap;
}

TEST(ModuleBase, ABitOfAMaskIsItsIndex)
{
    const CTestModule module(1, "Plot3D");
    const qint64 cases[][2] = {{-8, 0}, {0, 0},  {1, 0},          {2, 1},
                               {8, 3},  {6, -1}, {1LL << 40, 40}, {(1LL << 40) + 1, -1}};
    for (const auto& [nValue, nExpected] : cases)
        EXPECT_EQ(module.Log2(nValue), nExpected) << nValue;
}

TEST_F(ModuleInterface, WidgetsShowOnlyWhileASimulationOfTheModuleIsActive)
{
    QMainWindow window;
    CWidgetModule module(window);
    CTestSimulation* const pOwn = Add(1);
    auto* const pOther = new CTestSimulation(0);
    m_manager.AddSimulation(pOther, 1);
    m_manager.SetActiveSimulation(1, pOwn->GetId());
    module.ShowModuleWidgets(1);
    EXPECT_EQ(module.Shown(), QVector<bool>({true, true, true, true}));
    m_manager.SetActiveSimulation(1, pOther->GetId());
    module.ShowModuleWidgets(1);
    EXPECT_EQ(module.Shown(), QVector<bool>({false, false, false, false}));
}

TEST_F(ModuleInterface, TheActiveSimulationIsThatOfTheActiveViewOrElseTheLast)
{
    const CTestModule module(1, "Plot3D");
    EXPECT_EQ(module.GetActiveSimulation(), nullptr);
    CTestSimulation* const pFirst = Add(1);
    CTestSimulation* const pLast = Add(2);
    EXPECT_EQ(module.GetActiveSimulation(), pLast) << "no window: the last";
    CCaseWindow window;
    m_manager.SetActiveSimulation(1, pFirst->GetId());
    EXPECT_EQ(module.GetActiveSimulation(), pFirst);
    window.m_nActiveViewId = 99;
    EXPECT_EQ(module.GetActiveSimulation(), pLast);
    EXPECT_EQ(module.GetActiveWidget(), &window);
}

TEST_F(ModuleInterface, AnEditTellsTheWindowAndEachViewsDocks)
{
    CCaseWindow window;
    CTestSimulation* const pSimulation = Add(1);
    m_manager.AddSimulationToView(1, 2);
    pSimulation->BeginUndoStep();
    pSimulation->SetInt("Level", 1, 0);
    pSimulation->EndUndoStep();
    EXPECT_EQ(window.m_nActionUpdates, 1);
    pSimulation->RefreshViews();
    EXPECT_EQ(window.m_refreshed, QVector<qint64>({1, 2}));
}

TEST(DockWidget, TheOneThatOpensStaysWhileOthersClose)
{
    CDockWidget asking, other;
    asking.show();
    other.show();
    asking.SlotCloseExcept(&asking);
    other.SlotCloseExcept(&asking);
    EXPECT_TRUE(asking.isVisible());
    EXPECT_FALSE(other.isVisible());
}
