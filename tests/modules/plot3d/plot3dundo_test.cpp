// Undo of a Plot3D case: whatever was edited, each step back and forth gives the state that was there.
#include "data/managers/gridmanager.h"
#include "scene/drawablemanager.h"
#include "tests/modules/plot3d/showncase.h"
#include "tests/support/promptscript.h"
#include "view/selectables/surfaceselectable.h"

#include <random>

namespace {

constexpr qint64 OTHER_VIEW = 2;

class Plot3DUndo : public ShownCase
{
protected:
    /** A case with boundaries in two views. */
    CPlot3DSimulation& OpenInTwoViews()
    {
        CPlot3DSimulation* const pSimulation = OpenData();
        CSimulationManager::Instance().AddSimulationToView(pSimulation->GetId(), OTHER_VIEW);
        pSimulation->CreateDefaultSelectables(OTHER_VIEW);
        return *pSimulation;
    }
    static CItem* AddSurface(CPlot3DSimulation& simulation, qint64 nBlock, qint64 nFace)
    {
        return CreateSurfaceItem(simulation, nBlock,
                                 FacePlane(simulation.GetItem(nBlock)->GetSize(), int(nFace)));
    }
    template <class Edit> static void Step(CPlot3DSimulation& simulation, const Edit& edit)
    {
        simulation.BeginUndoStep();
        edit();
        simulation.EndUndoStep();
    }
    void Delete(CPlot3DSimulation& simulation, const QVector<qint64>& ids)
    {
        for (ISelectable* const p : CSelectableManager::Instance().GetSelectables(VIEW, simulation.GetId()))
            p->setSelected(ids.contains(p->itemId()));
        m_user.Press("Yes");
        Step(simulation, [&] { simulation.DeleteSelection(VIEW); });
    }

    CPromptScript m_user;
};

/** Edits of all kinds, drawn by lot. */
class CEditor
{
public:
    CEditor(CPlot3DSimulation& simulation, CPromptScript& user, unsigned nSeed)
        : m_simulation(simulation), m_user(user), m_random(nSeed)
    {}

    int Draw(int nCount) { return std::uniform_int_distribution<int>(0, nCount - 1)(m_random); }

    void Edit()
    {
        const qint64 nView = 1 + Draw(2);
        const QVector<ISelectable*> all =
            CSelectableManager::Instance().GetSelectables(nView, m_simulation.GetId());
        if (all.isEmpty())
            return;
        ISelectable& one = *all[Draw(all.size())];
        switch (Draw(7)) {
        case 0:
        case 1:
            CreateSurface();
            break;
        case 2:
            Delete(one, nView);
            break;
        case 3:
            one.setVisible(!one.isVisible());
            break;
        case 4:
            Move(one);
            break;
        case 5:
            m_simulation.GetItem(one.itemId())->SetDescription(QString::number(Draw(1000)));
            break;
        case 6:
            SetEverySetting(one, {}, Draw(6));
            break;
        }
    }

private:
    void CreateSurface()
    {
        const QVector<qint64> blocks = m_simulation.GetItemIds(KindBlock);
        if (blocks.isEmpty())
            return;
        const qint64 nBlock = blocks[Draw(blocks.size())];
        const CItem* const pMade = CreateSurfaceItem(
            m_simulation, nBlock, FacePlane(m_simulation.GetItem(nBlock)->GetSize(), Draw(6)));
        EXPECT_FALSE(m_given.contains(pMade->GetId())) << "the id was another item's";
        m_given.insert(pMade->GetId());
    }
    void Delete(ISelectable& one, qint64 nView)
    {
        for (ISelectable* const p :
             CSelectableManager::Instance().GetSelectables(nView, m_simulation.GetId()))
            p->setSelected(p == &one || Draw(8) == 0);
        m_user.Press("Yes");
        m_simulation.DeleteSelection(nView);
    }
    void Move(ISelectable& one)
    {
        auto* const pSurface = qobject_cast<CSurfaceSelectable*>(&one);
        if (!pSurface || pSurface->hasFixedPlane())
            return;
        pSurface->setConstantDirection(Draw(3));
        pSurface->setConstantValue(1 + Draw(4));
        pSurface->apply();
    }

    CPlot3DSimulation& m_simulation;
    CPromptScript& m_user;
    std::mt19937 m_random;
    QSet<qint64> m_given;
};

} // namespace

