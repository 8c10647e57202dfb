// CSceneRenderer: the line round what is selected or highlighted.
#include "frame/preferences/preferences.h"
#include "scene/idrawable.h"
#include "view/gl/drawcontext.h"
#include "view/gl/screenshaderprogram.h"
#include "view/gl/shadermanager.h"
#include "view/gl/surfaceshaderprogram.h"
#include "view/render/scenerenderer.h"

#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>

namespace {

constexpr float THICKNESS = 3.0F; // [pixels]

QOpenGLFunctions& Gl() { return *QOpenGLContext::currentContext()->functions(); }

} // namespace

/** False if nothing was drawn. */
bool CSceneRenderer::DrawMask(const SFrameSettings& frame, const CFrameScene& scene,
                              const QMatrix4x4& projection)
{
    CSurfaceShaderProgram* const pProgram =
        CShaderManager::Instance().GetSurfaceProgram(CShaderManager::SURFACE);
    if (!pProgram || !pProgram->bind())
        return false;
    pProgram->Set(UniformProjectionMatrix, projection);
    pProgram->Set(UniformOutlineSelectMode, 0.0F);
    pProgram->Set(UniformMaskMode, 1.0F);
    m_colormap.Bind();
    bool bDrawn = false;
    for (const auto& [ePass, color] :
         {std::pair{PassSelected, QColor(255, 0, 0)}, std::pair{PassHighlighted, QColor(0, 255, 0)}}) {
        pProgram->Set(UniformMaskColor, color);
        for (const SCaseScene& one : scene.Cases())
            for (const STransform& view : one.views) {
                DrawContext().view = view;
                DrawContext().normal = view.FloatMatrix().normalMatrix();
                DrawContext().fLineScale = frame.fScale;
                for (IDrawable* const pDrawable : one.Marked(CShaderManager::SURFACE, ePass)) {
                    pDrawable->draw(false);
                    bDrawn = true;
                }
            }
    }
    pProgram->Set(UniformMaskMode, 0.0F);
    pProgram->release();
    return bDrawn;
}

void CSceneRenderer::DrawSilhouette(const SFrameSettings& frame, const CFrameScene& scene,
                                    const QMatrix4x4& projection)
{
    CSilhouetteShaderProgram* const pProgram = CShaderManager::Instance().GetSilhouetteProgram();
    if (!scene.HasMarked(CShaderManager::SURFACE)) // the usual frame needs no mask
        return;
    if (!pProgram || frame.viewport.width() < 1 || frame.viewport.height() < 1)
        return;
    GLint nFramebuffer = 0; // ahead of a new mask, which binds the context's own
    Gl().glGetIntegerv(GL_FRAMEBUFFER_BINDING, &nFramebuffer);
    if (!m_pMask || m_pMask->size() != frame.viewport)
        m_pMask = std::make_unique<QOpenGLFramebufferObject>(frame.viewport);
    if (!m_pMask->bind())
        return;
    Gl().glViewport(0, 0, frame.viewport.width(), frame.viewport.height());
    Gl().glClearColor(0.0F, 0.0F, 0.0F, 0.0F);
    Gl().glClear(GL_COLOR_BUFFER_BIT);
    Gl().glDisable(GL_DEPTH_TEST);
    Gl().glDisable(GL_BLEND);
    const bool bDrawn = DrawMask(frame, scene, projection);
    Gl().glBindFramebuffer(GL_FRAMEBUFFER, GLuint(nFramebuffer));
    Gl().glViewport(0, 0, frame.viewport.width(), frame.viewport.height());
    Gl().glEnable(GL_BLEND);
    if (!bDrawn || !pProgram->bind())
        return;
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    Gl().glActiveTexture(GL_TEXTURE0);
    Gl().glBindTexture(GL_TEXTURE_2D, m_pMask->texture());
    pProgram->Set(SilhouetteTexelSize,
                  QVector2D(1.0F / frame.viewport.width(), 1.0F / frame.viewport.height()));
    pProgram->Set(SilhouetteThickness, THICKNESS * frame.fScale);
    pProgram->Set(SilhouetteHighlightColor, draw.highlightColor);
    pProgram->Set(SilhouetteSelectColor, draw.selectColor);
    pProgram->DrawOverAll();
    Gl().glBindTexture(GL_TEXTURE_2D, 0);
    pProgram->release();
}
