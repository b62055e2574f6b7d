// Untextured drawing from generic attributes and explicit matrices, independent of the
// fixed-function state.
#version 120

uniform mat4 projection;
uniform mat4 modelview;

attribute vec2 position;
attribute vec4 color;

varying vec4 vertexColor;

void main()
{
    vertexColor = color;
    gl_Position = projection * modelview * vec4(position, 0.0, 1.0);
}
