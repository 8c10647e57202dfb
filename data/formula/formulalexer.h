#pragma once

#include <QByteArray>

#include <string_view>

enum FormulaToken_e { TokenEnd, TokenError, TokenNumber, TokenIdentifier, TokenSymbol };

struct SFormulaToken
{
    FormulaToken_e eKind = TokenEnd;
    int nPosition = 0;      ///< of its first character, from 0
    std::string_view sText; ///< into the text of the lexer
    double dValue = 0.0;    ///< of a number

    bool IsSymbol(char cSymbol) const { return eKind == TokenSymbol && sText.front() == cSymbol; }
};

/**
 * Cuts a text in Latin-1 into tokens: symbols ("+", "-", "*", "/", "%", "^", "(", ")", ","), identifiers in
 * lower case, and numbers, the longest piece that strtod takes in the C locale ("1E5", "0x1f" too).
 */
class CFormulaLexer
{
public:
    explicit CFormulaLexer(const QByteArray& text) : m_text(text) {}

    /** The next token; the end again and again at the end. */
    SFormulaToken Next();

private:
    SFormulaToken Take(FormulaToken_e eKind, int nLength, double dValue = 0.0);
    SFormulaToken TakeNumber();
    SFormulaToken TakeIdentifier();

    const QByteArray m_text; // ends with a 0, at which strtod stops
    int m_nNext = 0;
};
