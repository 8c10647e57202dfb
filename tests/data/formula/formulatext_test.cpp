#include "data/formula/formulatext.h"

#include "data/formula/formula.h"
#include "frame/novalue.h"

#include <limits>

using namespace FormulaText;

namespace {
constexpr SReferenceForm PLAIN{false, false};
constexpr SReferenceForm SIMULATIONS{true, false};
constexpr SReferenceForm TIMES{false, true};
constexpr SReferenceForm BOTH{true, true};

const QVector<SReferencedVariable> SCOPE = {
    {12, "R", 1},
    {13, "RU", 1},
    {14, "P[Q]", 1},
    {15, "R", 2},
    {16, "D", 0},
    {17, "F1.2", 1},
    {18, "u@meanflow; velocity", 1},
};

std::optional<SReferencedVariable> FindVariable(qint64 nId)
{
    for (const SReferencedVariable& variable : SCOPE)
        if (variable.nId == nId)
            return variable;
    return {};
}

QString Shown(const SBoundText& bound, SReferenceForm form)
{
    return ShowReferences(bound.sText, bound.inputs, FindVariable, form);
}
} // namespace

TEST(FormulaText, ReferencesAreFoundByNameSimulationAndTime)
{
    struct SCase
    {
        const char* sText;
        SReferenceForm form;
        QVector<SFormulaInput> inputs;
        const char* sStored;
    };
    const SCase cases[] = {
        {"<R>", PLAIN, {{12, -1.0}}, "ab12bam1ab"},
        {"<RU>/<R>", PLAIN, {{13, -1.0}, {12, -1.0}}, "ab13bam1ab/ab12bam1ab"},
        {"<R>*<R>", PLAIN, {{12, -1.0}}, "ab12bam1ab*ab12bam1ab"},
        {"<P[Q]>+<F1.2>", PLAIN, {{14, -1.0}, {17, -1.0}}, "ab14bam1ab+ab17bam1ab"},
        {"<u@meanflow; velocity>", PLAIN, {{18, -1.0}}, "ab18bam1ab"},
        {"<r>", PLAIN, {}, "<r>"},
        {"<2@R>", PLAIN, {}, "<2@R>"},
        {"<R@0.5>", PLAIN, {}, "<R@0.5>"},
        {"<2@R>-<1@R>", SIMULATIONS, {{15, -1.0}, {12, -1.0}}, "ab15bam1ab-ab12bam1ab"},
        {"<0@D>", SIMULATIONS, {{16, -1.0}}, "ab16bam1ab"},
        {"<R>", SIMULATIONS, {}, "<R>"},
        {"<2@R@0.5>", SIMULATIONS, {}, "<2@R@0.5>"},
        {"<R@0.5>", TIMES, {{12, 0.5}}, "ab12bap0_5ab"},
        {"<R@0.50>-<R@.5>", TIMES, {{12, 0.5}}, "ab12bap0_5ab-ab12bap0_5ab"},
        {"<R@>+<R@-1>+<R>", TIMES, {{12, -1.0}}, "ab12bam1ab+ab12bam1ab+ab12bam1ab"},
        {"<R@-0.25>", TIMES, {{12, -0.25}}, "ab12bam0_25ab"},
        {"<R@0>-<R@-0>", TIMES, {{12, 0.0}}, "ab12bap0ab-ab12bap0ab"},
        {"<R@1e-7>", TIMES, {{12, 1e-7}}, "ab12bap9_9999999999999995en08ab"},
        {"<R@1e300>", TIMES, {{12, 1e300}}, "ab12bap1_0000000000000001e300ab"},
        {"<R@x>+<R@nan>", TIMES, {}, "<R@x>+<R@nan>"},
        {"<R@1@2>", TIMES, {}, "<R@1@2>"},
        {"<u@meanflow; velocity>", TIMES, {{18, -1.0}}, "ab18bam1ab"},
        {"<u@meanflow; velocity@3>", TIMES, {{18, 3.0}}, "ab18bap3ab"},
        {"<2@R@0.5>", BOTH, {{15, 0.5}}, "ab15bap0_5ab"},
        {"<2@R>", BOTH, {{15, -1.0}}, "ab15bam1ab"},
        {"<1@u@meanflow; velocity@3>", BOTH, {{18, 3.0}}, "ab18bap3ab"},
        {"<R>", BOTH, {}, "<R>"},
        {"<><R>", PLAIN, {{12, -1.0}}, "<>ab12bam1ab"},
        {"<x><R", PLAIN, {}, "<x><R"},
        {"<x <R><R>", PLAIN, {{12, -1.0}}, "<x <R>ab12bam1ab"},
        {">R<", PLAIN, {}, ">R<"},
    };
    for (const SCase& row : cases) {
        const SBoundText bound = BindReferences(row.sText, SCOPE, row.form);
        EXPECT_EQ(bound.inputs, row.inputs) << row.sText;
        EXPECT_EQ(bound.sText, row.sStored) << row.sText;
    }
}

