#pragma once

#include <QMetaType>
#include <QObject>

/** How a task ended. */
enum TaskStatus_e : int {
    TaskOk = 0,
    TaskAborted = 1, ///< at the user's wish
    TaskFailed = 3
};
Q_DECLARE_METATYPE(TaskStatus_e)

/** Whoever starts a task and is told how it ended. */
class CTaskCreator : public QObject
{
    Q_OBJECT

public slots:
    /** Called once, on the thread of the task, before CTask::Start returns. The task is still there. */
    virtual void TaskFinished(qlonglong nTaskId, TaskStatus_e eStatus);
};
