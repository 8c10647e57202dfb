#include "bench/view/plainview.h"

#include "view/colormaps/colormaptables.h"
#include "view/gl/surfaceshaderprogram.h"

#include <cmath>

namespace {

constexpr int FACES = 6;

/** Number in the block's arrays of point (row, column) of a face: rows run along the next direction. */
qint64 PointOf(int nFace, qint64 nSide, qint64 nRow, qint64 nColumn)
{
    const int nDirection = nFace / 2;
    const qint64 strides[] = {1, nSide, nSide * nSide};
    return (nFace % 2) * (nSide - 1) * strides[nDirection] + nRow * strides[(nDirection + 1) % 3] +
           nColumn * strides[(nDirection + 2) % 3];
}

std::vector<quint32> CellTriangles(qint64 nSide, quint32 nFirst)
{
    std::vector<quint32> indices;
    indices.reserve(6 * (nSide - 1) * (nSide - 1));
    for (qint64 r = 0; r + 1 < nSide; ++r)
        for (qint64 c = 0; c + 1 < nSide; ++c) {
            const quint32 a = nFirst + quint32(r * nSide + c), b = a + quint32(nSide);
            for (const quint32 n : {a + 1, b + 1, a, b, b + 1, a})
                indices.push_back(n);
        }
    return indices;
}

bool UnitNormal(const double* a, const double* b, const double* c, double* out)
{
    const double u[] = {b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    const double v[] = {c[0] - a[0], c[1] - a[1], c[2] - a[2]};
    out[0] = u[1] * v[2] - u[2] * v[1];
    out[1] = u[2] * v[0] - u[0] * v[2];
    out[2] = u[0] * v[1] - u[1] * v[0];
    const double dLength = std::sqrt(out[0] * out[0] + out[1] * out[1] + out[2] * out[2]);
    for (int n = 0; n < 3; ++n)
        out[n] = dLength > 0.0 ? out[n] / dLength : 0.0;
    return dLength > 0.0;
}

std::vector<float> Normals(const std::vector<double>& positions, qint64 nSide)
{
    std::vector<float> normals(positions.size());
    for (qint64 r = 0; r < nSide; ++r)
        for (qint64 c = 0; c < nSide; ++c) {
            const qint64 nCell = std::min(r, nSide - 2) * nSide + std::min(c, nSide - 2);
            const double* const a = &positions[3 * nCell];
            const double* const b = a + 3 * nSide;
            double n1[3], n2[3];
            const bool b1 = UnitNormal(a, b, a + 3, n1), b2 = UnitNormal(b + 3, a + 3, b, n2);
            double sum[3];
            for (int n = 0; n < 3; ++n)
                sum[n] = (b1 ? n1[n] : n2[n]) + (b2 ? n2[n] : n1[n]);
            const double dLength = std::sqrt(sum[0] * sum[0] + sum[1] * sum[1] + sum[2] * sum[2]);
            for (int n = 0; n < 3; ++n)
                normals[3 * (r * nSide + c) + n] = dLength > 0.0 ? float(sum[n] / dLength) : 0.0F;
        }
    return normals;
}

std::vector<float> Values(const CViewCase::SBlock& block, int nFace, qint64 nSide, int nField)
{
    std::vector<float> values;
    values.reserve(nSide * nSide);
    for (qint64 r = 0; r < nSide; ++r)
        for (qint64 c = 0; c < nSide; ++c)
            values.push_back(block.pFields[nField][PointOf(nFace, nSide, r, c)]);
    return values;
}

GLuint MakeTexture()
{
    GLuint nTexture = 0;
    glGenTextures(1, &nTexture);
    glBindTexture(GL_TEXTURE_1D, nTexture);
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    return nTexture;
}

void LoadColormap(qint32 nId)
{
    glTexImage1D(GL_TEXTURE_1D, 0, GL_RGB, SColormap::TEXELS, 0, GL_RGB, GL_UNSIGNED_BYTE,
                 FindColormap(nId)->texels.constData());
}

void BeginFrame(QOpenGLExtraFunctions& gl)
{
    gl.glClear(GL_DEPTH_BUFFER_BIT);
    gl.glEnable(GL_DEPTH_TEST);
    gl.glEnable(GL_BLEND);
    gl.glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
}

} // namespace

CPlainView::CPlainView()
{
    initializeOpenGLFunctions();
    m_program.addShaderFromSourceFile(QOpenGLShader::Vertex, ":/shaders/surfaceVertexShader.glsl");
    m_program.addShaderFromSourceFile(QOpenGLShader::Fragment, ":/shaders/surfaceFragmentShader.glsl");
    m_program.bindAttributeLocation("a_position", AttributePosition);
    m_program.bindAttributeLocation("a_normal", AttributeNormal);
    m_program.bindAttributeLocation("a_value", AttributeValue);
    m_program.bindAttributeLocation("a_isOutline", AttributeOutline);
    m_program.link();
    m_program.bind();
    m_program.setUniformValue("u_modelMatrix", QMatrix4x4());
    m_program.setUniformValue("u_enableLight", 1.0F);
    m_program.setUniformValue("u_alphaValue", 1.0F);
    m_program.setUniformValue("u_brightness", 1.0F);
    m_program.setUniformValue("u_outlineSelectMode", 1.0F);
    m_program.setUniformValue("u_useOutlineColor", 1.0F);
    m_program.release();
    m_nTexture = MakeTexture();
}

CPlainView::~CPlainView()
{
    Delete();
    glDeleteTextures(1, &m_nTexture);
}

void CPlainView::Delete()
{
    for (const SFace& face : m_faces) {
        glDeleteVertexArrays(1, &face.nVertexArray);
        glDeleteBuffers(4, face.buffers);
    }
    m_faces.clear();
    glDeleteBuffers(1, &m_nIndexBuffer);
    m_nIndexBuffer = 0;
}

void CPlainView::Build(const CViewCase& viewCase)
{
    m_faces.resize(FACES * viewCase.BlockCount());
    for (int n = 0; n < int(m_faces.size()); ++n)
        BuildFace(viewCase, m_faces[n], n);
    const std::vector<quint32> indices = CellTriangles(viewCase.Side(), 0);
    m_nIndices = int(indices.size());
    glBindVertexArray(0);
    glGenBuffers(1, &m_nIndexBuffer);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_nIndexBuffer);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, m_nIndices * 4, indices.data(), GL_STATIC_DRAW);
    for (const SFace& face : m_faces) {
        glBindVertexArray(face.nVertexArray);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_nIndexBuffer);
    }
    glBindVertexArray(0);
}

