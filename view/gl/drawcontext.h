#pragma once

#include "frame/transform.h"

#include <QMatrix3x3>

class CColormapTexture;
class QOpenGLContext;

/** What drawables need of the frame that they are drawn in, beside the uniforms that the frame sets. */
struct SDrawContext
{
    STransform view;         ///< with the display transform that is being drawn
    QMatrix3x3 normal;       ///< of it
    bool bMarks = true;      ///< selection and highlight are shown
    float fLineScale = 1.0F; ///< of lines and points: the scale of a capture, doubled for selected lines
    CColormapTexture* pColormap = nullptr;
    QOpenGLContext* pOpenGL = nullptr; ///< the one that is drawn in
};

/** The one of the frame that is being drawn. Main thread only. */
SDrawContext& DrawContext();
