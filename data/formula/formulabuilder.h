#pragma once

#include "data/formula/formulaprogram.h"

#include <span>
#include <unordered_map>

/**
 * Builds a program value by value. Inputs are operands (OpValue) when a program runs. A value is known by a
 * number; equal operations on equal values are one value, and operations on constants are done at once, since
 * they give the same bits now as later. Not for several threads.
 */
class CFormulaBuilder
{
public:
    explicit CFormulaBuilder(int nInputCount);

    int Input(int nInput) const { return nInput; }
    int Constant(double dValue);
    int Unary(FormulaOperation_e eOperation, int nA);
    int Binary(FormulaOperation_e eOperation, int nA, int nB);

    /** The result of another program, whose input n is the value inputs[n], as an operand. */
    int Import(const SFormulaProgram& program, std::span<const int> inputs);

    /** The program that gives the value, NO_VALUE where it is NaN or infinite. */
    SFormulaProgram Finish(int nValue);

private:
    struct SValue
    {
        FormulaOperation_e eOperation;
        int nA; ///< values; -1 in inputs and constants
        int nB;
        double dConstant;
        bool operator==(const SValue& other) const;
    };
    struct SValueHash
    {
        size_t operator()(const SValue& value) const;
    };

    int Add(const SValue& value);
    bool IsInput(int nValue) const { return nValue < m_nInputCount; }
    bool IsStep(int nValue) const { return m_values[nValue].nA >= 0; }
    bool IsConstant(int nValue) const { return !IsInput(nValue) && !IsStep(nValue); }
    std::vector<int> FindLastUses(int nResult) const;
    void PlaceConstants(SFormulaProgram& program, std::span<const int> lastUses,
                        std::vector<int>& places) const;
    void PlaceSteps(SFormulaProgram& program, std::span<const int> lastUses, std::vector<int>& places) const;

    const int m_nInputCount;
    std::vector<SValue> m_values; // inputs first; an argument stands ahead of what uses it
    std::unordered_map<SValue, int, SValueHash> m_numbers; // all but the inputs
};
