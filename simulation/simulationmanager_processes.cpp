// CSimulationManager: the output of the runs.
#include "runs/process.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

#include <QTextStream>

CProcess* CSimulationManager::GetProcess(qint64 nSimulationId) const
{
    const SSimulationRow* const pRow = FindRow(nSimulationId);
    return pRow ? pRow->pProcess.get() : nullptr;
}

QStringList CSimulationManager::GetProcessLines(qint64 nSimulationId) const
{
    const std::lock_guard lock(m_mutex);
    const SSimulationRow* const pRow = FindRow(nSimulationId);
    return pRow ? pRow->sLineList : QStringList();
}

QByteArray CSimulationManager::GetProcessData(qint64 nSimulationId) const
{
    const std::lock_guard lock(m_mutex);
    const SSimulationRow* const pRow = FindRow(nSimulationId);
    return pRow ? pRow->data : QByteArray();
}

void CSimulationManager::ClearProcessLines(qint64 nSimulationId)
{
    {
        const std::lock_guard lock(m_mutex);
        SSimulationRow* const pRow = FindRow(nSimulationId);
        if (!pRow)
            return;
        pRow->sLineList.clear();
        pRow->data.clear();
    }
    emit SignalSimulationProcessDataChanged(nSimulationId);
}

void CSimulationManager::SlotProcessStateChanged(qlonglong nSimulationId, QProcess::ProcessState eState)
{
    emit SignalSimulationProcessStateChanged(nSimulationId, eState);
}

void CSimulationManager::SlotProcessReadyReadStandardError(qlonglong nSimulationId)
{
    CProcess* const pProcess = GetProcess(nSimulationId);
    if (!pProcess)
        return;
    Collect(nSimulationId, pProcess->TakeStandardError());
    emit SignalSimulationProcessReadyReadStandardError(nSimulationId);
    emit SignalSimulationProcessDataChanged(nSimulationId);
}

void CSimulationManager::SlotProcessReadyReadStandardOutput(qlonglong nSimulationId)
{
    CProcess* const pProcess = GetProcess(nSimulationId);
    if (!pProcess)
        return;
    Collect(nSimulationId, pProcess->TakeStandardOutput());
    emit SignalSimulationProcessReadyReadStandardOutput(nSimulationId);
    emit SignalSimulationProcessDataChanged(nSimulationId);
}

// A chunk that ends inside a line gives a line of its own: nothing is held back for the next one.
void CSimulationManager::Collect(qint64 nSimulationId, const QByteArray& bytes)
{
    const std::lock_guard lock(m_mutex);
    SSimulationRow* const pRow = FindRow(nSimulationId);
    pRow->data.append(bytes);
    QTextStream stream(bytes, QIODevice::ReadOnly);
    while (!stream.atEnd())
        pRow->sLineList.append(stream.readLine());
}
