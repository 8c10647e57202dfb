#include "app/batch/batchcase.h"

#include "app/batch/batch.h"
#include "app/batch/jsonwriter.h"
#include "app/batch/nearnames.h"
#include "app/batch/timings.h"
#include "data/cases/casedata.h"
#include "data/io/filefaults.h"
#include "data/variables/expressionvariable.h"
#include "data/variables/variablemanager.h"

#include <cstdio>

QVector<SBatchOption> CaseOptions()
{
    return {{"--grid", "FILE", false, "Plot3D grid file"},
            {"--q", "FILE", true, "Q file; several are the levels of a series (render: one)"},
            {"--function", "FILE", true, "function file"},
            {"--define", "NAME=FORMULA", true, "a variable over others: \"twice=2 * <P[Q]>\""},
            {"--variable", "NAME", true, "what to tell; ? lists the names"},
            {"--block", "N", true, "block number, from 1; all without it"},
            {"--timings", "FILE", false, "writes seconds by stage and the peak of memory as JSON"}};
}

QString DefineVariable(qint64 nSimulationId, const QString& sDefinition)
{
    CVariableManager& manager = CVariableManager::Instance();
    const int nEqual = sDefinition.indexOf('=');
    const QString sName = sDefinition.left(nEqual).trimmed();
    if (nEqual < 0)
        return QString("--define needs NAME=FORMULA, not '%1'").arg(sDefinition);
    if (!manager.IsNameValid(-1, sName, nSimulationId, LocationNode))
        return QString("the name '%1' is not valid or already in use").arg(sName);
    auto* const pVariable = new CExpressionVariable(nSimulationId, true);
    pVariable->SetName(sName);
    pVariable->SetScope(manager.ListVariables(nSimulationId, false));
    const QString sFormula = sDefinition.mid(nEqual + 1);
    if (pVariable->SetExpression(sFormula, false, true))
        return {};
    if (pVariable->GetErrorPosition() == 0) // it would compile
        return QString("the formula of '%1' refers to itself: '%2'").arg(sName, sFormula);
    return QString("the formula of '%1' has an error at character %2 of '%3'")
        .arg(sName)
        .arg(pVariable->GetErrorPosition())
        .arg(sFormula);
}

SDataFiles DataFilesOf(const CBatchOptions& options)
{
    return {options.First("--grid"), options.All("--q"), options.All("--function")};
}

const SDataFormat& FormatToOpen(const SDataFiles& files)
{
    const SDataFormat* const pFormat = FindDataFormat(files.All());
    return pFormat ? *pFormat : DataFormatNamed("Plot3D");
}

CBatchCase::~CBatchCase() { RemoveCaseData(SIMULATION); }

CBatchCase::Status_e CBatchCase::Fail(Status_e eStatus, const QString& sError)
{
    m_sError = sError;
    return eStatus;
}

CBatchCase::Status_e CBatchCase::Open(const CBatchOptions& options)
{
    if (!options.Has("--grid"))
        return Fail(CaseUsage, "--grid is missing");
    const SDataFiles files = DataFilesOf(options);
    const SOpenedCase opened = FormatToOpen(files).Open(SIMULATION, files);
    if (!opened.sError.isEmpty())
        return Fail(CaseFailed, opened.sError);
    m_nBlocks = opened.nBlocks;
    for (const QString& sDefinition : options.All("--define"))
        if (const QString sProblem = DefineVariable(SIMULATION, sDefinition); !sProblem.isEmpty())
            return Fail(CaseUsage, sProblem);
    if (const Status_e eStatus = ChooseBlocks(options.All("--block")); eStatus != CaseOk)
        return eStatus;
    return ChooseVariables(options.All("--variable"));
}

QStringList CBatchCase::VariableNames() const
{
    QStringList sNameList;
    for (const qint64 nId : CVariableManager::Instance().ListVariables(SIMULATION, false))
        sNameList << CVariableManager::Instance().GetVariable(nId)->GetName();
    return sNameList;
}

CBatchCase::Status_e CBatchCase::ChooseVariables(const QStringList& sNameList)
{
    const CVariableManager& manager = CVariableManager::Instance();
    for (const QString& sName : sNameList) {
        if (sName == "?")
            continue;
        qint64 nId = manager.FindByName(SIMULATION, sName, LocationNode);
        if (nId == -1)
            nId = manager.FindByName(SIMULATION, sName, LocationNone);
        if (nId == -1)
            return Fail(CaseUsage, QString("there is no variable '%1'%2; --variable ? lists them")
                                       .arg(sName, NearNamesText(sName, VariableNames())));
        m_variables.append(nId);
    }
    return CaseOk;
}

CBatchCase::Status_e CBatchCase::ChooseBlocks(const QStringList& sNumberList)
{
    for (const QString& sNumber : sNumberList) {
        bool bNumber = false;
        const qint64 nBlock = sNumber.toLongLong(&bNumber);
        if (!bNumber || nBlock < 1 || nBlock > m_nBlocks)
            return Fail(CaseUsage,
                        QString("there is no block '%1'; the grid has %2").arg(sNumber).arg(m_nBlocks));
        m_blocks.append(nBlock);
    }
    for (qint64 nBlock = 1; sNumberList.isEmpty() && nBlock <= m_nBlocks; ++nBlock)
        m_blocks.append(nBlock);
    return CaseOk;
}

namespace {

int ListVariableNames(const CBatchCase& batchCase)
{
    for (const QString& sName : batchCase.VariableNames())
        std::printf("%s\n", qPrintable(sName));
    return BatchOk;
}

} // namespace

int RunOnCase(const SCaseCommand& command, const QStringList& sArgumentList)
{
    if (sArgumentList.contains("--help")) {
        std::fputs(qPrintable(HelpOf(command.sName, command.sSummary, command.options)), stdout);
        return BatchOk;
    }
    CBatchOptions options;
    QString sProblem = options.Parse(sArgumentList, command.options);
    if (sProblem.isEmpty())
        sProblem = command.check(options);
    if (!sProblem.isEmpty())
        return BatchError(BatchUsage, sProblem);
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
    sProblem = command.write(json, batchCase, options);
    if (sProblem.isEmpty())
        sProblem = FileFaults::Last(); // a part of the case without values
    if (!sProblem.isEmpty())
        return BatchError(BatchFailed, sProblem);
    json.EndObject();
    timings.EndStage("evaluate");
    std::printf("%s\n", json.Text().constData());
    if (options.Has("--timings") && !timings.Write(options.First("--timings")))
        return BatchError(BatchFailed, QString("can't write %1").arg(options.First("--timings")));
    return BatchOk;
}
