// zento-batch stats: least, greatest and mean of variables, by block.
#include "app/batch/batch.h"
#include "app/batch/batchcase.h"
#include "app/batch/commands.h"
#include "app/batch/fieldstatistics.h"
#include "app/batch/jsonwriter.h"
#include "app/batch/timings.h"
#include "data/solutionmanager.h"
#include "data/variables/variablemanager.h"

#include <cstdio>

namespace {

const char* const SUMMARY =
    "Tells the least and greatest value of variables with their places, and the mean, as JSON.\n"
    "Values that aren't there and points that IBlank blanks don't count.";

void WriteBlock(CJsonWriter& json, qint64 nBlock, const SFieldStatistics& statistics)
{
    json.BeginObject();
    json.Member("block", nBlock);
    json.Member("points", statistics.nPoints);
    json.Member("counted", statistics.nCounted);
    if (statistics.nCounted > 0) {
        json.Member("min", statistics.dMin);
        json.Member("minAt", statistics.minAt);
        json.Member("max", statistics.dMax);
        json.Member("maxAt", statistics.maxAt);
        json.Member("mean", statistics.dMean);
    }
    json.EndObject();
}

/** The problem in one line; empty if all went well. */
QString WriteVariable(CJsonWriter& json, qint64 nVariableId, const QVector<qint64>& blocks)
{
    CSolutionManager& manager = CSolutionManager::Instance();
    const IVariable& variable = *CVariableManager::Instance().GetVariable(nVariableId);
    const IVariable* const pHole =
        CVariableManager::Instance().GetHoleVariable(CBatchCase::SIMULATION, variable.GetLocation());
    SValueRange range;
    CJsonWriter parts;
    parts.BeginArray();
    for (const qint64 nBlock : blocks) {
        const auto pField = manager.GetSolution(nVariableId, CBatchCase::SIMULATION, nBlock, -1, STEADY_TIME);
        if (variable.IsConstant()) {
            range.Add(variable.EvaluateScalarConstant());
            continue;
        }
        if (!pField)
            return QString("no data of '%1' in block %2").arg(variable.GetName()).arg(nBlock);
        const auto pHoles =
            pHole ? manager.GetSolution(pHole->GetId(), CBatchCase::SIMULATION, nBlock, -1, STEADY_TIME)
                  : nullptr;
        const SFieldStatistics statistics =
            ComputeStatistics(*pField, pHoles.get(), variable.GetKind() == KindVector);
        if (const ISolution* const pBase = pField->GetBaseSolution();
            pBase->GetBytesNeeded() != 0 && pBase->GetBytesInUse() == 0)
            return QString("block %1 of %2 can't be read").arg(nBlock).arg(pField->GetFileName());
        if (statistics.nCounted > 0)
            range.Add({statistics.dMin, statistics.dMax});
        WriteBlock(parts, nBlock, statistics);
    }
    parts.EndArray();
    json.BeginObject();
    json.Member("name", variable.GetName());
    if (!range.IsEmpty()) {
        json.Member("min", range.dMin);
        json.Member("max", range.dMax);
    }
    json.Key("blocks");
    json.Raw(parts.Text());
    json.EndObject();
    return {};
}

} // namespace

int RunStats(const QStringList& sArgumentList)
{
    if (sArgumentList.contains("--help"))
        return std::fputs(qPrintable(HelpOf("stats", SUMMARY, CaseOptions())), stdout), BatchOk;
    CBatchOptions options;
    if (const QString sProblem = options.Parse(sArgumentList, CaseOptions()); !sProblem.isEmpty())
        return BatchError(BatchUsage, sProblem);
    if (!options.Has("--variable"))
        return BatchError(BatchUsage, "no --variable is named");
    CTimings timings;
    CBatchCase batchCase;
    const CBatchCase::Status_e eOpened = batchCase.Open(options);
    timings.EndStage("open");
    if (eOpened != CBatchCase::CaseOk)
        return BatchError(eOpened == CBatchCase::CaseUsage ? BatchUsage : BatchFailed, batchCase.GetError());
    if (options.All("--variable").contains("?"))
        return ListVariableNames(batchCase);
    CJsonWriter json;
    json.BeginObject();
    json.Key("variables");
    json.BeginArray();
    for (const qint64 nId : batchCase.GetVariables())
        if (const QString sProblem = WriteVariable(json, nId, batchCase.GetBlocks()); !sProblem.isEmpty())
            return BatchError(BatchFailed, sProblem);
    json.EndArray();
    json.EndObject();
    timings.EndStage("evaluate");
    std::printf("%s\n", json.Text().constData());
    if (options.Has("--timings") && !timings.Write(options.First("--timings")))
        return BatchError(BatchFailed, QString("can't write %1").arg(options.First("--timings")));
    return BatchOk;
}
