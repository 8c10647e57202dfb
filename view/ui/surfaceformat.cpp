#include "view/ui/surfaceformat.h"

QSurfaceFormat ViewSurfaceFormat(int nSamples)
{
    QSurfaceFormat format(QSurfaceFormat::DeprecatedFunctions);
    format.setSwapBehavior(QSurfaceFormat::DoubleBuffer);
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setDepthBufferSize(24);
    format.setStencilBufferSize(8);
    format.setOption(QSurfaceFormat::DebugContext);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setSamples(nSamples);
    return format;
}
