// A formula over a range, on any number of threads, with any instruction set, and composed with others gives
// the bits that it gives point by point.
#include "data/formula/formula.h"
#include "data/formula/formularun.h"
#include "frame/novalue.h"
#include "tests/data/variables/randomformula.h"

#include <QThreadPool>

namespace {
const QStringList INPUTS = {"a", "b", "c", "d", "u"};
constexpr qint64 COUNT = 1500; // several runs, the last not full

std::shared_ptr<const CFormula> Compile(const QString& sText, const QStringList& sInputs = INPUTS)
{
    const auto pFormula = CFormula::Compile(sText, sInputs).pFormula;
    EXPECT_TRUE(pFormula) << sText.toStdString();
    return pFormula;
}

/** One column of each kind: plain and strided doubles and floats, and one value for all points. */
class CSamples
{
public:
    CSamples(qint64 nCount, CRandomFormula& random)
        : m_plain(random.Values(nCount)), m_strided(random.Values(3 * nCount)), m_dUniform(random.Value())
    {
        for (const double d : random.Values(nCount))
            m_floats.push_back(float(d));
        for (const double d : random.Values(2 * nCount))
            m_stridedFloats.push_back(float(d));
    }
    std::vector<CFormulaColumn> Columns() const
    {
        return {std::span(m_plain),
                {std::span(m_strided), 3},
                std::span(m_floats),
                {std::span(m_stridedFloats), 2},
                m_dUniform};
    }
    std::vector<double> ByPoint(const CFormula& formula) const
    {
        std::vector<double> results;
        for (size_t n = 0; n < m_plain.size(); ++n)
            results.push_back(formula.Evaluate(std::vector{m_plain[n], m_strided[3 * n], double(m_floats[n]),
                                                           double(m_stridedFloats[2 * n]), m_dUniform}));
        return results;
    }

private:
    std::vector<double> m_plain;
    std::vector<double> m_strided;
    std::vector<float> m_floats;
    std::vector<float> m_stridedFloats;
    double m_dUniform;
};
} // namespace

TEST(FormulaRange, HasTheBitsOfThePointsWhateverTheColumns)
{
    CRandomFormula random(1);
    for (int nCase = 0; nCase < 400; ++nCase) {
        const QString sText = random.Text(INPUTS, 1 + nCase % 6);
        const auto pFormula = Compile(sText);
        const CSamples samples(nCase % 10 == 0 ? COUNT : 67, random);
        const std::vector<double> expected = samples.ByPoint(*pFormula);
        std::vector<double> values(expected.size());
        pFormula->EvaluateRange(samples.Columns(), values);
        ASSERT_EQ(BitsOf(values), BitsOf(expected)) << sText.toStdString();
    }
}

TEST(FormulaRange, EachInstructionSetGivesTheSameBits)
{
    const SFormulaKernels* const pWide = WideFormulaKernels();
    if (pWide == nullptr)
        GTEST_SKIP() << "one set only";
    CRandomFormula random(2);
    for (int nCase = 0; nCase < 400; ++nCase) {
        const auto pFormula = Compile(random.Text(INPUTS, 1 + nCase % 6));
        const CSamples samples(67, random);
        const std::vector<CFormulaColumn> columns = samples.Columns();
        std::vector<double> base(67), wide(67);
        CFormulaRun(pFormula->GetProgram(), columns, BaseFormulaKernels()).Evaluate(0, 67, base.data(), 1);
        CFormulaRun(pFormula->GetProgram(), columns, *pWide).Evaluate(0, 67, wide.data(), 1);
        ASSERT_EQ(BitsOf(base), BitsOf(wide));
    }
}

TEST(FormulaRange, ManyPiecesGiveTheSameBitsOnAnyNumberOfThreads)
{
    constexpr qint64 MANY = 300001;
    CRandomFormula random(3);
    const std::vector<double> a = random.Values(MANY);
    const CFormulaColumn columns[] = {std::span(a), {std::span(a), 1}, 2.5, std::span(a), 1.0};
    const auto pFormula = Compile("sqrt(abs(a))*b^2/(c+d)-u");
    std::vector<double> expected;
    for (const double x : a)
        expected.push_back(pFormula->Evaluate(std::vector{x, x, 2.5, x, 1.0}));
    QThreadPool& pool = *QThreadPool::globalInstance();
    const int nThreads = pool.maxThreadCount();
    for (const int nMax : {1, 2, 7}) {
        pool.setMaxThreadCount(nMax);
        std::vector<double> values(MANY);
        pFormula->EvaluateRange(columns, values);
        EXPECT_EQ(BitsOf(values), BitsOf(expected)) << nMax;
    }
    pool.setMaxThreadCount(nThreads);
}

