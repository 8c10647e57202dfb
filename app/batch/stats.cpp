// zento-batch stats: least, greatest and mean of variables, by block.
#include "app/batch/batch.h"
#include "app/batch/batchcase.h"
#include "app/batch/commands.h"
#include "app/batch/fieldstatistics.h"
#include "app/batch/jsonwriter.h"
#include "data/managers/solutionmanager.h"
#include "data/variables/variablemanager.h"

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
        if (statistics.eStatus != LoadOk)
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
    const auto check = [](const CBatchOptions& options) {
        return options.Has("--variable") ? QString() : QString("no --variable is named");
    };
    const auto write = [](CJsonWriter& json, const CBatchCase& batchCase, const CBatchOptions&) {
        QString sProblem;
        json.Key("variables");
        json.BeginArray();
        for (const qint64 nId : batchCase.GetVariables())
            if (sProblem.isEmpty())
                sProblem = WriteVariable(json, nId, batchCase.GetBlocks());
        json.EndArray();
        return sProblem;
    };
    return RunOnCase({"stats", SUMMARY, CaseOptions(), check, write}, sArgumentList);
}
