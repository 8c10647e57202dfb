#pragma once

#include "data/solutions/isolution.h"
#include "data/variables/constantvalues.h"

#include <map>
#include <memory>
#include <tuple>

class CSolutionManager;

/**
 * One request for a field. All that it rests on goes by the recipes of the moment at which the request began,
 * and is made once, so that a chain of formulas costs linear time. Any thread; one request for one thread.
 */
class CFieldRequest
{
public:
    CFieldRequest(CSolutionManager& manager, std::shared_ptr<const CFieldRecipes> pRecipes)
        : m_manager(manager), m_pRecipes(std::move(pRecipes)), m_constants(*m_pRecipes)
    {}

    struct SPlace
    {
        qint64 nSimulationId = -1;
        qint64 nItemId = -1; ///< -1: all items as one
        double dTime = -1.0;

        friend auto operator<=>(const SPlace&, const SPlace&) = default;
    };

    /** Null if there are no data. @param nSubId  of a variable of files; -1: any */
    CLease<ISolution> Make(qint64 nVariableId, const SPlace& place, qint64 nSubId);

private:
    using Shared = std::shared_ptr<ISolution>;

    Shared Share(qint64 nVariableId, const SPlace& place);
    CLease<ISolution> Compute(std::shared_ptr<const SFieldRecipe> pRecipe, const SPlace& place);
    SPlace PlaceOf(const SVariableInput& input, const SPlace& place);
    bool DrawsOn(qint64 nVariableId, qint64 nSimulationId);

    CSolutionManager& m_manager;
    const std::shared_ptr<const CFieldRecipes> m_pRecipes;
    CConstantValues m_constants;
    std::map<std::pair<qint64, SPlace>, Shared> m_fields;    // by variable and place; null: no data
    std::map<std::pair<qint64, qint64>, bool> m_simulations; // by variable and simulation
};
