#include "data/managers/fieldrequest.h"

#include "data/managers/gridmanager.h"
#include "data/managers/solutionmanager.h"
#include "data/solutions/solutiongrid.h"
#include "data/solutions/solutionvariable.h"
#include "data/variables/icases.h"

CLease<ISolution> CFieldRequest::Make(qint64 nVariableId, const SPlace& place, qint64 nSubId)
{
    const std::shared_ptr<const SFieldRecipe> pRecipe = m_pRecipes->Find(nVariableId);
    if (!pRecipe || place.nSimulationId == NO_ID)
        return nullptr;
    if (pRecipe->bOfGrid) {
        CLease<IGrid> pGrid =
            CGridManager::Instance().GetGrid(place.nSimulationId, place.nItemId, NO_ID, place.dTime);
        return CLease<ISolution>(pGrid ? new CSolutionGrid(pGrid.release()) : nullptr);
    }
    if (!pRecipe->bOfFile)
        return Compute(pRecipe, place);
    if (pRecipe->nSimulationId != place.nSimulationId)
        return nullptr;
    return m_manager.GetStored(nVariableId, place.nSimulationId, place.nItemId, nSubId, place.dTime);
}

CFieldRequest::Shared CFieldRequest::Share(qint64 nVariableId, const SPlace& place)
{
    const std::pair key{nVariableId, place};
    if (const auto known = m_fields.find(key); known != m_fields.end())
        return known->second;
    const Shared pField = Make(nVariableId, place, NO_ID);
    m_fields.emplace(key, pField);
    return pField;
}

/**
 * A formula over its inputs. An input that was removed keeps its place and reads 0.0, as a constant does; an
 * existing one without data leaves the whole field without.
 */
CLease<ISolution> CFieldRequest::Compute(std::shared_ptr<const SFieldRecipe> pRecipe, const SPlace& place)
{
    std::vector<CSolutionVariable::SInput> inputs;
    for (const SVariableInput& input : pRecipe->inputs) {
        if (const std::optional<DVector3D> constant = m_constants.Of(input.nVariableId)) {
            inputs.push_back({nullptr, *constant});
            continue;
        }
        const SPlace found = PlaceOf(input, place);
        const bool bOtherItem = found.nSimulationId != place.nSimulationId && found.nItemId == NO_ID;
        Shared pField = bOtherItem ? nullptr : Share(input.nVariableId, found);
        if (!pField)
            return nullptr;
        inputs.push_back({std::move(pField), {}});
    }
    return CLease<ISolution>(new CSolutionVariable(std::move(pRecipe), std::move(inputs)));
}

/** A comparison variable stands in no simulation of its own: its inputs are sought where they are. */
CFieldRequest::SPlace CFieldRequest::PlaceOf(const SVariableInput& input, const SPlace& place)
{
    SPlace found = place;
    if (input.dTime != STEADY_TIME)
        found.dTime = input.dTime;
    if (DrawsOn(input.nVariableId, place.nSimulationId))
        return found;
    found.nSimulationId = m_pRecipes->Find(input.nVariableId)->nSimulationId;
    found.nItemId =
        ICases::Installed().TranslateItem(place.nSimulationId, place.nItemId, found.nSimulationId);
    return found;
}

/** The simulation owns the variable, or one that it rests on. */
bool CFieldRequest::DrawsOn(qint64 nVariableId, qint64 nSimulationId)
{
    const std::pair key{nVariableId, nSimulationId};
    if (const auto known = m_simulations.find(key); known != m_simulations.end())
        return known->second;
    const std::shared_ptr<const SFieldRecipe> pRecipe = m_pRecipes->Find(nVariableId);
    const bool bDraws =
        pRecipe &&
        (pRecipe->nSimulationId == nSimulationId ||
         std::any_of(pRecipe->inputs.begin(), pRecipe->inputs.end(),
                     [&](const SVariableInput& input) { return DrawsOn(input.nVariableId, nSimulationId); }));
    m_simulations.emplace(key, bDraws);
    return bDraws;
}
