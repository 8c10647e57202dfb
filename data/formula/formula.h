#pragma once

#include "data/formula/formulacolumn.h"
#include "data/formula/formulaprogram.h"

#include <QStringList>

#include <memory>

class CFormula;

struct SCompiledFormula
{
    std::shared_ptr<const CFormula> pFormula; ///< null if the text isn't a formula
    int nErrorPosition = 0; ///< first character of the token that doesn't fit, from 1; 0 if compiled
};

/** What an input of an outer formula is. */
struct SFormulaBinding
{
    std::shared_ptr<const CFormula> pFormula; ///< computed by this formula; null: a leaf
    /** Number of the leaf that each input of pFormula is; one number for a leaf. */
    std::vector<int> leaves;
};

/**
 * A compiled formula: the doubles of its inputs in, a double out. Evaluation is IEEE arithmetic in double
 * without contraction. An input that is NO_VALUE, NaN or infinite has no value, and neither has anything that
 * rests on it; a result that is NaN or infinite reads as NO_VALUE. At a point, over a range, on any number of
 * threads and with any instruction set it gives the same bits. Never changes, so it is shared between
 * threads without a lock.
 */
class CFormula
{
public:
    /** A longer text doesn't compile; the error stands at the first character too many. */
    static constexpr int MAX_LENGTH = 1 << 18;

    /**
     * @param sText   numbers, names, "+ - * / % ^", parentheses and "," (the last of a list counts);
     *                docs/formulas.md has the language
     * @param sInputs name of each input, in the order of the values; they go ahead of the built-in names
     */
    static SCompiledFormula Compile(const QString& sText, const QStringList& sInputs);

    /** A formula without inputs. */
    static std::shared_ptr<const CFormula> Constant(double dValue);

    /**
     * One formula over leaves in place of a formula over computed inputs. Gives the bits of evaluating each
     * computed input by itself first, and then outer; what inputs share is computed once.
     *
     * @param inputs     one for each input of outer
     * @param nLeafCount inputs of the result
     */
    static std::shared_ptr<const CFormula> Compose(const CFormula& outer,
                                                   std::span<const SFormulaBinding> inputs, int nLeafCount);

    explicit CFormula(SFormulaProgram program);

    int GetInputCount() const { return m_program.nInputCount; }

    /** Whether the value rests on the input at all; a range needs no array for one that it doesn't rest on.
     */
    bool ReadsInput(int nInput) const { return m_isRead[nInput]; }

    /** Operations for one point, after sharing. */
    int GetStepCount() const { return int(m_program.steps.size()); }

    /** At one point. @param values one for each input */
    double Evaluate(std::span<const double> values) const;

    /**
     * At many points; fans out over the global thread pool, and may be called within it. Scratch is a few
     * runs of points for each thread.
     *
     * @param columns one for each input, with a value for each point
     * @param out     point n goes to out[n * nOutStride]; what lies between is left alone. Overlaps no
     *                column.
     */
    void EvaluateRange(std::span<const CFormulaColumn> columns, std::span<double> out,
                       qint64 nOutStride = 1) const;

    const SFormulaProgram& GetProgram() const { return m_program; }

private:
    const SFormulaProgram m_program;
    std::vector<bool> m_isRead; // by input
};
