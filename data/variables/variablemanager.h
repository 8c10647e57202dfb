#pragma once

#include "data/variables/ivariable.h"

#include <memory>
#include <mutex>
#include <vector>

class IVariableListener;

/**
 * Owns the variables of all simulations, in order of creation. Ids go up by 1 from the highest one in the
 * list. Main thread only, but for the recipes.
 */
class CVariableManager
{
public:
    static CVariableManager& Instance();

    /** Takes the variable over; gives its new id. */
    qint64 AddVariable(IVariable* pVariable);
    /** Null for -1 and an unknown id. */
    IVariable* GetVariable(qint64 nId) const;
    qint64 IndexOfId(qint64 nId) const; ///< -1 if there is none
    /** The first hole variable of the simulation at this location; null if there is none. */
    IVariable* GetHoleVariable(qint64 nSimulationId, VariableLocation_e eLocation) const;
    /**
     * Ids of a simulation's variables, those of files first. One that draws on several simulations is of -1
     * ("comparison"); with bComparison those that draw on this one are listed too.
     */
    QVector<qint64> ListVariables(qint64 nSimulationId, bool bComparison) const;
    /** The first with this owner, exact name and location; -1 if there is none. */
    qint64 FindByName(qint64 nSimulationId, const QString& sName, VariableLocation_e eLocation) const;
    /** The first whose key this is, the variables of nPreferredSimulation ahead of others; -1 if none. */
    qint64 FindByBytes(const QByteArray& key, qint64 nPreferredSimulation = -1) const;
    /** For names that users type: allowed characters, and no other variable of the owner with it. */
    bool IsNameValid(qint64 nId, const QString& sName, qint64 nSimulationId,
                     VariableLocation_e eLocation) const;

    /** Lets go of the variable: its readers lose the input, then it is deleted. */
    void RemoveVariable(qint64 nId);
    /** The same with everything built on it. */
    void RemoveWithDependants(qint64 nId);
    void RemoveSimulationVariables(qint64 nSimulationId);
    /** The file variables that no solution backs any more, with everything built on them. */
    void RemoveUnusedFileVariables(qint64 nSimulationId);
    /** The definition has changed: readers forget their ranges, and whoever shows one is told. */
    void NotifyChanged(qint64 nId);

    /** Who is told of changes (not owned, may be null). */
    /** Not owned; told until it is removed. */
    void AddListener(IVariableListener* pListener) { m_listeners.append(pListener); }
    void RemoveListener(IVariableListener* pListener) { m_listeners.removeAll(pListener); }
    /** Calls tell(listener) for all of them; one may remove itself. */
    template <class Visit> void Tell(const Visit& tell)
    {
        for (IVariableListener* const pListener : QVector<IVariableListener*>(m_listeners))
            tell(*pListener);
    }

    /** How to compute all variables as of now. Any thread. */
    std::shared_ptr<const CFieldRecipes> GetRecipes() const;
    /** Null for -1 and an unknown id. Any thread. */
    std::shared_ptr<const SFieldRecipe> GetRecipe(qint64 nId) const;
    /** From now on requests use this recipe. Called by the variable. */
    void Publish(const SFieldRecipe& recipe);
    const std::vector<std::unique_ptr<IVariable>>& GetVariables() const { return m_variables; }

private:
    CVariableManager() = default;

    std::vector<std::unique_ptr<IVariable>> m_variables;
    template <class Edit> void EditRecipes(const Edit& edit);

    QVector<IVariableListener*> m_listeners;
    mutable std::mutex m_recipeMutex; // the last to be taken
    std::shared_ptr<CFieldRecipes> m_pRecipes = std::make_shared<CFieldRecipes>();
    mutable bool m_bRecipesGivenOut = false; // this very list: it never changes any more
};
