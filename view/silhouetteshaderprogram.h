#pragma once

#include "view/shaderprogram.h"
#include "view/uniformcache.h"

enum SilhouetteUniform_e : int {
    SilhouetteMaskTexture,
    SilhouetteTexelSize,
    SilhouetteThickness,
    SilhouetteHighlightColor,
    SilhouetteSelectColor,
    SILHOUETTE_UNIFORM_COUNT
};

/** Draws a line round what the mask holds, on a rectangle over the whole view. */
class CSilhouetteShaderProgram : public CShaderProgram
{
    Q_OBJECT

public:
    static constexpr int POSITION = 0; ///< attribute, vec2, normalised device coordinates
    static constexpr int TEXTURE = 1;  ///< attribute, vec2

    CSilhouetteShaderProgram();

    template <class Value> void Set(SilhouetteUniform_e eUniform, const Value& value)
    {
        m_uniforms.Set(eUniform, value);
    }

protected:
    void BindAttributes() override;
    void ReadUniformLocations() override;

private:
    CUniformCache m_uniforms;
};
