#include "view/gl/screenshaderprogram.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

namespace {
constexpr const char* UNIFORM_NAMES[SILHOUETTE_UNIFORM_COUNT] = {
    "u_maskTexture", "u_texelSize", "u_thickness", "u_highlightColor", "u_selectColor"};
}

CScreenShaderProgram::CScreenShaderProgram(const QString& sFragment)
    : CShaderProgram(":/shaders/screenVertexShader.glsl", {}, sFragment)
{}

void CScreenShaderProgram::BindAttributes()
{
    bindAttributeLocation("a_position", POSITION);
    bindAttributeLocation("a_texCoord", TEXTURE);
}

void CScreenShaderProgram::DrawOverAll()
{
    constexpr float POSITIONS[] = {-1, -1, 1, -1, -1, 1, 1, 1};
    constexpr float PLACES[] = {0, 0, 1, 0, 0, 1, 1, 1};
    for (const int nAttribute : {POSITION, TEXTURE})
        enableAttributeArray(nAttribute);
    setAttributeArray(POSITION, POSITIONS, 2);
    setAttributeArray(TEXTURE, PLACES, 2);
    QOpenGLContext::currentContext()->functions()->glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
    for (const int nAttribute : {POSITION, TEXTURE})
        disableAttributeArray(nAttribute);
}

CSilhouetteShaderProgram::CSilhouetteShaderProgram()
    : CScreenShaderProgram(":/shaders/silhouetteFragmentShader.glsl")
{}

void CSilhouetteShaderProgram::ReadUniformLocations()
{
    m_uniforms.ReadLocations(*this, UNIFORM_NAMES);
    m_uniforms.SetUnit(SilhouetteMaskTexture, 0);
}
