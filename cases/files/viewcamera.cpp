#include "cases/files/viewcamera.h"

#include "cases/files/storedcamera.h"
#include "frame/novalue.h"
#include "frame/widgetmanager.h"
#include "simulation/isimulation.h"
#include "view/camera/icameraview.h"
#include "view/iviewer.h"

namespace {

ICameraView* FindCameraView(qint64 nViewId)
{
    return dynamic_cast<ICameraView*>(CWidgetManager::Instance().GetViewerById(nViewId));
}

} // namespace

qint64 ViewToStore(const ISimulation& simulation)
{
    const CWidgetManager& widgets = CWidgetManager::Instance();
    if (!widgets.GetWidget(CWidgetManager::MAIN_WINDOW) && !simulation.GetSavedDisplay().isEmpty())
        return NO_ID;
    const QVector<qint64> viewIds = simulation.GetViewIds();
    const qint64 nActive = widgets.GetActiveViewId();
    return viewIds.contains(nActive) ? nActive : viewIds.value(0, NO_ID);
}

std::optional<SCamera> TakeViewCamera(qint64 nViewId)
{
    const ICameraView* const pView = FindCameraView(nViewId);
    return pView ? std::optional(pView->GetCamera()) : std::nullopt;
}

void ApplyViewCamera(qint64 nViewId, const SCamera& camera)
{
    if (ICameraView* const pView = FindCameraView(nViewId))
        pView->SetCamera(camera);
}

void ApplyCameraBlock(qint64 nViewId, const QByteArray& block)
{
    const std::optional<SCamera> shown = TakeViewCamera(nViewId);
    if (!shown)
        return;
    SStoredCamera stored;
    stored.block = block;
    stored.rotationPoint = shown->rotationPoint;
    if (const std::optional<SCamera> camera = stored.Camera())
        ApplyViewCamera(nViewId, *camera);
}
