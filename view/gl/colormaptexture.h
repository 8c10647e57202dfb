#pragma once

#include <qopengl.h>

/** The one-dimensional texture of a view that holds the colormap of what is being drawn. */
class CColormapTexture
{
public:
    /** With the view's context current. */
    void Create();
    void Delete();
    /** On texture unit 0, for this frame. */
    void Bind();
    /** Loads the colormap, unless it is the one that is there. */
    void Use(qint32 nColormapId);

private:
    GLuint m_nTexture = 0;
    qint32 m_nLoaded = -1;
};
