#pragma once

#include "frame/packs/bytestream.h"
#include "scene/selectablekind.h"
#include "simulation/simulationcases.h"
#include "tests/support/plot3dcasefixture.h"
#include "tests/support/testsimulation.h"
#include "view/selectables/selectablefactory.h"
#include "view/selectables/surfaceitems.h"
#include "view/selectables/surfaceselectable.h"

/** A case of items of any type whose display state is that of its selectables. */
class CDisplaySimulation : public CTestSimulation
{
public:
    CItem* CreateItem(qint64 nType, qint64 nKind, bool bNew, qint64 nIndex, qint64 nId,
                      qint64 nSubId) override
    {
        CItem* const pItem = CTestSimulation::CreateItem(0, nKind, bNew, nIndex, nId, nSubId);
        pItem->SetType(nType);
        return pItem;
    }
    QByteArray SaveViewState(qint64 nViewId) const override
    {
        CByteWriter writer;
        for (const ISelectable* const p : CSelectableManager::Instance().GetSelectables(nViewId, GetId())) {
            writer.Write(p->itemId());
            writer.Write(p->toBinary());
        }
        return writer.Take();
    }
    bool LoadViewState(const QByteArray& state, qint64 nViewId, double dVersion) override
    {
        CByteReader reader(state);
        qint64 nItemId = 0;
        QByteArray bytes;
        while (reader.BytesLeft() > 0 && reader.Read(nItemId) && reader.Read(bytes))
            if (ISelectable* const p = CSelectableManager::Instance().Find(nViewId, GetId(), nItemId))
                p->fromBinary(bytes, dVersion);
        return reader.IsOk();
    }
};

/**
 * A test with the blocks of a Plot3D case as items 1, 2, ... shown in view 1: two (5 x 4 x 3 and 3 x 3 x 3),
 * all of whose points lie on a line, unless the test opens files of its own.
 */
class DisplayCase : public Plot3DCaseFixture
{
protected:
    /** Writes and registers the files of SIMULATION in a folder. */
    using Opener = SPlot3DCase (*)(const QString& sFolder);

    explicit DisplayCase(Opener open = nullptr)
    {
        CSimulationManager::Instance().AddSimulation(m_pSimulation, VIEW);
        m_case = open ? open(m_folder.path()) : OpenTwoBlocks();
        for (int n = 0; n < m_case.blocks.size(); ++n) {
            CItem* const pBlock = m_pSimulation->CreateItem(KindBlock, 0, true, n, n + 1, 0);
            pBlock->SetName(QString("Block %1").arg(n + 1), 0);
            pBlock->SetSize(m_case.blocks[n]);
            pBlock->SetGridType(1);
            pBlock->CreateSelectable(VIEW);
        }
        CSimulationManager::Instance().SetActiveSimulation(VIEW, SIMULATION);
    }
    ~DisplayCase() override { CSimulationManager::Instance().RemoveAllViews(); }

    ISelectable* Selectable(qint64 nItemId)
    {
        return CSelectableManager::Instance().Find(VIEW, SIMULATION, nItemId);
    }
    CSurfaceSelectable* AddSurface(qint64 nBlockId = 1, qint64 nK = 2)
    {
        SSurfacePlane plane = FacePlane(m_pSimulation->GetItem(nBlockId)->GetSize(), 4);
        plane.constants.k = nK;
        const CItem* const pItem = CreateSurfaceItem(*m_pSimulation, nBlockId, plane);
        return static_cast<CSurfaceSelectable*>(Selectable(pItem->GetId()));
    }
    /** What an edit shows and undo takes back. */
    QByteArray Display() const { return m_pSimulation->SaveViewState(VIEW); }

    static constexpr qint64 VIEW = 1;
    CDisplaySimulation* const m_pSimulation = new CDisplaySimulation; // of the manager
    CSelectableFactory m_factory;
    CSimulationCases m_cases;
    SPlot3DCase m_case;
};
