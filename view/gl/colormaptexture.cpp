#include "view/gl/colormaptexture.h"

#include "view/colormaps/colormaptables.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

void CColormapTexture::Create()
{
    QOpenGLFunctions* const pGl = QOpenGLContext::currentContext()->functions();
    pGl->glGenTextures(1, &m_nTexture);
    m_nLoaded = -1;
    Bind();
    pGl->glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    pGl->glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    pGl->glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
}

void CColormapTexture::Delete()
{
    if (m_nTexture)
        QOpenGLContext::currentContext()->functions()->glDeleteTextures(1, &m_nTexture);
    m_nTexture = 0;
}

void CColormapTexture::Bind()
{
    QOpenGLFunctions* const pGl = QOpenGLContext::currentContext()->functions();
    pGl->glActiveTexture(GL_TEXTURE0);
    pGl->glBindTexture(GL_TEXTURE_1D, m_nTexture);
}

void CColormapTexture::Use(qint32 nColormapId)
{
    if (nColormapId == m_nLoaded)
        return;
    m_nLoaded = nColormapId;
    if (const SColormap* const pMap = FindColormap(nColormapId))
        glTexImage1D(GL_TEXTURE_1D, 0, GL_RGB, SColormap::TEXELS, 0, GL_RGB, GL_UNSIGNED_BYTE,
                     pMap->texels.constData());
}
