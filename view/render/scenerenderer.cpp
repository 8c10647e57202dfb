#include "view/render/scenerenderer.h"

#include "frame/preferences/preferences.h"
#include "scene/drawablemanager.h"
#include "scene/idrawable.h"
#include "simulation/simulationmanager.h"
#include "view/gl/abandonednames.h"
#include "view/gl/drawcontext.h"
#include "view/gl/shadermanager.h"
#include "view/gl/surfaceshaderprogram.h"
#include "view/mesh/surfacearrays.h"
#include "view/pick/seencopies.h"

#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>

namespace {

constexpr DisplayType_e DRAW_ORDER[] = {DisplayNodes,     DisplayVector,  DisplayOutline,
                                        DisplayWireframe, DisplayContour, DisplayShadedWireframe,
                                        DisplayShaded};
constexpr double DEPTH_MARGIN = 0.05; // of the depth of what is shown
constexpr int STIPPLE_FACTOR = 5;     // of the measured line: so many pixels for each bit
constexpr GLushort STIPPLE_PATTERN = 0xAAAA;

QOpenGLFunctions& Gl() { return *QOpenGLContext::currentContext()->functions(); }

/**
 * Moves the middle of what is shown to 0: what lies far off has large coordinates, which must cancel before
 * they become floats. The depth is that of the scene: a fixed one would cut large cases and blur small ones.
 *
 * @return the projection for the rectangle, which is moved along
 */
QMatrix4x4 MoveToMiddle(CFrameScene& scene, SFrameSettings& frame)
{
    const QPointF depth = scene.DepthRange();
    const bool bHasDepth = depth.x() <= depth.y();
    const DVector3D middle{0.5 * (frame.dLeft + frame.dRight), 0.5 * (frame.dBottom + frame.dTop),
                           bHasDepth ? 0.5 * (depth.x() + depth.y()) : 0.0};
    scene.Move(-middle);
    frame.view = DMatrix4x4::Translation(-middle) * frame.view;
    for (double* const pSide : {&frame.dLeft, &frame.dRight})
        *pSide -= middle.x;
    for (double* const pSide : {&frame.dBottom, &frame.dTop})
        *pSide -= middle.y;
    double dDepth = 1.0; // half of it
    if (bHasDepth)
        dDepth = 0.5 * (depth.y() - depth.x()) +
                 std::max((depth.y() - depth.x()) * DEPTH_MARGIN, (frame.dRight - frame.dLeft) * 1e-3);
    QMatrix4x4 projection;
    projection.ortho(float(frame.dLeft), float(frame.dRight), float(frame.dBottom), float(frame.dTop),
                     float(-dDepth), float(dDepth));
    return projection;
}

/**
 * Without samples the edge of a smoothed line is a mix with what was drawn before it. Lines come ahead of
 * what is filled, which the depth test then keeps out of their edges: the background would stand along each
 * line.
 */
void ChooseLineSmoothing(const CFrameScene& scene)
{
    GLint nSamples = 0;
    Gl().glGetIntegerv(GL_SAMPLES, &nSamples);
    if (nSamples > 0 || !scene.HasFilled())
        Gl().glEnable(GL_LINE_SMOOTH);
    else
        Gl().glDisable(GL_LINE_SMOOTH);
}

void SetBlending()
{
    Gl().glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
}

/** What is filled stands behind the lines that lie in it: by its slope over half their width, and a step. */
void SetFillOffset(const CFrameScene& scene, float fScale)
{
    Gl().glEnable(GL_POLYGON_OFFSET_FILL);
    Gl().glPolygonOffset(1.0F + 0.5F * float(scene.ThickestLine()) * fScale, 1.0F);
}

} // namespace

CSceneRenderer::CSceneRenderer() = default;
CSceneRenderer::~CSceneRenderer() = default;

void CSceneRenderer::Initialize()
{
    AbandonedNames::Watch();
    m_colormap.Create();
    glShadeModel(GL_SMOOTH);
    Gl().glEnable(GL_DEPTH_TEST);
    glEdgeFlag(GL_FALSE);
}

void CSceneRenderer::Release()
{
    m_pMask.reset();
    m_layers.Release();
    m_colormap.Delete();
}

void CSceneRenderer::BuildDrawables(const CFrameScene& scene)
{
    for (const SCaseScene& one : scene.Cases())
        for (IDrawable* const pDrawable : one.visible)
            if (pDrawable->alwaysRebuild() || pDrawable->needsBuild())
                pDrawable->build();
}

void CSceneRenderer::UploadDrawables(const CFrameScene& scene)
{
    for (const SCaseScene& one : scene.Cases())
        for (IDrawable* const pDrawable : one.visible)
            pDrawable->upload();
}

