#pragma once

#include "data/cases/casedata.h"
#include "data/cases/plot3dcase.h"
#include "data/grids/igrid.h"
#include "data/variables/variablemanager.h"
#include "frame/preferences/preferences.h"
#include "simulation/simulationcases.h"
#include "tests/support/plot3dfile.h"
#include "tests/support/shownselectable.h"

#include <QTemporaryDir>

/**
 * A Plot3D case of two blocks in view 1, with the Q file's variables at nodes, and an item for each block,
 * coloured by "R". It leaves all managers and the user's variables empty.
 */
class CDialogCase
{
public:
    static constexpr qint64 VIEW = 1;

    CDialogCase()
    {
        m_pSimulation = new CTestSimulation;
        CSimulationManager::Instance().AddSimulation(m_pSimulation, VIEW);
        m_pSimulation->SetName("wing");
        const auto blocks = Plot3DFixture::Blocks({{5, 4, 3}, {3, 3, 3}});
        const QString sGrid = Plot3DFixture::Write(m_folder.filePath("case.x"), 26, KindGrid, blocks);
        const QString sQ = Plot3DFixture::Write(m_folder.filePath("case.q"), 49, KindQ, blocks);
        RegisterPlot3DCase(Id(), {sGrid, {sQ}, {}});
        for (qint64 nBlock = 1; nBlock <= blocks.size(); ++nBlock)
            m_items.append(AddItem(nBlock));
    }
    ~CDialogCase()
    {
        CSimulationManager::Instance().RemoveAllViews();
        for (const qint64 nId : CVariableManager::Instance().ListVariables(m_nId, true))
            CVariableManager::Instance().RemoveVariable(nId);
        RemoveCaseData(m_nId);
        CPreferences::Instance().SetStoredVariables({});
    }

    qint64 Id() { return m_nId = m_pSimulation ? m_pSimulation->GetId() : m_nId; }
    /** A variable at nodes, else a constant; -1 if there is none. */
    qint64 Variable(const char* sName) const
    {
        const CVariableManager& manager = CVariableManager::Instance();
        const qint64 nId = manager.FindByName(m_nId, sName, LocationNode);
        return nId != -1 ? nId : manager.FindByName(m_nId, sName, LocationNone);
    }
    CShownSelectable& Item(int n) { return *m_items[n]; }
    IDrawable& Drawable(int n) { return *Item(n).drawables().first(); }

    CTestSimulation* m_pSimulation = nullptr;

private:
    CShownSelectable* AddItem(qint64 nBlock)
    {
        CTestItem* const pItem = m_pSimulation->Make();
        pItem->SetGridType(GridKindStructured);
        pItem->SetName(QString("Block %1").arg(nBlock), 0);
        auto* const pSelectable = new CShownSelectable(VIEW, Id(), pItem->GetId());
        pSelectable->Show(Variable("R"), pItem->GetId());
        CSelectableManager::Instance().Add(pSelectable);
        pSelectable->setSelected(true);
        return pSelectable;
    }

    const CSimulationCases m_cases;
    QTemporaryDir m_folder;
    qint64 m_nId = -1;
    QVector<CShownSelectable*> m_items;
};