void CPlainView::BuildFace(const CViewCase& viewCase, SFace& face, int nFace)
{
    const CViewCase::SBlock block = viewCase.Block(nFace / FACES);
    const qint64 nSide = viewCase.Side();
    std::vector<float> positions(3 * nSide * nSide), flags(nSide * nSide);
    face.positions.resize(3 * nSide * nSide);
    for (qint64 r = 0, n = 0; r < nSide; ++r)
        for (qint64 c = 0; c < nSide; ++c, ++n) {
            const qint64 nPoint = PointOf(nFace % FACES, nSide, r, c);
            for (int nAxis = 0; nAxis < 3; ++nAxis)
                face.positions[3 * n + nAxis] = positions[3 * n + nAxis] = block.pCoordinates[nAxis][nPoint];
            flags[n] = r == 0 || c == 0 || r == nSide - 1 || c == nSide - 1 ? 1.0F : 0.0F;
        }
    face.values = Values(block, nFace % FACES, nSide, 0);
    glGenVertexArrays(1, &face.nVertexArray);
    glGenBuffers(4, face.buffers);
    glBindVertexArray(face.nVertexArray);
    Upload(face, AttributePosition, 3, positions);
    Upload(face, AttributeNormal, 3, Normals(face.positions, nSide));
    Upload(face, AttributeValue, 1, face.values);
    glBindBuffer(GL_ARRAY_BUFFER, face.buffers[3]);
    glBufferData(GL_ARRAY_BUFFER, GLsizeiptr(flags.size() * 4), flags.data(), GL_STATIC_DRAW);
    glVertexAttribPointer(AttributeOutline, 1, GL_FLOAT, GL_FALSE, 0, nullptr);
    glEnableVertexAttribArray(AttributeOutline);
}

void CPlainView::Upload(SFace& face, int nAttribute, int nComponents, const std::vector<float>& floats)
{
    glBindBuffer(GL_ARRAY_BUFFER, face.buffers[nAttribute]);
    glBufferData(GL_ARRAY_BUFFER, GLsizeiptr(floats.size() * 4), floats.data(), GL_STATIC_DRAW);
    glVertexAttribPointer(GLuint(nAttribute), nComponents, GL_FLOAT, GL_FALSE, 0, nullptr);
    glEnableVertexAttribArray(GLuint(nAttribute));
}

void CPlainView::SetField(const CViewCase& viewCase, int nField)
{
    for (int n = 0; n < int(m_faces.size()); ++n) {
        SFace& face = m_faces[n];
        face.values = Values(viewCase.Block(n / FACES), n % FACES, viewCase.Side(), nField);
        glBindBuffer(GL_ARRAY_BUFFER, face.buffers[AttributeValue]);
        glBufferData(GL_ARRAY_BUFFER, GLsizeiptr(face.values.size() * 4), face.values.data(), GL_STATIC_DRAW);
    }
}

qint64 CPlainView::ArrayBytes() const
{
    qint64 nBytes = 0;
    for (const SFace& face : m_faces)
        nBytes += qint64(face.positions.capacity() * sizeof(double) + face.values.capacity() * sizeof(float));
    return nBytes;
}

