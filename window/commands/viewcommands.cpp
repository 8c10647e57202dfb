#include "window/commands/viewcommands.h"

#include "frame/moduleregistry.h"
#include "simulation/isimulation.h"
#include "simulation/simulationmanager.h"
#include "view/ui/oglviewer.h"
#include "view/ui/opengldrawer.h"
#include "window/viewarea.h"

namespace {

constexpr double STATE_VERSION = 1.0; // of what this program writes

/** The same case in the other view (an instance), or one of its own that starts the same (a copy). */
qint64 ShowInOther(qint64 nSimulationId, qint64 nFromView, qint64 nToView, ViewSplit_e eSplit)
{
    CSimulationManager& manager = CSimulationManager::Instance();
    ISimulation* const pSimulation = manager.GetSimulation(nSimulationId);
    if (eSplit == SplitCopy) {
        IModuleInterface* const pModule =
            CModuleRegistry::Instance().FindById(qint32(pSimulation->GetModuleId()));
        return pModule ? pModule->OpenCopy(nSimulationId, nFromView, nToView) : -1;
    }
    manager.AddSimulationToView(nSimulationId, nToView);
    pSimulation->CreateDefaultSelectables(nToView);
    pSimulation->LoadViewState(pSimulation->SaveViewState(nFromView), nToView, STATE_VERSION);
    return nSimulationId;
}

void ShowCasesOf(qint64 nFromView, qint64 nToView, ViewSplit_e eSplit)
{
    CSimulationManager& manager = CSimulationManager::Instance();
    const ISimulation* const pActive = manager.GetSimulationOfView(nFromView);
    for (const qint64 nId : manager.GetSimulationIds(nFromView)) {
        const qint64 nShownId = ShowInOther(nId, nFromView, nToView, eSplit);
        if (nShownId != -1 && pActive && pActive->GetId() == nId)
            manager.SetActiveSimulation(nToView, nShownId);
    }
}

/** The simulations of the view that stand in no other one. */
QVector<qint64> OnlyIn(qint64 nViewId)
{
    const CSimulationManager& manager = CSimulationManager::Instance();
    QVector<qint64> ids;
    for (const qint64 nId : manager.GetSimulationIds(nViewId))
        if (manager.GetUseCount(nId) == 1)
            ids.append(nId);
    return ids;
}

} // namespace

CViewCommands::CViewCommands(CViewArea& area) : m_area(area)
{
    connect(&area, &CViewArea::SignalSplit, this, &CViewCommands::SlotViewerSplit);
    connect(&area, &CViewArea::SignalClose, this, &CViewCommands::SlotViewerClose);
    connect(&area, &CViewArea::SignalExpand, this, &CViewCommands::SlotViewerExpand);
    connect(&CSimulationManager::Instance(), &CSimulationManager::SignalViewSimulationsChanged, this,
            &CViewCommands::SlotViewSimulationsChanged);
}

void CViewCommands::SlotViewerSplit(qlonglong nViewIndex, Qt::Orientation eOrientation, ViewSplit_e eSplit)
{
    const qint64 nNewId = m_area.Split(nViewIndex, eOrientation);
    if (nNewId == -1)
        return;
    if (eSplit == SplitInstance || eSplit == SplitCopy)
        ShowCasesOf(nViewIndex, nNewId, eSplit);
    // The first case of a view is shown as a whole; here it is shown as in the other one.
    m_area.GetOglViewer(nNewId)->SetCamera(m_area.GetOglViewer(nViewIndex)->GetCamera());
    if (eSplit == SplitInstance)
        m_twins.Join(nViewIndex, nNewId);
    m_area.SetActive(nNewId);
}

void CViewCommands::SlotViewSimulationsChanged(qlonglong nViewId)
{
    const int nCount = CSimulationManager::Instance().GetSimulationIds(nViewId).size();
    const int nFormer = std::exchange(m_caseCounts[nViewId], nCount);
    COglViewer* const pViewer = m_area.GetOglViewer(nViewId);
    if (pViewer && nFormer == 0 && nCount == 1)
        pViewer->GetDrawer().FitNextFrame();
}

void CViewCommands::SlotViewerClose(qlonglong nViewIndex)
{
    CSimulationManager& manager = CSimulationManager::Instance();
    if (!m_area.GetViewer(nViewIndex) || !manager.CloseSimulations(OnlyIn(nViewIndex)))
        return;
    manager.RemoveView(nViewIndex);
    m_twins.Forget(nViewIndex);
    manager.CopyDisplayFiles();
    m_area.Close(nViewIndex);
}

void CViewCommands::SlotViewerExpand(qlonglong nViewIndex, bool bExpand)
{
    m_area.SetExpanded(nViewIndex, bExpand);
}
