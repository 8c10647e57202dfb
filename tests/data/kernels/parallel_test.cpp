#include "data/kernels/parallel.h"

#include <QThreadPool>

#include <numeric>

TEST(Parallel, EachPieceRunsOnceAndTheCutsAreTheSameWithAnyNumberOfThreads)
{
    QThreadPool& pool = *QThreadPool::globalInstance();
    const int nThreads = pool.maxThreadCount();
    for (const int nMax : {1, 2, 7}) {
        pool.setMaxThreadCount(nMax);
        for (const qint64 nCount : {0, 1, 99, 100, 101, 12345}) {
            std::vector<int> hits(nCount);
            std::vector<qint64> ends((nCount + 99) / 100);
            RunRanges(nCount, 100, [&](qint64 nPiece, qint64 nBegin, qint64 nEnd) {
                ends[nPiece] = nEnd;
                for (qint64 n = nBegin; n < nEnd; ++n)
                    ++hits[n];
            });
            EXPECT_EQ(std::accumulate(hits.begin(), hits.end(), 0), nCount);
            EXPECT_EQ(std::count(hits.begin(), hits.end(), 1), nCount);
            for (size_t n = 0; n < ends.size(); ++n)
                EXPECT_EQ(ends[n], std::min<qint64>(nCount, 100 * (n + 1)));
        }
    }
    pool.setMaxThreadCount(nThreads);
}

TEST(Parallel, ACallWithinAPieceEnds)
{
    std::atomic<int> nCalls = 0;
    RunPieces(8, [&](qint64) { RunPieces(8, [&](qint64) { ++nCalls; }); });
    EXPECT_EQ(nCalls, 64);
}
