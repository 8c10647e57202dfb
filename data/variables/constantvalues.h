#pragma once

#include "data/formula/fieldrecipe.h"

#include <optional>

/** The values of variables that depend on no file, each worked out once. */
class CConstantValues
{
public:
    explicit CConstantValues(const CFieldRecipes& recipes) : m_recipes(recipes) {}

    /** Nothing for a variable that rests on files; zeros for one that doesn't exist. A scalar three times. */
    std::optional<DVector3D> Of(qint64 nVariableId);
    std::optional<DVector3D> Of(const SFieldRecipe& recipe);

private:
    const CFieldRecipes& m_recipes;
    std::unordered_map<qint64, std::optional<DVector3D>> m_known;
};
