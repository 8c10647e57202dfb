#include "view/ui/viewcapture.h"

#include "frame/preferences/preferences.h"
#include "view/ui/opengldrawer.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

namespace {

/** The widest and highest picture that the current context can draw [device pixels]. */
int LargestSide()
{
    QOpenGLFunctions* const pOpenGL = QOpenGLContext::currentContext()->functions();
    GLint nBuffer = 0;
    GLint viewport[2] = {};
    pOpenGL->glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &nBuffer);
    pOpenGL->glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
    return std::min({nBuffer, viewport[0], viewport[1]});
}

} // namespace

QBrush CViewCapture::Background() const
{
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    switch (m_parts ? m_parts->eBackground : CaptureDisplayed) {
    case CaptureCustom:
        return draw.backgroundColors.last();
    case CaptureTransparent:
        return QColor(0, 0, 0, 0);
    default:
        return draw.background;
    }
}

QImage CViewCapture::Take(COpenGLDrawer& drawer, double dScale, const SCaptureParts& parts)
{
    const QSize former = drawer.size();
    const QSize target(qRound(former.width() * dScale), qRound(former.height() * dScale));
    if (!drawer.isValid() || target.isEmpty())
        return {};
    drawer.makeCurrent();
    if (std::max(target.width(), target.height()) * drawer.devicePixelRatioF() > LargestSide())
        return {};
    // The widget takes the picture's size and its own again before any event can see it.
    constexpr int KEEP_THE_PICTURE = -1;
    const SCamera camera = drawer.GetCamera();
    m_parts = parts;
    m_dScale = dScale;
    drawer.resize(target);
    drawer.SetCamera(camera, KEEP_THE_PICTURE);
    QImage image = drawer.grabFramebuffer();
    m_parts.reset();
    drawer.resize(former);
    drawer.SetCamera(camera, KEEP_THE_PICTURE);
    image.setDevicePixelRatio(1.0);
    return image;
}
