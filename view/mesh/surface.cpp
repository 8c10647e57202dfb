#include "view/mesh/surface.h"

#include "view/gl/shadermanager.h"
#include "view/pick/gltree.h"

namespace {

template <class... Vectors> qint64 BytesOf(const Vectors&... vectors)
{
    return (qint64(vectors.capacity() * sizeof(vectors[0])) + ...);
}

} // namespace

CSurface::CSurface(qint64 nSimulationId, qint64 nViewId, qint64 nBlockId)
    : CDrawable(nSimulationId, nViewId, nBlockId, CShaderManager::SURFACE)
{}

CSurface::~CSurface() = default;

int CSurface::shaderKey() const { return drawVectors() ? CShaderManager::VECTOR : CDrawable::shaderKey(); }

SSurfaceMemory CSurface::memory()
{
    SSurfaceMemory memory;
    memory.nArrays = BytesOf(m_positions, m_values, m_thresholds, m_holes, m_vectors, m_contours.positions,
                             m_contours.values, m_contours.thresholds);
    if (m_pPickTree)
        memory.nPickTree = m_pPickTree->GetBytes();
    memory.dGpu = double(m_model.GetBytes() + m_contourModel.GetBytes() + m_vectorModel.GetBytes());
    for (const auto& pIndices : m_pIndices)
        if (pIndices)
            memory.dGpu += double(pIndices->GetBytes()) / double(pIndices.use_count());
    return memory;
}
