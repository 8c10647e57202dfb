#pragma once

#include <QStringList>
#include <QVector>

#include <functional>
#include <optional>

/**
 * The three forms of a formula's text:
 * - as users see and type it, with references: "<R> * 2", "<2@R@0.5>";
 * - as it is stored and compiled, with a placeholder for each reference: "ab12bam1ab * 2". It holds the id of
 *   the variable, not its name, so a renamed variable keeps its formulas;
 * - as it is part of a variable's key, with the position of each input: "<0> * 2".
 * Everything here is a function of its arguments, safe on any thread.
 */

/** What a reference stands for: a variable at a time, STEADY_TIME for the time that is asked for. */
struct SFormulaInput
{
    qint64 nVariableId;
    double dTime;
    bool operator==(const SFormulaInput&) const = default;
};

/** What a reference has to know of a variable. */
struct SReferencedVariable
{
    qint64 nId;
    QString sName;
    qint64 nSimulationId; ///< its owner; 0 for a variable that draws on several simulations
};

/** Which parts a reference has beside the name. */
struct SReferenceForm
{
    bool bSimulation = false; ///< "2@" ahead of the name
    bool bTime = false;       ///< "@0.5" behind it, left out for STEADY_TIME
};

struct SBoundText
{
    QString sText;                 ///< placeholders in place of the references that were found
    QVector<SFormulaInput> inputs; ///< in order of appearance, each once
};

namespace FormulaText {

/** "<R>", "<2@R@0.5>"; the time in the shortest text that reads back as the same double. */
QString Reference(const SReferencedVariable& variable, double dTime, SReferenceForm form);

/** "ab12bam1ab": an identifier for any id from 0 and any time; equal inputs have equal ones. */
QString Placeholder(const SFormulaInput& input);

/** The placeholders in the order of the inputs: the names that the stored text is compiled with. */
QStringList Placeholders(const QVector<SFormulaInput>& inputs);

/**
 * Finds the references to variables of the scope (of equal names the first) and puts placeholders in their
 * places; a reference that fits none, or whose time is no number, stays as it is. Where a form with times
 * reads "name@time" and nothing fits, the last "@" or none is tried: names from files may hold an "@".
 */
SBoundText BindReferences(const QString& sText, const QVector<SReferencedVariable>& scope,
                          SReferenceForm form);

/** The inputs that BindReferences finds. */
QVector<SFormulaInput> ParseReferences(const QString& sText, const QVector<SReferencedVariable>& scope,
                                       SReferenceForm form);

/**
 * The stored text as users see it.
 * @param find the variable of an id; nothing leaves the placeholder where it is
 */
QString ShowReferences(const QString& sStored, const QVector<SFormulaInput>& inputs,
                       const std::function<std::optional<SReferencedVariable>(qint64)>& find,
                       SReferenceForm form);

/** The stored text as part of a key: "<n>" for input n, from 0. */
QString ShowInputPositions(const QString& sStored, const QVector<SFormulaInput>& inputs);

/** The stored text with one input in place of another. */
QString ReplaceInput(const QString& sStored, const SFormulaInput& from, const SFormulaInput& to);

/** The stored text without the placeholder of the input; what is left needs not be a formula. */
QString RemoveInput(const QString& sStored, const SFormulaInput& input);

/** Whether a typed name can stand in references: not empty, none of "@", "<", ">", "." and blank. */
bool IsReferenceName(const QString& sName);

} // namespace FormulaText
