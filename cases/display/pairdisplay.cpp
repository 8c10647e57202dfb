#include "cases/display/pairdisplay.h"

#include "frame/messagesink.h"
#include "simulation/simulationmanager.h"

#include <cmath>

bool PairDisplay::Apply(qint64 nViewId, qint64 nSimulationId, const SMirrorSetting& mirror,
                        const SSectorSetting& sectors)
{
    CSimulationManager& manager = CSimulationManager::Instance();
    SMirrorSetting usable = mirror;
    for (double& dOffset : usable.dOffset)
        if (!std::isfinite(dOffset))
            dOffset = 0.0;
    const double dTransforms = CountDisplayTransforms(usable, sectors);
    const bool bFits = dTransforms <= MAX_DISPLAY_TRANSFORMS;
    if (!bFits)
        CMessageSink::Instance().Log(
            QString("The stored sectors would generate %1 transforms; more than %2 are not shown")
                .arg(dTransforms, 0, 'g', 6)
                .arg(MAX_DISPLAY_TRANSFORMS));
    manager.SetSectors(nViewId, nSimulationId, bFits ? sectors : SSectorSetting());
    manager.SetMirror(nViewId, nSimulationId, usable);
    return bFits;
}
