#pragma once

#include "view/mesh/surfacearrays.h"

#include <QOpenGLContext>
#include <QPointer>

#include <memory>

enum SurfaceIndices_e { WireframeIndices, TriangleIndices, OutlineIndices, SURFACE_INDICES_COUNT };

QVector<quint32> SurfaceIndices(const SSurfaceSize& size, SurfaceIndices_e eIndices);

/**
 * The index list of all surfaces of one size, on the GPU. Surfaces of a case are often of one size; they
 * share it, in all views, and it goes with the last of them.
 */
class CSurfaceIndexBuffer
{
public:
    /** For the share group of the current context. */
    static std::shared_ptr<CSurfaceIndexBuffer> Of(const SSurfaceSize& size, SurfaceIndices_e eIndices);
    CSurfaceIndexBuffer(const CSurfaceIndexBuffer&) = delete;
    CSurfaceIndexBuffer& operator=(const CSurfaceIndexBuffer&) = delete;
    ~CSurfaceIndexBuffer();

    /** Draws the vertex array that is bound. */
    void Draw(GLenum eMode) const;
    /** On the GPU [bytes]. */
    qint64 GetBytes() const { return qint64(m_nCount) * qint64(sizeof(quint32)); }

private:
    explicit CSurfaceIndexBuffer(const QVector<quint32>& indices);

    const QPointer<QOpenGLContextGroup> m_pGroup;
    GLuint m_nBuffer = 0;
    int m_nCount;
};
