#include "view/render/transparentlayers.h"

#include "view/gl/screenshaderprogram.h"
#include "view/gl/shadermanager.h"

#include <QOpenGLExtraFunctions>

namespace {

QOpenGLExtraFunctions& Gl() { return *QOpenGLContext::currentContext()->extraFunctions(); }

GLuint MakeTexture(GLint nInternal, GLenum eFormat, GLenum eType, const QSize& size)
{
    GLuint nTexture = 0;
    Gl().glGenTextures(1, &nTexture);
    Gl().glBindTexture(GL_TEXTURE_2D, nTexture);
    Gl().glTexImage2D(GL_TEXTURE_2D, 0, nInternal, size.width(), size.height(), 0, eFormat, eType, nullptr);
    for (const GLenum eFilter : {GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER})
        Gl().glTexParameteri(GL_TEXTURE_2D, eFilter, GL_NEAREST);
    Gl().glBindTexture(GL_TEXTURE_2D, 0);
    return nTexture;
}

/** Adds a picture in premultiplied colours to the framebuffer that is bound. */
void AddPicture(GLuint nTexture)
{
    CLayerShaderProgram* const pProgram = CShaderManager::Instance().GetLayerProgram();
    pProgram->bind();
    Gl().glDisable(GL_DEPTH_TEST);
    Gl().glActiveTexture(GL_TEXTURE0);
    Gl().glBindTexture(GL_TEXTURE_2D, nTexture);
    pProgram->DrawOverAll();
    Gl().glBindTexture(GL_TEXTURE_2D, 0);
    pProgram->release();
    Gl().glEnable(GL_DEPTH_TEST);
}

/** What follows shows as far as what is there lets it through. */
void BlendBehind() { Gl().glBlendFunc(GL_ONE_MINUS_DST_ALPHA, GL_ONE); }

} // namespace

bool CTransparentLayers::Create(SPlane& plane, const QSize& size)
{
    plane.nColor = MakeTexture(GL_RGBA8, GL_RGBA, GL_UNSIGNED_BYTE, size);
    plane.nDepth = MakeTexture(GL_DEPTH_COMPONENT24, GL_DEPTH_COMPONENT, GL_UNSIGNED_INT, size);
    Gl().glGenFramebuffers(1, &plane.nFramebuffer);
    Gl().glBindFramebuffer(GL_FRAMEBUFFER, plane.nFramebuffer);
    Gl().glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, plane.nColor, 0);
    Gl().glFramebufferTexture2D(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_TEXTURE_2D, plane.nDepth, 0);
    return Gl().glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
}

void CTransparentLayers::Release()
{
    for (SPlane& plane : m_planes) {
        Gl().glDeleteFramebuffers(1, &plane.nFramebuffer);
        const GLuint textures[] = {plane.nColor, plane.nDepth};
        Gl().glDeleteTextures(2, textures);
        plane = {};
    }
    if (m_nQuery)
        Gl().glDeleteQueries(1, &m_nQuery);
    m_nQuery = 0;
    m_size = {};
}

bool CTransparentLayers::Prepare(const QSize& size)
{
    if (!CShaderManager::Instance().GetLayerProgram())
        return false;
    if (m_size == size)
        return true;
    Release();
    Gl().glGenQueries(1, &m_nQuery);
    for (SPlane& plane : m_planes)
        if (!Create(plane, size)) {
            Release();
            return false;
        }
    m_size = size;
    return true;
}

