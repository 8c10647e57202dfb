#pragma once

#include "data/formula/formulabuilder.h"
#include "data/formula/formulafunctions.h"
#include "data/formula/formulalexer.h"

#include <string>

/**
 * Reads one formula into a builder, by descent: list, expression, term, factor, power, base, from the
 * loosest binding to the tightest. After a fault the present token is an error, which ends every loop.
 */
class CFormulaParser
{
public:
    /** Parentheses and functions within each other; deeper ones are a fault. */
    static constexpr int MAX_NESTING = 1000;

    /**
     * @param inputs  name of each input of the builder; of equal names the first counts. They go ahead of
     *                the built-in names. Names that aren't identifiers are never met.
     */
    CFormulaParser(const QByteArray& text, std::span<const std::string> inputs, CFormulaBuilder& builder);

    /** The value of the whole text; meaningless if there was a fault. */
    int Parse();

    /** Of the first character of the first token that doesn't fit, from 1; 0 if all did. */
    int GetErrorPosition() const { return m_nErrorPosition; }

private:
    int ParseList();
    int ParseExpression();
    int ParseTerm();
    int ParseFactor();
    int ParsePower();
    int ParseBase();
    int ParseIdentifier();
    int ParseFunction(const SFormulaFunction& function);
    int ParseParentheses();

    bool Accept(char cSymbol);
    void Expect(char cSymbol);
    int Fail();

    CFormulaLexer m_lexer;
    CFormulaBuilder& m_builder;
    std::unordered_map<std::string_view, int> m_inputs; // into the names of the constructor
    SFormulaToken m_token;
    int m_nNesting = 0;
    int m_nErrorPosition = 0;
};
