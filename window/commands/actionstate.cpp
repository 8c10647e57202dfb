#include "window/commands/actionstate.h"

#include "frame/moduleregistry.h"
#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "scene/iselectable.h"
#include "scene/selectablemanager.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

namespace {

void TakeModules(SActionState& state)
{
    for (qint32 nId = 0; nId <= CModuleRegistry::HIGHEST_ID; ++nId) {
        const IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(nId);
        if (!pModule)
            continue;
        state.bModuleOpens |= pModule->CanOpen() || pModule->CanCreateSimulationFromFile();
        state.bModuleCreates |= pModule->CanCreateNew();
        state.bModuleAnalyzes |= pModule->CanAnalyze();
    }
}

} // namespace

SActionState TakeActionState(qint64 nViewId)
{
    SActionState state;
    state.nViewId = nViewId;
    state.pSimulation = CSimulationManager::Instance().GetSimulationOfView(nViewId);
    TakeModules(state);
    state.nRecentFiles = Get(CPreferences::Instance(), PreferenceKey::RECENT_FILES).size();
    if (!state.pSimulation)
        return state;
    const auto selectables =
        CSelectableManager::Instance().GetSelectables(nViewId, state.pSimulation->GetId());
    state.nItems = selectables.size();
    state.nSelected = std::count_if(selectables.begin(), selectables.end(),
                                    [](const ISelectable* pSelectable) { return pSelectable->isSelected(); });
    return state;
}

bool ActionState::HasSimulation(const SActionState& state) { return state.pSimulation; }
bool ActionState::HasItems(const SActionState& state) { return state.nItems > 0; }
bool ActionState::HasSelection(const SActionState& state) { return state.nSelected > 0; }
bool ActionState::CanSave(const SActionState& s) { return s.pSimulation && s.pSimulation->AllowsSaving(); }
bool ActionState::CanExport(const SActionState& s) { return s.pSimulation && s.pSimulation->AllowsExport(); }
bool ActionState::CanExportData(const SActionState& s)
{
    const IModuleInterface* const pModule =
        CanExport(s) ? CModuleRegistry::Instance().FindById(s.pSimulation->GetModuleId()) : nullptr;
    return pModule && pModule->CanExport(s.nViewId);
}
bool ActionState::CanCreateNew(const SActionState& state) { return state.bModuleCreates; }
bool ActionState::CanAnalyze(const SActionState& state) { return state.bModuleAnalyzes; }
bool ActionState::CanOpen(const SActionState& state) { return state.bModuleOpens; }
bool ActionState::HasRecentFiles(const SActionState& state) { return state.nRecentFiles > 0; }
bool ActionState::CanUndo(const SActionState& s)
{
    return s.pSimulation && s.pSimulation->GetUndoCount() > 0;
}
bool ActionState::CanRedo(const SActionState& s)
{
    return s.pSimulation && s.pSimulation->GetRedoCount() > 0;
}
bool ActionState::CanDelete(const SActionState& s)
{
    return s.pSimulation && s.pSimulation->CanDelete(s.nViewId);
}
bool ActionState::CanDuplicate(const SActionState& s)
{
    return s.pSimulation && s.pSimulation->CanDuplicate(s.nViewId);
}
bool ActionState::CanTransform(const SActionState& s)
{
    return s.pSimulation && s.pSimulation->CanTransform(s.nViewId);
}
bool ActionState::Never(const SActionState&) { return false; }
