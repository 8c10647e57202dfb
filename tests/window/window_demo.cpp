// The main window with a case of stand-ins, to look at: window_demo [ITEMS]. Not run by ctest.
#include "frame/moduleregistry.h"
#include "frame/themeicon.h"
#include "frame/ui/messageboxprompt.h"
#include "frame/window/mainwindow.h"
#include "tests/support/testmodule.h"
#include "tests/support/testsimulation.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>

#include <cstdio>

namespace {

constexpr const char* TYPE_NAMES[] = {"Block", "Boundary", "Surface", "Vertex"};

class CDemoModule : public CTestModule
{
public:
    CDemoModule() : CTestModule(1, "Plot3D") {}
    bool CanCreateNew() const override { return true; }
    qint64 CreateNew() override { return AddCase(40); }
    bool ShowsHierarchy(qint64) const override { return true; }
    QVector<SItemCategory> GetCategoryTree(qint64) const override { return {{0}, {1}, {2}, {3}}; }
    QString GetItemTypeName(qint64 nType) const override { return TYPE_NAMES[nType]; }
    QIcon GetItemIcon(qint64) const override { return ThemeIcon(":/Icons/surface.png"); }
    void FillPopupMenu(QMenu* pMenu, qint64) override { pMenu->addAction("Modify"); }

    /** Gives the id of the new case in the active view. */
    static qint64 AddCase(int nItems)
    {
        auto* const pSimulation = new CTestSimulation;
        CSimulationManager::Instance().AddSimulation(pSimulation, 1);
        pSimulation->SetName(QString("case %1").arg(pSimulation->GetId()));
        for (int n = 0; n < nItems; ++n) {
            CTestItem* const pItem = pSimulation->Make(n % std::size(TYPE_NAMES));
            pItem->SetName(QString("%1 %2").arg(TYPE_NAMES[pItem->GetType()]).arg(n + 1), 0);
            if (pItem->GetType() > 0)
                pItem->SetParentId(pItem->GetId() - pItem->GetType(), true);
        }
        QElapsedTimer timer;
        timer.start();
        for (const CItem* const pItem : pSimulation->GetItems())
            AddSelectable(*pSimulation, *pItem);
        std::printf("%d selectables in %lld ms\n", nItems, static_cast<long long>(timer.elapsed()));
        std::fflush(stdout);
        return pSimulation->GetId();
    }

private:
    static void AddSelectable(const CTestSimulation& simulation, const CItem& item)
    {
        auto* const pSelectable = new CTestSelectable(1, simulation.GetId(), item.GetId());
        pSelectable->m_sName = item.GetName();
        pSelectable->m_nTypeId = item.GetType();
        pSelectable->setVisible(item.GetId() % 7 != 0);
        CSelectableManager::Instance().Add(pSelectable);
    }
};

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    CMessageBoxPrompt prompt;
    UserPrompt::Install(&prompt);
    CModuleRegistry::Instance().SetFactory(1, [] { return std::make_unique<CDemoModule>(); });
    CMainWindow window;
    window.ShowAsStored();
    const int nItems = argc > 1 ? atoi(argv[1]) : 2000;
    CSimulationManager::Instance().SetActiveSimulation(1, CDemoModule::AddCase(nItems));
    return QApplication::exec();
}
