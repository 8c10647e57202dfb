#include "data/formula/formula.h"

#include "frame/novalue.h"

#include <bit>
#include <clocale>
#include <limits>

namespace {
constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

// Inputs of the tables; "pi_" and "e2" begin like built-in names, "sin" hides one in its own test.
const QStringList INPUTS = {"a", "b", "pi_", "e2", "ab12bap0_5ab"};
constexpr double VALUES[] = {2.0, 5.0, 7.0, 11.0, 13.0};

/** The value with the inputs above, or nothing if the text doesn't compile. */
std::optional<double> ValueOf(const QString& sText)
{
    const SCompiledFormula compiled = CFormula::Compile(sText, INPUTS);
    EXPECT_EQ(compiled.pFormula == nullptr, compiled.nErrorPosition != 0) << sText.toStdString();
    return compiled.pFormula ? std::optional(compiled.pFormula->Evaluate(VALUES)) : std::nullopt;
}

/** The function of x as an input, so that nothing is computed ahead. */
double Call(const QString& sText, double x, double y = 0.0)
{
    const double values[] = {x, y};
    return CFormula::Compile(sText, {"x", "y"}).pFormula->Evaluate(values);
}

struct SValueCase
{
    const char* sText;
    double dExpected;
};
struct SErrorCase
{
    const char* sText;
    int nPosition;
};
} // namespace

TEST(Formula, ValuesAreWhatTheGrammarSays)
{
    constexpr double PI = 3.141592653589793, E = 2.718281828459045;
    const std::vector<SValueCase> numbers = {
        {"42", 42.0},    {"1e-3", 0.001}, {".5", 0.5},     {"1.", 1.0},         {"1.e2", 100.0},
        {"2E+2", 200.0}, {"0x1f", 31.0},  {"0x.8p1", 1.0}, {"1e999", NO_VALUE}, {"1e-999", 0.0},
        {"0.1", 0.1},    {"1e1-1", 9.0},  {"1.5e1", 15.0}, {" \t\r\n1 \n", 1.0}};
    const std::vector<SValueCase> binding = {
        {"1+2*3", 7.0},  {"7-2-1", 4.0},  {"12/3/2", 2.0},        {"17%10*2", 14.0}, {"-7%3", -1.0},
        {"5.5%-2", 1.5}, {"2*3^2", 18.0}, {"2^3^2", 64.0},        {"2^-1", 0.5},     {"-2^2", 4.0},
        {"0-2^2", -4.0}, {"2*-3", -6.0},  {"--2", 2.0},           {"-+-+-2", -2.0},  {"3--2", 5.0},
        {"- - 2", 2.0},  {"+2", 2.0},     {"-0", -0.0},           {"-(1,2)^2", 4.0}, {"(1+2)*3", 9.0},
        {"((4))", 4.0},  {"1,2", 2.0},    {"(1,2)+(3,4,5)", 7.0}, {"0/0,3", 3.0}};
    const std::vector<SValueCase> names = {{"a", 2.0},     {"-a^b", -32.0}, {"e", E},
                                           {"pi", PI},     {"pi()", PI},    {"pi ( )", PI},
                                           {"e()*0", 0.0}, {"sin 0", 0.0},  {"ln(e)", 1.0}};
    const std::vector<SValueCase> calls = {
        {"a*b-pi_", 3.0},       {"sqrt 4 ^ 2", 4.0},   {"sqrt 16 * 4", 16.0}, {"abs -2^2", 4.0},
        {"sqrt sqrt 16", 2.0},  {"-sqrt 4", -2.0},     {"sqrt(1,4)", 2.0},    {"sqrt(4)^3", 8.0},
        {"abs(-a)", 2.0},       {"log(100)", 2.0},     {"log10(100)", 2.0},   {"pow(a,b)", 32.0},
        {"max ( a , b )", 5.0}, {"min(b,(9,a))", 2.0}, {"fac(3.9)", 6.0}};
    const std::vector<SValueCase> longer = {{"4.9406564584124654e-324", 4.9406564584124654e-324},
                                            {"e2+ab12bap0_5ab", 24.0},
                                            {"atan2(1,2)", 0.46364760900080609},
                                            {"round(2.5)+round(-2.5)", 0.0},
                                            {"floor(-1.5)+ceil(1.2)", 0.0},
                                            {"ncr(5,2)+npr(5,2)", 30.0}};
    const std::vector<SValueCase> noNumbers = {
        {"0/0", NO_VALUE},      {"a-a/0+a/0", NO_VALUE}, {"(a-2)/(a-2)", NO_VALUE},
        {"sqrt(-1)", NO_VALUE}, {"1/0", NO_VALUE},       {"ln 0", NO_VALUE},
        {"0/0+1", NO_VALUE},    {"1/(1/0)", 0.0},        {"999999+1", 1e6}};
    for (const std::vector<SValueCase>& cases : {numbers, binding, names, calls, longer, noNumbers})
        for (const auto& [sText, dExpected] : cases) {
            const std::optional<double> value = ValueOf(sText);
            ASSERT_TRUE(value) << sText;
            EXPECT_EQ(std::bit_cast<quint64>(*value), std::bit_cast<quint64>(dExpected))
                << sText << " = " << *value;
        }
}

