#include "view/gl/surfaceshaderprogram.h"

#include "frame/preferences/preferences.h"

namespace {

constexpr const char* ATTRIBUTE_NAMES[ATTRIBUTE_COUNT] = {"a_position",  "a_normal", "a_value", "a_threshold",
                                                          "a_isOutline", "a_vector", "a_ij"};

constexpr const char* UNIFORM_NAMES[SURFACE_UNIFORM_COUNT] = {
    "u_viewMatrix",        "u_projectionMatrix", "u_normalMatrix",
    "u_modelMatrix",       "u_constColor",       "u_alphaValue",
    "u_enableLight",       "u_colorMap",         "u_thresholdMatrix",
    "u_selected",          "u_highlighted",      "u_isPreview",
    "u_highlightColor",    "u_selectColor",      "u_outlineColor",
    "u_previewColor",      "u_nanColor",         "u_highlightOutlineOnly",
    "u_useOutlineColor",   "u_maskMode",         "u_maskColor",
    "u_outlineSelectMode", "u_colormapTexture",  "u_vecPlane",
    "u_vecHeadScale",      "u_vecBodyScale",     "u_vecSkip",
    "u_brightness",        "u_peeledDepth",      "u_texelSize",
};

const QColor NAN_COLOR(255, 102, 178, 255);

} // namespace

CSurfaceShaderProgram::CSurfaceShaderProgram(ProgramVariant_e eVariant)
    : CSurfaceShaderProgram(":/shaders/surfaceVertexShader.glsl", ":/shaders/surfaceFragmentShader.glsl",
                            eVariant)
{}

CSurfaceShaderProgram::CSurfaceShaderProgram(const QString& sVertex, const QString& sFragment,
                                             ProgramVariant_e eVariant)
    : CShaderProgram(sVertex, {}, sFragment)
{
    if (eVariant == VariantPeeling)
        SetDefine("PEELING");
}

void CSurfaceShaderProgram::BindAttributes()
{
    for (int n = 0; n < ATTRIBUTE_COUNT; ++n)
        bindAttributeLocation(ATTRIBUTE_NAMES[n], n);
}

void CSurfaceShaderProgram::ReadUniformLocations()
{
    m_uniforms.ReadLocations(*this, UNIFORM_NAMES);
    m_uniforms.SetUnit(UniformColormapTexture, 0);
    m_uniforms.SetUnit(UniformPeeledDepth, PEELED_DEPTH_UNIT);
    Set(UniformBrightness, 1.0F);
    for (const SurfaceUniform_e eUniform : {UniformMaskMode, UniformOutlineSelectMode, UniformIsPreview,
                                            UniformHighlightOutlineOnly, UniformEnableLight})
        Set(eUniform, 0.0F);
    SetGlobalUniforms();
}

void CSurfaceShaderProgram::SetGlobalUniforms()
{
    if (!bind())
        return;
    const SDrawPreferences& draw = CPreferences::Instance().Draw();
    Set(UniformHighlightColor, draw.highlightColor);
    Set(UniformSelectColor, draw.selectColor);
    Set(UniformOutlineColor, draw.outlineColor);
    Set(UniformNanColor, NAN_COLOR);
    Set(UniformPreviewColor, draw.previewColor);
    Set(UniformUseOutlineColor, draw.bUseOutlineColor ? 1.0F : 0.0F);
}

CVectorShaderProgram::CVectorShaderProgram(ProgramVariant_e eVariant)
    : CSurfaceShaderProgram(":/shaders/vectorVertex120Shader.glsl", ":/shaders/vectorFragment120Shader.glsl",
                            eVariant)
{}
