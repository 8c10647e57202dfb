#version 120

uniform vec4 u_constColor;
uniform float u_alphaValue;
uniform float u_enableLight; // 0 none, 1 diffuse, 2 with highlights
uniform vec3 u_colorMap;
uniform mat3 u_thresholdMatrix; // each row: enabled, least, greatest
uniform float u_selected;
uniform float u_highlighted;
uniform float u_isPreview;
uniform vec4 u_highlightColor;
uniform vec4 u_selectColor;
uniform vec4 u_outlineColor;
uniform vec4 u_previewColor;
uniform vec4 u_nanColor;
uniform float u_highlightOutlineOnly;
uniform float u_useOutlineColor;
uniform float u_maskMode;
uniform vec4 u_maskColor;
uniform float u_outlineSelectMode;
uniform float u_brightness; // of colours of the map
uniform sampler1D u_colormapTexture;

varying vec3 v_normal;
varying float v_texture;
varying float v_value;
varying vec3 v_threshold;
varying float v_isOutline;

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
    // GLSL counts matrices by columns: the row of the threshold is spread over them.
    return u_thresholdMatrix[0][row] != 0.0 &&
           (v_threshold[row] < u_thresholdMatrix[1][row] || v_threshold[row] > u_thresholdMatrix[2][row]);
}

vec4 lit(vec4 color)
{
    if (u_enableLight >= 1.5) {
        vec3 normal = normalize(v_normal);
        vec3 light = normalize(vec3(0.3, 0.5, 0.8));
        float diffuse = abs(dot(normal, light));
        vec3 facing = normal.z < 0.0 ? -normal : normal;
        float specular = pow(max(reflect(-light, facing).z, 0.0), 32.0) * 0.3;
        return (0.15 + 0.75 * diffuse) * color + vec4(specular, specular, specular, 0.0);
    }
    if (u_enableLight >= 0.5) {
        float lengthSquared = dot(v_normal, v_normal);
        float diffuse = lengthSquared < 1e-8 ? 1.0 : abs(v_normal.z) / sqrt(lengthSquared);
        return 0.85 * diffuse * color + 0.15 * color;
    }
    return color;
}

void main()
{
#ifdef PEELING
    if (isPeeled())
        discard;
#endif
    if (isOutside(0) || isOutside(1) || isOutside(2))
        discard;
    if (u_maskMode == 1.0) {
        gl_FragColor = u_maskColor;
        return;
    }
    bool isOutline = v_isOutline == 1.0;
    bool takesSelection = (isOutline || u_highlightOutlineOnly == 0.0) && u_outlineSelectMode != 1.0;
    bool isHighlighted = u_highlighted == 1.0 && takesSelection;
    bool isSelected = u_selected == 1.0 && takesSelection;
    bool isPreview = u_isPreview == 1.0;

    vec4 color = u_constColor;
    if (isPreview)
        color = u_previewColor;
    else if (isHighlighted)
        color = u_highlightColor;
    else if (isSelected)
        color = u_selectColor;
    else if (isOutline && u_useOutlineColor == 1.0)
        color = u_outlineColor;

    if (!isHighlighted && !isSelected && !isPreview && u_colorMap.x != 0.0) {
        color = v_value > -1e30 && v_value < 1e30 ? texture1D(u_colormapTexture, v_texture) : u_nanColor;
        color.rgb *= u_brightness;
    }
    color = lit(color);
#ifdef PEELING
    gl_FragColor = vec4(color.rgb * u_alphaValue, u_alphaValue);
#else
    gl_FragColor = vec4(color.rgb, u_alphaValue);
#endif
}
