#include "view/silhouetteshaderprogram.h"

namespace {
constexpr const char* UNIFORM_NAMES[SILHOUETTE_UNIFORM_COUNT] = {
    "u_maskTexture", "u_texelSize", "u_thickness", "u_highlightColor", "u_selectColor"};
}

CSilhouetteShaderProgram::CSilhouetteShaderProgram()
    : CShaderProgram(":/shaders/silhouetteVertexShader.glsl", {}, ":/shaders/silhouetteFragmentShader.glsl")
{}

void CSilhouetteShaderProgram::BindAttributes()
{
    bindAttributeLocation("a_position", POSITION);
    bindAttributeLocation("a_texCoord", TEXTURE);
}

void CSilhouetteShaderProgram::ReadUniformLocations()
{
    m_uniforms.ReadLocations(*this, UNIFORM_NAMES);
    m_uniforms.SetUnit(SilhouetteMaskTexture, 0);
}
