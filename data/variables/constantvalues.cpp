#include "data/variables/constantvalues.h"

#include "data/formula/formula.h"
#include "frame/novalue.h"

std::optional<DVector3D> CConstantValues::Of(qint64 nVariableId)
{
    const std::shared_ptr<const SFieldRecipe> pRecipe = m_recipes.Find(nVariableId);
    if (!pRecipe)
        return DVector3D();
    if (const auto known = m_known.find(nVariableId); known != m_known.end())
        return known->second;
    const std::optional<DVector3D> value = Of(*pRecipe);
    m_known.emplace(nVariableId, value);
    return value;
}

std::optional<DVector3D> CConstantValues::Of(const SFieldRecipe& recipe)
{
    if (recipe.bOfFile)
        return std::nullopt;
    std::vector<double> values;
    for (const SVariableInput& input : recipe.inputs) {
        const std::optional<DVector3D> value = Of(input.nVariableId);
        if (!value)
            return std::nullopt;
        values.push_back(value->x);
    }
    if (!recipe.bFormula) {
        DVector3D vector;
        for (int n = 0; n < 3; ++n)
            if (const qint64 nPlace = recipe.components[n]; nPlace >= 0 && nPlace < qint64(values.size()))
                vector[n] = values[nPlace];
        return vector;
    }
    const bool bFits = recipe.pFormula && recipe.pFormula->GetInputCount() == int(values.size());
    const double dValue = bFits ? recipe.pFormula->Evaluate(values) : NO_VALUE;
    return DVector3D{dValue, dValue, dValue};
}
