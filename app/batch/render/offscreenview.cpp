#include "app/batch/render/offscreenview.h"

#include "frame/preferences/preferencekeys.h"
#include "frame/preferences/preferences.h"
#include "scene/drawablemanager.h"
#include "scene/idrawable.h"
#include "simulation/simulationmanager.h"
#include "view/planecase.h"
#include "view/ui/opengldrawer.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>

namespace {

constexpr SRenderRequest::SView ISOMETRIC = {"iso", -1, false};
constexpr double FREE_BORDER = 1.06; // view to case

/** What a frame reads of the user's settings: those of the request, the defaults for the rest. */
void SetDrawSettings(const SRenderRequest& request)
{
    CPreferences& preferences = CPreferences::Instance();
    if (request.background.isValid())
        for (const SKey<QColor>& key : PreferenceKey::BACKGROUND_COLORS)
            Set(preferences, key, request.background);
    preferences.Apply();
}

/** Fitting the view needs the places of all that is shown. */
void BuildDrawables(qint64 nViewId)
{
    for (const qint64 nSimulationId : CSimulationManager::Instance().GetSimulationIds(nViewId))
        for (IDrawable* const pDrawable : CDrawableManager::Instance().GetDrawables(nViewId, nSimulationId))
            if (pDrawable->isVisible() && pDrawable->needsBuild())
                pDrawable->build();
}

/** From -x, -y and +z: the rows are what is right, up and towards the user. */
QMatrix4x4 IsometricView()
{
    const QVector3D back = QVector3D(-1.0F, -1.0F, 1.0F).normalized();
    const QVector3D right = QVector3D::crossProduct({0.0F, 0.0F, 1.0F}, back).normalized();
    QMatrix4x4 view;
    view.setRow(0, right);
    view.setRow(1, QVector3D::crossProduct(back, right));
    view.setRow(2, back);
    view(3, 3) = 1.0F;
    return view;
}

void SetCamera(COpenGLDrawer& drawer, const SRenderRequest::SView& view)
{
    if (view.nAxis >= 0) {
        drawer.LookAlong(view.nAxis, view.bPositive); // fits the view too
    } else {
        SCamera camera = drawer.GetCamera();
        camera.view = IsometricView();
        drawer.SetCamera(camera, FitAll);
        drawer.ZoomToFit();
    }
    SCamera camera = drawer.GetCamera();
    camera.viewSize *= FREE_BORDER;
    drawer.SetCamera(camera, FitAll);
}

/** Where no view is asked for: across the plane of two-dimensional cases, else a corner of the case. */
SRenderRequest::SView UsualView(qint64 nViewId)
{
    const int nAxis = AxisAcrossPlaneCase(nViewId);
    return nAxis < 0 ? ISOMETRIC : SRenderRequest::SView{"plane", nAxis, LooksAlongPositive(nAxis)};
}

} // namespace

int OffscreenView::LongestSide()
{
    const QtMessageHandler former = qInstallMessageHandler([](auto, const auto&, const auto&) {});
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    const bool bThere = context.create() && context.makeCurrent(&surface);
    qInstallMessageHandler(former);
    GLint nMost = 0;
    if (bThere)
        context.functions()->glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &nMost);
    return nMost;
}

QImage OffscreenView::Draw(qint64 nViewId, const SRenderRequest& request,
                           const std::optional<SCamera>& stored)
{
    SetDrawSettings(request);
    BuildDrawables(nViewId);
    COpenGLDrawer drawer(nViewId);
    drawer.setAttribute(Qt::WA_DontShowOnScreen);
    drawer.resize(request.size);
    drawer.show();
    if (stored && !request.view)
        drawer.SetCamera(*stored, FitAll);
    else
        SetCamera(drawer, request.view.value_or(UsualView(nViewId)));
    SCaptureParts parts;
    parts.bAxes = request.bAxes;
    parts.bScale = CPreferences::Instance().Draw().bShowScaling;
    QImage image;
    drawer.renderToImage(image, 1.0, parts);
    return image.size() == request.size ? image.convertToFormat(QImage::Format_RGB32) : QImage();
}
