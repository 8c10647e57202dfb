// A panel to look at: 40 items in three categories and a hierarchy, some of them hidden.
#include "simulation/panel/itempanel.h"
#include "simulation/panel/itempanels.h"
#include "simulation/panel/treewidget.h"
#include "tests/support/panelcase.h"

#include <QApplication>
#include <QFile>
#include <QMenu>

namespace {

void MakeCase(CPanelSimulation& simulation)
{
    const QStringList sBodyList = {"Fuselage", "Wing", "Horizontal tail", "Fin"};
    for (const QString& sBody : sBodyList) {
        const CItem* const pBody = simulation.MakeShown(1, sBody);
        for (int n = 1; n <= 8; ++n) {
            const CItem* const pZone =
                simulation.MakeShown(0, QString("%1 block %2").arg(sBody).arg(n), pBody->GetId());
            pZone->GetSelectable(1)->setVisible(n % 3 != 0);
        }
    }
    for (const char* const pName : {"residuals.log", "forces.log", "", "timing.log"})
        simulation.MakeShown(2, pName);
}

void ShowMenu(CItemPanel& panel)
{
    QMenu menu;
    menu.addActions(panel.GetViewActions());
    menu.exec(panel.GetPopupPosition());
}

/** What is dropped on an item goes below it. */
void ConnectMoves(CPanelSimulation& simulation, CItemPanel& panel)
{
    QObject::connect(panel.GetHierarchyTree(), &CTreeWidget::SignalItemsMoved,
                     [&](const QList<QTreeWidgetItem*>& dragged, qlonglong nId) {
                         QVector<qint64> ids;
                         for (const QTreeWidgetItem* const pNode : dragged)
                             ids.append(CTreeWidget::IdOf(pNode));
                         for (CItem* const pItem : simulation.GetItemsFromSelection(ids))
                             pItem->SetParentId(nId, true);
                     });
}

} // namespace

/** @param argv  a style sheet to look at it under, or none */
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    CPanelModule::Register();
    CPanelSelectables factory;
    CItemPanels panels;
    CSimulationManager& manager = CSimulationManager::Instance();
    manager.SetItemPanels(&panels);
    auto* const pSimulation = new CPanelSimulation;
    manager.AddSimulation(pSimulation, 1);
    MakeCase(*pSimulation);

    QFile sheet(application.arguments().value(1));
    if (sheet.open(QIODevice::ReadOnly))
        application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
    CItemPanel* const pPanel = manager.GetItemPanel(1, pSimulation->GetId());
    QObject::connect(pPanel, &CItemPanel::SignalPopupMenu, [pPanel] { ShowMenu(*pPanel); });
    ConnectMoves(*pSimulation, *pPanel);
    pPanel->setWindowTitle("Item panel");
    pPanel->resize(320, 700);
    pPanel->show();
    return application.exec();
}
