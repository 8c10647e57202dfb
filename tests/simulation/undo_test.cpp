#include "simulation/undostep.h"
#include "tests/support/simulationfixture.h"

namespace {

class Undo : public SimulationFixture
{
protected:
    CTestSimulation* m_pSimulation = Add();

    /** One bracketed edit. */
    template <class Edit> void Step(Edit edit)
    {
        const CUndoStep step(m_pSimulation->GetId());
        edit();
    }
    void SetWidth(double dWidth)
    {
        Step([&] { m_pSimulation->SetDouble("Width", dWidth, 0.0); });
    }
    double Width() const { return m_pSimulation->GetDouble("Width", 0.0); }
};

} // namespace

TEST_F(Undo, NestedBracketsAreOneStep)
{
    Step([&] {
        SetWidth(1.0);
        SetWidth(2.0);
        EXPECT_EQ(m_pSimulation->GetUndoCount(), 0);
    });
    ASSERT_EQ(m_pSimulation->GetUndoCount(), 1);
    m_pSimulation->Undo();
    EXPECT_EQ(Width(), 0.0);
    m_pSimulation->Redo();
    EXPECT_EQ(Width(), 2.0);
}

TEST_F(Undo, AnEditThatRestoresOrIsDiscardedIsNoStep)
{
    Step([&] {
        m_pSimulation->SetDouble("Width", 3.0, 0.0);
        m_pSimulation->SetDouble("Width", 0.0, 0.0);
    });
    {
        CUndoStep step(m_pSimulation->GetId());
        m_pSimulation->SetDouble("Width", 4.0, 0.0);
        step.Discard();
    }
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 0);
    EXPECT_EQ(Width(), 4.0) << "discarding drops the step, not the edit";
}

TEST_F(Undo, AStepWhoseCaseGoesMeanwhileTouchesNoCaseThatTookItsId)
{
    const qint64 nId = m_pSimulation->GetId();
    {
        const CUndoStep step(nId);
        m_manager.RemoveSimulationFromView(nId, 1);
        m_pSimulation = Add();
        ASSERT_EQ(m_pSimulation->GetId(), nId);
        m_pSimulation->SetDouble("Width", 1.0, 0.0);
    }
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 0);
    SetWidth(2.0);
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 1);
}

TEST_F(Undo, ANewEditForgetsWhatWasUndone)
{
    SetWidth(1.0);
    SetWidth(2.0);
    m_pSimulation->Undo();
    SetWidth(5.0);
    EXPECT_EQ(m_pSimulation->GetRedoCount(), 0);
    m_pSimulation->Undo();
    EXPECT_EQ(Width(), 1.0);
}

TEST_F(Undo, EditHundredAndOneDropsTheOldestState)
{
    for (int n = 1; n <= 101; ++n)
        SetWidth(n);
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 100);
    while (m_pSimulation->GetUndoCount() > 0)
        m_pSimulation->Undo();
    EXPECT_EQ(Width(), 1.0) << "the state ahead of the first edit is gone";
    while (m_pSimulation->GetRedoCount() > 0)
        m_pSimulation->Redo();
    EXPECT_EQ(Width(), 101.0);
}

TEST_F(Undo, ViewStatesAreRestoredWhereTheyDifferAndPassedOverWhereTheViewIsGone)
{
    m_manager.AddSimulationToView(m_pSimulation->GetId(), 2);
    m_pSimulation->m_viewStates = {{1, "one"}, {2, "two"}};
    Step([&] { m_pSimulation->m_viewStates[1] = "changed"; });
    m_pSimulation->Undo();
    EXPECT_EQ(m_pSimulation->m_viewStates[1], "one");
    EXPECT_EQ(m_pSimulation->m_nLoads, 1) << "view 2 had not changed";

    Step([&] { m_pSimulation->m_viewStates[2] = "three"; });
    SetWidth(1.0);
    Step([&] { m_pSimulation->m_viewStates[2] = "four"; });
    m_manager.RemoveSimulationFromView(m_pSimulation->GetId(), 2);
    m_pSimulation->Undo(); // only view 2 differed; the step below differs in the width
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 2);
    m_pSimulation->Undo();
    EXPECT_EQ(Width(), 0.0);
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 0) << "the step of view 2 alone would do nothing";
}

TEST_F(Undo, AViewerCaseRestoresItsDisplayAlone)
{
    m_pSimulation->m_bUndoIncludesPack = false;
    Step([&] {
        m_pSimulation->SetDouble("Width", 1.0, 0.0);
        m_pSimulation->m_viewStates[1] = "new";
    });
    m_pSimulation->Undo();
    EXPECT_EQ(Width(), 1.0);
    EXPECT_EQ(m_pSimulation->m_viewStates[1], "");
}

TEST_F(Undo, ARenameThatIsTakenBackIsTold)
{
    Step([&] { m_pSimulation->SetName("New"); });
    QSignalSpy names(&m_manager, &CSimulationManager::SignalSimulationNameChanged);
    m_pSimulation->Undo();
    EXPECT_EQ(names.count(), 1);
    EXPECT_EQ(m_pSimulation->GetName(), "");
}
