#pragma once

#include "view/gl/shaderprogram.h"
#include "view/gl/uniformcache.h"

/** A program that works on the pixels of a whole view. */
class CScreenShaderProgram : public CShaderProgram
{
    Q_OBJECT

public:
    /** Draws a rectangle over the whole viewport; the program must be bound. */
    void DrawOverAll();

protected:
    explicit CScreenShaderProgram(const QString& sFragment);
    void BindAttributes() override;

private:
    static constexpr int POSITION = 0; // attribute, vec2, normalised device coordinates
    static constexpr int TEXTURE = 1;  // attribute, vec2
};

enum SilhouetteUniform_e : int {
    SilhouetteMaskTexture,
    SilhouetteTexelSize,
    SilhouetteThickness,
    SilhouetteHighlightColor,
    SilhouetteSelectColor,
    SILHOUETTE_UNIFORM_COUNT
};

/** Draws a line round what the mask in texture unit 0 holds. */
class CSilhouetteShaderProgram : public CScreenShaderProgram
{
    Q_OBJECT

public:
    CSilhouetteShaderProgram();

    template <class Value> void Set(SilhouetteUniform_e eUniform, const Value& value)
    {
        m_uniforms.Set(eUniform, value);
    }

protected:
    void ReadUniformLocations() override;

private:
    CUniformCache m_uniforms;
};

/** Draws the picture in texture unit 0. */
class CLayerShaderProgram : public CScreenShaderProgram
{
    Q_OBJECT

public:
    CLayerShaderProgram() : CScreenShaderProgram(":/shaders/layerFragmentShader.glsl") {}

protected:
    void ReadUniformLocations() override { setUniformValue("u_layerTexture", 0); }
};