TEST_F(Plot3DUndo, ADeletedSurfaceComesBackAsItselfThoughAnotherWasMadeSince)
{
    CPlot3DSimulation& simulation = *OpenData();
    qint64 nFirst = -1, nSecond = -1;
    Step(simulation, [&] { nFirst = AddSurface(simulation, 1, 0)->GetId(); });
    Delete(simulation, {nFirst});
    Step(simulation, [&] { nSecond = AddSurface(simulation, 3, 5)->GetId(); });
    EXPECT_NE(nFirst, nSecond);
    simulation.Undo();
    simulation.Undo();
    ASSERT_NE(Shown(simulation, nFirst), nullptr);
    EXPECT_EQ(Shown(simulation, nFirst)->name(), "Surface I = 1 [Block 1]");
    EXPECT_EQ(simulation.GetItem(nFirst)->GetParentId(), 1);
    EXPECT_EQ(simulation.GetItem(nSecond), nullptr);

    ASSERT_TRUE(m_module.Save(Path("wing.zento"), simulation.GetId()));
    CloseAll();
    CPlot3DSimulation& again = *Simulation(m_module.Open(Path("wing.zento"), VIEW));
    EXPECT_GT(AddSurface(again, 1, 2)->GetId(), nSecond) << "nor does a case that is opened again give it";
}

TEST_F(Plot3DUndo, ADeletedLastBlockComesBackAsABlock)
{
    WriteData();
    QFile::remove(Path("data/wing.fvbnd"));
    CPlot3DSimulation& simulation = *Simulation(m_module.OpenPlot3D({Path("data/wing.x")}, VIEW));
    Delete(simulation, {4});
    Step(simulation, [&] { AddSurface(simulation, 1, 0); });
    simulation.Undo();
    simulation.Undo();
    ASSERT_NE(simulation.GetItem(4), nullptr);
    EXPECT_EQ(simulation.GetItem(4)->GetType(), KindBlock);
    EXPECT_EQ(simulation.GetItem(4)->GetName(), "Block 4");
    EXPECT_TRUE(CGridManager::Instance().GetGrid(simulation.GetId(), 4, -1, -1.0));
}

TEST_F(Plot3DUndo, WhatComesBackStandsWhereItStood)
{
    CPlot3DSimulation& simulation = OpenInTwoViews();
    for (const qint64 nFace : {0, 2, 4})
        Step(simulation, [&] { AddSurface(simulation, 1, nFace); });
    const QJsonObject display = simulation.SaveViewJson(OTHER_VIEW);
    const auto drawn = [&] {
        QVector<qint64> ids;
        for (const IDrawable* const p : CDrawableManager::Instance().GetDrawables(VIEW, simulation.GetId()))
            ids.append(p->itemId());
        return ids;
    };
    const QVector<qint64> order = drawn();
    Delete(simulation, {2, 7});
    EXPECT_NE(drawn(), order);
    simulation.Undo();
    EXPECT_EQ(drawn(), order);
    EXPECT_EQ(simulation.SaveViewJson(OTHER_VIEW), display);
}

TEST_F(Plot3DUndo, EveryStateComesBackByteForByteThroughAHundredRandomSessions)
{
    WriteData();
    for (unsigned nSeed = 0; nSeed < 100 && !HasFailure(); ++nSeed) {
        SCOPED_TRACE(nSeed);
        CPlot3DSimulation& simulation = OpenInTwoViews();
        CEditor editor(simulation, m_user, nSeed);
        QVector<QByteArray> states = {simulation.CaptureState()};
        int nNow = 0;
        const auto move = [&](bool bBack) {
            if (bBack ? nNow == 0 : nNow + 1 == states.size())
                return;
            bBack ? simulation.Undo() : simulation.Redo();
            nNow += bBack ? -1 : 1;
            ASSERT_TRUE(simulation.CaptureState() == states[nNow])
                << "state " << nNow << " of " << states.size();
            ASSERT_EQ(simulation.GetUndoCount(), nNow);
        };
        for (int nAction = 0; nAction < 40 && !HasFailure(); ++nAction) {
            if (editor.Draw(3) == 0) {
                move(editor.Draw(3) != 0);
                continue;
            }
            Step(simulation, [&] { editor.Edit(); });
            if (const QByteArray now = simulation.CaptureState(); now != states[nNow]) {
                states.resize(++nNow);
                states.append(now);
            }
        }
        while (nNow > 0 && !HasFailure())
            move(true);
        while (nNow + 1 < states.size() && !HasFailure())
            move(false);
        CloseAll();
    }
}
