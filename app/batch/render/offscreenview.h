#pragma once

#include "app/batch/render/renderrequest.h"

#include <QImage>

class COpenGLDrawer;

/** Draws a view as the window does, on no screen. Needs the application object of widgets. */
namespace OffscreenView {

/** @return why OpenGL can't draw pictures of the size on this display, in one line; empty if it can */
QString FindProblem(const QSize& size);

/**
 * The picture of a view, with exactly the pixels asked for.
 *
 * @return null if nothing could be drawn
 */
QImage Draw(qint64 nViewId, const SRenderRequest& request);

} // namespace OffscreenView
