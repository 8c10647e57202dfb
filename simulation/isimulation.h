#pragma once

#include "data/variables/builtinvariables.h"
#include "simulation/isimulationitems.h"
#include "simulation/timetable.h"
#include "simulation/undostack.h"

#include <QJsonObject>
#include <QMap>

class CProcess;
class ISelectable;

/**
 * One case: an identity, items, settings (it is a pack), a table of time steps and a stack of undo states.
 * It has no widgets and no views of its own: CSimulationManager tells in which views it stands. Grids and
 * solutions are held by their managers. Main thread only.
 *
 * The class is cut by topic, each link in a header of its own:
 *   ISimulationIdentity  names, ids, paths, what was saved
 *   ISimulationItems     the items: finding, making, deleting, linking, several at once; bytes
 *   ISimulation          display state, undo, editing commands, time, free stream, the run
 */
class ISimulation : public ISimulationItems
{
public:
    explicit ISimulation(qint64 nModuleId);
    ~ISimulation() override;

    // Display state.
    /** All that this simulation shows in the view. */
    virtual QByteArray SaveViewState(qint64 nViewId) const = 0;
    virtual bool LoadViewState(const QByteArray& state, qint64 nViewId, double dVersion) = 0;
    virtual QJsonObject SaveViewJson(qint64 nViewId) const = 0;
    virtual bool LoadViewJson(const QJsonObject& display, qint64 nViewId, double dVersion) = 0;
    /** Makes the items' selectables where the view has none yet, with the display that a case opens with. */
    virtual void CreateDefaultSelectables(qint64) {}
    /** Length that displays start from; 1.0 in the plain simulations. */
    virtual double GetDefaultScale() const = 0;
    /** Writes the automatic display file of the view. */
    virtual void SaveDisplayFile(qint64 nViewId) = 0;
    virtual bool ChooseDisplayFile(qint64 nViewId) = 0;
    virtual bool LoadDisplayFile(const QString& sFile, qint64 nViewId) = 0;
    /** What a display file says of the data: keys that begin with "dataFiles."; none where it says nothing.
     */
    virtual QJsonObject SaveDataFiles() const { return {}; }
    /**
     * Reads the data that the keys name, if they are others than those of the case.
     *
     * @param sFolder  of the display file, where files are looked for first that aren't at their place
     * @return what is wrong, for the user; the case keeps its data then
     */
    virtual QString LoadDataFiles(const QJsonObject&, const QString& /*sFolder*/) { return {}; }
    /** Opens the data dialog of plain grids; false where there is none. */
    virtual bool EditData() { return false; }

    // What was saved (simulation_saved.cpp).
    /** SaveViewState without what a user doesn't edit: the selection. */
    virtual QByteArray SaveViewEdits(qint64 nViewId) const { return SaveViewState(nViewId); }
    /** The case as it is now, in all of its views, is what was saved or opened. */
    void NoteSaved();
    /** What there is was never saved, whatever it may be compared with. */
    void NoteUnsaved();
    /**
     * Whether what a file would hold, camera and selection apart, differs from what was saved or opened. A
     * case of which neither was noted is judged by its steps of undo.
     */
    bool HasUnsavedEdits() const;

    // Undo and closing (simulation_undo.cpp).
    virtual bool AllowsSaving() const { return true; }
    virtual bool AllowsExport() const { return true; }
    /** Whether a state holds the simulation's own bytes; the plain viewers answer false. */
    virtual bool UndoIncludesPack() const { return true; }
    /**
     * The undo state: ToBytes of the simulation (if UndoIncludesPack), the list of its view ids, then
     * SaveViewState of each.
     */
    virtual QByteArray CaptureState() const;
    /** Views that no longer show the simulation are passed over. False on bytes that can't be read. */
    virtual bool RestoreState(const QByteArray& state);
    /** True if restoring the state would change nothing. */
    virtual bool IsCurrentState(const QByteArray& state) const;
    /** The question to ask before the case closes; empty if there is nothing to lose. */
    virtual QString GetCloseWarning() const { return {}; }

    /** Opens an edit. Brackets nest; only the outermost pair counts. */
    void BeginUndoStep();
    /** Ends it: what has changed since becomes one step, unless bDiscard. */
    void EndUndoStep(bool bDiscard = false);
    void Undo();
    void Redo();
    qint64 GetUndoCount() const { return m_undo.Size(); }
    qint64 GetRedoCount() const { return m_redo.Size(); }
    /** Memory that the states of both stacks hold [bytes]. */
    qint64 GetUndoBytes() const { return m_undo.GetBytes() + m_redo.GetBytes(); }

