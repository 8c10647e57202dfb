#include "window/sectordisplay.h"

#include "frame/userprompt.h"
#include "simulation/simulationmanager.h"
#include "simulation/undostep.h"

namespace {

constexpr const char* TITLE = "Periodic Mirror";

bool IsWithinLimit(double dTransforms)
{
    return dTransforms <= MAX_DISPLAY_TRANSFORMS ||
           UserPrompt::Tell(PromptWarning, TITLE, TransformLimitText(dTransforms));
}

bool IsWanted(double dTransforms)
{
    if (dTransforms <= SectorDisplay::TRANSFORM_QUESTION)
        return true;
    const QString sText = "This configuration will generate %1 transforms, which may slow down rendering. "
                          "Proceed anyway?";
    return UserPrompt::Confirm(TITLE, sText.arg(dTransforms, 0, 'f', 0), false);
}

} // namespace

bool SectorDisplay::Apply(qint64 nViewId, qint64 nSimulationId, const SMirrorSetting& mirror,
                          const SSectorSetting& sectors)
{
    CSimulationManager& manager = CSimulationManager::Instance();
    if (!manager.GetSimulation(nSimulationId))
        return false;
    const double dTransforms = CountDisplayTransforms(mirror, sectors);
    if (!IsWithinLimit(dTransforms) || !IsWanted(dTransforms))
        return false;
    const CUndoStep step(nSimulationId);
    manager.SetMirror(nViewId, nSimulationId, mirror);
    manager.SetSectors(nViewId, nSimulationId, sectors);
    return true;
}
