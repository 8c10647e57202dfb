#pragma once

#include "simulation/panel/itempanel.h"
#include "simulation/panel/itempanels.h"
#include "simulation/panel/treewidget.h"
#include "tests/support/panelcase.h"
#include "tests/support/simulationfixture.h"

#include <QAbstractButton>
#include <QLineEdit>

/** A case in view 1 whose panel the manager has made. */
class PanelFixture : public SimulationFixture
{
protected:
    PanelFixture()
    {
        CPanelModule::Register();
        m_manager.SetItemPanels(&m_panels);
        m_pSimulation = new CPanelSimulation;
        m_manager.AddSimulation(m_pSimulation, 1);
        m_pPanel = m_manager.GetItemPanel(1, m_pSimulation->GetId());
        m_pCategories = m_pPanel->GetCategoryTree();
        m_pHierarchy = m_pPanel->GetHierarchyTree();
        m_pPanel->resize(300, 600);
        m_pPanel->show();
    }
    ~PanelFixture() override
    {
        m_manager.RemoveAllViews();
        m_manager.SetItemPanels(nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    ISelectable* Selectable(const CItem* pItem) { return pItem->GetSelectable(1); }
    template <class Widget> Widget* Find(const char* pName) { return m_pPanel->findChild<Widget*>(pName); }
    void Click(const char* pButton) { Find<QAbstractButton>(pButton)->click(); }
    void Filter(const QString& sText) { Find<QLineEdit>("m_pFilterE")->setText(sText); }

    /** The nodes that aren't filtered out, one a line, indented; "*" marks the selected ones. */
    static QString Shown(const QTreeWidgetItem& parent, int nDepth = 0)
    {
        QString sText;
        for (int n = 0; n < parent.childCount(); ++n) {
            const QTreeWidgetItem& node = *parent.child(n);
            if (node.isHidden())
                continue;
            sText += QString("%1%2%3\n").arg("", nDepth).arg(node.text(0), node.isSelected() ? "*" : "");
            sText += Shown(node, nDepth + 1);
        }
        return sText;
    }
    QString Categories() const { return Shown(*m_pCategories->invisibleRootItem()); }
    QString Hierarchy() const { return Shown(*m_pHierarchy->invisibleRootItem()); }
    static QTreeWidgetItem* Node(const CTreeWidget* pTree, const QString& sText)
    {
        return pTree->findItems(sText, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }

    CNamedSelectableFactory m_factory;
    CItemPanels m_panels;
    CPanelSimulation* m_pSimulation;
    QPointer<CItemPanel> m_pPanel;
    CTreeWidget* m_pCategories;
    CTreeWidget* m_pHierarchy;
};
