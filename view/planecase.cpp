#include "view/planecase.h"

#include "scene/selectablekind.h"
#include "simulation/isimulation.h"
#include "simulation/item.h"
#include "simulation/simulationmanager.h"
#include "view/camera/viewbounds.h"
#include "view/selectables/surfaceitems.h"

namespace {

constexpr double FLAT = 1e-5; // of the largest extent: single precision written and read

bool IsThin(const CItem* pBlock) { return ThinDirection(pBlock->GetSize()) >= 0; }

} // namespace

int AxisAcrossPlaneCase(qint64 nViewId)
{
    const CSimulationManager& manager = CSimulationManager::Instance();
    for (const qint64 nSimulationId : manager.GetSimulationIds(nViewId)) {
        const QVector<CItem*> blocks = manager.GetSimulation(nSimulationId)->GetBlocks();
        if (blocks.isEmpty() || !std::all_of(blocks.begin(), blocks.end(), IsThin))
            return -1;
    }
    const SViewBounds bounds = ViewBounds::OfVisible(nViewId, DMatrix4x4());
    if (bounds.IsEmpty())
        return -1;
    const DVector3D extent = bounds.maximum - bounds.minimum;
    const double dLargest = std::max({extent.x, extent.y, extent.z});
    int nFlat = -1;
    for (int nAxis = 0; nAxis < 3; ++nAxis)
        if (extent[nAxis] <= FLAT * dLargest && nFlat < 0)
            nFlat = nAxis;
        else if (extent[nAxis] <= FLAT * dLargest)
            return -1; // a line
    return nFlat;
}
