#pragma once

#include <QVector>

#include <mutex>

class CTask;

/** Owns all tasks, from their constructors until they are removed. May be called from any thread but Remove.
 */
class CTaskManager
{
public:
    static CTaskManager& Instance();

    /** Called by the constructor of each task. */
    void Add(CTask* pTask);
    /**
     * Takes the task out and deletes it when control is back in the event loop. One that runs is aborted,
     * tells its creator nothing, and is deleted when it has ended. An unknown task is ignored. Call it on the
     * task's thread.
     */
    void Remove(CTask* pTask);
    qint64 CountTasks() const;

private:
    CTaskManager() = default;

    mutable std::mutex m_mutex; // guards m_tasks; no other lock is taken and nothing is called under it
    QVector<CTask*> m_tasks;
};
