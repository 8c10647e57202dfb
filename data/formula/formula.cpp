#include "data/formula/formula.h"

#include "data/formula/formulaparser.h"
#include "data/formula/formularun.h"
#include "data/kernels/formulakernels.h"
#include "data/kernels/parallel.h"

#include <array>

namespace {
/** Points that a thread takes at a time: long against what it costs to hand them out. */
constexpr qint64 PIECE_POINTS = 1 << 16;

/** Registers that a point needs no memory from the heap for. */
constexpr int FEW_REGISTERS = 64;

double EvaluatePoint(const SFormulaProgram& program, std::span<const double> values, double* pRegisters)
{
    const int nFirstRegister = program.FirstRegister();
    const auto at = [&](int nPlace) {
        if (nPlace >= nFirstRegister)
            return pRegisters[nPlace - nFirstRegister];
        return nPlace < program.nInputCount ? AsOperand(values[nPlace])
                                            : program.constants[nPlace - program.nInputCount];
    };
    for (const SFormulaStep& step : program.steps) {
        double& dTarget = pRegisters[step.nTarget - nFirstRegister];
        dTarget = IsBinary(step.eOperation) ? ApplyBinary(step.eOperation, at(step.nA), at(step.nB))
                                            : ApplyUnary(step.eOperation, at(step.nA));
    }
    return at(program.nResult);
}
} // namespace

SCompiledFormula CFormula::Compile(const QString& sText, const QStringList& sInputs)
{
    if (sText.size() > MAX_LENGTH)
        return {nullptr, MAX_LENGTH + 1};
    std::vector<std::string> inputs;
    for (const QString& sInput : sInputs)
        inputs.push_back(sInput.toLatin1().toStdString());
    CFormulaBuilder builder(int(inputs.size()));
    CFormulaParser parser(sText.toLatin1(), inputs, builder);
    const int nValue = parser.Parse();
    if (parser.GetErrorPosition() != 0)
        return {nullptr, parser.GetErrorPosition()};
    return {std::make_shared<CFormula>(builder.Finish(nValue)), 0};
}

std::shared_ptr<const CFormula> CFormula::Constant(double dValue)
{
    CFormulaBuilder builder(0);
    return std::make_shared<CFormula>(builder.Finish(builder.Constant(dValue)));
}

std::shared_ptr<const CFormula> CFormula::Compose(const CFormula& outer,
                                                  std::span<const SFormulaBinding> inputs, int nLeafCount)
{
    CFormulaBuilder builder(nLeafCount);
    std::vector<int> values;
    for (const SFormulaBinding& binding : inputs)
        values.push_back(binding.pFormula ? builder.Import(binding.pFormula->m_program, binding.leaves)
                                          : builder.Input(binding.leaves.front()));
    return std::make_shared<CFormula>(builder.Finish(builder.Import(outer.m_program, values)));
}

CFormula::CFormula(SFormulaProgram program)
    : m_program(std::move(program)), m_isRead(m_program.nInputCount, false)
{
    for (const SFormulaStep& step : m_program.steps)
        for (const int nPlace : {step.nA, step.nB})
            if (nPlace < m_program.nInputCount)
                m_isRead[nPlace] = true;
}

double CFormula::Evaluate(std::span<const double> values) const
{
    Q_ASSERT(int(values.size()) == m_program.nInputCount);
    if (m_program.nRegisterCount <= FEW_REGISTERS) {
        std::array<double, FEW_REGISTERS> registers;
        return EvaluatePoint(m_program, values, registers.data());
    }
    std::vector<double> registers(m_program.nRegisterCount);
    return EvaluatePoint(m_program, values, registers.data());
}

void CFormula::EvaluateRange(std::span<const CFormulaColumn> columns, std::span<double> out,
                             qint64 nOutStride) const
{
    const qint64 nPoints = (qint64(out.size()) + nOutStride - 1) / nOutStride;
    Q_ASSERT(std::ranges::all_of(columns, [&](const auto& column) { return column.HasPoints(nPoints); }));
    const CFormulaRun run(m_program, columns, FormulaKernels());
    RunRanges(nPoints, PIECE_POINTS, [&](qint64, qint64 nBegin, qint64 nEnd) {
        run.Evaluate(nBegin, nEnd, out.data() + nBegin * nOutStride, nOutStride);
    });
}
