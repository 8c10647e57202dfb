// ISimulation: undo states and the bracket around an edit.
#include "frame/packs/bytestream.h"
#include "frame/widgetmanager.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

QByteArray ISimulation::CaptureState() const
{
    CByteWriter writer;
    if (UndoIncludesPack())
        writer.Write(ToBytes());
    const QVector<qint64> viewIds = GetViewIds();
    writer.Write(viewIds);
    for (const qint64 nViewId : viewIds)
        writer.Write(SaveViewState(nViewId));
    return writer.Take();
}

bool ISimulation::RestoreState(const QByteArray& state)
{
    CByteReader reader(state);
    if (UndoIncludesPack()) {
        const QString sFormerName = GetName();
        QByteArray data;
        if (!reader.Read(data) || !FromBytes(data, -1.0))
            return false;
        if (GetName() != sFormerName)
            CSimulationManager::Instance().SlotSimulationNameChanged(GetId());
    }
    QVector<qint64> viewIds;
    reader.Read(viewIds);
    const QVector<qint64> shown = GetViewIds();
    for (const qint64 nViewId : std::as_const(viewIds)) {
        QByteArray view;
        if (reader.Read(view) && shown.contains(nViewId) && view != SaveViewState(nViewId))
            LoadViewState(view, nViewId, -1.0);
    }
    return reader.IsOk();
}

bool ISimulation::IsCurrentState(const QByteArray& state) const
{
    CByteReader reader(state);
    QByteArray data;
    if (UndoIncludesPack() && (!reader.Read(data) || data != ToBytes()))
        return false;
    QVector<qint64> viewIds;
    reader.Read(viewIds);
    const QVector<qint64> shown = GetViewIds();
    for (const qint64 nViewId : std::as_const(viewIds)) {
        QByteArray view;
        if (reader.Read(view) && shown.contains(nViewId) && view != SaveViewState(nViewId))
            return false;
    }
    return reader.IsOk();
}

void ISimulation::BeginUndoStep()
{
    if (m_nUndoDepth == 0)
        m_pendingState = CaptureState();
    ++m_nUndoDepth;
}

void ISimulation::EndUndoStep(bool bDiscard)
{
    Q_ASSERT(m_nUndoDepth > 0);
    if (--m_nUndoDepth > 0 || m_pendingState.isEmpty())
        return;
    const QByteArray former = std::exchange(m_pendingState, {});
    if (bDiscard || CaptureState() == former)
        return;
    m_undo.Push(former);
    m_redo.Clear();
    CWidgetManager::Instance().UpdateActions();
}

void ISimulation::Undo() { StepBack(m_undo, m_redo); }
void ISimulation::Redo() { StepBack(m_redo, m_undo); }

void ISimulation::StepBack(CUndoStack& from, CUndoStack& to)
{
    if (from.IsEmpty())
        return;
    to.Push(CaptureState());
    if (!RestoreState(from.Pop()))
        return;
    // No step may do nothing: what the views no longer show can make a state equal to this one.
    while (!from.IsEmpty() && IsCurrentState(from.Top()))
        from.Pop();
}
