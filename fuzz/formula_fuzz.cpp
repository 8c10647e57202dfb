// Whatever the text: it compiles or its error stands within it, references bind without harm, and a formula
// has the same bits at a point, over a range of any columns and as a part of another one.
#include "data/formula/formula.h"
#include "data/formula/formulatext.h"

#include <bit>
#include <cstdlib>
#include <limits>

namespace {
const QStringList INPUTS = {"a", "b", "c"};
constexpr qint64 POINT_COUNT = 37; // a block and a rest

void Require(bool bHolds)
{
    if (!bHolds)
        std::abort();
}

bool HaveSameBits(double a, double b) { return std::bit_cast<quint64>(a) == std::bit_cast<quint64>(b); }

struct SPoints
{
    std::vector<double> a;
    std::vector<float> b;
    double c = -0.0;
    SPoints()
    {
        constexpr double INF = std::numeric_limits<double>::infinity();
        constexpr double SPECIAL[] = {
            0.0, -0.0, 1.0, -2.5, 5e-324, 1e300, INF, -INF, std::numeric_limits<double>::quiet_NaN()};
        for (qint64 n = 0; n < POINT_COUNT; ++n) {
            a.push_back(SPECIAL[n % std::size(SPECIAL)]);
            b.push_back(float(SPECIAL[n / 3 % std::size(SPECIAL)]));
        }
    }
};

void CheckRange(const CFormula& formula)
{
    static const SPoints s_points;
    const CFormulaColumn columns[] = {std::span(s_points.a), std::span(s_points.b), s_points.c};
    std::vector<double> out(POINT_COUNT);
    formula.EvaluateRange(columns, out);
    for (qint64 n = 0; n < POINT_COUNT; ++n) {
        const double dValue = formula.Evaluate(std::vector{s_points.a[n], double(s_points.b[n]), s_points.c});
        Require(HaveSameBits(out[n], dValue));
        Require(dValue == dValue);
    }
}

void CheckComposition(const std::shared_ptr<const CFormula>& pFormula)
{
    const SFormulaBinding bindings[] = {{pFormula, {0, 1, 2}}, {nullptr, {0}}, {nullptr, {2}}};
    const double values[] = {0.3, -1.5, 2.0};
    const double inner[] = {pFormula->Evaluate(values), values[0], values[2]};
    Require(
        HaveSameBits(CFormula::Compose(*pFormula, bindings, 3)->Evaluate(values), pFormula->Evaluate(inner)));
}

void CheckReferences(const QString& sText)
{
    const QVector<SReferencedVariable> scope = {{1, "R", 1}, {2, "RU", 2}, {3, "u@mf", 0}};
    for (const SReferenceForm form :
         {SReferenceForm{false, false}, {true, false}, {false, true}, {true, true}}) {
        const SBoundText bound = FormulaText::BindReferences(sText, scope, form);
        CFormula::Compile(bound.sText, FormulaText::Placeholders(bound.inputs));
        const auto find = [&](qint64 nId) { return std::optional(scope[nId - 1]); };
        const QString sShown = FormulaText::ShowReferences(bound.sText, bound.inputs, find, form);
        Require(FormulaText::BindReferences(sShown, scope, form).inputs == bound.inputs ||
                sText.contains("ab"));
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize)
{
    const QString sText = QString::fromLatin1(reinterpret_cast<const char*>(pData), int(nSize));
    CheckReferences(sText);
    const SCompiledFormula compiled = CFormula::Compile(sText, INPUTS);
    Require((compiled.pFormula == nullptr) == (compiled.nErrorPosition > 0));
    Require(compiled.nErrorPosition <= sText.size() + 1);
    if (compiled.pFormula == nullptr)
        return 0;
    CheckRange(*compiled.pFormula);
    CheckComposition(compiled.pFormula);
    return 0;
}
