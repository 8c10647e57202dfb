#include "view/gl/uniformcache.h"

void CUniformCache::ReadLocations(QOpenGLShaderProgram& program, std::span<const char* const> names)
{
    m_pProgram = &program;
    m_uniforms.assign(names.size(), {});
    for (std::size_t n = 0; n < names.size(); ++n) {
        m_uniforms[n].nLocation = program.uniformLocation(names[n]);
        m_uniforms[n].sent.fill(NEVER_SENT);
    }
}

bool CUniformCache::Change(int nUniform, const float* pNumbers, int nCount)
{
    SUniform& uniform = m_uniforms[nUniform];
    if (uniform.nLocation < 0)
        return false;
    bool bDiffers = false;
    for (int n = 0; n < nCount; ++n)
        bDiffers |= !(uniform.sent[n] == pNumbers[n]);
    if (bDiffers)
        std::copy_n(pNumbers, nCount, uniform.sent.begin());
    return bDiffers;
}

void CUniformCache::Set(int nUniform, float fValue)
{
    if (Change(nUniform, &fValue, 1))
        m_pProgram->setUniformValue(m_uniforms[nUniform].nLocation, fValue);
}

void CUniformCache::Set(int nUniform, const QVector2D& value)
{
    const float numbers[] = {value.x(), value.y()};
    if (Change(nUniform, numbers, 2))
        m_pProgram->setUniformValue(m_uniforms[nUniform].nLocation, value);
}

void CUniformCache::Set(int nUniform, const QVector3D& value)
{
    const float numbers[] = {value.x(), value.y(), value.z()};
    if (Change(nUniform, numbers, 3))
        m_pProgram->setUniformValue(m_uniforms[nUniform].nLocation, value);
}

void CUniformCache::Set(int nUniform, const QColor& color)
{
    const float numbers[] = {float(color.redF()), float(color.greenF()), float(color.blueF()),
                             float(color.alphaF())};
    if (Change(nUniform, numbers, 4))
        m_pProgram->setUniformValue(m_uniforms[nUniform].nLocation, color);
}

void CUniformCache::Set(int nUniform, const QMatrix3x3& matrix)
{
    if (Change(nUniform, matrix.constData(), 9))
        m_pProgram->setUniformValue(m_uniforms[nUniform].nLocation, matrix);
}

void CUniformCache::Set(int nUniform, const QMatrix4x4& matrix)
{
    if (Change(nUniform, matrix.constData(), 16))
        m_pProgram->setUniformValue(m_uniforms[nUniform].nLocation, matrix);
}

void CUniformCache::SetUnit(int nUniform, int nTextureUnit)
{
    const float fUnit = static_cast<float>(nTextureUnit);
    if (Change(nUniform, &fUnit, 1))
        m_pProgram->setUniformValue(m_uniforms[nUniform].nLocation, nTextureUnit);
}
