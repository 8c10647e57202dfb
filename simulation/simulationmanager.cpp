#include "simulation/simulationmanager.h"

#include "data/cases/casedata.h"
#include "frame/moduleregistry.h"
#include "runs/process.h"
#include "scene/selectablemanager.h"
#include "simulation/iitempanels.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"

CSimulationManager& CSimulationManager::Instance()
{
    static CSimulationManager* const pManager = new CSimulationManager; // never destroyed, see CMessageSink
    return *pManager;
}

CSimulationManager::CSimulationManager() = default;
CSimulationManager::~CSimulationManager() = default;

const CSimulationManager::SSimulationRow* CSimulationManager::FindRow(qint64 nSimulationId) const
{
    const auto row = std::find_if(m_simulations.begin(), m_simulations.end(),
                                  [&](const SSimulationRow& r) { return r.nId == nSimulationId; });
    return row == m_simulations.end() ? nullptr : &*row;
}

void CSimulationManager::AddSimulation(ISimulation* pSimulation, qint64 nViewId)
{
    const qint64 nId = m_simulations.empty() ? 1 : m_simulations.back().nId + 1;
    pSimulation->SetId(nId);
    auto pProcess = std::make_unique<CProcess>(nId);
    connect(pProcess.get(), &CProcess::SignalStateChanged, this,
            &CSimulationManager::SlotProcessStateChanged);
    connect(pProcess.get(), &CProcess::SignalReadyReadStandardError, this,
            &CSimulationManager::SlotProcessReadyReadStandardError);
    connect(pProcess.get(), &CProcess::SignalReadyReadStandardOutput, this,
            &CSimulationManager::SlotProcessReadyReadStandardOutput);

    SSimulationRow row;
    row.nId = nId;
    row.pSimulation.reset(pSimulation);
    row.pProcess = std::move(pProcess);
    m_simulations.push_back(std::move(row));
    AddSimulationToView(nId, nViewId);
}

void CSimulationManager::AddSimulationToView(qint64 nSimulationId, qint64 nViewId, qint64 nIndex)
{
    if (!FindRow(nSimulationId) || m_views.Find(nViewId, nSimulationId))
        return;
    SPairRow pair;
    pair.nSimulationId = nSimulationId;
    StartAtFirstLevel(pair);
    m_views.Add(nViewId, pair, nIndex);
    if (m_pPanels) {
        CItemPanel* const pPanel = m_pPanels->Create(nViewId, nSimulationId);
        m_views.Find(nViewId, nSimulationId)->pPanel = pPanel;
    }
    emit SignalViewSimulationsChanged(nViewId);
}

void CSimulationManager::RemoveSimulationFromView(qint64 nSimulationId, qint64 nViewId)
{
    if (!m_views.Find(nViewId, nSimulationId))
        return;
    ISimulation& simulation = *GetSimulation(nSimulationId);
    const bool bLast = GetUseCount(nSimulationId) == 1;
    emit SignalSimulationLeaves(nViewId, nSimulationId, bLast);
    if (bLast)
        FinishSimulation(simulation);
    simulation.SaveDisplayFile(nViewId);
    m_closing.NoteDisplayFile(nSimulationId);

    if (CItemPanel* const pPanel = std::exchange(m_views.Find(nViewId, nSimulationId)->pPanel, nullptr))
        m_pPanels->Delete(pPanel);
    CSelectableManager::Instance().RemovePair(nViewId, nSimulationId);
    m_views.Remove(nViewId, nSimulationId);
    if (bLast)
        DeleteRow(nSimulationId);
    emit SignalViewSimulationsChanged(nViewId);
}

/** The simulation leaves its last view: its items know, and it is saved if it wants that. */
void CSimulationManager::FinishSimulation(ISimulation& simulation)
{
    if (simulation.IsSaveOnClose() && !simulation.GetFilePath().isEmpty())
        if (IModuleInterface* const pModule = CModuleRegistry::Instance().FindById(simulation.GetModuleId()))
            pModule->Save(simulation.GetFilePath(), simulation.GetId());
    for (CItem* const pItem : simulation.GetItems())
        pItem->SetSimulationClosing(true);
}

void CSimulationManager::DeleteRow(qint64 nSimulationId)
{
    // Out of the table first: what a simulation does while it goes must not find it there.
    const auto row = std::find_if(m_simulations.begin(), m_simulations.end(),
                                  [&](const SSimulationRow& r) { return r.nId == nSimulationId; });
    SSimulationRow gone = std::move(*row);
    m_simulations.erase(row);
    gone.pProcess->disconnect(this);
    gone.pSimulation.reset();
    m_output.Clear(nSimulationId);
    RemoveCaseData(nSimulationId);
}