void CSceneRenderer::Build(qint64 nViewId) { BuildDrawables(CFrameScene(nViewId, {}, MarksHidden)); }

void CSceneRenderer::Render(SFrameSettings frame)
{
    AbandonedNames::Delete();
    CShaderManager::Instance().PushGlobalUniforms();
    const bool bOutline = CPreferences::Instance().Draw().bHighlightOutline;
    CFrameScene scene(frame.nViewId, frame.view,
                      !frame.bMarks ? MarksHidden
                      : bOutline    ? MarksOutlined
                                    : MarksInFront);
    Gl().glClear(GL_DEPTH_BUFFER_BIT);
    Gl().glEnable(GL_DEPTH_TEST);
    Gl().glEnable(GL_BLEND);
    glEnable(GL_MULTISAMPLE); // a painter without antialiasing has switched it off
    ChooseLineSmoothing(scene);
    SetBlending();
    SetFillOffset(scene, frame.fScale);
    DrawContext().pColormap = &m_colormap;
    DrawContext().pOpenGL = QOpenGLContext::currentContext();
    if (frame.bCheckDrawables) {
        BuildDrawables(scene);
        UploadDrawables(scene);
    }
    DrawContext().fLineScale = frame.fScale;
    DrawContext().bMarks = frame.bMarks;
    glPointSize(CPreferences::Instance().Draw().fPointSize * frame.fScale);
    const QMatrix4x4 projection = MoveToMiddle(scene, frame);
    if (frame.bBoundingBoxes)
        DrawBoundingBoxes(scene, projection);
    else
        DrawItems(frame, scene, projection);
    Gl().glDisable(GL_POLYGON_OFFSET_FILL);
    Gl().glDisable(GL_DEPTH_TEST); // what is painted over the scene has no depth
}

void CSceneRenderer::DrawItems(const SFrameSettings& frame, const CFrameScene& scene,
                               const QMatrix4x4& projection)
{
    DrawShown(frame, scene, projection, true);
    if (scene.HasTransparent())
        DrawTransparent(frame, scene, projection);
    if (scene.Marks() == MarksInFront)
        DrawMarked(frame, scene, projection);
    if (frame.measureLine.size() == 2)
        DrawMeasureLine(frame, projection);
    if (scene.Marks() == MarksOutlined)
        DrawSilhouette(frame, scene, projection);
}

namespace {

/** Draws some drawables of a case with each of its transforms. */
void DrawBucket(const SCaseScene& scene, const SCaseScene::Bucket& bucket, const SFrameSettings& frame,
                bool bOverlay)
{
    if (bucket.empty())
        return;
    SDrawContext& context = DrawContext();
    context.fLineScale = frame.fScale * (bOverlay && scene.bDoubleWidth ? 2.0F : 1.0F);
    for (const STransform& view : scene.views) {
        context.view = view;
        context.normal = view.FloatMatrix().normalMatrix();
        for (IDrawable* const pDrawable : bucket)
            if (IsInRectangle(*pDrawable, view.Matrix(), frame.dLeft, frame.dRight, frame.dTop,
                              frame.dBottom))
                pDrawable->draw(bOverlay);
    }
}

} // namespace

template <class Draw>
void CSceneRenderer::WithPrograms(const SFrameSettings& frame, const CFrameScene& scene,
                                  const QMatrix4x4& projection, const Draw& draw)
{
    const QVector2D texel(1.0F / float(frame.viewport.width()), 1.0F / float(frame.viewport.height()));
    for (const int nKey : {CShaderManager::SURFACE, CShaderManager::VECTOR}) {
        CSurfaceShaderProgram* const pProgram = CShaderManager::Instance().GetSurfaceProgram(nKey);
        if (!pProgram || !pProgram->bind())
            continue;
        m_colormap.Bind();
        pProgram->Set(UniformProjectionMatrix, projection);
        pProgram->Set(UniformOutlineSelectMode, scene.Marks() == MarksOutlined ? 1.0F : 0.0F);
        pProgram->Set(UniformTexelSize, texel);
        draw(nKey);
        pProgram->release();
    }
}

void CSceneRenderer::DrawShown(const SFrameSettings& frame, const CFrameScene& scene,
                               const QMatrix4x4& projection, bool bOpaque)
{
    Gl().glEnable(GL_DEPTH_TEST);
    WithPrograms(frame, scene, projection, [&](int nKey) {
        for (const DisplayType_e eType : DRAW_ORDER)
            for (const SCaseScene& one : scene.Cases())
                DrawBucket(one, one.At(nKey, bOpaque, eType), frame, false);
    });
}

