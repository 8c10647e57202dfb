#include "tests/support/simulationfixture.h"

#include <random>

namespace {

class Undo : public SimulationFixture
{
protected:
    CTestSimulation* m_pSimulation = Add();

    /** One bracketed edit. */
    template <class Edit> void Step(Edit edit)
    {
        m_pSimulation->BeginUndoStep();
        edit();
        m_pSimulation->EndUndoStep();
    }
    void SetWidth(double dWidth)
    {
        Step([&] { m_pSimulation->SetDouble("Width", dWidth, 0.0); });
    }
    double Width() const { return m_pSimulation->GetDouble("Width", 0.0); }
};

/** Random edits of every sort that a case knows. */
class CRandomEditor
{
public:
    explicit CRandomEditor(CTestSimulation& simulation) : m_simulation(simulation) {}

    void Edit()
    {
        const QVector<qint64> ids = m_simulation.GetItemIds();
        CItem* const pItem = m_simulation.GetItem(ids[Random(ids.size())]);
        switch (Random(6)) {
        case 0:
            pItem->SetDouble(QString("BC.%1.Value").arg(Random(5)), Random(1000), 0.0);
            break;
        case 1:
            pItem->SetName(QString("Name %1").arg(Random(1000)), 0);
            break;
        case 2:
            m_simulation.DeleteItem(pItem->GetId());
            break;
        case 3:
            m_simulation.DuplicateItem(pItem->GetId(), true);
            break;
        case 4: {
            // A ring can't be made by a user: only an item without children goes below another.
            CItem* const pParent = m_simulation.GetItem(ids[Random(ids.size())]);
            if (pParent != pItem && pItem->GetChildIds().isEmpty())
                pItem->SetParentId(pParent->GetId(), true);
            break;
        }
        case 5:
            m_simulation.m_viewStates[1] = QByteArray::number(Random(100000));
            break;
        }
    }

private:
    int Random(int nBelow) { return m_random() % nBelow; }

    CTestSimulation& m_simulation;
    std::mt19937 m_random{20261124};
};

} // namespace

TEST_F(Undo, NestedBracketsAreOneStep)
{
    m_pSimulation->BeginUndoStep();
    SetWidth(1.0);
    SetWidth(2.0);
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 0);
    m_pSimulation->EndUndoStep();
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
    m_pSimulation->BeginUndoStep();
    m_pSimulation->SetDouble("Width", 4.0, 0.0);
    m_pSimulation->EndUndoStep(true);
    EXPECT_EQ(m_pSimulation->GetUndoCount(), 0);
    EXPECT_EQ(Width(), 4.0) << "discarding drops the step, not the edit";
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

TEST_F(Undo, AThousandRandomEditsOfTwoThousandItemsAreTakenBackByteForByte)
{
    for (int n = 0; n < 2000; ++n) {
        CItem* const pItem = m_pSimulation->Make(n % 4);
        pItem->SetName(QString("Zone %1").arg(n), 0);
        for (int k = 0; k < 3; ++k)
            pItem->SetInt(QString("BC.%1.FaceIndex").arg(k), k + 1, 0);
    }
    CRandomEditor editor(*m_pSimulation);
    for (int nRun = 0; nRun < 10; ++nRun) {
        const QByteArray start = m_pSimulation->CaptureState();
        for (int n = 0; n < CUndoStack::MAX_STATES; ++n) {
            Step([&] {
                editor.Edit();
                m_pSimulation->SetInt("Edit", 100 * nRun + n + 1, 0); // so that each edit is a step
            });
        }
        const QByteArray end = m_pSimulation->CaptureState();
        for (int n = 0; n < CUndoStack::MAX_STATES; ++n)
            m_pSimulation->Undo();
        ASSERT_TRUE(m_pSimulation->CaptureState() == start) << "run " << nRun;
        for (int n = 0; n < CUndoStack::MAX_STATES; ++n)
            m_pSimulation->Redo();
        ASSERT_TRUE(m_pSimulation->CaptureState() == end) << "run " << nRun;
    }
}
