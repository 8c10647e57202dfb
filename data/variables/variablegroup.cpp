#include "data/variables/variablegroup.h"

#include "data/variables/ivariable.h"

#include <QStringList>

VariableGroup_e GroupOf(const IVariable* pVariable)
{
    static const QStringList s_constants = {"Vinf", "Rhoinf", "Pinf", "Rgas", "gamma"};
    if (!pVariable)
        return GroupBuiltIn;
    if (pVariable->IsFileVariable())
        return GroupFile;
    if (pVariable->IsGradientScalar())
        return GroupGradient;
    if (s_constants.contains(pVariable->GetName()))
        return GroupConstant;
    return pVariable->IsExpression() && pVariable->IsUserVariable() ? GroupUser : GroupBuiltIn;
}
