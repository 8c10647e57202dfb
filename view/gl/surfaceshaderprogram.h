#pragma once

#include "view/gl/shaderprogram.h"
#include "view/gl/uniformcache.h"

/** Locations of the vertex attributes in the surface and the vector program. */
enum VertexAttribute_e : int {
    AttributePosition = 0,  ///< vec3, model space
    AttributeNormal = 1,    ///< vec3, not normalised; zero at a singular cell
    AttributeValue = 2,     ///< scalar of the colormap; outside of -1e30 to 1e30 there is none
    AttributeThreshold = 3, ///< vec3: two threshold variables and the mask
    AttributeOutline = 4,   ///< 1.0 at the edge of a surface
    AttributeVector = 5,    ///< vec3
    AttributeIJ = 6,        ///< vec3: indices of the vertex, corner of the arrow
    ATTRIBUTE_COUNT
};

/** Uniforms of the surface and the vector program. */
enum SurfaceUniform_e : int {
    UniformViewMatrix,
    UniformProjectionMatrix,
    UniformNormalMatrix,
    UniformModelMatrix,
    UniformConstColor,
    UniformAlphaValue,
    UniformEnableLight,
    UniformColorMap,
    UniformThresholdMatrix,
    UniformSelected,
    UniformHighlighted,
    UniformIsPreview,
    UniformHighlightColor,
    UniformSelectColor,
    UniformOutlineColor,
    UniformPreviewColor,
    UniformNanColor,
    UniformHighlightOutlineOnly,
    UniformUseOutlineColor,
    UniformMaskMode,
    UniformMaskColor,
    UniformOutlineSelectMode,
    UniformColormapTexture,
    UniformVecPlane,
    UniformVecHeadScale,
    UniformVecBodyScale,
    UniformVecSkip,
    UniformBrightness,
    UniformPeeledDepth,
    UniformTexelSize,
    SURFACE_UNIFORM_COUNT
};

/** What a program draws into. */
enum ProgramVariant_e {
    VariantPlain,
    VariantPeeling, ///< one layer of what is transparent, see CTransparentLayers
    VARIANT_COUNT
};

/** Draws surfaces and lines. Values are set through the cache while the program is bound. */
class CSurfaceShaderProgram : public CShaderProgram
{
    Q_OBJECT

public:
    static constexpr int PEELED_DEPTH_UNIT = 1; ///< of the texture in UniformPeeledDepth

    explicit CSurfaceShaderProgram(ProgramVariant_e eVariant = VariantPlain);

    template <class Value> void Set(SurfaceUniform_e eUniform, const Value& value)
    {
        m_uniforms.Set(eUniform, value);
    }
    /** The colours that are the same for everything, from the preferences. Binds the program. */
    void SetGlobalUniforms();

protected:
    CSurfaceShaderProgram(const QString& sVertex, const QString& sFragment, ProgramVariant_e eVariant);
    void BindAttributes() override;
    void ReadUniformLocations() override;

private:
    CUniformCache m_uniforms;
};

/** Draws arrows; the same attributes and uniforms, other shaders. */
class CVectorShaderProgram : public CSurfaceShaderProgram
{
    Q_OBJECT

public:
    explicit CVectorShaderProgram(ProgramVariant_e eVariant = VariantPlain);
};
