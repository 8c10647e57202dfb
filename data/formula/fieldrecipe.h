#pragma once

#include "data/formula/formulatext.h"
#include "frame/vector3d.h"

#include <QVector>

#include <array>
#include <memory>
#include <unordered_map>

class CFormula;

enum VariableLocation_e : qint32 { LocationNone = 0, LocationNode = 1, LocationCell = 2 };
enum VariableKind_e : qint32 { KindScalar = 0, KindVector = 1 };

/** What a computed variable reads: a variable at a time; STEADY_TIME: at the time that is asked for. */
using SVariableInput = SFormulaInput;

/**
 * How the values of a variable come about, as it was at one moment: all that a field needs to know of its
 * variable. Published ones never change, so any thread may use them while variables come and go.
 */
struct SFieldRecipe
{
    qint64 nVariableId = -1;
    qint64 nSimulationId = -1; ///< the owner
    bool bOfFile = true;       ///< the values stand in files
    bool bOfGrid = false;      ///< they are the coordinates of the grid
    bool bFormula = false;     ///< they are computed by pFormula
    VariableKind_e eKind = KindScalar;
    VariableLocation_e eLocation = LocationNode;
    QVector<SVariableInput> inputs;
    std::shared_ptr<const CFormula> pFormula; ///< over the inputs; null: it doesn't compile, no values
    std::array<qint64, 3> components = {{-1, -1, -1}}; ///< of a vector: places among the inputs; -1: 0
};

/** The recipes of all variables at one moment. */
class CFieldRecipes
{
public:
    /** Null for an unknown id. */
    std::shared_ptr<const SFieldRecipe> Find(qint64 nVariableId) const
    {
        const auto found = m_recipes.find(nVariableId);
        return found == m_recipes.end() ? nullptr : found->second;
    }
    void Put(const SFieldRecipe& recipe)
    {
        m_recipes[recipe.nVariableId] = std::make_shared<SFieldRecipe>(recipe);
    }
    void Remove(qint64 nVariableId) { m_recipes.erase(nVariableId); }

private:
    std::unordered_map<qint64, std::shared_ptr<const SFieldRecipe>> m_recipes;
};
