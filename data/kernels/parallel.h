#pragma once

#include <QtGlobal>

#include <algorithm>
#include <functional>

/**
 * Calls run(n) once for each n from 0 to nCount - 1, on this thread and on those of the global thread pool
 * that are free, and returns when all calls have ended. In what order and on which thread is left open:
 * pieces write to places of their own, and the caller joins them in index order, so that a result doesn't
 * depend on the number of threads. run must not throw. May be called from any thread, a pool's included.
 */
void RunPieces(qint64 nCount, const std::function<void(qint64)>& run);

/**
 * Cuts 0 to nCount into pieces of nPieceSize (the last may be shorter) and calls run(nPiece, nBegin, nEnd)
 * for each as RunPieces does; the cuts don't depend on the number of threads. A single piece runs here.
 */
template <class Run> void RunRanges(qint64 nCount, qint64 nPieceSize, const Run& run)
{
    RunPieces((nCount + nPieceSize - 1) / nPieceSize, [&](qint64 nPiece) {
        run(nPiece, nPiece * nPieceSize, std::min(nCount, (nPiece + 1) * nPieceSize));
    });
}