TEST(Formula, AnErrorStandsAtTheTokenThatDoesNotFit)
{
    const SErrorCase cases[] = {
        {"", 1},         {"  ", 3},
        {"+", 2},        {"1+", 3},
        {"*2", 1},       {"1 2", 3},
        {"2pi", 2},      {"a b", 3},
        {"(1", 3},       {"1)", 2},
        {"()", 2},       {"1,", 3},
        {",1", 1},       {"1+(2*3))-4", 8},
        {"1.2.3", 4},    {".", 1},
        {"1+.e5", 3},    {"1e", 2},
        {"0x", 2},       {"Sqrt(4)", 1},
        {"1+A", 3},      {"aB", 2},
        {"c", 1},        {"sinx", 1},
        {"_a", 1},       {"<a>", 1},
        {"a<3", 2},      {"2**3", 3},
        {"a=1", 2},      {"1\x01", 2},
        {"1+\xE4", 3},   {"sin", 4},
        {"sin()", 5},    {"pi(1)", 4},
        {"pi(", 4},      {"a()", 2},
        {"atan2(1)", 8}, {"atan2(1,2,3)", 10},
        {"atan2 1", 7},  {"atan2(1,)", 9},
        {"atan2", 6},    {"ab12bap0.5ab", 1},
        {"inf", 1},      {"nan", 1},
        {"1;2", 2},
    };
    for (const auto& [sText, nPosition] : cases) {
        const SCompiledFormula compiled = CFormula::Compile(QString::fromLatin1(sText), INPUTS);
        EXPECT_EQ(compiled.nErrorPosition, nPosition) << sText;
        EXPECT_EQ(compiled.pFormula, nullptr) << sText;
    }
}

TEST(Formula, TextBeyondLatin1AndZeroBytesAreErrorsAtTheirPlace)
{
    EXPECT_EQ(CFormula::Compile(QString("1+") + QChar(0x3b1), {}).nErrorPosition, 3);
    EXPECT_EQ(CFormula::Compile(QString("12") + QChar(0) + "+1", {}).nErrorPosition, 3);
}

TEST(Formula, AnInputHidesTheBuiltInNameAndTheFirstOfEqualNamesCounts)
{
    const double values[] = {3.0, 4.0};
    EXPECT_EQ(CFormula::Compile("sin", {"sin", "sin"}).pFormula->Evaluate(values), 3.0);
    EXPECT_EQ(CFormula::Compile("pi*2", {"x", "pi"}).pFormula->Evaluate(values), 8.0);
}

TEST(Formula, NumbersHaveAPointInEveryLocale)
{
    const std::string sBefore = std::setlocale(LC_NUMERIC, nullptr);
    for (const char* sLocale : {"de_DE.UTF-8", "fr_FR.UTF-8", ""})
        std::setlocale(LC_NUMERIC, sLocale);
    EXPECT_EQ(ValueOf("1.5+2.5"), 4.0);
    std::setlocale(LC_NUMERIC, sBefore.c_str());
}

TEST(Formula, FunctionsOfOneArgumentGiveTheLibraryValues)
{
    const std::pair<const char*, double (*)(double)> functions[] = {
        {"abs", fabs},    {"acos", acos}, {"asin", asin},   {"atan", atan}, {"ceil", ceil}, {"cos", cos},
        {"cosh", cosh},   {"exp", exp},   {"floor", floor}, {"ln", log},    {"log", log10}, {"log10", log10},
        {"round", round}, {"sin", sin},   {"sinh", sinh},   {"sqrt", sqrt}, {"tan", tan},   {"tanh", tanh}};
    const double arguments[] = {0.0,  -0.0, 0.3,   -0.7, 0.5,  1.0,    -1.0, 2.5,   -2.5,
                                1e30, 800., -800., INF,  -INF, 5e-324, 1e-9, 710.5, NOT_A_NUMBER};
    for (const auto& [sName, function] : functions) {
        for (const double x : arguments) {
            const bool bHasValue = std::isfinite(x) && std::isfinite(function(x));
            const double dExpected = bHasValue ? function(x) : NO_VALUE;
            EXPECT_EQ(std::bit_cast<quint64>(Call(QString(sName) + " x", x)),
                      std::bit_cast<quint64>(dExpected))
                << sName << " " << x;
        }
    }
}

TEST(Formula, WhatRestsOnAnInputWithoutAValueHasNone)
{
    QStringList sTextList = {"x",        "-x",         "x+y",       "y-x",      "x*0",      "0/x",
                             "x%y",      "y%x",        "x^0",       "1^x",      "pow(x,y)", "pow(y,x)",
                             "max(x,y)", "max(y,x)",   "min(x,y)",  "min(y,x)", "ncr(x,0)", "ncr(y,x)",
                             "npr(x,0)", "atan2(x,y)", "atan2(y,x)"};
    for (const char* sName : {"abs", "acos", "asin", "atan", "ceil", "cos", "cosh", "exp", "fac", "floor",
                              "ln", "log", "log10", "round", "sin", "sinh", "sqrt", "tan", "tanh"})
        sTextList.append(QString(sName) + " x");
    for (const QString& sText : sTextList)
        for (const double x : {NO_VALUE, NOT_A_NUMBER, INF, -INF})
            EXPECT_EQ(Call(sText, x, 0.5), NO_VALUE) << sText.toStdString() << " of " << x;
}

