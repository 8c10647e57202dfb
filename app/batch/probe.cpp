// zento-batch probe: values at an address or at a place.
#include "app/batch/batch.h"
#include "app/batch/batchcase.h"
#include "app/batch/commands.h"
#include "app/batch/jsonwriter.h"
#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "data/variables/variablemanager.h"

#include <optional>

namespace {

const char* const SUMMARY = "Tells variables at a grid point (--block and --ijk), or at a place in every "
                            "block that holds it (--xyz), as JSON.";

QVector<SBatchOption> Options()
{
    return CaseOptions() +
           QVector<SBatchOption>{{"--ijk", "I,J,K", false, "one-based address of a grid point"},
                                 {"--xyz", "X,Y,Z", false, "a place"}};
}

/** Three numbers with commas between; nothing if it isn't that. */
std::optional<DVector3D> ParseTriple(const QString& sText)
{
    const QStringList sPartList = sText.split(',');
    DVector3D triple;
    for (int n = 0; n < 3; ++n) {
        bool bNumber = false;
        triple[n] = sPartList.value(n).trimmed().toDouble(&bNumber);
        if (!bNumber || sPartList.size() != 3)
            return std::nullopt;
    }
    return triple;
}

bool CanBeRead(const IStructredSolution& field, const IVector3D& ijk)
{
    double dValue = NO_VALUE;
    return field.FillValues({ijk, ijk}, {&dValue, 1}) == LoadOk;
}

/** Writes the values at a grid point, or interpolated at a place near it. False if one can't be had. */
bool WriteValues(CJsonWriter& json, const CBatchCase& batchCase, qint64 nBlock, const IVector3D& ijk,
                 const IGrid& grid, const std::optional<DVector3D>& place)
{
    json.Key("values");
    json.BeginArray();
    for (const qint64 nId : batchCase.GetVariables()) {
        const IVariable& variable = *CVariableManager::Instance().GetVariable(nId);
        json.BeginObject();
        json.Member("name", variable.GetName());
        json.Key("value");
        const auto pField = AsStructured(
            CSolutionManager::Instance().GetSolution(nId, CBatchCase::SIMULATION, nBlock, -1, STEADY_TIME));
        if (variable.IsConstant())
            json.Value(variable.EvaluateScalarConstant());
        else if (!pField || !CanBeRead(*pField, pField->GetShape().Clamped(ijk)))
            return false;
        else if (variable.GetKind() == KindVector)
            json.Value(place ? pField->InterpolateVectorAt(*place, ijk, grid) : pField->GetVector(ijk));
        else
            json.Value(place ? pField->InterpolateAt(*place, ijk, grid) : pField->GetValue(ijk));
        json.EndObject();
    }
    json.EndArray();
    return true;
}

bool WritePoint(CJsonWriter& json, const CBatchCase& batchCase, qint64 nBlock, const IVector3D& ijk,
                const IGrid& grid, const std::optional<DVector3D>& place)
{
    json.BeginObject();
    json.Member("block", nBlock);
    json.Member("ijk", ijk);
    json.Member("xyz", place ? *place : grid.GetPoint(ijk));
    const bool bOk = WriteValues(json, batchCase, nBlock, ijk, grid, place);
    json.EndObject();
    return bOk;
}

/** The problem in one line; empty if all went well. */
QString ProbeAddress(CJsonWriter& json, const CBatchCase& batchCase, const DVector3D& address)
{
    const IVector3D ijk{qint64(address.x), qint64(address.y), qint64(address.z)};
    const qint64 nBlock = batchCase.GetBlocks().first();
    const auto pGrid = CGridManager::Instance().GetGrid(CBatchCase::SIMULATION, nBlock, -1, STEADY_TIME);
    if (!pGrid || !pGrid->HasPoint(ijk))
        return QString("block %1 has no point %2,%3,%4").arg(nBlock).arg(ijk.i).arg(ijk.j).arg(ijk.k);
    return WritePoint(json, batchCase, nBlock, ijk, *pGrid, std::nullopt) ? QString()
                                                                          : "no data at the point";
}

QString ProbePlace(CJsonWriter& json, const CBatchCase& batchCase, const DVector3D& place)
{
    for (const qint64 nBlock : batchCase.GetBlocks()) {
        const auto pGrid = CGridManager::Instance().GetGrid(CBatchCase::SIMULATION, nBlock, -1, STEADY_TIME);
        const IVector3D cell = pGrid ? pGrid->FindCell(place) : IVector3D{-1, -1, -1};
        if (cell.i >= 0 && !WritePoint(json, batchCase, nBlock, cell, *pGrid, place))
            return QString("no data in block %1").arg(nBlock);
    }
    return {};
}

} // namespace

int RunProbe(const QStringList& sArgumentList)
{
    const auto place = [](const CBatchOptions& options) {
        return ParseTriple(options.First(options.Has("--ijk") ? "--ijk" : "--xyz"));
    };
    const auto check = [&](const CBatchOptions& options) -> QString {
        if (options.All("--variable").contains("?"))
            return {};
        if (options.Has("--ijk") == options.Has("--xyz"))
            return "either --ijk or --xyz is needed";
        if (!place(options))
            return "a place is three numbers with commas between";
        return options.Has("--ijk") && options.All("--block").size() != 1 ? "--ijk needs one --block" : "";
    };
    const auto write = [&](CJsonWriter& json, const CBatchCase& batchCase, const CBatchOptions& options) {
        json.Key("points");
        json.BeginArray();
        const QString sProblem = options.Has("--ijk") ? ProbeAddress(json, batchCase, *place(options))
                                                      : ProbePlace(json, batchCase, *place(options));
        json.EndArray();
        return sProblem;
    };
    return RunOnCase({"probe", SUMMARY, Options(), check, write}, sArgumentList);
}