void CSceneRenderer::DrawTransparent(const SFrameSettings& frame, const CFrameScene& scene,
                                     const QMatrix4x4& projection)
{
    const auto draw = [&](bool bOpaque) { DrawShown(frame, scene, projection, bOpaque); };
    if (!m_layers.Draw(
            frame.viewport, [&] { draw(true); }, [&] { draw(false); })) {
        Gl().glDepthMask(GL_FALSE); // all is seen, if not each in its place
        draw(false);
        Gl().glDepthMask(GL_TRUE);
    }
    SetBlending();
}

/** In front of all, first what is selected, then what is highlighted. */
void CSceneRenderer::DrawMarked(const SFrameSettings& frame, const CFrameScene& scene,
                                const QMatrix4x4& projection)
{
    Gl().glDisable(GL_DEPTH_TEST);
    for (const FramePass_e ePass : {PassSelected, PassHighlighted})
        WithPrograms(frame, scene, projection, [&](int nKey) {
            for (const SCaseScene& one : scene.Cases())
                DrawBucket(one, one.Marked(nKey, ePass), frame, true);
        });
}

namespace {

/** Lines of one colour between places in view coordinates, with nothing of what is set for surfaces. */
class CPlainLines
{
public:
    explicit CPlainLines(const QMatrix4x4& projection)
        : m_pProgram(CShaderManager::Instance().GetSurfaceProgram(CShaderManager::SURFACE))
    {
        if (!m_pProgram || !m_pProgram->bind()) {
            m_pProgram = nullptr;
            return;
        }
        QMatrix3x3 off;
        off.fill(0.0F);
        m_pProgram->Set(UniformProjectionMatrix, projection);
        m_pProgram->Set(UniformColorMap, QVector3D());
        m_pProgram->Set(UniformViewMatrix, QMatrix4x4());
        m_pProgram->Set(UniformModelMatrix, QMatrix4x4());
        m_pProgram->Set(UniformThresholdMatrix, off);
        m_pProgram->Set(UniformAlphaValue, 1.0F);
        for (const SurfaceUniform_e eUniform :
             {UniformEnableLight, UniformSelected, UniformHighlighted, UniformIsPreview})
            m_pProgram->Set(eUniform, 0.0F);
        m_pProgram->enableAttributeArray(AttributePosition);
    }
    ~CPlainLines()
    {
        if (!m_pProgram)
            return;
        m_pProgram->disableAttributeArray(AttributePosition);
        m_pProgram->release();
    }
    Q_DISABLE_COPY_MOVE(CPlainLines)

    /** @param ends  two a line */
    void Draw(const std::vector<DVector3D>& ends, const QColor& color)
    {
        if (!m_pProgram)
            return;
        const std::vector<float> floats = SurfaceArrays::ToFloats(ends, {});
        m_pProgram->Set(UniformConstColor, color);
        m_pProgram->setAttributeArray(AttributePosition, floats.data(), 3);
        Gl().glDrawArrays(GL_LINES, 0, GLsizei(ends.size()));
    }

private:
    CSurfaceShaderProgram* m_pProgram;
};

} // namespace

/** In front of all that has been drawn. */
void CSceneRenderer::DrawMeasureLine(const SFrameSettings& frame, const QMatrix4x4& projection)
{
    CPlainLines lines(projection);
    Gl().glDisable(GL_DEPTH_TEST);
    glEnable(GL_LINE_STIPPLE);
    glLineStipple(STIPPLE_FACTOR, STIPPLE_PATTERN);
    glLineWidth(CPreferences::Instance().Draw().fLineThickness * frame.fScale);
    lines.Draw({frame.view.MapPoint(frame.measureLine[0]), frame.view.MapPoint(frame.measureLine[1])},
               Qt::black);
    glDisable(GL_LINE_STIPPLE);
}

/** The ends of the twelve edges of a box. */
static std::vector<DVector3D> EdgesOf(const BoxCorners& corners)
{
    constexpr int EDGES[12][2] = {{0, 1}, {2, 3}, {4, 5}, {6, 7}, {0, 2}, {1, 3},
                                  {4, 6}, {5, 7}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};
    std::vector<DVector3D> ends;
    for (const auto& edge : EDGES)
        ends.insert(ends.end(), {corners[edge[0]], corners[edge[1]]});
    return ends;
}

void CSceneRenderer::DrawBoundingBoxes(const CFrameScene& scene, const QMatrix4x4& projection)
{
    CPlainLines lines(projection);
    Gl().glEnable(GL_DEPTH_TEST);
    glLineWidth(1.0F);
    for (const SCaseScene& one : scene.Cases())
        for (const STransform& view : one.views)
            for (const IDrawable* const pDrawable : one.visible)
                AnyCopy(*pDrawable, view.Matrix(), [&](const DMatrix4x4& toView) {
                    if (HasBox(*pDrawable))
                        lines.Draw(EdgesOf(CornersOf(*pDrawable, toView)), pDrawable->wireframeColor());
                    return false;
                });
}
