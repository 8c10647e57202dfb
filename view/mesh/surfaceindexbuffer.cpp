#include "view/mesh/surfaceindexbuffer.h"

#include "view/gl/abandonednames.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <map>
#include <tuple>

namespace {

using Key = std::tuple<QOpenGLContextGroup*, qint64, qint64, int>;

} // namespace

QVector<quint32> SurfaceIndices(const SSurfaceSize& size, SurfaceIndices_e eIndices)
{
    switch (eIndices) {
    case WireframeIndices:
        return SurfaceArrays::WireframeIndices(size);
    case TriangleIndices:
        return SurfaceArrays::TriangleIndices(size);
    default:
        return SurfaceArrays::OutlineIndices(size);
    }
}

std::shared_ptr<CSurfaceIndexBuffer> CSurfaceIndexBuffer::Of(const SSurfaceSize& size,
                                                             SurfaceIndices_e eIndices)
{
    static std::map<Key, std::weak_ptr<CSurfaceIndexBuffer>> s_buffers;
    QOpenGLContextGroup* const pGroup = QOpenGLContextGroup::currentContextGroup();
    std::weak_ptr<CSurfaceIndexBuffer>& known = s_buffers[{pGroup, size.nRows, size.nColumns, eIndices}];
    std::shared_ptr<CSurfaceIndexBuffer> pBuffer = known.lock();
    if (!pBuffer || !pBuffer->m_pGroup) { // one of a group that has gone, in whose place another stands
        pBuffer.reset(new CSurfaceIndexBuffer(SurfaceIndices(size, eIndices)));
        known = pBuffer;
        std::erase_if(s_buffers, [](const auto& entry) { return entry.second.expired(); });
    }
    return pBuffer;
}

CSurfaceIndexBuffer::CSurfaceIndexBuffer(const QVector<quint32>& indices)
    : m_pGroup(QOpenGLContextGroup::currentContextGroup()), m_nCount(indices.size())
{
    QOpenGLFunctions* const pGl = QOpenGLContext::currentContext()->functions();
    pGl->glGenBuffers(1, &m_nBuffer);
    pGl->glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_nBuffer);
    pGl->glBufferData(GL_ELEMENT_ARRAY_BUFFER, GLsizeiptr(indices.size() * sizeof(quint32)),
                      indices.constData(), GL_STATIC_DRAW);
}

CSurfaceIndexBuffer::~CSurfaceIndexBuffer() { AbandonedNames::LeaveBuffers(m_pGroup, {m_nBuffer}); }

void CSurfaceIndexBuffer::Draw(GLenum eMode) const
{
    QOpenGLFunctions* const pGl = QOpenGLContext::currentContext()->functions();
    pGl->glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_nBuffer);
    pGl->glDrawElements(eMode, m_nCount, GL_UNSIGNED_INT, nullptr);
}
