#pragma once

#include "simulation/caseclosing.h"
#include "simulation/runoutput.h"
#include "simulation/viewtable.h"

#include <QObject>
#include <QProcess>

#include <memory>
#include <vector>

class CProcess;
class IItemPanels;
class ISimulation;

/**
 * Owns all simulations with their processes and knows which of them stand in which view, and what belongs
 * to each pair of the two: current time, rotation centre, mirror, sectors, item panel. A simulation ends
 * with its removal from its last view.
 *
 * A lookup with an unknown id gives null, -1 or a neutral value, and an operation on one does nothing.
 * Main thread only, but for the collected output of a process.
 */
class CSimulationManager : public QObject
{
    Q_OBJECT

public:
    static CSimulationManager& Instance();
    ~CSimulationManager() override;

    // Simulations and views.
    /** Takes the simulation over, gives it its id (the last one plus 1) and a process, shows it in the view.
     */
    void AddSimulation(ISimulation* pSimulation, qint64 nViewId);
    /** @param nIndex  place among the simulations of the view; -1 for the end */
    void AddSimulationToView(qint64 nSimulationId, qint64 nViewId, qint64 nIndex = -1);
    /**
     * Ends the pair with its selectables and panel. Ahead of that the view's display file is written; out
     * of its last view the simulation is saved, if it wants that, and deleted.
     */
    void RemoveSimulationFromView(qint64 nSimulationId, qint64 nViewId);
    /** Removes every simulation of the view, then its row. */
    void RemoveView(qint64 nViewId);
    void RemoveAllViews();
    ISimulation* GetSimulation(qint64 nSimulationId) const;
    ISimulation* GetSimulationOfView(qint64 nViewId) const; ///< the active one
    /** The last simulation in the list, whatever view it is in; null without any. */
    ISimulation* GetLastSimulation() const;
    QVector<qint64> GetSimulationIds() const;
    QVector<qint64> GetSimulationIds(qint64 nViewId) const;
    QVector<qint64> GetViewIds(qint64 nSimulationId) const;
    qint64 GetUseCount(qint64 nSimulationId) const; ///< number of views that show it
    /** -1 clears it; any other id must be one of the view's simulations. */
    void SetActiveSimulation(qint64 nViewId, qint64 nSimulationId);
    /** The first simulation whose IsSameDataFile is true: what is open isn't read twice. */
    ISimulation* FindSimulationByData(const QByteArray& key) const;

    // What belongs to a pair (CViewTable).
    double GetTime(qint64 nViewId, qint64 nSimulationId) const;
    void SetTime(qint64 nViewId, qint64 nSimulationId, double dTime);
    /** Whether the pair follows the time table; false shows it as steady. */
    bool IsTransient(qint64 nViewId, qint64 nSimulationId) const;
    void SetTransient(qint64 nViewId, qint64 nSimulationId, bool bTransient);
    /** The time to ask grids and solutions for: the pair's time, or STEADY_TIME if it isn't transient. */
    double GetRequestTime(qint64 nViewId, qint64 nSimulationId) const;
    DVector3D GetRotationCentre(qint64 nViewId, qint64 nSimulationId) const;
    void SetRotationCentre(qint64 nViewId, qint64 nSimulationId, const DVector3D& centre);
    SMirrorSetting GetMirror(qint64 nViewId, qint64 nSimulationId) const;
    void SetMirror(qint64 nViewId, qint64 nSimulationId, const SMirrorSetting& mirror);
    SSectorSetting GetSectors(qint64 nViewId, qint64 nSimulationId) const;
    void SetSectors(qint64 nViewId, qint64 nSimulationId, const SSectorSetting& sectors);
    /** The transforms that the pair is drawn with, identity first; empty for an unknown pair. */
    QVector<STransform> GetDisplayTransforms(qint64 nViewId, qint64 nSimulationId) const;
    CItemPanel* GetItemPanel(qint64 nViewId, qint64 nSimulationId) const;
    /** Who makes panels from now on (not owned, may be null). Panels that stand are forgotten, not deleted.
     */
    void SetItemPanels(IItemPanels* pPanels);

