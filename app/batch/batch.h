#pragma once

#include <QStringList>

#include <functional>
#include <span>

/** How a run of zento-batch ends; scripts rely on these. */
enum BatchStatus_e : int {
    BatchOk = 0,
    BatchFailed = 1, ///< the work failed: one line on standard error, nothing half-written
    BatchUsage = 2   ///< wrong usage: one line on standard error
};

/** A sub-command: a thin main over the libraries. */
struct SBatchCommand
{
    const char* sName;
    const char* sSummary; ///< one line for the list of --help
    /** @param sArgumentList  what stands behind the sub-command; gives a BatchStatus_e */
    int (*Run)(const QStringList& sArgumentList);
};

/**
 * Runs the sub-command that the first argument names, or answers --help and --version.
 *
 * @param sArgumentList  without the program's name
 */
int RunBatch(const QStringList& sArgumentList, std::span<const SBatchCommand> commands);

/** Says the problem in one line on standard error and gives the status. */
int BatchError(BatchStatus_e eStatus, const QString& sProblem);
