#include "tests/support/simulationfixture.h"

#include <random>

namespace {

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

using UndoOfALargeCase = SimulationFixture;

} // namespace

TEST_F(UndoOfALargeCase, AThousandRandomEditsOfTwoThousandItemsAreTakenBackByteForByte)
{
    CTestSimulation* const pSimulation = Add();
    for (int n = 0; n < 2000; ++n) {
        CItem* const pItem = pSimulation->Make(n % 4);
        pItem->SetName(QString("Zone %1").arg(n), 0);
        for (int k = 0; k < 3; ++k)
            pItem->SetInt(QString("BC.%1.FaceIndex").arg(k), k + 1, 0);
    }
    CRandomEditor editor(*pSimulation);
    for (int nRun = 0; nRun < 10; ++nRun) {
        const QByteArray start = pSimulation->CaptureState();
        for (int n = 0; n < CUndoStack::MAX_STATES; ++n) {
            pSimulation->BeginUndoStep();
            editor.Edit();
            pSimulation->SetInt("Edit", 100 * nRun + n + 1, 0); // so that each edit is a step
            pSimulation->EndUndoStep();
        }
        const QByteArray end = pSimulation->CaptureState();
        for (int n = 0; n < CUndoStack::MAX_STATES; ++n)
            pSimulation->Undo();
        ASSERT_TRUE(pSimulation->CaptureState() == start) << "run " << nRun;
        for (int n = 0; n < CUndoStack::MAX_STATES; ++n)
            pSimulation->Redo();
        ASSERT_TRUE(pSimulation->CaptureState() == end) << "run " << nRun;
    }
}