void CSimulationManager::RemoveView(qint64 nViewId)
{
    for (const qint64 nSimulationId : GetSimulationIds(nViewId))
        RemoveSimulationFromView(nSimulationId, nViewId);
    m_views.RemoveView(nViewId);
}

void CSimulationManager::RemoveAllViews()
{
    while (!m_views.ViewIds().isEmpty())
        RemoveView(m_views.ViewIds().last());
}

ISimulation* CSimulationManager::GetSimulation(qint64 nSimulationId) const
{
    const SSimulationRow* const pRow = FindRow(nSimulationId);
    return pRow ? pRow->pSimulation.get() : nullptr;
}

ISimulation* CSimulationManager::GetSimulationOfView(qint64 nViewId) const
{
    return GetSimulation(m_views.ActiveOf(nViewId));
}

ISimulation* CSimulationManager::GetLastSimulation() const
{
    return m_simulations.empty() ? nullptr : m_simulations.back().pSimulation.get();
}

QVector<qint64> CSimulationManager::GetSimulationIds() const
{
    QVector<qint64> ids;
    for (const SSimulationRow& row : m_simulations)
        ids.append(row.nId);
    return ids;
}

QVector<qint64> CSimulationManager::GetSimulationIds(qint64 nViewId) const
{
    return m_views.SimulationsOf(nViewId);
}

QVector<qint64> CSimulationManager::GetViewIds(qint64 nSimulationId) const
{
    return m_views.ViewsOf(nSimulationId);
}

qint64 CSimulationManager::GetUseCount(qint64 nSimulationId) const
{
    return GetViewIds(nSimulationId).size();
}

void CSimulationManager::SetActiveSimulation(qint64 nViewId, qint64 nSimulationId)
{
    if (m_views.SetActive(nViewId, nSimulationId))
        emit SignalViewSimulationsChanged(nViewId);
}

ISimulation* CSimulationManager::FindSimulationByData(const QByteArray& key) const
{
    for (const SSimulationRow& row : m_simulations)
        if (row.pSimulation->IsSameDataFile(key))
            return row.pSimulation.get();
    return nullptr;
}

// What belongs to a pair.

void CSimulationManager::StartAtFirstLevel(SPairRow& pair) const
{
    const ISimulation* const pSimulation = GetSimulation(pair.nSimulationId);
    pair.dTime = pSimulation->GetTimeRange().x();
    pair.bTransient = pSimulation->GetTimeCount() >= 2;
}

double CSimulationManager::GetTime(qint64 nViewId, qint64 nSimulationId) const
{
    return m_views.Get(nViewId, nSimulationId, &SPairRow::dTime, STEADY_TIME);
}

void CSimulationManager::SetTime(qint64 nViewId, qint64 nSimulationId, double dTime)
{
    SPairRow* const pPair = m_views.Find(nViewId, nSimulationId);
    if (!pPair)
        return;
    pPair->dTime = dTime;
    emit SignalSimulationTimeChanged(nViewId, nSimulationId);
}

bool CSimulationManager::IsTransient(qint64 nViewId, qint64 nSimulationId) const
{
    return m_views.Get(nViewId, nSimulationId, &SPairRow::bTransient);
}

void CSimulationManager::SetTransient(qint64 nViewId, qint64 nSimulationId, bool bTransient)
{
    if (m_views.Change(nViewId, nSimulationId, &SPairRow::bTransient, bTransient))
        emit SignalSimulationTimeChanged(nViewId, nSimulationId);
}

double CSimulationManager::GetRequestTime(qint64 nViewId, qint64 nSimulationId) const
{
    return IsTransient(nViewId, nSimulationId) ? GetTime(nViewId, nSimulationId) : STEADY_TIME;
}

DVector3D CSimulationManager::GetRotationCentre(qint64 nViewId, qint64 nSimulationId) const
{
    return m_views.Get(nViewId, nSimulationId, &SPairRow::rotationCentre);
}

void CSimulationManager::SetRotationCentre(qint64 nViewId, qint64 nSimulationId, const DVector3D& centre)
{
    m_views.Change(nViewId, nSimulationId, &SPairRow::rotationCentre, centre);
}

SMirrorSetting CSimulationManager::GetMirror(qint64 nViewId, qint64 nSimulationId) const
{
    return m_views.Get(nViewId, nSimulationId, &SPairRow::mirror);
}

