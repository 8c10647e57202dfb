#include "simulation/simulationmanager.h"

#include "data/cases/casedata.h"
#include "frame/moduleregistry.h"
#include "runs/process.h"
#include "scene/selectablemanager.h"
#include "simulation/iitempanels.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"

namespace {

/** The entry of a table whose nId (or other member) is the id; null if there is none. */
template <class Table, class Member> auto* FindIn(Table& table, Member member, qint64 nId)
{
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const auto& row) { return row.*member == nId; });
    return found == table.end() ? nullptr : &*found;
}

} // namespace

CSimulationManager& CSimulationManager::Instance()
{
    static CSimulationManager* const pManager = new CSimulationManager; // never destroyed, see CMessageSink
    return *pManager;
}

CSimulationManager::CSimulationManager() = default;
CSimulationManager::~CSimulationManager() = default;

CSimulationManager::SSimulationRow* CSimulationManager::FindRow(qint64 nSimulationId)
{
    return FindIn(m_simulations, &SSimulationRow::nId, nSimulationId);
}

const CSimulationManager::SSimulationRow* CSimulationManager::FindRow(qint64 nSimulationId) const
{
    return FindIn(m_simulations, &SSimulationRow::nId, nSimulationId);
}

CSimulationManager::SViewRow* CSimulationManager::FindView(qint64 nViewId)
{
    return FindIn(m_views, &SViewRow::nId, nViewId);
}

const CSimulationManager::SViewRow* CSimulationManager::FindView(qint64 nViewId) const
{
    return FindIn(m_views, &SViewRow::nId, nViewId);
}

CSimulationManager::SPairRow* CSimulationManager::FindPair(qint64 nViewId, qint64 nSimulationId)
{
    SViewRow* const pView = FindView(nViewId);
    return pView ? FindIn(pView->pairs, &SPairRow::nSimulationId, nSimulationId) : nullptr;
}

const CSimulationManager::SPairRow* CSimulationManager::FindPair(qint64 nViewId, qint64 nSimulationId) const
{
    return const_cast<CSimulationManager*>(this)->FindPair(nViewId, nSimulationId);
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
    SSimulationRow* const pRow = FindRow(nSimulationId);
    if (!pRow || FindPair(nViewId, nSimulationId))
        return;
    if (!FindView(nViewId))
        m_views.push_back({nViewId, -1, {}});
    SViewRow* const pView = FindView(nViewId);
    const qint64 nCount = pView->pairs.size();
    SPairRow pair;
    pair.nSimulationId = nSimulationId;
    StartAtFirstLevel(pair);
    pView->pairs.insert(pView->pairs.begin() + (nIndex < 0 || nIndex > nCount ? nCount : nIndex), pair);
    ++pRow->nUseCount;
    if (m_pPanels) {
        CItemPanel* const pPanel = m_pPanels->Create(nViewId, nSimulationId);
        FindPair(nViewId, nSimulationId)->pPanel = pPanel;
    }
    emit SignalViewSimulationsChanged(nViewId);
}

void CSimulationManager::RemoveSimulationFromView(qint64 nSimulationId, qint64 nViewId)
{
    SSimulationRow* const pRow = FindRow(nSimulationId);
    if (!pRow || !FindPair(nViewId, nSimulationId))
        return;
    const bool bLast = --pRow->nUseCount == 0;
    if (bLast)
        FinishSimulation(*pRow->pSimulation);
    pRow->pSimulation->SaveDisplayFile(nViewId);
    NoteDisplayFile(nSimulationId);

    if (CItemPanel* const pPanel = std::exchange(FindPair(nViewId, nSimulationId)->pPanel, nullptr))
        m_pPanels->Delete(pPanel);
    CSelectableManager::Instance().RemovePair(nViewId, nSimulationId);
    SViewRow* const pView = FindView(nViewId);
    std::erase_if(pView->pairs, [&](const SPairRow& pair) { return pair.nSimulationId == nSimulationId; });
    if (pView->nActiveId == nSimulationId)
        pView->nActiveId = -1;
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
    RemoveCaseData(nSimulationId);
}

void CSimulationManager::RemoveView(qint64 nViewId)
{
    for (const qint64 nSimulationId : GetSimulationIds(nViewId))
        RemoveSimulationFromView(nSimulationId, nViewId);
    std::erase_if(m_views, [&](const SViewRow& view) { return view.nId == nViewId; });
}

void CSimulationManager::RemoveAllViews()
{
    while (!m_views.empty())
        RemoveView(m_views.back().nId);
}

ISimulation* CSimulationManager::GetSimulation(qint64 nSimulationId) const
{
    const SSimulationRow* const pRow = FindRow(nSimulationId);
    return pRow ? pRow->pSimulation.get() : nullptr;
}

ISimulation* CSimulationManager::GetSimulationOfView(qint64 nViewId) const
{
    const SViewRow* const pView = FindView(nViewId);
    return pView ? GetSimulation(pView->nActiveId) : nullptr;
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
    QVector<qint64> ids;
    if (const SViewRow* const pView = FindView(nViewId))
        for (const SPairRow& pair : pView->pairs)
            ids.append(pair.nSimulationId);
    return ids;
}

QVector<qint64> CSimulationManager::GetViewIds(qint64 nSimulationId) const
{
    QVector<qint64> ids;
    for (const SViewRow& view : m_views)
        if (FindPair(view.nId, nSimulationId))
            ids.append(view.nId);
    return ids;
}

qint64 CSimulationManager::GetUseCount(qint64 nSimulationId) const
{
    const SSimulationRow* const pRow = FindRow(nSimulationId);
    return pRow ? pRow->nUseCount : 0;
}

void CSimulationManager::SetActiveSimulation(qint64 nViewId, qint64 nSimulationId)
{
    SViewRow* const pView = FindView(nViewId);
    if (!pView || pView->nActiveId == nSimulationId)
        return;
    if (nSimulationId != -1 && !FindPair(nViewId, nSimulationId))
        return;
    pView->nActiveId = nSimulationId;
    emit SignalViewSimulationsChanged(nViewId);
}

ISimulation* CSimulationManager::FindSimulationByData(const QByteArray& key) const
{
    for (const SSimulationRow& row : m_simulations)
        if (row.pSimulation->IsSameDataFile(key))
            return row.pSimulation.get();
    return nullptr;
}