    // Processes (CRunOutput).
    CProcess* GetProcess(qint64 nSimulationId) const;
    /** All lines that the case's run has printed. */
    QStringList GetProcessLines(qint64 nSimulationId) const;
    /** Those from nLine on, from 0: what has come since the last look. */
    QStringList GetProcessLinesSince(qint64 nSimulationId, qint64 nLine) const;
    QByteArray GetProcessData(qint64 nSimulationId) const; ///< the same, unsplit
    void ClearProcessLines(qint64 nSimulationId);

    // Closing (CCaseClosing).
    /**
     * Asks all that has to be asked before the simulations may close: first whether what still runs may go
     * and what to do with unsaved edits, then, for each with display files that was neither saved nor asked
     * about, whether to keep its display under another name. Any refusal leaves everything open. After the
     * last answer running processes are killed.
     *
     * @return true if the caller may remove them from their views; CopyDisplayFiles afterwards
     */
    bool CloseSimulations(qint64 nSimulationId); ///< -1 for all
    bool CloseSimulations(const QVector<qint64>& simulationIds);
    /** The same for one simulation that leaves one view; where it stays in another, nothing is at stake but
     * its display in this one. */
    bool CloseInView(qint64 nSimulationId, qint64 nViewId);
    /** Copies the display files that closing has written to the names chosen, and reports failures. */
    void CopyDisplayFiles();

signals:
    /**
     * The pair is about to go, with bLast the simulation too. Both are whole still: who works on them stops
     * now.
     */
    void SignalSimulationLeaves(qlonglong nViewId, qlonglong nSimulationId, bool bLast);
    /** Which simulations the view holds, or which of them is on top. */
    void SignalViewSimulationsChanged(qlonglong nViewId);
    void SignalSimulationTimeChanged(qlonglong nViewId, qlonglong nSimulationId);
    void SignalSimulationNameChanged(qlonglong nSimulationId);
    /** To its file, which GetFilePath tells. */
    void SignalSimulationSaved(qlonglong nSimulationId);
    void SignalSimulationTransientChanged(qlonglong nSimulationId);
    void SignalSimulationProcessStateChanged(qlonglong nSimulationId, QProcess::ProcessState eState);
    void SignalSimulationProcessDataChanged(qlonglong nSimulationId);
    void SignalSimulationProcessReadyReadStandardError(qlonglong nSimulationId);
    void SignalSimulationProcessReadyReadStandardOutput(qlonglong nSimulationId);

public slots:
    /** The panel was deleted by its own closing. */
    void SlotItemPanelDeleted(qlonglong nViewId, qlonglong nSimulationId);
    void SlotSimulationNameChanged(qlonglong nSimulationId);
    /** Loading or reloading has changed the time table: pairs that had no level take the first one. */
    void SlotSimulationTransientChanged(qlonglong nSimulationId);
    void SlotProcessStateChanged(qlonglong nSimulationId, QProcess::ProcessState eState);
    void SlotProcessReadyReadStandardError(qlonglong nSimulationId);
    void SlotProcessReadyReadStandardOutput(qlonglong nSimulationId);

private:
    struct SSimulationRow
    {
        qint64 nId = -1;
        std::unique_ptr<ISimulation> pSimulation;
        std::unique_ptr<CProcess> pProcess;
    };

    CSimulationManager();

    const SSimulationRow* FindRow(qint64 nSimulationId) const;
    void StartAtFirstLevel(SPairRow& pair) const;
    void FinishSimulation(ISimulation& simulation);
    void DeleteRow(qint64 nSimulationId);

    std::vector<SSimulationRow> m_simulations; // ascending ids
    CViewTable m_views;
    CRunOutput m_output;
    CCaseClosing m_closing;
    IItemPanels* m_pPanels = nullptr;
};
