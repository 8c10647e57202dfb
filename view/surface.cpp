#include "view/surface.h"

#include "view/pick/gltree.h"
#include "view/shadermanager.h"

CSurface::CSurface(qint64 nSimulationId, qint64 nViewId, qint64 nBlockId)
    : CDrawable(nSimulationId, nViewId, nBlockId, CShaderManager::SURFACE)
{}

CSurface::~CSurface() = default;

int CSurface::shaderKey() const { return drawVectors() ? CShaderManager::VECTOR : CDrawable::shaderKey(); }