void CSimulationManager::SetMirror(qint64 nViewId, qint64 nSimulationId, const SMirrorSetting& mirror)
{
    m_views.Change(nViewId, nSimulationId, &SPairRow::mirror, mirror);
}

SSectorSetting CSimulationManager::GetSectors(qint64 nViewId, qint64 nSimulationId) const
{
    return m_views.Get(nViewId, nSimulationId, &SPairRow::sectors);
}

void CSimulationManager::SetSectors(qint64 nViewId, qint64 nSimulationId, const SSectorSetting& sectors)
{
    m_views.Change(nViewId, nSimulationId, &SPairRow::sectors, sectors);
}

QVector<STransform> CSimulationManager::GetDisplayTransforms(qint64 nViewId, qint64 nSimulationId) const
{
    return m_views.Get(nViewId, nSimulationId, &SPairRow::transforms);
}

CItemPanel* CSimulationManager::GetItemPanel(qint64 nViewId, qint64 nSimulationId) const
{
    return m_views.Get(nViewId, nSimulationId, &SPairRow::pPanel);
}

void CSimulationManager::SetItemPanels(IItemPanels* pPanels)
{
    for (const qint64 nViewId : m_views.ViewIds())
        for (const qint64 nSimulationId : GetSimulationIds(nViewId))
            SlotItemPanelDeleted(nViewId, nSimulationId);
    m_pPanels = pPanels;
}

void CSimulationManager::SlotItemPanelDeleted(qlonglong nViewId, qlonglong nSimulationId)
{
    if (SPairRow* const pPair = m_views.Find(nViewId, nSimulationId))
        pPair->pPanel = nullptr;
}

void CSimulationManager::SlotSimulationNameChanged(qlonglong nSimulationId)
{
    if (FindRow(nSimulationId))
        emit SignalSimulationNameChanged(nSimulationId);
}

void CSimulationManager::SlotSimulationTransientChanged(qlonglong nSimulationId)
{
    if (!FindRow(nSimulationId))
        return;
    for (const qint64 nViewId : GetViewIds(nSimulationId)) {
        SPairRow* const pPair = m_views.Find(nViewId, nSimulationId);
        if (pPair->dTime == STEADY_TIME)
            StartAtFirstLevel(*pPair);
    }
    emit SignalSimulationTransientChanged(nSimulationId);
}

// Processes.

CProcess* CSimulationManager::GetProcess(qint64 nSimulationId) const
{
    const SSimulationRow* const pRow = FindRow(nSimulationId);
    return pRow ? pRow->pProcess.get() : nullptr;
}

QStringList CSimulationManager::GetProcessLines(qint64 nSimulationId) const
{
    return m_output.LinesSince(nSimulationId, 0);
}

QStringList CSimulationManager::GetProcessLinesSince(qint64 nSimulationId, qint64 nLine) const
{
    return m_output.LinesSince(nSimulationId, nLine);
}

QByteArray CSimulationManager::GetProcessData(qint64 nSimulationId) const
{
    return m_output.Data(nSimulationId);
}

void CSimulationManager::ClearProcessLines(qint64 nSimulationId)
{
    if (!FindRow(nSimulationId))
        return;
    m_output.Clear(nSimulationId);
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
    m_output.Append(nSimulationId, pProcess->TakeStandardError());
    emit SignalSimulationProcessReadyReadStandardError(nSimulationId);
    emit SignalSimulationProcessDataChanged(nSimulationId);
}

void CSimulationManager::SlotProcessReadyReadStandardOutput(qlonglong nSimulationId)
{
    CProcess* const pProcess = GetProcess(nSimulationId);
    if (!pProcess)
        return;
    m_output.Append(nSimulationId, pProcess->TakeStandardOutput());
    emit SignalSimulationProcessReadyReadStandardOutput(nSimulationId);
    emit SignalSimulationProcessDataChanged(nSimulationId);
}

// Closing.

bool CSimulationManager::CloseSimulations(qint64 nSimulationId)
{
    return CloseSimulations(nSimulationId == -1 ? GetSimulationIds() : QVector<qint64>{nSimulationId});
}

bool CSimulationManager::CloseSimulations(const QVector<qint64>& simulationIds)
{
    return m_closing.Ask(simulationIds);
}

bool CSimulationManager::CloseInView(qint64 nSimulationId, qint64 nViewId)
{
    if (!m_views.Find(nViewId, nSimulationId))
        return false;
    return GetUseCount(nSimulationId) == 1 ? CloseSimulations(nSimulationId)
                                           : m_closing.AskInView(nSimulationId);
}

void CSimulationManager::CopyDisplayFiles() { m_closing.CopyDisplayFiles(); }
