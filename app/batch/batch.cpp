#include "app/batch/batch.h"

#include "frame/applicationinfo.h"

#include <cstdio>

namespace {

QString HelpText(std::span<const SBatchCommand> commands)
{
    QString sText = "usage: zento-batch COMMAND [OPTION]...\n"
                    "\n"
                    "  --help     print this and exit; COMMAND --help tells of one command\n"
                    "  --version  print the version and exit\n"
                    "\n"
                    "Exit status: 0 success, 1 the work failed, 2 wrong usage.\n";
    if (!commands.empty())
        sText += "\nCommands:\n";
    for (const SBatchCommand& command : commands)
        sText += QString("  %1  %2\n").arg(command.sName, -9).arg(command.sSummary);
    return sText;
}

} // namespace

int RunBatch(const QStringList& sArgumentList, std::span<const SBatchCommand> commands)
{
    if (sArgumentList.isEmpty())
        return BatchError(BatchUsage, "no command; see zento-batch --help");
    const QString sName = sArgumentList.first();
    if (sName == "--help" || sName == "-h") {
        std::fputs(qPrintable(HelpText(commands)), stdout);
        return BatchOk;
    }
    if (sName == "--version") {
        std::printf("zento-batch %s\n", ApplicationInfo::VERSION);
        return BatchOk;
    }
    for (const SBatchCommand& command : commands)
        if (sName == command.sName)
            return command.Run(sArgumentList.mid(1));
    return BatchError(BatchUsage, QString("unknown command '%1'; see zento-batch --help").arg(sName));
}

int BatchError(BatchStatus_e eStatus, const QString& sProblem)
{
    std::fprintf(stderr, "zento-batch: %s\n", qPrintable(sProblem));
    return eStatus;
}
