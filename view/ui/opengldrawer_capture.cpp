// COpenGLDrawer: pictures of the view, of any size.
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

QBrush CaptureBrush(CaptureBackground_e eBackground)
{
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    switch (eBackground) {
    case CaptureCustom:
        return draw.backgroundColors.last();
    case CaptureTransparent:
        return QColor(0, 0, 0, 0);
    default:
        return draw.background;
    }
}

} // namespace

void COpenGLDrawer::renderToImage(QImage& image, double dScale, const SCaptureParts& parts)
{
    image = {};
    const QSize former = size();
    const QSize target(qRound(former.width() * dScale), qRound(former.height() * dScale));
    if (!isValid() || target.isEmpty())
        return;
    makeCurrent();
    if (std::max(target.width(), target.height()) * devicePixelRatioF() > LargestSide())
        return;
    // The widget takes the picture's size and its own again before any event can see it.
    constexpr int KEEP_THE_PICTURE = -1;
    const SCamera camera = GetCamera();
    m_capture = SCapturing{dScale, CaptureBrush(parts.eBackground), parts};
    resize(target);
    SetCamera(camera, KEEP_THE_PICTURE);
    image = grabFramebuffer();
    m_capture.reset();
    resize(former);
    SetCamera(camera, KEEP_THE_PICTURE);
    image.setDevicePixelRatio(1.0);
}
