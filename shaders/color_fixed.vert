// Untextured drawing as the fixed-function pipeline does it: the vertex colour, transformed
// by the GL projection and model-view matrices.
#version 120

void main()
{
    gl_FrontColor = gl_Color;
    gl_BackColor = gl_Color;
    gl_Position = ftransform();
}
