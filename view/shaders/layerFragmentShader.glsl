#version 120

// Puts a finished picture over another one.

uniform sampler2D u_layerTexture;

varying vec2 v_texCoord;

void main() { gl_FragColor = texture2D(u_layerTexture, v_texCoord); }