    // Editing commands of a view.
    virtual void SelectAdjacent(qint64 nViewId) = 0;
    /** Enter pressed in the item panel. */
    virtual void ActivateSelection(qint64 nViewId) = 0;
    virtual void DeleteSelection(qint64 nViewId) = 0;
    virtual void DuplicateSelection(qint64 nViewId) = 0;
    virtual void TransformSelection(const QVector<qint64>& ids, const STransform& transform,
                                    bool bCombine) = 0;
    virtual bool CanActivateSelection(qint64 nViewId) const = 0;
    virtual bool CanDelete(qint64 nViewId) const = 0;
    virtual bool CanDuplicate(qint64 nViewId) const = 0;
    virtual bool CanTransform(qint64 nViewId) const = 0;
    virtual QVector<qint64> GetSelectionExtras(qint64) const { return {}; }

    // Time; the rules stand at CTimeTable.
    virtual qint64 GetTimeCount() const { return m_times.Count(); }
    /** Inserts among the entries nFirst to nLast (from 0, included); appends if nFirst exceeds nLast. */
    virtual void InsertTime(double dTime, qint64 nStep, qint64 nFirst, qint64 nLast);
    virtual void AddTime(double dTime, qint64 nStep); ///< ignored for STEADY_TIME
    virtual double IndexToTime(double dIndex) const { return m_times.IndexToTime(dIndex); }
    virtual double IndexToStep(double dIndex) const { return m_times.IndexToStep(dIndex); }
    virtual double TimeToStep(double dTime) const { return m_times.TimeToStep(dTime); }
    virtual double TimeToIndex(double dTime) const { return m_times.TimeToIndex(dTime); }
    virtual double StepToTime(double dStep) const { return m_times.StepToTime(dStep); }
    virtual double StepToIndex(double dStep) const { return m_times.StepToIndex(dStep); }
    virtual double TimeOfStep(double dStep) const { return StepToTime(dStep); }
    virtual bool IsRunTimeKnown() const { return false; }
    virtual QPointF GetTimeRange() const { return m_times.Range(); } ///< (first, last); -1.0 without a table
    virtual void ClearTimes() { m_times.Clear(); }

    // Derived quantities and the free stream.
    /** Makes a surface from the selected faces; -1 where none can be made. */
    virtual qint64 CreateSurfaceFromSelection(qint64, bool) { return -1; }
    /** Defines the variables that follow from the conservative state or from a mean flow, once its own are
     * known. */
    virtual void CreateConservativeVariables(const QString& sPrefix);
    virtual void CreateMeanflowVariables();
    virtual bool HasVelocityGradient() const { return false; }
    virtual double GetGamma() const { return 1.4; }          ///< ratio of heats
    virtual double GetGasConstant() const { return 287.22; } ///< [J/(kg K)]
    virtual bool GasPropertiesAssumed() const { return false; }
    virtual double GetFreeStreamPressure() const { return 1.0 / GetGamma(); }
    virtual double GetFreeStreamDensity() const { return 1.0; }
    virtual double GetFreeStreamVelocity() const { return 1.0; }
    virtual bool FreeStreamAssumed() const { return false; }
    // What the views ask.
    /** Whether selection and highlight are drawn on the items themselves. */
    virtual bool ShowsSelection() const { return true; }
    /** Selected lines are drawn at twice their width. */
    virtual bool UsesDoubleLineWidth() const { return false; }
    /** Where an item of a moving grid stands at a time. */
    virtual QMatrix4x4 GetModelMatrix(qint64, double) const { return {}; }
    /** Gives the selectable the dimension of its item's grid. */
    virtual void SetSelectableDimension(ISelectable* pSelectable) const;

    // The run.
    virtual bool IsProcessRunning() const;
    virtual CProcess* GetProcess() const; ///< null while no manager holds the simulation
    virtual bool StopProcess();           ///< true if a run was active; it is stopped
    /** "Run.WorkingDirectory" or the directory of the simulation file, whichever exists first, or "". */
    virtual QString GetWorkingDirectory() const;

protected:
    /** Gas and free stream as the operations above tell them. */
    SReferenceState GetReferenceState() const;

private:
    void StepBack(CUndoStack& from, CUndoStack& to);

    CTimeTable m_times;
    QMap<qint64, QByteArray> m_savedViews; // by view: SaveViewEdits as of the last save or open
    qint64 m_nUndoDepth = 0;
    QByteArray m_pendingState; // captured by the outermost BeginUndoStep
    CUndoStack m_undo;
    CUndoStack m_redo;
};
