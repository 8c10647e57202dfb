#pragma once

#include "app/batch/batchoptions.h"
#include "data/cases/dataformat.h"
#include "data/variables/ivariable.h"

#include <functional>

class CJsonWriter;

/**
 * Makes a variable of the user in a case, of all that stand there so far.
 *
 * @param sDefinition  NAME=FORMULA
 * @return the problem in one line; empty if all is well
 */
QString DefineVariable(qint64 nSimulationId, const QString& sDefinition);

/** The files that the options name, and the kind of data to open them as. */
SDataFiles DataFilesOf(const CBatchOptions& options);
/** One that can't read them either, if none can: it tells best what is wrong with them. */
const SDataFormat& FormatToOpen(const SDataFiles& files);

/** The options that name the files, variables and blocks of a case: --grid, --q, --function, --define ... */
QVector<SBatchOption> CaseOptions();

/**
 * The case of a call, registered for its lifetime: files, formulas of the user, the variables and blocks that
 * were asked for.
 */
class CBatchCase
{
public:
    static constexpr qint64 SIMULATION = 1;

    ~CBatchCase();

    enum Status_e { CaseOk, CaseUsage, CaseFailed };
    /** Opens the case; on failure GetError tells in one line. */
    Status_e Open(const CBatchOptions& options);
    const QString& GetError() const { return m_sError; }

    const QVector<qint64>& GetVariables() const { return m_variables; }
    /** One-based block numbers: those asked for, or all. */
    const QVector<qint64>& GetBlocks() const { return m_blocks; }
    /** The names of all variables that the case offers. */
    QStringList VariableNames() const;

private:
    Status_e Fail(Status_e eStatus, const QString& sError);
    Status_e ChooseVariables(const QStringList& sNameList);
    Status_e ChooseBlocks(const QStringList& sNumberList);

    QString m_sError;
    qint64 m_nBlocks = 0; // of the case
    QVector<qint64> m_variables;
    QVector<qint64> m_blocks;
};

/** A command that tells something of a case. */
struct SCaseCommand
{
    const char* sName;
    const char* sSummary;
    QVector<SBatchOption> options;
    /** What is wrong with the options; empty if nothing is. */
    std::function<QString(const CBatchOptions& options)> check;
    /** Writes the content of the object; gives the problem in one line, empty if all went well. */
    std::function<QString(CJsonWriter& json, const CBatchCase& batchCase, const CBatchOptions& options)>
        write;
};

/** Help, options, opening the case, the JSON object, timings: what such commands share. Gives a
 * BatchStatus_e. */
int RunOnCase(const SCaseCommand& command, const QStringList& sArgumentList);
