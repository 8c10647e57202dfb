#version 120

// Draws a line round what the mask holds (red: selected, green: highlighted), outside of it.

const int RADIUS = 6; // [pixels]; a loop of this language needs a constant

uniform sampler2D u_maskTexture;
uniform vec2 u_texelSize;
uniform float u_thickness; // [pixels]
uniform vec4 u_highlightColor;
uniform vec4 u_selectColor;

varying vec2 v_texCoord;

void main()
{
    vec4 here = texture2D(u_maskTexture, v_texCoord);
    if (here.r > 0.5 || here.g > 0.5)
        discard;
    vec2 found = vec2(0.0);
    for (int y = -RADIUS; y <= RADIUS; ++y)
        for (int x = -RADIUS; x <= RADIUS; ++x) {
            vec2 offset = vec2(float(x), float(y));
            float distanceSquared = dot(offset, offset);
            if (distanceSquared == 0.0 || distanceSquared > u_thickness * u_thickness)
                continue;
            found = max(found, texture2D(u_maskTexture, v_texCoord + offset * u_texelSize).rg);
        }
    if (found.x < 0.5 && found.y < 0.5)
        discard;
    gl_FragColor = vec4(found.y > 0.5 ? u_highlightColor.rgb : u_selectColor.rgb, 1.0);
}