TEST(FormulaRange, AStrideInTheOutputLeavesWhatLiesBetween)
{
    const std::vector<float> values = {1.0f, 2.0f, 3.0f};
    const CFormulaColumn columns[] = {std::span(values)};
    std::vector<double> out(7, 7.0);
    Compile("x*2", {"x"})->EvaluateRange(columns, out, 3);
    EXPECT_EQ(out, (std::vector<double>{2, 7, 7, 4, 7, 7, 6}));
    Compile("5", {"x"})->EvaluateRange(columns, out, 3);
    EXPECT_EQ(out, (std::vector<double>{5, 7, 7, 5, 7, 7, 5}));
    Compile("x", {"x"})->EvaluateRange(columns, std::span(out).first(0));
    EXPECT_EQ(out.front(), 5.0);
}

TEST(FormulaRange, ManyValuesAtATimeMakeShorterRunsNotOtherBits)
{
    QString sText = "0";
    for (int n = 0; n < 200; ++n)
        sText += QString("+sin(a*%1)").arg(n) + QString("*cos(a*%1)").arg(199 - n);
    sText += "," + sText + "-(" + sText + ")*b";
    const auto pFormula = Compile(sText);
    CRandomFormula random(4);
    const CSamples samples(300, random);
    std::vector<double> values(300);
    pFormula->EvaluateRange(samples.Columns(), values);
    EXPECT_EQ(BitsOf(values), BitsOf(samples.ByPoint(*pFormula)));
}

TEST(FormulaComposition, HasTheBitsOfEvaluatingOneAfterTheOther)
{
    CRandomFormula random(5);
    const QStringList sLeaves = {"x", "y", "z"};
    for (int nCase = 0; nCase < 500; ++nCase) {
        const auto pFirst = Compile(random.Text({"x", "z"}, 3), {"x", "z"});
        const auto pSecond = Compile(random.Text({"y", "x"}, 3), {"y", "x"});
        const auto pOuter = Compile(random.Text({"p", "q", "z"}, 4), {"p", "q", "z"});
        const SFormulaBinding bindings[] = {{pFirst, {0, 2}}, {pSecond, {1, 0}}, {nullptr, {2}}};
        const auto pComposed = CFormula::Compose(*pOuter, bindings, sLeaves.size());
        ASSERT_EQ(pComposed->GetInputCount(), 3);
        for (int n = 0; n < 20; ++n) {
            const double x = random.Value(), y = random.Value(), z = random.Value();
            const double dFirst = pFirst->Evaluate(std::vector{x, z});
            const double dSecond = pSecond->Evaluate(std::vector{y, x});
            ASSERT_EQ(BitsOf({pComposed->Evaluate(std::vector{x, y, z})}),
                      BitsOf({pOuter->Evaluate(std::vector{dFirst, dSecond, z})}));
        }
    }
}

TEST(FormulaComposition, AnInnerResultWithoutAValueGivesNoneThroughAnyDepth)
{
    const SFormulaBinding constant[] = {{CFormula::Constant(std::nan("")), {}}};
    EXPECT_EQ(CFormula::Compose(*Compile("r^0", {"r"}), constant, 0)->Evaluate({}), NO_VALUE);
    for (const char* const sInner : {"x/x", "1/x", "999999+x"}) {
        auto pFormula = Compile(sInner, {"x"});
        for (const char* const sOuter : {"max(r,1)", "1/r", "r-999998"}) {
            const SFormulaBinding bindings[] = {{pFormula, {0}}};
            pFormula = CFormula::Compose(*Compile(sOuter, {"r"}), bindings, 1);
            EXPECT_EQ(pFormula->Evaluate(std::vector{0.0}), NO_VALUE) << sInner << ", " << sOuter;
        }
        EXPECT_NE(pFormula->Evaluate(std::vector{0.5}), NO_VALUE) << sInner;
    }
}

// All but one of the points go through arrays where they stand.
TEST(FormulaRange, OnePointWithoutAValueTakesNoOtherWithIt)
{
    for (const double dMark : {NO_VALUE, std::nan(""), HUGE_VAL}) {
        std::vector<float> a(5000, 3.0F);
        const std::vector<double> b(5000, 2.0);
        a[4321] = float(dMark);
        const CFormulaColumn columns[] = {std::span(std::as_const(a)), std::span(b)};
        std::vector<double> out(5000), expected(5000, 7.0);
        expected[4321] = NO_VALUE;
        Compile("x*y+1", {"x", "y"})->EvaluateRange(columns, out);
        EXPECT_EQ(out, expected);
    }
}

TEST(FormulaComposition, WhatVariablesShareIsComputedOnce)
{
    // A chain in which each formula reads the one before twice would grow to 2^40 operations.
    auto pChain = Compile("x+1", {"x"});
    const int nFirst = pChain->GetStepCount();
    for (int n = 0; n < 40; ++n) {
        const SFormulaBinding bindings[] = {{pChain, {0}}, {pChain, {0}}};
        pChain = CFormula::Compose(*Compile("r*0.5+s*0.25", {"r", "s"}), bindings, 1);
    }
    EXPECT_EQ(pChain->GetStepCount(), nFirst + 40 * 4);
    EXPECT_TRUE(std::isfinite(pChain->Evaluate(std::vector{1.0})));
}
