#include "frame/tasks/taskmanager.h"

#include "frame/tasks/task.h"

CTaskManager& CTaskManager::Instance()
{
    static CTaskManager* const pManager = new CTaskManager;
    return *pManager;
}

void CTaskManager::Add(CTask* pTask)
{
    const std::lock_guard lock(m_mutex);
    m_tasks.append(pTask);
}

void CTaskManager::Remove(CTask* pTask)
{
    {
        const std::lock_guard lock(m_mutex);
        if (!m_tasks.removeOne(pTask))
            return;
    }
    pTask->Retire();
}

qint64 CTaskManager::CountTasks() const
{
    const std::lock_guard lock(m_mutex);
    return m_tasks.size();
}
