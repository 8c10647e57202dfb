#pragma once

#include "bench/view/viewcase.h"

#include <QMatrix4x4>
#include <QOpenGLExtraFunctions>
#include <QOpenGLShaderProgram>

#include <memory>
#include <vector>

/** What a frame of the plain program shows. */
struct SPlainFrame
{
    QMatrix4x4 view;
    QMatrix4x4 projection;
    float fMinimum = 0.0F; ///< of the range of colours
    float fMaximum = 2.0F;
    qint32 nColormap = 0;
};

/**
 * The limit: the faces of a case drawn by straight code with the same shaders. It makes the arrays that a
 * surface needs, with the positions in double once more as for picking, uploads them once, and draws each
 * face with one call. No settings, no selection, no thresholds, no culling.
 */
class CPlainView : protected QOpenGLExtraFunctions
{
public:
    CPlainView();
    ~CPlainView();
    Q_DISABLE_COPY_MOVE(CPlainView)

    void Build(const CViewCase& viewCase);
    void SetField(const CViewCase& viewCase, int nField);
    void Draw(const SPlainFrame& frame);
    void Delete();
    /** The arrays of main memory, and what OpenGL says of the buffers. */
    qint64 ArrayBytes() const;
    qint64 GpuBytes();

private:
    struct SFace
    {
        std::vector<double> positions; // for picking
        std::vector<float> values;
        GLuint nVertexArray = 0;
        GLuint buffers[4] = {}; // by attribute
    };

    void BuildFace(const CViewCase& viewCase, SFace& face, int nFace);
    void Upload(SFace& face, int nAttribute, int nComponents, const std::vector<float>& floats);

    QOpenGLShaderProgram m_program;
    GLuint m_nTexture = 0;
    qint32 m_nColormap = -1;
    std::vector<SFace> m_faces;
    GLuint m_nIndexBuffer = 0; // all faces are of one size
    int m_nIndices = 0;
};

/** The least that shows the same colours: one buffer of position and value, one call, no light. */
class CLeastView : protected QOpenGLExtraFunctions
{
public:
    CLeastView();
    ~CLeastView();
    Q_DISABLE_COPY_MOVE(CLeastView)

    void Build(const CViewCase& viewCase);
    void Draw(const SPlainFrame& frame);
    void Delete();

private:
    QOpenGLShaderProgram m_program;
    GLuint m_nTexture = 0;
    GLuint m_nVertexArray = 0;
    GLuint m_buffers[2] = {};
    int m_nIndices = 0;
};
