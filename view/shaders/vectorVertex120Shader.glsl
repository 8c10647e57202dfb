#version 120

// One vector is five vertices with the same attributes but for the third element of a_ij, which names the
// corner: 0 base, 1 head, 2 to 4 the corners of the arrow's head.

attribute vec3 a_position;
attribute vec3 a_normal;
attribute float a_value;
attribute vec3 a_threshold;
attribute vec3 a_vector;
attribute vec3 a_ij;

uniform mat4 u_viewMatrix;
uniform mat4 u_projectionMatrix;
uniform mat4 u_modelMatrix;
uniform vec3 u_colorMap;
uniform float u_vecPlane; // 0 none, 1 XY, 2 XZ, 3 YZ, 4 surface
uniform float u_vecHeadScale;
uniform float u_vecBodyScale;

varying float v_texture;
varying float v_value;
varying vec3 v_threshold;
varying vec3 v_ij;

vec3 planeNormal()
{
    if (u_vecPlane < 0.5)
        return vec3(0.0);
    if (u_vecPlane < 1.5)
        return vec3(0.0, 0.0, 1.0);
    if (u_vecPlane < 2.5)
        return vec3(0.0, 1.0, 0.0);
    if (u_vecPlane < 3.5)
        return vec3(1.0, 0.0, 0.0);
    float normalLength = length(a_normal);
    return normalLength <= 1e-8 ? vec3(0.0) : a_normal / normalLength; // a singular cell has no plane
}

vec3 corner()
{
    vec3 normal = planeNormal();
    vec3 arrow = (a_vector - dot(a_vector, normal) * normal) * u_vecBodyScale;
    vec3 head = a_position + arrow;
    float index = a_ij.z;
    if (index < 0.5)
        return a_position;
    if (index < 1.5)
        return head;
    vec3 along = normalize(arrow);
    vec3 side = normalize(cross(normalize(vec3(0.33333, 1.245, 7.145)), along));
    vec3 third = normalize(cross(side, along));
    float size = u_vecHeadScale * length(arrow);
    if (index < 2.5)
        return head - (along + 0.57 * side) * size;
    if (index < 3.5)
        return head - (along - 0.285 * side + 0.4936 * third) * size;
    return head - (along - 0.285 * side - 0.4936 * third) * size;
}

void main()
{
    gl_Position = u_projectionMatrix * (u_viewMatrix * (u_modelMatrix * vec4(corner(), 1.0)));
    v_texture = 0.0;
    if (u_colorMap.x != 0.0)
        v_texture = clamp((a_value - u_colorMap.y) / (u_colorMap.z - u_colorMap.y), 0.0, 1.0);
    v_value = a_value;
    v_threshold = a_threshold;
    v_ij = a_ij;
}
