#pragma once

#include <QtGlobal>

class ISimulation;

/** What decides which actions can be used: the case on top of the active view and its selection. */
struct SActionState
{
    qint64 nViewId = -1;
    const ISimulation* pSimulation = nullptr; ///< null: no case in the view
    qint64 nItems = 0;                        ///< selectables of the case in the view
    qint64 nSelected = 0;
    bool bModuleOpens = false;    ///< some module can open files
    bool bModuleCreates = false;  ///< some module makes empty cases
    bool bModuleAnalyzes = false; ///< some module makes cases from results
    qint64 nRecentFiles = 0;
};

/** The state as it is now. */
SActionState TakeActionState(qint64 nViewId);

/** The conditions that rows of the action table name. */
namespace ActionState {

bool HasSimulation(const SActionState& state);
bool HasItems(const SActionState& state);
bool HasSelection(const SActionState& state);
bool CanSave(const SActionState& state);
bool CanExport(const SActionState& state);
bool CanExportData(const SActionState& state);
bool CanCreateNew(const SActionState& state);
bool CanAnalyze(const SActionState& state);
bool CanOpen(const SActionState& state);
bool HasRecentFiles(const SActionState& state);
bool CanUndo(const SActionState& state);
bool CanRedo(const SActionState& state);
bool CanDelete(const SActionState& state);
bool CanDuplicate(const SActionState& state);
bool CanTransform(const SActionState& state);
bool Never(const SActionState& state);

} // namespace ActionState
