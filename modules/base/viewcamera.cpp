#include "modules/base/viewcamera.h"

#include "frame/widgetmanager.h"
#include "view/icameraview.h"
#include "view/iviewer.h"

namespace {

ICameraView* FindCameraView(qint64 nViewId)
{
    return dynamic_cast<ICameraView*>(CWidgetManager::Instance().GetViewerById(nViewId));
}

} // namespace

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
