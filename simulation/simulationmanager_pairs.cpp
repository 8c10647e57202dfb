// CSimulationManager: what belongs to a pair of view and simulation.
#include "frame/novalue.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"

void CSimulationManager::StartAtFirstLevel(SPairRow& pair) const
{
    const ISimulation* const pSimulation = GetSimulation(pair.nSimulationId);
    pair.dTime = pSimulation->GetTimeRange().x();
    pair.bTransient = pSimulation->GetTimeCount() >= 2;
}

double CSimulationManager::GetTime(qint64 nViewId, qint64 nSimulationId) const
{
    const SPairRow* const pPair = FindPair(nViewId, nSimulationId);
    return pPair ? pPair->dTime : STEADY_TIME;
}

void CSimulationManager::SetTime(qint64 nViewId, qint64 nSimulationId, double dTime)
{
    SPairRow* const pPair = FindPair(nViewId, nSimulationId);
    if (!pPair)
        return;
    pPair->dTime = dTime;
    emit SignalSimulationTimeChanged(nViewId, nSimulationId);
}

bool CSimulationManager::IsTransient(qint64 nViewId, qint64 nSimulationId) const
{
    const SPairRow* const pPair = FindPair(nViewId, nSimulationId);
    return pPair && pPair->bTransient;
}

void CSimulationManager::SetTransient(qint64 nViewId, qint64 nSimulationId, bool bTransient)
{
    SPairRow* const pPair = FindPair(nViewId, nSimulationId);
    if (!pPair || pPair->bTransient == bTransient)
        return;
    pPair->bTransient = bTransient;
    emit SignalSimulationTimeChanged(nViewId, nSimulationId);
}

double CSimulationManager::GetRequestTime(qint64 nViewId, qint64 nSimulationId) const
{
    return IsTransient(nViewId, nSimulationId) ? GetTime(nViewId, nSimulationId) : STEADY_TIME;
}

DVector3D CSimulationManager::GetRotationCentre(qint64 nViewId, qint64 nSimulationId) const
{
    const SPairRow* const pPair = FindPair(nViewId, nSimulationId);
    return pPair ? pPair->rotationCentre : DVector3D();
}

void CSimulationManager::SetRotationCentre(qint64 nViewId, qint64 nSimulationId, const DVector3D& centre)
{
    SPairRow* const pPair = FindPair(nViewId, nSimulationId);
    if (!pPair || pPair->rotationCentre == centre)
        return;
    pPair->rotationCentre = centre;
    RebuildTransforms(*pPair);
}

SMirrorSetting CSimulationManager::GetMirror(qint64 nViewId, qint64 nSimulationId) const
{
    const SPairRow* const pPair = FindPair(nViewId, nSimulationId);
    return pPair ? pPair->mirror : SMirrorSetting();
}

void CSimulationManager::SetMirror(qint64 nViewId, qint64 nSimulationId, const SMirrorSetting& mirror)
{
    SPairRow* const pPair = FindPair(nViewId, nSimulationId);
    if (!pPair || pPair->mirror == mirror)
        return;
    pPair->mirror = mirror;
    RebuildTransforms(*pPair);
}

SSectorSetting CSimulationManager::GetSectors(qint64 nViewId, qint64 nSimulationId) const
{
    const SPairRow* const pPair = FindPair(nViewId, nSimulationId);
    return pPair ? pPair->sectors : SSectorSetting();
}

void CSimulationManager::SetSectors(qint64 nViewId, qint64 nSimulationId, const SSectorSetting& sectors)
{
    SPairRow* const pPair = FindPair(nViewId, nSimulationId);
    if (!pPair || pPair->sectors == sectors)
        return;
    pPair->sectors = sectors;
    RebuildTransforms(*pPair);
}

void CSimulationManager::RebuildTransforms(SPairRow& pair)
{
    pair.transforms = BuildDisplayTransforms(pair.mirror, pair.sectors, pair.rotationCentre);
}

QVector<STransform> CSimulationManager::GetDisplayTransforms(qint64 nViewId, qint64 nSimulationId) const
{
    const SPairRow* const pPair = FindPair(nViewId, nSimulationId);
    return pPair ? pPair->transforms : QVector<STransform>();
}

CItemPanel* CSimulationManager::GetItemPanel(qint64 nViewId, qint64 nSimulationId) const
{
    const SPairRow* const pPair = FindPair(nViewId, nSimulationId);
    return pPair ? pPair->pPanel : nullptr;
}

void CSimulationManager::SetItemPanels(IItemPanels* pPanels)
{
    for (SViewRow& view : m_views)
        for (SPairRow& pair : view.pairs)
            pair.pPanel = nullptr;
    m_pPanels = pPanels;
}

void CSimulationManager::SlotItemPanelDeleted(qlonglong nViewId, qlonglong nSimulationId)
{
    if (SPairRow* const pPair = FindPair(nViewId, nSimulationId))
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
        SPairRow* const pPair = FindPair(nViewId, nSimulationId);
        if (pPair->dTime == STEADY_TIME)
            StartAtFirstLevel(*pPair);
    }
    emit SignalSimulationTransientChanged(nSimulationId);
}
