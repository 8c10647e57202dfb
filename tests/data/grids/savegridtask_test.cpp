#include "data/grids/savegridtask.h"

#include "data/io/gridio.h"
#include "tests/support/files.h"
#include "tests/support/plot3dcasefixture.h"

#include <QFile>

using Plot3DFixture::Value;

namespace {

/** Hears of the end of a task. */
class CCreator : public CTaskCreator
{
public:
    void TaskFinished(qlonglong, TaskStatus_e eStatus) override { m_statuses.append(eStatus); }
    QVector<int> m_statuses;
};

class SaveGridTask : public Plot3DCaseFixture
{
protected:
    SaveGridTask() { OpenTwoBlocks(); }

    std::vector<CSaveGridTask::SPart> Parts()
    {
        std::vector<CSaveGridTask::SPart> parts;
        parts.push_back({Grid(1), {{2, 1, 1}, {4, 3, 3}}});
        parts.push_back({Grid(2), {}});
        return parts;
    }
    const QString m_sTarget = m_folder.filePath("saved.x");
    CCreator m_creator;
};

} // namespace

TEST_F(SaveGridTask, WholeBlocksAndPartsReadBackAsTheyWere)
{
    CGridManager::Instance().FlipAxis(SIMULATION, 2, 0);
    auto* const pTask = new CSaveGridTask(&m_creator, m_sTarget, 2, Parts());
    pTask->Start();
    EXPECT_EQ(m_creator.m_statuses, QVector<int>({TaskOk}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(CGridIO().GetGridBlockDimensions(m_sTarget), QVector<IVector3D>({{3, 3, 3}, {3, 3, 3}}));

    RemoveCaseData(SIMULATION);
    ASSERT_EQ(RegisterPlot3DCase(SIMULATION, {m_sTarget, {}, {}}).sError, "");
    EXPECT_EQ(Grid(1)->GetPoint(1, 1, 1).y, Value(0, 1, 1)) << "from i = 2 on";
    EXPECT_EQ(Grid(1)->GetPoint(3, 3, 3).z, Value(0, 2, 3 + 5 * (2 + 4 * 2)));
    EXPECT_EQ(Grid(2)->GetPoint(1, 1, 1).x, Value(1, 0, 2)) << "flipped as it was seen";
}

TEST_F(SaveGridTask, ATaskThatCannotWriteOrIsAbortedLeavesTheFormerFile)
{
    Files::Write(m_sTarget, "former");
    /** Aborts itself at the first step. */
    class CAborted : public CSaveGridTask
    {
    public:
        using CSaveGridTask::CSaveGridTask;
        bool Step(double) override
        {
            Abort();
            return false;
        }
    };
    (new CAborted(&m_creator, m_sTarget, 2, Parts()))->Start();
    (new CSaveGridTask(&m_creator, m_folder.filePath("no/folder.x"), 2, Parts()))->Start();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(m_creator.m_statuses, QVector<int>({TaskAborted, TaskFailed}));
    EXPECT_EQ(Files::Read(m_sTarget), "former");
}
