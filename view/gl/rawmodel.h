#pragma once

#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>
#include <QPointer>
#include <QVector>

#include <array>

/**
 * One vertex array object with its buffers on the GPU: up to five index buffers and one buffer for each
 * vertex attribute. Every operation needs the context of the view that draws it to be current; a vertex array
 * belongs to that context alone.
 */
class CRawModel : protected QOpenGLExtraFunctions
{
public:
    static constexpr int INDEX_PLACES = 5;

    CRawModel() = default;
    CRawModel(const CRawModel&) = delete;
    CRawModel& operator=(const CRawModel&) = delete;
    virtual ~CRawModel();

    virtual void Bind();
    /** Nothing was created. */
    virtual bool IsEmpty() const { return m_nVertexArray == 0; }
    virtual void Create();
    virtual void Release();
    /** Empty again; leaves the names to AbandonedNames, so that any context, or none, may be current. */
    void Clear();

    /** @param pData  nCount vertices of nComponents floats each; replaces what the attribute had */
    void SetAttribute(int nAttribute, int nComponents, qint64 nCount, const float* pData);
    void SetIndices(const QVector<quint32>& indices, int nPlace);
    /** Draws the vertices 0 to nCount - 1. */
    void DrawArrays(GLenum eMode, int nCount);
    void DrawElements(GLenum eMode, int nPlace, int nCount);

    /** What its buffers take on the GPU, as OpenGL says [bytes]. */
    qint64 GetBytes();

    /** Bytes of attributes that all models have handed over since the start, for tests and benches. */
    static qint64 UploadedBytes() { return s_nUploadedBytes; }

private:
    static constexpr int ATTRIBUTES = 7;
    static constexpr int BUFFERS = INDEX_PLACES + ATTRIBUTES;

    GLuint BufferAt(int nPlace);
    QVector<GLuint> BufferNames() const;

    static inline qint64 s_nUploadedBytes = 0;

    QPointer<QOpenGLContext> m_pContext; // the one that it was created in; its names go with it
    QPointer<QOpenGLContextGroup> m_pGroup;
    GLuint m_nVertexArray = 0;
    std::array<GLuint, BUFFERS> m_buffers = {}; // index buffers, then attributes
};
