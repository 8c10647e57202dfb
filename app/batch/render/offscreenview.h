#pragma once

#include "app/batch/render/renderrequest.h"
#include "view/camera/camera.h"

#include <QImage>

class COpenGLDrawer;

/** Draws a view as the window does, on no screen. Needs the application object of widgets. */
namespace OffscreenView {

/**
 * The longest side that a picture can have on this display [pixels].
 *
 * @return 0 without OpenGL
 */
int LongestSide();

/**
 * The picture of a view, with exactly the pixels asked for.
 *
 * @param stored  the camera where the request names none
 * @return null if nothing could be drawn
 */
QImage Draw(qint64 nViewId, const SRenderRequest& request, const std::optional<SCamera>& stored);

} // namespace OffscreenView
