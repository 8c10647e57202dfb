#include "data/kernels/parallel.h"

#include "frame/tasks/threadhandover.h"

#include <QRunnable>
#include <QThreadPool>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>

namespace {

/** One call of RunPieces. Outlives it where a pool thread comes too late to get a piece. */
class CJob
{
public:
    CJob(qint64 nCount, const std::function<void(qint64)>& run) : m_nCount(nCount), m_run(run) {}

    void TakePieces()
    {
        qint64 nTaken = 0;
        for (qint64 n = m_nNext++; n < m_nCount; n = m_nNext++, ++nTaken)
            m_run(n);
        if (nTaken == 0)
            return;
        const std::lock_guard lock(m_mutex);
        m_nDone += nTaken;
        m_condition.notify_all();
    }

    void WaitForAll()
    {
        std::unique_lock lock(m_mutex);
        m_condition.wait(lock, [this] { return m_nDone == m_nCount; });
    }

private:
    const qint64 m_nCount;
    const std::function<void(qint64)>& m_run; // the caller's; used only while pieces are left
    std::atomic<qint64> m_nNext = 0;
    std::mutex m_mutex; // guards m_nDone
    std::condition_variable m_condition;
    qint64 m_nDone = 0;
};

class CHelper : public QRunnable
{
public:
    explicit CHelper(std::shared_ptr<CJob> pJob) : m_pJob(std::move(pJob)) { ThreadHandOver::Give(this); }
    void run() override
    {
        ThreadHandOver::Take(this);
        m_pJob->TakePieces();
    }

private:
    std::shared_ptr<CJob> m_pJob;
};

} // namespace

void RunPieces(qint64 nCount, const std::function<void(qint64)>& run)
{
    QThreadPool& pool = *QThreadPool::globalInstance();
    const qint64 nHelpers = std::min<qint64>(nCount, pool.maxThreadCount()) - 1;
    if (nHelpers <= 0) {
        for (qint64 n = 0; n < nCount; ++n)
            run(n);
        return;
    }
    const auto pJob = std::make_shared<CJob>(nCount, run);
    for (qint64 n = 0; n < nHelpers; ++n) {
        auto* const pHelper = new CHelper(pJob);
        if (!pool.tryStart(pHelper)) { // all threads are busy: this one does the work
            delete pHelper;
            break;
        }
    }
    pJob->TakePieces();
    pJob->WaitForAll();
}
