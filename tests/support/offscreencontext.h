#pragma once

#include "view/scenerenderer.h"
#include "view/shadermanager.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>

#include <memory>

/** A context of the kind that views have, with the programs linked and an image to draw into. */
class COffscreenContext
{
public:
    COffscreenContext()
    {
        QSurfaceFormat format(QSurfaceFormat::DeprecatedFunctions);
        format.setProfile(QSurfaceFormat::CompatibilityProfile);
        m_context.setFormat(format);
        m_surface.setFormat(format);
        m_surface.create();
        if (!m_context.create() || !m_context.makeCurrent(&m_surface))
            return;
        CShaderManager::Instance().CreatePrograms();
        m_bIsValid = CShaderManager::Instance().LinkAll();
        m_renderer.Initialize();
    }
    ~COffscreenContext()
    {
        if (QOpenGLContext::currentContext() != &m_context)
            return;
        m_renderer.Release();
        CShaderManager::Instance().DeletePrograms();
        m_pTarget.reset();
    }
    Q_DISABLE_COPY_MOVE(COffscreenContext)

    /** False where the platform has no OpenGL. */
    bool IsValid() const { return m_bIsValid; }

    void SetSize(const QSize& size)
    {
        m_pTarget = std::make_unique<QOpenGLFramebufferObject>(size, QOpenGLFramebufferObject::Depth);
        m_pTarget->bind();
        glViewport(0, 0, size.width(), size.height());
        glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    }
    QSize Size() const { return m_pTarget->size(); }
    QImage Image() const { return m_pTarget->toImage(); }
    CSceneRenderer& Renderer() { return m_renderer; }

private:
    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    CSceneRenderer m_renderer;
    std::unique_ptr<QOpenGLFramebufferObject> m_pTarget;
    bool m_bIsValid = false;
};
