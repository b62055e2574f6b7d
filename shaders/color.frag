// The interpolated vertex colour.
#version 120

varying vec4 vertexColor;

void main()
{
    gl_FragColor = vertexColor;
}
