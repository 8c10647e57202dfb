#version 120

attribute vec3 a_position;
attribute vec3 a_normal;
attribute float a_value;
attribute vec3 a_threshold;
attribute float a_isOutline;

uniform mat4 u_viewMatrix;
uniform mat4 u_projectionMatrix;
uniform mat3 u_normalMatrix;
uniform mat4 u_modelMatrix;
uniform float u_enableLight;
uniform vec3 u_colorMap; // in use, least, greatest value

varying vec3 v_normal;
varying float v_texture;
varying float v_value;
varying vec3 v_threshold;
varying float v_isOutline;

void main()
{
    gl_Position = u_projectionMatrix * (u_viewMatrix * (u_modelMatrix * vec4(a_position, 1.0)));
    v_texture = 0.0;
    if (u_colorMap.x != 0.0)
        v_texture = clamp((a_value - u_colorMap.y) / (u_colorMap.z - u_colorMap.y), 0.0, 1.0);
    v_normal = vec3(0.0, 0.0, 1.0);
    if (u_enableLight >= 0.5) {
        // The zero normal of a singular cell must arrive as zero: the fragment stage looks for it.
        float normalLength = length(a_normal);
        v_normal = normalLength <= 1e-8 ? vec3(0.0) : u_normalMatrix * (a_normal / normalLength);
    }
    v_value = a_value;
    v_threshold = a_threshold;
    v_isOutline = a_isOutline;
}
