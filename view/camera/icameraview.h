#pragma once

#include "view/camera/camera.h"

/** A view with a camera; IViewers of the three-dimensional kind are one (dynamic_cast). */
class ICameraView
{
public:
    virtual ~ICameraView() = default;
    virtual SCamera GetCamera() const = 0;
    /** @param nFit  a CameraFit_e: what of it stays visible in a widget of another shape */
    virtual void SetCamera(const SCamera& camera, int nFit = 0) = 0;
};
