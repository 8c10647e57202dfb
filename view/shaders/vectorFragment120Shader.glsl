#version 120

uniform vec4 u_constColor;
uniform float u_alphaValue;
uniform vec3 u_colorMap;
uniform mat3 u_thresholdMatrix; // each row: enabled, least, greatest
uniform float u_selected;
uniform float u_highlighted;
uniform float u_isPreview;
uniform vec4 u_highlightColor;
uniform vec4 u_selectColor;
uniform vec4 u_previewColor;
uniform vec4 u_nanColor;
uniform float u_maskMode;
uniform vec4 u_maskColor;
uniform float u_vecSkip;
uniform sampler1D u_colormapTexture;

varying float v_texture;
varying float v_value;
varying vec3 v_threshold;
varying vec3 v_ij;

#ifdef PEELING
uniform sampler2D u_peeledDepth;
uniform vec2 u_texelSize;
const float DEPTH_STEP = 1.2e-7; // two of a buffer of 24 bits

// The place was drawn with a layer in front of this one.
bool isPeeled()
{
    return gl_FragCoord.z <= texture2D(u_peeledDepth, gl_FragCoord.xy * u_texelSize).r + DEPTH_STEP;
}
#endif

bool isOutside(int row)
{
    return u_thresholdMatrix[0][row] != 0.0 &&
           (v_threshold[row] < u_thresholdMatrix[1][row] || v_threshold[row] > u_thresholdMatrix[2][row]);
}

bool isSkipped(float index)
{
    // An index of -1 is one of no grid: all its vectors are drawn.
    return index >= 0.0 && mod(index, u_vecSkip + 1.0) > 0.5;
}

void main()
{
#ifdef PEELING
    if (isPeeled())
        discard;
#endif
    if (isOutside(0) || isOutside(1) || isOutside(2) || isSkipped(v_ij.x) || isSkipped(v_ij.y))
        discard;
    if (u_maskMode == 1.0) {
        gl_FragColor = u_maskColor;
        return;
    }
    // In every mode: no line goes round arrows.
    bool isHighlighted = u_highlighted == 1.0;
    bool isSelected = u_selected == 1.0;
    bool isPreview = u_isPreview == 1.0;

    vec4 color = u_constColor;
    if (isPreview)
        color = u_previewColor;
    else if (isHighlighted)
        color = u_highlightColor;
    else if (isSelected)
        color = u_selectColor;
    else if (u_colorMap.x != 0.0)
        color = v_value > -1e30 && v_value < 1e30 ? texture1D(u_colormapTexture, v_texture) : u_nanColor;
#ifdef PEELING
    gl_FragColor = vec4(color.rgb * u_alphaValue, u_alphaValue);
#else
    gl_FragColor = vec4(color.rgb, u_alphaValue);
#endif
}
