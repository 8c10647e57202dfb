#include "data/formula/formulalexer.h"

#include <locale.h>
#include <stdlib.h>

namespace {
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return c >= 'a' && c <= 'z'; }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool IsSymbol(char c) { return std::string_view("+-*/%^(),").find(c) != std::string_view::npos; }

/** Whatever locale the process has, a number in a formula has a ".". */
locale_t CLocale()
{
    static const locale_t s_locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return s_locale;
}
} // namespace

SFormulaToken CFormulaLexer::Next()
{
    while (m_nNext < m_text.size() && IsBlank(m_text[m_nNext]))
        ++m_nNext;
    if (m_nNext == m_text.size())
        return Take(TokenEnd, 0);
    const char c = m_text[m_nNext];
    if (IsDigit(c) || c == '.')
        return TakeNumber();
    if (IsLetter(c))
        return TakeIdentifier();
    return Take(IsSymbol(c) ? TokenSymbol : TokenError, 1);
}

SFormulaToken CFormulaLexer::Take(FormulaToken_e eKind, int nLength, double dValue)
{
    const int nBegin = m_nNext;
    m_nNext += nLength;
    return {eKind, nBegin, std::string_view(m_text.constData() + nBegin, nLength), dValue};
}

SFormulaToken CFormulaLexer::TakeNumber()
{
    const char* const pBegin = m_text.constData() + m_nNext;
    char* pEnd = nullptr;
    const double dValue = strtod_l(pBegin, &pEnd, CLocale());
    return pEnd == pBegin ? Take(TokenError, 1) : Take(TokenNumber, int(pEnd - pBegin), dValue);
}

SFormulaToken CFormulaLexer::TakeIdentifier()
{
    int nEnd = m_nNext;
    while (nEnd < m_text.size() && (IsLetter(m_text[nEnd]) || IsDigit(m_text[nEnd]) || m_text[nEnd] == '_'))
        ++nEnd;
    return Take(TokenIdentifier, nEnd - m_nNext);
}
