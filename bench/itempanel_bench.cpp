// The item panel with 2,000 items, each figure beside what a plain QTreeWidget takes for as many nodes.
#include "simulation/panel/itempanel.h"
#include "simulation/panel/itempanels.h"
#include "simulation/panel/treewidget.h"
#include "tests/support/panelcase.h"

#include <QApplication>
#include <QLineEdit>

#include <benchmark/benchmark.h>

namespace {

constexpr int ITEM_COUNT = 2000;
constexpr int ITEMS_OF_A_BODY = 50;

QString NameOf(int n) { return QString("Block %1").arg(n); }

/** A plain tree with the same nodes. */
std::unique_ptr<QTreeWidget> MakePlainTree(int nItems)
{
    auto pTree = std::make_unique<QTreeWidget>();
    pTree->setSelectionMode(QTreeWidget::ExtendedSelection);
    pTree->setUniformRowHeights(true);
    auto* const pGroup = new QTreeWidgetItem(pTree.get(), {"Block"});
    pGroup->setExpanded(true);
    for (int n = 0; n < nItems; ++n)
        new QTreeWidgetItem(pGroup, {NameOf(n)});
    pTree->show();
    QCoreApplication::processEvents();
    return pTree;
}

class ItemPanel : public benchmark::Fixture
{
public:
    void SetUp(benchmark::State& state) override
    {
        CPanelModule::Register();
        CSimulationManager::Instance().SetItemPanels(&m_panels);
        m_pSimulation = new CPanelSimulation;
        CSimulationManager::Instance().AddSimulation(m_pSimulation, 1);
        m_pPanel = CSimulationManager::Instance().GetItemPanel(1, m_pSimulation->GetId());
        m_pPanel->resize(300, 800);
        m_pPanel->show();
        m_nItems = state.range(0);
        for (int n = 0; n < m_nItems; ++n)
            MakeItem(n);
        ShowAll();
    }
    void TearDown(benchmark::State&) override
    {
        CSimulationManager::Instance().RemoveAllViews();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

protected:
    void MakeItem(int n)
    {
        CItem* const pItem = m_pSimulation->Make(n % ITEMS_OF_A_BODY == 0);
        pItem->SetName(NameOf(n), 0);
        if (n % ITEMS_OF_A_BODY != 0)
            pItem->SetParentId(1 + n / ITEMS_OF_A_BODY * ITEMS_OF_A_BODY, true);
    }
    void ShowAll()
    {
        for (CItem* const pItem : m_pSimulation->GetItems())
            pItem->CreateSelectable(1);
        QCoreApplication::processEvents();
    }
    void HideAll()
    {
        CSelectableManager::Instance().RemovePair(1, m_pSimulation->GetId());
        QCoreApplication::processEvents();
    }

    CNamedSelectableFactory m_factory;
    CItemPanels m_panels;
    CPanelSimulation* m_pSimulation = nullptr;
    CItemPanel* m_pPanel = nullptr;
    int m_nItems = 0;
};

} // namespace

static void PlainFill(benchmark::State& state)
{
    for (auto _ : state)
        MakePlainTree(ITEM_COUNT);
}
BENCHMARK(PlainFill)->Unit(benchmark::kMillisecond);

BENCHMARK_DEFINE_F(ItemPanel, Fill)(benchmark::State& state)
{
    for (auto _ : state) {
        CItemPanel panel(1, m_pSimulation->GetId());
        panel.show();
        QCoreApplication::processEvents();
    }
}
BENCHMARK_REGISTER_F(ItemPanel, Fill)->Arg(ITEM_COUNT)->Unit(benchmark::kMillisecond);

static void PlainSelectAll(benchmark::State& state)
{
    const auto pTree = MakePlainTree(ITEM_COUNT);
    for (auto _ : state) {
        pTree->selectAll();
        QCoreApplication::processEvents();
        pTree->clearSelection();
    }
}
BENCHMARK(PlainSelectAll)->Unit(benchmark::kMillisecond);

BENCHMARK_DEFINE_F(ItemPanel, SelectAllInTheTree)(benchmark::State& state)
{
    for (auto _ : state) {
        m_pPanel->GetCategoryTree()->selectAll();
        QCoreApplication::processEvents();
        m_pPanel->GetCategoryTree()->clearSelection();
    }
}
BENCHMARK_REGISTER_F(ItemPanel, SelectAllInTheTree)->Arg(ITEM_COUNT)->Unit(benchmark::kMillisecond);

// The worst for a selection model: every other one, picked elsewhere.
BENCHMARK_DEFINE_F(ItemPanel, SelectEveryOtherElsewhere)(benchmark::State& state)
{
    const qint64 nId = m_pSimulation->GetId();
    bool bSelect = true;
    for (auto _ : state) {
        for (ISelectable* const pSelectable : CSelectableManager::Instance().GetSelectables(1, nId))
            pSelectable->setSelected(bSelect && pSelectable->itemId() % 2);
        CSelectableManager::Instance().NotifySelectionChanged(1, nId);
        QCoreApplication::processEvents();
        bSelect = !bSelect;
    }
}
BENCHMARK_REGISTER_F(ItemPanel, SelectEveryOtherElsewhere)->Arg(ITEM_COUNT)->Unit(benchmark::kMillisecond);

static void PlainHide(benchmark::State& state)
{
    const auto pTree = MakePlainTree(ITEM_COUNT);
    bool bHide = true;
    for (auto _ : state) {
        for (int n = 0; n < ITEM_COUNT; ++n)
            pTree->topLevelItem(0)->child(n)->setHidden(bHide && n % 10 != 0);
        QCoreApplication::processEvents();
        bHide = !bHide;
    }
}
BENCHMARK(PlainHide)->Unit(benchmark::kMillisecond);

/** A letter typed, or taken back, in each round. */
BENCHMARK_DEFINE_F(ItemPanel, TypeAFilter)(benchmark::State& state)
{
    auto* const pFilter = m_pPanel->findChild<QLineEdit*>("m_pFilterE");
    bool bType = true;
    for (auto _ : state) {
        pFilter->setText(bType ? "7" : "");
        QCoreApplication::processEvents();
        bType = !bType;
    }
}
BENCHMARK_REGISTER_F(ItemPanel, TypeAFilter)->Arg(ITEM_COUNT)->Unit(benchmark::kMillisecond);

/** Linear: four times the items take four times as long. */
BENCHMARK_DEFINE_F(ItemPanel, CreateAndDeleteOneByOne)(benchmark::State& state)
{
    for (auto _ : state) {
        HideAll();
        ShowAll();
    }
    state.SetComplexityN(m_nItems);
}
BENCHMARK_REGISTER_F(ItemPanel, CreateAndDeleteOneByOne)
    ->Arg(ITEM_COUNT)
    ->Arg(4 * ITEM_COUNT)
    ->Arg(16 * ITEM_COUNT)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
