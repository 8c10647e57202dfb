#pragma once

#include "view/gl/shadermanager.h"
#include "view/render/scenerenderer.h"

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
        if (!CShaderManager::Instance().LinkAll())
            qFatal("the shaders don't link");
        m_bIsValid = true;
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
        glViewport(0, 0, size.width(), size.height());
        Clear();
    }
    /** Before each frame. The frame may have left Qt with another idea of what is bound. */
    void Clear()
    {
        m_pTarget->bind();
        glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
        glClear(GL_COLOR_BUFFER_BIT);
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
