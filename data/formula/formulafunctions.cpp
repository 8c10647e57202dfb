#include "data/formula/formulafunctions.h"

#include <algorithm>

namespace {

constexpr SFormulaFunction Function(std::string_view sName, int nArgumentCount, FormulaOperation_e eOperation)
{
    return {sName, nArgumentCount, eOperation, 0.0};
}
constexpr SFormulaFunction Constant(std::string_view sName, double dValue)
{
    return {sName, 0, OpMarker, dValue};
}

constexpr SFormulaFunction FUNCTIONS[] = {
    Function("abs", 1, OpAbs),     Function("acos", 1, OpAcos),       Function("asin", 1, OpAsin),
    Function("atan", 1, OpAtan),   Function("atan2", 2, OpAtan2),     Function("ceil", 1, OpCeil),
    Function("cos", 1, OpCos),     Function("cosh", 1, OpCosh),       Constant("e", 2.718281828459045),
    Function("exp", 1, OpExp),     Function("fac", 1, OpFac),         Function("floor", 1, OpFloor),
    Function("ln", 1, OpLn),       Function("log", 1, OpLog10),       Function("log10", 1, OpLog10),
    Function("max", 2, OpMax),     Function("min", 2, OpMin),         Function("ncr", 2, OpNcr),
    Function("npr", 2, OpNpr),     Constant("pi", 3.141592653589793), Function("pow", 2, OpPow),
    Function("round", 1, OpRound), Function("sin", 1, OpSin),         Function("sinh", 1, OpSinh),
    Function("sqrt", 1, OpSqrt),   Function("tan", 1, OpTan),         Function("tanh", 1, OpTanh),
};
static_assert(std::ranges::is_sorted(FUNCTIONS, {}, &SFormulaFunction::sName)); // FindFormulaFunction bisects

} // namespace

const SFormulaFunction* FindFormulaFunction(std::string_view sName)
{
    const auto* const pFunction = std::ranges::lower_bound(FUNCTIONS, sName, {}, &SFormulaFunction::sName);
    return pFunction != std::end(FUNCTIONS) && pFunction->sName == sName ? pFunction : nullptr;
}