bool CTransparentLayers::Draw(const QSize& viewport, const DrawFunction& opaque,
                              const DrawFunction& transparent)
{
    GLint nTarget = 0;
    Gl().glGetIntegerv(GL_FRAMEBUFFER_BINDING, &nTarget);
    const bool bReady = !viewport.isEmpty() && Prepare(viewport);
    if (bReady) {
        const bool bSmooth = Gl().glIsEnabled(GL_LINE_SMOOTH); // the edge of a line would hide what is behind
        Gl().glDisable(GL_LINE_SMOOTH);
        Gl().glViewport(0, 0, viewport.width(), viewport.height());
        Gl().glClearColor(0.0F, 0.0F, 0.0F, 0.0F);
        Gl().glBindFramebuffer(GL_FRAMEBUFFER, m_planes[SUM].nFramebuffer);
        Gl().glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        Gl().glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
        opaque();
        Gl().glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
        Peel(transparent);
        if (bSmooth)
            Gl().glEnable(GL_LINE_SMOOTH);
    }
    Gl().glBindFramebuffer(GL_FRAMEBUFFER, GLuint(nTarget));
    if (!bReady)
        return false;
    Gl().glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    AddPicture(m_planes[SUM].nColor);
    return true;
}

void CTransparentLayers::Peel(const DrawFunction& transparent)
{
    if (!CShaderManager::Instance().UseVariant(VariantPeeling))
        return;
    int nLayer = 0;
    while (nLayer < MAX_LAYERS && DrawLayer(nLayer, transparent))
        ++nLayer;
    if (nLayer == MAX_LAYERS)
        DrawRest(transparent);
    Gl().glActiveTexture(GL_TEXTURE0 + CSurfaceShaderProgram::PEELED_DEPTH_UNIT);
    Gl().glBindTexture(GL_TEXTURE_2D, 0);
    Gl().glActiveTexture(GL_TEXTURE0);
    CShaderManager::Instance().UseVariant(VariantPlain);
}

/** From now on only what lies behind the plane is drawn. */
void CTransparentLayers::SetInFront(const SPlane& plane) const
{
    Gl().glActiveTexture(GL_TEXTURE0 + CSurfaceShaderProgram::PEELED_DEPTH_UNIT);
    Gl().glBindTexture(GL_TEXTURE_2D, plane.nDepth);
    Gl().glActiveTexture(GL_TEXTURE0);
}

/** False if nothing is left to draw. */
bool CTransparentLayers::DrawLayer(int nLayer, const DrawFunction& transparent)
{
    const SPlane &plane = PlaneOf(nLayer), &before = PlaneOf(nLayer + 1);
    if (nLayer == 0) { // nothing lies in front of the first
        Gl().glBindFramebuffer(GL_FRAMEBUFFER, before.nFramebuffer);
        Gl().glClearDepthf(0.0F);
        Gl().glClear(GL_DEPTH_BUFFER_BIT);
        Gl().glClearDepthf(1.0F);
    }
    Gl().glBindFramebuffer(GL_READ_FRAMEBUFFER, m_planes[SUM].nFramebuffer);
    Gl().glBindFramebuffer(GL_DRAW_FRAMEBUFFER, plane.nFramebuffer);
    Gl().glBlitFramebuffer(0, 0, m_size.width(), m_size.height(), 0, 0, m_size.width(), m_size.height(),
                           GL_DEPTH_BUFFER_BIT, GL_NEAREST);
    Gl().glBindFramebuffer(GL_FRAMEBUFFER, plane.nFramebuffer);
    Gl().glClear(GL_COLOR_BUFFER_BIT);
    SetInFront(before);
    Gl().glDisable(GL_BLEND);
    Gl().glBeginQuery(GL_SAMPLES_PASSED, m_nQuery);
    transparent();
    Gl().glEndQuery(GL_SAMPLES_PASSED);
    Gl().glEnable(GL_BLEND);
    GLuint nPixels = 0;
    Gl().glGetQueryObjectuiv(m_nQuery, GL_QUERY_RESULT, &nPixels);
    if (nPixels == 0)
        return false;
    Gl().glBindFramebuffer(GL_FRAMEBUFFER, m_planes[SUM].nFramebuffer);
    BlendBehind();
    AddPicture(plane.nColor);
    return true;
}

void CTransparentLayers::DrawRest(const DrawFunction& transparent)
{
    SetInFront(PlaneOf(MAX_LAYERS - 1));
    BlendBehind();
    Gl().glDepthMask(GL_FALSE);
    transparent();
    Gl().glDepthMask(GL_TRUE);
}
