#pragma once

#include <QPointer>

class ISimulation;

/**
 * What changes in a case while this lives is one step of undo. Several may live at once: the outermost
 * counts. The case may go meanwhile, and an id that is unknown makes no step. Main thread only.
 */
class CUndoStep
{
public:
    explicit CUndoStep(qint64 nSimulationId);
    ~CUndoStep();
    CUndoStep(const CUndoStep&) = delete;
    CUndoStep& operator=(const CUndoStep&) = delete;

    /** There was nothing to do, or it was taken back: no step. */
    void Discard() { m_bDiscard = true; }

private:
    ISimulation* const m_pSimulation;
    const QPointer<QObject> m_pCaseLives; // its process; an id or an address may be another case's by now
    bool m_bDiscard = false;
};

/** Deletes what of the case is selected in the view, if it can be deleted, in one step. */
void DeleteSelectionInOneStep(ISimulation& simulation, qint64 nViewId);
