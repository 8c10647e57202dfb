#include "view/gl/rawmodel.h"

#include "view/gl/abandonednames.h"

#include <QOpenGLContext>
#include <QVector>

CRawModel::~CRawModel() { Clear(); }

void CRawModel::Clear()
{
    if (m_nVertexArray == 0)
        return;
    AbandonedNames::LeaveBuffers(m_pGroup, BufferNames());
    AbandonedNames::LeaveVertexArray(m_pContext, std::exchange(m_nVertexArray, 0));
    m_buffers = {};
}

QVector<GLuint> CRawModel::BufferNames() const
{
    QVector<GLuint> names;
    for (const GLuint nBuffer : m_buffers)
        if (nBuffer)
            names.append(nBuffer);
    return names;
}

void CRawModel::Create()
{
    if (!IsEmpty())
        return;
    m_pContext = QOpenGLContext::currentContext();
    m_pGroup = m_pContext->shareGroup();
    AbandonedNames::Watch();
    initializeOpenGLFunctions();
    glGenVertexArrays(1, &m_nVertexArray);
}

void CRawModel::Bind() { glBindVertexArray(m_nVertexArray); }
void CRawModel::Release() { glBindVertexArray(0); }

GLuint CRawModel::BufferAt(int nPlace)
{
    if (!m_buffers[nPlace])
        glGenBuffers(1, &m_buffers[nPlace]);
    return m_buffers[nPlace];
}

void CRawModel::SetAttribute(int nAttribute, int nComponents, qint64 nCount, const float* pData)
{
    if (nAttribute < 0)
        return;
    s_nUploadedBytes += nCount * nComponents * qint64(sizeof(float));
    const bool bKnown = m_buffers[INDEX_PLACES + nAttribute] != 0; // its place in the vertex array stays
    glBindBuffer(GL_ARRAY_BUFFER, BufferAt(INDEX_PLACES + nAttribute));
    glBufferData(GL_ARRAY_BUFFER, GLsizeiptr(nCount * nComponents * sizeof(float)), pData, GL_STATIC_DRAW);
    if (!bKnown) {
        // The vertex array keeps both, so that binding it is all that a frame does.
        glBindVertexArray(m_nVertexArray);
        glVertexAttribPointer(GLuint(nAttribute), nComponents, GL_FLOAT, GL_FALSE, 0, nullptr);
        glEnableVertexAttribArray(GLuint(nAttribute));
        glBindVertexArray(0);
    }
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void CRawModel::SetIndices(const QVector<quint32>& indices, int nPlace)
{
    // Not inside the vertex array: there is one binding for all places, set when drawing.
    glBindVertexArray(0);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, BufferAt(nPlace));
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, GLsizeiptr(indices.size() * sizeof(quint32)), indices.constData(),
                 GL_STATIC_DRAW);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
}

void CRawModel::DrawArrays(GLenum eMode, int nCount) { glDrawArrays(eMode, 0, nCount); }

void CRawModel::DrawElements(GLenum eMode, int nPlace, int nCount)
{
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, BufferAt(nPlace));
    glDrawElements(eMode, nCount, GL_UNSIGNED_INT, nullptr);
}

qint64 CRawModel::GetBytes()
{
    qint64 nBytes = 0;
    for (const GLuint nBuffer : BufferNames()) {
        GLint nSize = 0;
        glBindBuffer(GL_ARRAY_BUFFER, nBuffer);
        glGetBufferParameteriv(GL_ARRAY_BUFFER, GL_BUFFER_SIZE, &nSize);
        nBytes += nSize;
    }
    if (!IsEmpty())
        glBindBuffer(GL_ARRAY_BUFFER, 0);
    return nBytes;
}
