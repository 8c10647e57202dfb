#include "data/variables/variablemanager.h"

#include "data/variables/ifieldranges.h"

#include <algorithm>
#include <utility>

namespace {

/** The simulation that a variable is listed under: -1 if it draws on several. */
qint64 ListedUnder(const IVariable& variable)
{
    const QVector<qint64> simulations = variable.GetSimulations();
    return simulations.size() == 1 ? simulations.first() : -1;
}

} // namespace

CVariableManager& CVariableManager::Instance()
{
    static CVariableManager* const pManager = new CVariableManager; // never destroyed, see CMessageSink
    return *pManager;
}

qint64 CVariableManager::AddVariable(IVariable* pVariable)
{
    pVariable->SetId(m_variables.empty() ? 0 : m_variables.back()->GetId() + 1);
    m_variables.emplace_back(pVariable);
    return pVariable->GetId();
}

qint64 CVariableManager::IndexOfId(qint64 nId) const
{
    const auto found = std::lower_bound(m_variables.begin(), m_variables.end(), nId,
                                        [](const auto& p, qint64 nSought) { return p->GetId() < nSought; });
    return found != m_variables.end() && (*found)->GetId() == nId ? found - m_variables.begin() : -1;
}

IVariable* CVariableManager::GetVariable(qint64 nId) const
{
    const qint64 nIndex = nId == -1 ? -1 : IndexOfId(nId);
    return nIndex < 0 ? nullptr : m_variables[nIndex].get();
}

IVariable* CVariableManager::GetHoleVariable(qint64 nSimulationId, VariableLocation_e eLocation) const
{
    for (const auto& pVariable : m_variables)
        if (pVariable->IsHoleVariable() && pVariable->GetSimulationId() == nSimulationId &&
            pVariable->GetLocation() == eLocation)
            return pVariable.get();
    return nullptr;
}

QVector<qint64> CVariableManager::ListVariables(qint64 nSimulationId, bool bComparison) const
{
    QVector<qint64> ofFiles, computed;
    for (const auto& pVariable : m_variables) {
        const bool bListed = ListedUnder(*pVariable) == nSimulationId ||
                             (bComparison && pVariable->GetSimulations().contains(nSimulationId));
        if (bListed)
            (pVariable->IsFileVariable() ? ofFiles : computed).append(pVariable->GetId());
    }
    return ofFiles + computed;
}

qint64 CVariableManager::FindByName(qint64 nSimulationId, const QString& sName,
                                    VariableLocation_e eLocation) const
{
    for (const auto& pVariable : m_variables)
        if (pVariable->GetSimulationId() == nSimulationId && pVariable->GetLocation() == eLocation &&
            pVariable->GetName() == sName)
            return pVariable->GetId();
    return -1;
}

qint64 CVariableManager::FindByBytes(const QByteArray& key, qint64 nPreferredSimulation) const
{
    qint64 nFound = -1;
    for (const auto& pVariable : m_variables) {
        if (!pVariable->MatchesBytes(key))
            continue;
        if (pVariable->GetSimulationId() == nPreferredSimulation)
            return pVariable->GetId();
        if (nFound == -1)
            nFound = pVariable->GetId();
    }
    return nFound;
}

bool CVariableManager::IsNameValid(qint64 nId, const QString& sName, qint64 nSimulationId,
                                   VariableLocation_e eLocation) const
{
    static const QString s_sReserved = "@><. "; // they have a meaning in references
    if (sName.isEmpty() ||
        std::any_of(sName.begin(), sName.end(), [](QChar c) { return s_sReserved.contains(c); }))
        return false;
    if (const IVariable* const pOwn = GetVariable(nId)) {
        nSimulationId = pOwn->GetSimulationId();
        eLocation = pOwn->GetLocation();
    }
    return std::none_of(m_variables.begin(), m_variables.end(), [&](const auto& pOther) {
        const bool bSamePlace = pOther->GetLocation() == eLocation || pOther->GetLocation() == LocationNone ||
                                eLocation == LocationNone;
        return pOther->GetId() != nId && pOther->GetSimulationId() == nSimulationId && bSamePlace &&
               pOther->GetName() == sName;
    });
}

void CVariableManager::RemoveVariable(qint64 nId)
{
    IVariable* const pVariable = GetVariable(nId);
    if (!pVariable)
        return;
    pVariable->OnVariableRemoved();
    for (const qint64 nDependant : pVariable->GetDependants(false))
        if (IVariable* const pDependant = GetVariable(nDependant))
            pDependant->RemoveInput(nId);
    const qint64 nIndex = IndexOfId(nId);
    if (nIndex < 0)
        return;
    const std::unique_ptr<IVariable> pGone = std::move(m_variables[nIndex]);
    m_variables.erase(m_variables.begin() + nIndex);
    EditRecipes([nId](CFieldRecipes& recipes) { recipes.Remove(nId); });
}

std::shared_ptr<const CFieldRecipes> CVariableManager::GetRecipes() const
{
    const std::lock_guard lock(m_recipeMutex);
    m_bRecipesGivenOut = true;
    return m_pRecipes;
}

std::shared_ptr<const SFieldRecipe> CVariableManager::GetRecipe(qint64 nId) const
{
    const std::lock_guard lock(m_recipeMutex);
    return m_pRecipes->Find(nId);
}

void CVariableManager::Publish(const SFieldRecipe& recipe)
{
    EditRecipes([&](CFieldRecipes& recipes) { recipes.Put(recipe); });
}

/** Whoever holds the list keeps it as it was. */
template <class Edit> void CVariableManager::EditRecipes(const Edit& edit)
{
    const std::lock_guard lock(m_recipeMutex);
    // A use count of 1 wouldn't do: it doesn't say that the reads of those who have given it back are over.
    if (std::exchange(m_bRecipesGivenOut, false))
        m_pRecipes = std::make_shared<CFieldRecipes>(*m_pRecipes);
    edit(*m_pRecipes);
}

void CVariableManager::RemoveWithDependants(qint64 nId)
{
    const IVariable* const pVariable = GetVariable(nId);
    if (!pVariable)
        return;
    const QVector<qint64> dependants = pVariable->GetDependants(true);
    RemoveVariable(nId);
    for (const qint64 nDependant : dependants)
        RemoveVariable(nDependant);
}

void CVariableManager::RemoveSimulationVariables(qint64 nSimulationId)
{
    for (const qint64 nId : ListVariables(nSimulationId, true))
        RemoveVariable(nId);
}

void CVariableManager::RemoveUnusedFileVariables(qint64 nSimulationId)
{
    for (const qint64 nId : ListVariables(nSimulationId, false)) {
        const IVariable* const pVariable = GetVariable(nId);
        if (pVariable && pVariable->IsFileVariable() && !pVariable->IsGridVariable() &&
            !IFieldRanges::Installed().HasFields(nSimulationId, nId))
            RemoveWithDependants(nId);
    }
}

void CVariableManager::NotifyChanged(qint64 nId)
{
    IVariable* const pVariable = GetVariable(nId);
    if (!pVariable)
        return;
    for (const qint64 nDependant : pVariable->GetDependants(true))
        if (IVariable* const pDependant = GetVariable(nDependant))
            pDependant->InvalidateRange();
    pVariable->OnVariableChanged();
}
