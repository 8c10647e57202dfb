#include "window/windowcapture.h"

#include "analysis/widgets/analyzeitemviewer.h"
#include "frame/preferences/preferences.h"
#include "view/ui/oglviewer.h"
#include "view/ui/opengldrawer.h"
#include "window/viewarea.h"

#include <QPainter>

namespace {

QSize Scaled(const QSize& size, double dScale)
{
    return {qRound(size.width() * dScale), qRound(size.height() * dScale)};
}

/** The three-dimensional view of the slot, if that is what it shows. */
COglViewer* ShownScene(const CViewArea& area, qint64 nViewId)
{
    COglViewer* const pViewer = area.GetOglViewer(nViewId);
    return pViewer && area.GetViewer(nViewId) == static_cast<IViewer*>(pViewer) ? pViewer : nullptr;
}

QImage DrawScene(COglViewer& viewer, double dScale, const SCaptureParts& parts)
{
    QImage image;
    viewer.GetDrawer().renderToImage(image, dScale, parts);
    return image;
}

/** A widget with its children, dScale times as large. */
QImage DrawWidget(QWidget& widget, double dScale)
{
    QImage image(Scaled(widget.size(), dScale), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(dScale);
    widget.render(&image);
    image.setDevicePixelRatio(1.0);
    return image;
}

QImage DrawView(const CViewArea& area, qint64 nViewId, const SCapture& capture)
{
    if (COglViewer* const pScene = ShownScene(area, nViewId)) {
        const double dScale = double(capture.size.width()) / std::max(pScene->GetDrawer().width(), 1);
        return DrawScene(*pScene, dScale, capture.parts);
    }
    IViewer* const pViewer = area.GetViewer(nViewId);
    if (!pViewer)
        return {};
    QWidget& widget = *pViewer->GetWidget();
    return DrawWidget(widget,
                      capture.size.width() * widget.devicePixelRatioF() / std::max(widget.width(), 1));
}

/** Puts a view's picture over what the window has there, a pixel of background around it. */
bool DrawSceneInto(QPainter& painter, const QWidget& window, COglViewer& viewer, double dScale,
                   const SCaptureParts& parts)
{
    COpenGLDrawer& drawer = viewer.GetDrawer();
    const QImage image = DrawScene(viewer, dScale, parts);
    if (image.isNull())
        return false;
    const double dPixels = dScale * drawer.devicePixelRatioF();
    const QPointF place = QPointF(drawer.mapTo(&window, QPoint())) * dPixels;
    painter.fillRect(QRectF(place - QPointF(1.0, 1.0), QSizeF(drawer.size()) * dPixels + QSizeF(2.0, 2.0)),
                     CPreferences::Instance().Draw().background);
    painter.drawImage(place, image);
    return true;
}

QImage DrawWindow(QWidget& window, const CViewArea& area, const SCapture& capture)
{
    const double dScale = double(capture.size.width()) / std::max(window.width(), 1);
    QImage image = DrawWidget(window, dScale * window.devicePixelRatioF());
    if (image.isNull())
        return {};
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const qint64 nViewId : area.GetViewIds()) {
        COglViewer* const pScene = ShownScene(area, nViewId);
        if (pScene && pScene->isVisible() && !DrawSceneInto(painter, window, *pScene, dScale, capture.parts))
            return {};
    }
    return image;
}

} // namespace

QImage WindowCapture::Take(QWidget& window, const CViewArea& area, const SCapture& capture)
{
    if (capture.size.isEmpty())
        return {};
    if (area.GetExpandedId() != -1)
        return DrawView(area, area.GetExpandedId(), capture);
    return capture.bActiveViewOnly ? DrawView(area, area.GetActiveViewId(), capture)
                                   : DrawWindow(window, area, capture);
}

QSize WindowCapture::ViewSize(const CViewArea& area)
{
    const qint64 nViewId = area.GetExpandedId() != -1 ? area.GetExpandedId() : area.GetActiveViewId();
    if (COglViewer* const pScene = ShownScene(area, nViewId))
        return pScene->GetDrawer().size();
    IViewer* const pViewer = area.GetViewer(nViewId);
    return pViewer ? pViewer->GetWidget()->size() : QSize();
}