TEST(Formula, PowersFollowTheLibraryAndSquaresAreRoundedOnce)
{
    for (const double x : {0.1, -3.7, 1e150, -0.0, 5e-324})
        EXPECT_EQ(Call("x^2", x), x * x);
    for (const double x : {0.1, 1e80, 7.0})
        for (const double y : {3.5, -1.0, 0.0, 0.5})
            EXPECT_EQ(Call("x^y", x, y), std::pow(x, y)) << x << " " << y;
    EXPECT_EQ(Call("x^y", -8.0, 1.0 / 3.0), NO_VALUE);
}

// Of ncr(31,15) the value fits, but not a product on the way.
TEST(Formula, CountingFunctionsStayIn32Bits)
{
    constexpr double MAX = 4294967295.0;
    struct SCase
    {
        double x, y, dExpected;
    };
    const std::vector<SCase> fac = {{0.0, 0, 1.0},         {-0.0, 0, 1.0},     {12.99, 0, 479001600.0},
                                    {13.0, 0, NO_VALUE},   {MAX, 0, NO_VALUE}, {MAX + 1.0, 0, NO_VALUE},
                                    {-1e-300, 0, NO_VALUE}};
    const std::vector<SCase> ncr = {{5.0, 0.0, 1.0},
                                    {0.0, 0.0, 1.0},
                                    {5.9, 2.9, 10.0},
                                    {52.0, 47.0, 2598960.0},
                                    {30.0, 15.0, 155117520.0},
                                    {31.0, 15.0, NO_VALUE},
                                    {MAX, 1.0, MAX},
                                    {MAX, MAX, 1.0},
                                    {MAX, 2.0, NO_VALUE},
                                    {MAX, 2147483647.0, NO_VALUE},
                                    {MAX + 1.0, 1.0, NO_VALUE},
                                    {2.0, 3.0, NO_VALUE},
                                    {3.2, 3.3, NO_VALUE},
                                    {3.0, -1.0, NO_VALUE},
                                    {-3.0, -4.0, NO_VALUE}};
    const std::vector<SCase> npr = {{10.0, 3.0, 720.0},
                                    {30.0, 12.0, 86493225.0 * 479001600.0},
                                    {30.0, 13.0, NO_VALUE},
                                    {2.0, 3.0, NO_VALUE}};
    for (const auto& [sText, cases] : {std::pair{"fac x", fac}, {"ncr(x,y)", ncr}, {"npr(x,y)", npr}})
        for (const SCase& row : cases)
            EXPECT_EQ(Call(sText, row.x, row.y), row.dExpected) << sText << " " << row.x << " " << row.y;
}

TEST(Formula, EqualPartsAreComputedOnceAndConstantsAhead)
{
    const auto nSteps = [](const QString& sText) {
        return CFormula::Compile(sText, INPUTS).pFormula->GetStepCount();
    };
    constexpr int MARKER = 1; // ends each formula that isn't constant
    EXPECT_EQ(nSteps("(a+b)*sin(b+a)"), 3 + MARKER);
    EXPECT_EQ(nSteps("a*(2*3-sqrt 4)"), 1 + MARKER);
    EXPECT_EQ(nSteps("2*a*3"), 2 + MARKER); // not a*6, which rounds otherwise
    EXPECT_EQ(nSteps("a/b+b/a"), 3 + MARKER);
    EXPECT_EQ(nSteps("sin(a),sin(b),7"), 0);
    EXPECT_FALSE(CFormula::Compile("a,b", INPUTS).pFormula->ReadsInput(0));
    EXPECT_TRUE(CFormula::Compile("a,b", INPUTS).pFormula->ReadsInput(1));
}

TEST(Formula, HostileTextEndsInAFormulaOrAnError)
{
    constexpr int MANY = CFormula::MAX_LENGTH;
    EXPECT_EQ(ValueOf(QString(1000, '(') + "7" + QString(1000, ')')), std::nullopt);
    EXPECT_EQ(ValueOf(QString(999, '(') + "7" + QString(999, ')')), 7.0);
    for (const char* sPiece : {"(", ")", "-", "sin ", "a+", "a*(", "pow(", "pow(a,", "1,", ".", "9", "a",
                               "1e", "%", "a^sin(b)-", "((a+b),"}) {
        const QString sText = QString(sPiece).repeated(MANY / int(qstrlen(sPiece)));
        ValueOf(sText);
        ValueOf(sText + "1");
    }
    EXPECT_EQ(ValueOf(QString("-").repeated(MANY - 2) + "1"), 1.0);
    EXPECT_EQ(ValueOf(QString("1+").repeated(MANY / 2 - 1) + "1"), MANY / 2);
    EXPECT_EQ(CFormula::Compile(QString("1").repeated(MANY + 1), {}).nErrorPosition, MANY + 1);
}
