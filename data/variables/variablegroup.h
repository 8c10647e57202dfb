#pragma once

class IVariable;

/** Where a variable stands in lists; they show the groups in this order. */
enum VariableGroup_e {
    GroupFile = 0,
    GroupConstant = 1,   ///< free stream and gas
    GroupBuiltIn = 2,    ///< computed, and not the user's to change
    GroupGradient = 3,   ///< component of a gradient
    GroupUser = 4,       ///< a formula of the user
    GroupComparison = 5, ///< the row above all that draw on several simulations
};

/** The group of a variable; null counts as built in. */
VariableGroup_e GroupOf(const IVariable* pVariable);
