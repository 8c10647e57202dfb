#pragma once

#include <QMatrix3x3>
#include <QMatrix4x4>

class CColormapTexture;

/** What drawables need of the frame that they are drawn in, beside the uniforms that the frame sets. */
struct SDrawContext
{
    QMatrix4x4 view;         ///< with the display transform that is being drawn
    QMatrix3x3 normal;       ///< of it
    float fLineScale = 1.0F; ///< of lines and points: the scale of a capture, doubled for selected lines
    CColormapTexture* pColormap = nullptr;
};

/** The one of the frame that is being drawn. Main thread only. */
SDrawContext& DrawContext();
