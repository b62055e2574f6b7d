// The texel modulated by the interpolated vertex colour.
#version 120

uniform sampler2D texture;

varying vec2 uv;
varying vec4 vertexColor;

void main()
{
    gl_FragColor = texture2D(texture, uv) * vertexColor;
}