qint64 CPlainView::GpuBytes()
{
    const auto bytes = [this](GLuint nBuffer) {
        GLint nSize = 0;
        glBindBuffer(GL_ARRAY_BUFFER, nBuffer);
        glGetBufferParameteriv(GL_ARRAY_BUFFER, GL_BUFFER_SIZE, &nSize);
        glBindBuffer(GL_ARRAY_BUFFER, 0);
        return qint64(nSize);
    };
    qint64 nBytes = bytes(m_nIndexBuffer);
    for (const SFace& face : m_faces)
        for (const GLuint nBuffer : face.buffers)
            nBytes += bytes(nBuffer);
    return nBytes;
}

void CPlainView::Draw(const SPlainFrame& frame)
{
    BeginFrame(*this);
    m_program.bind();
    glBindTexture(GL_TEXTURE_1D, m_nTexture);
    if (std::exchange(m_nColormap, frame.nColormap) != frame.nColormap)
        LoadColormap(frame.nColormap);
    m_program.setUniformValue("u_viewMatrix", frame.view);
    m_program.setUniformValue("u_projectionMatrix", frame.projection);
    m_program.setUniformValue("u_normalMatrix", frame.view.normalMatrix());
    m_program.setUniformValue("u_colorMap", QVector3D(1.0F, frame.fMinimum, frame.fMaximum));
    for (const SFace& face : m_faces) {
        glBindVertexArray(face.nVertexArray);
        glDrawElements(GL_TRIANGLES, m_nIndices, GL_UNSIGNED_INT, nullptr);
    }
    glBindVertexArray(0);
    m_program.release();
}

CLeastView::CLeastView()
{
    initializeOpenGLFunctions();
    m_program.addShaderFromSourceCode(QOpenGLShader::Vertex, R"(#version 120
        attribute vec4 a_positionAndValue;
        uniform mat4 u_matrix;
        uniform vec2 u_range;
        varying float v_texture;
        void main()
        {
            gl_Position = u_matrix * vec4(a_positionAndValue.xyz, 1.0);
            v_texture = (a_positionAndValue.w - u_range.x) / (u_range.y - u_range.x);
        })");
    m_program.addShaderFromSourceCode(QOpenGLShader::Fragment, R"(#version 120
        uniform sampler1D u_colormapTexture;
        varying float v_texture;
        void main() { gl_FragColor = texture1D(u_colormapTexture, v_texture); })");
    m_program.bindAttributeLocation("a_positionAndValue", 0);
    m_program.link();
    m_nTexture = MakeTexture();
    LoadColormap(0);
}

CLeastView::~CLeastView()
{
    Delete();
    glDeleteTextures(1, &m_nTexture);
}

void CLeastView::Delete()
{
    glDeleteVertexArrays(1, &m_nVertexArray);
    glDeleteBuffers(2, m_buffers);
}

void CLeastView::Build(const CViewCase& viewCase)
{
    const qint64 nSide = viewCase.Side();
    std::vector<float> vertices;
    std::vector<quint32> indices;
    for (int nFace = 0; nFace < FACES * viewCase.BlockCount(); ++nFace) {
        const CViewCase::SBlock block = viewCase.Block(nFace / FACES);
        const std::vector<quint32> ofFace = CellTriangles(nSide, quint32(vertices.size() / 4));
        indices.insert(indices.end(), ofFace.begin(), ofFace.end());
        for (qint64 r = 0; r < nSide; ++r)
            for (qint64 c = 0; c < nSide; ++c) {
                const qint64 n = PointOf(nFace % FACES, nSide, r, c);
                for (const float* const pArray : block.pCoordinates)
                    vertices.push_back(pArray[n]);
                vertices.push_back(block.pFields[0][n]);
            }
    }
    m_nIndices = int(indices.size());
    glGenVertexArrays(1, &m_nVertexArray);
    glGenBuffers(2, m_buffers);
    glBindVertexArray(m_nVertexArray);
    glBindBuffer(GL_ARRAY_BUFFER, m_buffers[0]);
    glBufferData(GL_ARRAY_BUFFER, GLsizeiptr(vertices.size() * 4), vertices.data(), GL_STATIC_DRAW);
    glVertexAttribPointer(0, 4, GL_FLOAT, GL_FALSE, 0, nullptr);
    glEnableVertexAttribArray(0);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_buffers[1]);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, GLsizeiptr(indices.size() * 4), indices.data(), GL_STATIC_DRAW);
    glBindVertexArray(0);
}

void CLeastView::Draw(const SPlainFrame& frame)
{
    BeginFrame(*this);
    m_program.bind();
    glBindTexture(GL_TEXTURE_1D, m_nTexture);
    m_program.setUniformValue("u_matrix", frame.projection * frame.view);
    m_program.setUniformValue("u_range", QVector2D(frame.fMinimum, frame.fMaximum));
    glBindVertexArray(m_nVertexArray);
    glDrawElements(GL_TRIANGLES, m_nIndices, GL_UNSIGNED_INT, nullptr);
    glBindVertexArray(0);
    m_program.release();
}
