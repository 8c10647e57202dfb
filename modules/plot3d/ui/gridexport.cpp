#include "modules/plot3d/ui/gridexport.h"

#include "data/grids/savegridtask.h"
#include "data/managers/gridmanager.h"
#include "frame/userprompt.h"
#include "simulation/isimulation.h"

namespace {

constexpr quint32 DOUBLE_FORTRAN_MULTI = 2; // format code

/** Keeps how the task ended, which goes away by itself. */
class CExportCreator : public CTaskCreator
{
public:
    void TaskFinished(qlonglong, TaskStatus_e eStatus) override
    {
        m_eStatus = eStatus;
        m_sError = m_pTask->GetError();
    }
    CSaveGridTask* m_pTask = nullptr;
    TaskStatus_e m_eStatus = TaskFailed;
    QString m_sError;
};

} // namespace

bool ExportGrids(const ISimulation& simulation, const QVector<qint64>& itemIds, double dTime,
                 const QString& sFileName)
{
    std::vector<CSaveGridTask::SPart> parts;
    for (const qint64 nItemId : itemIds)
        if (CLease<IGrid> pGrid = CGridManager::Instance().GetGrid(simulation.GetId(), nItemId, -1, dTime))
            parts.push_back({std::move(pGrid), {}});
    CExportCreator creator;
    creator.m_pTask = new CSaveGridTask(&creator, sFileName, DOUBLE_FORTRAN_MULTI, std::move(parts));
    creator.m_pTask->ShowProgressDialog();
    creator.m_pTask->Start();
    if (creator.m_eStatus == TaskFailed)
        UserPrompt::Tell(PromptCritical, "Export Plot3D",
                         creator.m_sError.isEmpty() ? QString("Failed to write %1").arg(sFileName)
                                                    : creator.m_sError);
    return creator.m_eStatus == TaskOk;
}