TEST(FormulaText, ReferencesWithAnyTimeCompileAndAreShownAsTheyReadBack)
{
    constexpr double THIRD = 1.0 / 3.0, LARGEST = std::numeric_limits<double>::max(),
                     LEAST = std::numeric_limits<double>::min();
    constexpr double TIMES_TO_TRY[] = {-1.0, 0.0,     1.0,     0.5,           0.1,    THIRD,
                                       -2.5, 1e-5,    1.25e-7, 123456789.125, 1e15,   1e16,
                                       1e22, 6.02e23, LARGEST, LEAST,         5e-324, -1e-300};
    for (const double dTime : TIMES_TO_TRY) {
        const QString sText = Reference({15, "R", 2}, dTime, BOTH) + " + 1";
        const SBoundText bound = BindReferences(sText, SCOPE, BOTH);
        ASSERT_EQ(bound.inputs, QVector<SFormulaInput>({{15, dTime}})) << sText.toStdString();
        const auto pFormula = CFormula::Compile(bound.sText, Placeholders(bound.inputs)).pFormula;
        ASSERT_TRUE(pFormula) << bound.sText.toStdString();
        EXPECT_EQ(pFormula->Evaluate(std::vector{41.0}), 42.0);
        EXPECT_EQ(Shown(bound, BOTH), sText);
    }
    EXPECT_EQ(Reference({15, "R", 2}, 0.1, TIMES), "<R@0.1>");
    EXPECT_EQ(Reference({15, "R", 2}, STEADY_TIME, BOTH), "<2@R>");
}

TEST(FormulaText, TheFormDecidesWhatAReferenceShows)
{
    const SBoundText bound = BindReferences("<2@R@0.5> - <1@RU>", SCOPE, BOTH);
    EXPECT_EQ(Shown(bound, BOTH), "<2@R@0.5> - <1@RU>");
    EXPECT_EQ(Shown(bound, TIMES), "<R@0.5> - <RU>");
    EXPECT_EQ(Shown(bound, SIMULATIONS), "<2@R> - <1@RU>");
    EXPECT_EQ(Shown(bound, PLAIN), "<R> - <RU>");
    EXPECT_EQ(ShowReferences("ab99bam1ab", {{99, -1.0}}, FindVariable, PLAIN), "ab99bam1ab");
}

TEST(FormulaText, PlaceholdersAreReplacedWholeAndInOnePass)
{
    const QVector<SFormulaInput> inputs = {{1, -1.0}, {11, -1.0}, {1, 0.5}};
    const QString sStored = "ab11bam1ab-ab1bam1abab1bap0_5ab-aab1bam1ab+ab1bam1a+abab1bam1ab";
    EXPECT_EQ(ShowInputPositions(sStored, inputs), "<1>-<0><2>-a<0>+ab1bam1a+ab<0>");
    EXPECT_EQ(ReplaceInput("ab1bam1ab*ab11bam1ab", {1, -1.0}, {11, 2.0}), "ab11bap2ab*ab11bam1ab");
    EXPECT_EQ(RemoveInput("ab1bam1ab+2-ab1bap0_5ab", {1, -1.0}), "+2-ab1bap0_5ab");
    // A name that reads like another input's placeholder isn't replaced in its turn.
    const auto find = [](qint64 nId) { return SReferencedVariable{nId, nId == 1 ? "ab11bam1ab" : "Q", 1}; };
    EXPECT_EQ(ShowReferences("ab1bam1ab/ab11bam1ab", inputs, find, PLAIN), "<ab11bam1ab>/<Q>");
}

TEST(FormulaText, NamesWithAMeaningInReferencesAreRefused)
{
    for (const char* sName : {"R", "P[Q]", "a_b", "x-1"})
        EXPECT_TRUE(IsReferenceName(sName)) << sName;
    for (const char* sName : {"", "a.b", "a b", "a@b", "<a", "a>", " "})
        EXPECT_FALSE(IsReferenceName(sName)) << sName;
}

TEST(FormulaText, LongTextTakesTimeInProportion)
{
    QString sText;
    for (int n = 0; n < 10000; ++n)
        sText += QString("<R@%1>+").arg(n);
    const SBoundText bound = BindReferences(sText + "<R>", SCOPE, TIMES);
    EXPECT_EQ(bound.inputs.size(), 10001);
    EXPECT_TRUE(CFormula::Compile(bound.sText, Placeholders(bound.inputs)).pFormula);
    EXPECT_EQ(Shown(bound, TIMES), sText + "<R>");
    for (const char* sPiece : {"<", ">", "<>", "<R", "ab", "ab1ba", "@"})
        EXPECT_EQ(BindReferences(QString(sPiece).repeated(500000), SCOPE, BOTH).inputs.size(), 0);
    EXPECT_EQ(RemoveInput(QString("ab").repeated(500000), {1, -1.0}).size(), 1000000);
}
