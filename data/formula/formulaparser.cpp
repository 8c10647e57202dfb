#include "data/formula/formulaparser.h"

#include <QScopedValueRollback>

CFormulaParser::CFormulaParser(const QByteArray& text, std::span<const std::string> inputs,
                               CFormulaBuilder& builder)
    : m_lexer(text), m_builder(builder)
{
    for (size_t n = 0; n < inputs.size(); ++n)
        m_inputs.try_emplace(inputs[n], int(n));
    m_token = m_lexer.Next();
}

int CFormulaParser::Parse()
{
    const int nValue = ParseList();
    return m_token.eKind == TokenEnd ? nValue : Fail();
}

int CFormulaParser::ParseList()
{
    int nValue = ParseExpression();
    while (Accept(','))
        nValue = ParseExpression(); // nothing but its value could be seen of the one before
    return nValue;
}

int CFormulaParser::ParseExpression()
{
    int nValue = ParseTerm();
    for (;;) {
        if (Accept('+'))
            nValue = m_builder.Binary(OpAdd, nValue, ParseTerm());
        else if (Accept('-'))
            nValue = m_builder.Binary(OpSubtract, nValue, ParseTerm());
        else
            return nValue;
    }
}

int CFormulaParser::ParseTerm()
{
    int nValue = ParseFactor();
    for (;;) {
        if (Accept('*'))
            nValue = m_builder.Binary(OpMultiply, nValue, ParseFactor());
        else if (Accept('/'))
            nValue = m_builder.Binary(OpDivide, nValue, ParseFactor());
        else if (Accept('%'))
            nValue = m_builder.Binary(OpModulo, nValue, ParseFactor());
        else
            return nValue;
    }
}

int CFormulaParser::ParseFactor()
{
    int nValue = ParsePower();
    while (Accept('^')) // from the left: 2^3^2 is 64
        nValue = m_builder.Binary(OpPow, nValue, ParsePower());
    return nValue;
}

int CFormulaParser::ParsePower()
{
    bool bNegative = false;
    for (;;) {
        if (Accept('-'))
            bNegative = !bNegative;
        else if (!Accept('+'))
            break;
    }
    const int nValue = ParseBase();
    return bNegative ? m_builder.Unary(OpNegate, nValue) : nValue;
}

int CFormulaParser::ParseBase()
{
    const QScopedValueRollback<int> nesting(m_nNesting, m_nNesting + 1);
    if (m_nNesting > MAX_NESTING || m_token.eKind == TokenError)
        return Fail();
    if (m_token.eKind == TokenIdentifier)
        return ParseIdentifier();
    if (m_token.eKind == TokenNumber) {
        const int nValue = m_builder.Constant(m_token.dValue);
        m_token = m_lexer.Next();
        return nValue;
    }
    return ParseParentheses();
}

int CFormulaParser::ParseIdentifier()
{
    const auto it = m_inputs.find(m_token.sText);
    const SFormulaFunction* const pFunction = FindFormulaFunction(m_token.sText);
    if (it == m_inputs.end() && pFunction == nullptr)
        return Fail();
    m_token = m_lexer.Next();
    return it != m_inputs.end() ? m_builder.Input(it->second) : ParseFunction(*pFunction);
}

int CFormulaParser::ParseFunction(const SFormulaFunction& function)
{
    if (function.nArgumentCount == 0) {
        if (Accept('('))
            Expect(')');
        return m_builder.Constant(function.dConstant);
    }
    if (function.nArgumentCount == 1) // binds tighter than an operator: sin x^2 is (sin x)^2
        return m_builder.Unary(function.eOperation, ParsePower());
    Expect('(');
    const int nA = ParseExpression();
    Expect(',');
    const int nB = ParseExpression();
    Expect(')');
    return m_builder.Binary(function.eOperation, nA, nB);
}

int CFormulaParser::ParseParentheses()
{
    if (!Accept('('))
        return Fail();
    const int nValue = ParseList();
    Expect(')');
    return nValue;
}

bool CFormulaParser::Accept(char cSymbol)
{
    if (!m_token.IsSymbol(cSymbol))
        return false;
    m_token = m_lexer.Next();
    return true;
}

void CFormulaParser::Expect(char cSymbol)
{
    if (!Accept(cSymbol))
        Fail();
}

/** Notes the first fault, and stops everything that would read on. Gives a value to go on with. */
int CFormulaParser::Fail()
{
    if (m_nErrorPosition == 0)
        m_nErrorPosition = m_token.nPosition + 1;
    m_token.eKind = TokenError;
    return m_builder.Constant(0.0);
}
